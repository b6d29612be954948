#pragma once
// The records of the SDIF (.sd3) and Commlink (.cl2) files, one plain struct each, and
// their readers. A reader only cuts: it never fails on content, short lines read as if
// padded with blanks, and every call overwrites the whole buffer. Readers taking a
// `date_order` read dates in the user's order (0 month, 1 day, 2 year first).

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "interchange/SdifFields.h"

namespace kvlr {

struct SdifA0 {  // file description
  std::string record_code, organization, version, file_code, software_name, software_version,
      contact_name, contact_phone;
  FileDate file_date;
  std::string source_code, content_code, reserved, check_sum;
};

struct SdifB1 {  // meet
  std::string organization, meet_name, address1, address2, location, meet_type;
  FileDate start, end;
  std::string course;
};

struct SdifB2 {  // meet host
  std::string host_name, address1, address2, location, phone;
};

struct SdifC1 {  // team
  std::string organization, lsc, team_code, team_name, short_name, address1, address2, city, state,
      postal_code, country, region, team_code5;
};

struct SdifC2 {  // coach
  std::string organization, lsc, team_code, coach_name, coach_phone;
  std::array<int16_t, 5> counts{};
  std::string reserved, reserved150;
};

struct SdifD0 {  // individual swim
  std::string organization, swimmer_name, swimmer_number, attach, citizen;
  FileDate birth;
  std::string age_text;
  int16_t age = 0;
  std::string sex, event_sex;
  int16_t distance = 0;
  std::string stroke_as_read;  // column 72
  std::string stroke;          // column 150 in place of "H"
  int16_t event_number = 0;
  std::string event_letter;
  int event_age = 0;
  FileDate swim_date;
  FileTime seed_time;
  std::string seed_course;
  FileTime prelim_time;  // diving: points x 100
  std::string prelim_course;
  FileTime swim_off_time;
  std::string swim_off_course;
  FileTime finals_time;  // diving: points x 100
  std::string finals_course;
  int16_t prelim_heat = 0, prelim_lane = 0, finals_heat = 0, finals_lane = 0;
  int16_t prelim_place = 0, finals_place = 0;
  double points_tenths = 0;
  std::string lower_time_class, upper_time_class, flight, private_stroke, points_hundredths,
      exhibition;
};

struct SdifD1 {  // swimmer
  std::string organization, lsc, team_code, team_code5, swimmer_name, swimmer_number, attach,
      citizen;
  FileDate birth;
  std::string age, sex, admin1, admin2, day_phone, evening_phone;
  FileDate last_membership;
  std::string member_code;
};

struct SdifD2 {  // swimmer address
  std::string organization, lsc, team_code, team_code5, swimmer_name, addressee, street, city,
      state, country, zip, country_code, region, answer, season;
};

struct SdifD3 {  // swimmer extra
  std::string new_swimmer_number, preferred_first_name, ethnicity;
  std::array<char, 12> flags{};
};

struct SdifE0 {  // relay team swim
  std::string organization, team_letter, lsc, team_code;
  int16_t f0_count = 0;
  std::string event_sex;
  int16_t distance = 0;
  std::string stroke_as_read;  // column 26
  std::string stroke;          // column 150 in place of "H"
  std::string relay_stroke;    // as stored: "6" becomes "1", "7" becomes "5"
  std::string event_number_text;
  int16_t event_number = 0;
  std::string event_letter;
  int event_age = 0;
  std::string total_age;
  FileDate swim_date;
  FileTime seed_time;
  std::string seed_course;
  FileTime prelim_time;
  std::string prelim_course;
  FileTime swim_off_time;
  std::string swim_off_course;
  FileTime finals_time;
  std::string finals_course;
  int16_t prelim_heat = 0, prelim_lane = 0, finals_heat = 0, finals_lane = 0;
  int16_t prelim_place = 0, finals_place = 0;
  double points_tenths = 0;
  std::string lower_time_class, upper_time_class, private_stroke, exhibition;
  bool no_finals = false;  // the finals time is 0
};

struct SdifF0 {  // relay swimmer
  std::string organization, lsc, team_code, team_code5, swimmer_name, swimmer_number, citizen;
  FileDate birth;
  std::string age, sex, prelim_order, swim_off_order, finals_order;
  FileTime leg_time;
  std::string leg_course, take_off, new_swimmer_number;
};

struct SdifG0 {  // splits
  std::string organization, swimmer_name, swimmer_number;
  int16_t sequence = 0, total_splits = 0, split_distance = 0;
  std::string split_code;
  std::array<FileTime, 10> splits{};
  int count = 0;  // splits this line holds: total less earlier lines' 10 each, 0..10
  std::string prelim_final;
};

struct SdifJ0 {  // record line
  std::string meet_code, event_sex;
  int16_t distance = 0;
  std::string stroke;
  std::array<int32_t, 3> times{};
  int event_age = 0;
  std::string reserved51, reserved52, reserved54;
  FileDate date;
};

struct SdifJ2 {  // standard line (also what a J1 line is read into)
  std::string event_sex;
  int16_t distance = 0;
  std::string stroke, color;
  std::array<FileTime, 6> times{};
  FileDate date;
};

struct SdifZ0 {  // file terminator
  std::string organization, file_code, notes;
  int16_t b1_count = 0, meet_count = 0, c1_count = 0, team_count = 0, d0_count = 0,
          swimmer_count = 0, e0_count = 0, f0_count = 0, g0_count = 0;
  std::array<int16_t, 4> batch_counts{};
};

// Each returns true (the platform cannot fail here); kept for the callers' flow.
bool LoadA0Rec(std::string_view line, int date_order, SdifA0& rec);
bool LoadB1Rec(std::string_view line, int date_order, SdifB1& rec);
bool LoadB2Rec(std::string_view line, SdifB2& rec);
bool LoadC1Rec(std::string_view line, SdifC1& rec);
bool LoadC2Rec(std::string_view line, SdifC2& rec);
bool LoadD0Rec(std::string_view line, int date_order, SdifD0& rec);
bool LoadD1Rec(std::string_view line, int date_order, SdifD1& rec);
bool LoadD2Rec(std::string_view line, SdifD2& rec);
bool LoadD3Rec(std::string_view line, SdifD3& rec);
bool LoadE0Rec(std::string_view line, int date_order, SdifE0& rec);
bool LoadF0Rec(std::string_view line, int date_order, SdifF0& rec);
bool LoadG0Rec(std::string_view line, SdifG0& rec);
bool LoadJ0Rec(std::string_view line, int date_order, SdifJ0& rec);
bool LoadJ2Rec(std::string_view line, int date_order, SdifJ2& rec);
bool LoadZ0Rec(std::string_view line, SdifZ0& rec);

}  // namespace kvlr
