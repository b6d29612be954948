#pragma once
// The one-row OPTIONS table of a database and the values it feeds.

#include <filesystem>

#include "core/AppState.h"

namespace kvlr {

// The defaults a new OPTIONS row gets; the fields not named keep the table's defaults.
struct OptionDefaults {
  static constexpr double kCvtFactor = 1.11;
  static constexpr double kFreeTurn = 0.8;
  static constexpr double kBackTurn = 0.6;
  static constexpr double kBreastTurn = 1;
  static constexpr double kFlyTurn = 0.7;
  static constexpr double kIMTurn = 0.8;
  static constexpr double kStraight = 0;
  static constexpr double kCvt500 = 0.875;
  static constexpr double kCvt1650 = 1.006;
  static constexpr int kCvtType = 2;
  static constexpr bool kY2L = true;
  static constexpr int kBackupCheck = 7;
  static constexpr int kUpdateCheck = 7;
};

// Reads OPTIONS into the state (making the row with the defaults and today's LastBackup when
// the table is empty), then loads the stroke list. Store failures throw.
void GetOptions(AppState& state);

// Which favourite folder GetDirectories reads.
enum class DirectoryKind { kImport = 0, kExport = 1, kBackup = 2, kReport = 3 };

// The favourite folder of that kind if it exists, otherwise gDataDir.
std::filesystem::path GetDirectories(const AppState& state, DirectoryKind which);

}  // namespace kvlr
