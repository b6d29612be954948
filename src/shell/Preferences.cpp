#include "shell/Preferences.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include <algorithm>

#include "core/Columns.h"
#include "core/ErrorHandler.h"

namespace kvlr {

namespace {

int IntOr(const SQLite::Column& c, int fallback) {
  return c.isNull() ? fallback : c.getInt();
}
}  // namespace

SystemPreferences LoadSystemPreferences(AppState& state) {
  SystemPreferences p;
  SQLite::Statement q(*state.gDb,
                      "SELECT FavSex, UseLeadOff, BackupCheck, UpdateCheck, MtAgeUp, MtDate "
                      "FROM OPTIONS LIMIT 1");
  if (!q.executeStep()) return p;
  p.fav_sex = IntOr(q.getColumn(0), 0);
  p.use_lead_off = IntOr(q.getColumn(1), 0) != 0;
  p.backup_days = IntOr(q.getColumn(2), 7);
  p.update_days = IntOr(q.getColumn(3), 7);
  p.age_up = static_cast<AgeUpChoice>(std::clamp(IntOr(q.getColumn(4), 0), 0, 3));
  p.age_up_date = Date::FromIso(TextOf(q.getColumn(5)));
  return p;
}

std::optional<std::string> CheckSystemPreferences(const SystemPreferences& p) {
  if (p.update_days < 0 || p.update_days > 60) return std::string(pref_text::kUpdateRange);
  if (p.backup_days < 1 || p.backup_days > 60) return std::string(pref_text::kBackupRange);
  if (p.age_up == AgeUpChoice::kDate && !p.age_up_date) return std::string(pref_text::kAgeUpDate);
  return std::nullopt;
}

void SaveSystemPreferences(AppState& state, const SystemPreferences& p) {
  SQLite::Statement update(*state.gDb,
                           "UPDATE OPTIONS SET FavSex = ?, UseLeadOff = ?, BackupCheck = ?, "
                           "UpdateCheck = ?, MtAgeUp = ?, MtDate = ?");
  SQLite::bind(update, p.fav_sex, p.use_lead_off ? 1 : 0, p.backup_days, p.update_days,
               static_cast<int>(p.age_up));
  if (p.age_up_date) {
    update.bind(6, p.age_up_date->Iso());
  } else {
    update.bind(6);
  }
  update.exec();
  const bool lead_off_changed = p.use_lead_off != state.gUseLeadOff;
  state.gFavSex = p.fav_sex;
  state.gBackupDays = static_cast<uint8_t>(p.backup_days);
  state.gUpdateDays = static_cast<uint8_t>(p.update_days);
  state.gUseLeadOff = p.use_lead_off;
  if (lead_off_changed && state.hooks.rerank_all) state.hooks.rerank_all(state);
}

ReportPreferences LoadReportPreferences(AppState& state) {
  ReportPreferences p;
  SQLite::Statement q(*state.gDb,
                      "SELECT RptUCase, NoAge, Line1, Line2, PaperSize FROM OPTIONS LIMIT 1");
  if (q.executeStep()) {
    p.output_case = std::clamp(IntOr(q.getColumn(0), 0), 0, 2);
    p.open_events = std::clamp(IntOr(q.getColumn(1), 1), 0, 2);
    p.header1 = TextOf(q.getColumn(2));
    p.header2 = TextOf(q.getColumn(3));
    p.paper_size = std::clamp(IntOr(q.getColumn(4), 0), 0, 1);
  }
  p.printer = state.gPrinter;
  return p;
}

void SaveReportPreferences(AppState& state, const ReportPreferences& p) {
  SQLite::Statement update(
      *state.gDb,
      "UPDATE OPTIONS SET RptUCase = ?, NoAge = ?, Line1 = ?, Line2 = ?, PaperSize = ?");
  SQLite::bind(update, p.output_case, p.open_events, p.header1, p.header2, p.paper_size);
  update.exec();
  state.gRptUCase = p.output_case != 0;
  state.gNoAge = p.open_events;
  state.gPrinter = p.printer;
}

std::string DirectoryWord(DirectoryKind kind) {
  switch (kind) {
    case DirectoryKind::kImport:
      return "Import Directory";
    case DirectoryKind::kExport:
      return "Export Directory";
    case DirectoryKind::kBackup:
      return "Backup/Restore Directory";
    case DirectoryKind::kReport:
      return "Report Directory";
  }
  return "";
}

bool SetFavoriteDirectory(AppState& state, DirectoryKind kind,
                          const std::filesystem::path& folder) {
  const std::string path = folder.string();
  if (path.size() > 60) {
    state.io->Tell(pref_text::kPathTooLong);
    return false;
  }
  static constexpr const char* kUpdate[] = {
      "UPDATE OPTIONS SET ImportDir = ?", "UPDATE OPTIONS SET ExportDir = ?",
      "UPDATE OPTIONS SET BackupDir = ?", "UPDATE OPTIONS SET ReportDir = ?"};
  try {
    SQLite::Statement update(*state.gDb, kUpdate[static_cast<int>(kind)]);
    update.bind(1, path);
    update.exec();
  } catch (const std::exception& e) {
    ReportError(state, "frmDirectories.cmdSet_Click", e);
    return false;
  }
  state.io->Message("Set " + DirectoryWord(kind) + " to: " + path, box::kInformation, "");
  return true;
}

}  // namespace kvlr
