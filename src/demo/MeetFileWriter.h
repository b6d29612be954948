#pragma once
// The demo's writer of meet result files: one made-up meet as a Commlink (.cl2), SDIF
// (.sd3) or NV3 (.nv3) text in the fixed columns the import reads, check sums included.
// Times are hundredths of a second; names are plain made-up words.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Date.h"

namespace kvlr::demo {

enum class FileFormat { kCl2, kSd3, kNv3 };

struct Swimmer {
  std::string last, first, initial;
  char sex = 'F';
  Date birth;
  std::string id;  // the meet host's swimmer number
};

// One individual event of one swimmer. A time of 0 is no swim in that round.
struct Swim {
  int swimmer = 0;  // index into MeetFile::swimmers
  int16_t distance = 0;
  int16_t stroke = 1;  // 1 free .. 5 IM
  int event_number = 0;
  int lo_hi = 0;  // 1112 for 11-12, 10 for 10 and under
  int32_t seed = 0;
  int32_t prelim = 0;
  int prelim_place = 0;
  int32_t finals = 0;
  int finals_place = 0;
  bool disqualified = false;    // the final is "DQ"
  std::vector<int32_t> splits;  // cumulative, every 50 of the final
};

struct Leg {
  int swimmer = 0;
  int32_t time = 0;
  std::vector<int32_t> splits;  // cumulative within the leg, every 50
};

struct Relay {
  char sex = 'F';
  int16_t distance = 0;  // the whole relay's
  bool medley = false;
  int event_number = 0;
  int lo_hi = 0;
  std::array<Leg, 4> legs;  // in swimming order
  int finals_place = 0;

  int32_t Time() const;
};

struct MeetFile {
  FileFormat format = FileFormat::kCl2;
  std::string name, location;
  Date start, end;
  char course = 'Y';
  std::string lsc, team_code, team_name;
  std::vector<Swimmer> swimmers;
  std::vector<Swim> swims;
  std::vector<Relay> relays;  // not written to .nv3: its import passes over relays
};

// Whole years from `birth` to `day`.
int AgeOn(const Date& birth, const Date& day);

// The file's lines, each ended by CR LF.
std::string MeetFileText(const MeetFile& meet);

// ".cl2", ".sd3" or ".nv3".
const char* Extension(FileFormat format);

}  // namespace kvlr::demo
