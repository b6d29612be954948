#include "interchange/SdifRecords.h"

#include <algorithm>
#include <cmath>

#include "core/VbRules.h"

namespace kvlr {

namespace {

// Diving events carry points in the time columns; the score is points x 100.
FileTime DivingPoints(const SdifColumns& c, int from) {
  FileTime out{c.Text(from, from + 7), 0};
  const double hundredths = c.Number(from, from + 7) * 100.0;
  out.score = static_cast<int32_t>(RoundHalfEven(std::clamp(hundredths, -2.0e9, 2.0e9)));
  return out;
}

// Points kept in tenths: whole points from `from`..`from`+3, hundredths from 151-152.
double PointsTenths(const SdifColumns& c, int from) {
  return c.Number(from, from + 3) * 10.0 + c.Number(151, 152) / 10.0;
}

}  // namespace

bool LoadA0Rec(std::string_view line, int date_order, SdifA0& rec) {
  const SdifColumns c(line);
  rec.record_code = c.Text(1, 2);
  rec.organization = c.Text(3, 3);
  rec.version = c.Text(4, 11);
  rec.file_code = c.Text(12, 13);
  rec.software_name = c.Text(44, 63);
  rec.software_version = c.Text(64, 73);
  rec.contact_name = c.Text(74, 93);
  rec.contact_phone = c.Text(94, 105);
  rec.file_date = c.DateAt(106, date_order);
  rec.source_code = c.Text(150, 151);
  rec.content_code = c.Text(152, 153);
  rec.reserved = c.Text(156, 157);
  rec.check_sum = c.Text(159, 160);
  return true;
}

bool LoadB1Rec(std::string_view line, int date_order, SdifB1& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.meet_name = c.Text(12, 41);
  rec.address1 = c.Text(42, 63);
  rec.address2 = c.Text(64, 85);
  rec.location = c.Text(86, 120);
  rec.meet_type = c.Text(121, 121);
  rec.start = c.DateAt(122, date_order);
  rec.end = c.DateAt(130, date_order);
  rec.course = c.Text(150, 150);
  return true;
}

bool LoadB2Rec(std::string_view line, SdifB2& rec) {
  const SdifColumns c(line);
  rec.host_name = c.Text(12, 41);
  rec.address1 = c.Text(42, 63);
  rec.address2 = c.Text(64, 85);
  rec.location = c.Text(86, 120);
  rec.phone = c.Text(121, 132);
  return true;
}

bool LoadC1Rec(std::string_view line, SdifC1& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.lsc = c.Trimmed(12, 13);
  rec.team_code = c.Trimmed(14, 17);
  rec.team_name = c.Text(18, 47);
  rec.short_name = c.Text(48, 63);
  rec.address1 = c.Text(64, 85);
  rec.address2 = c.Text(86, 107);
  rec.city = c.Text(108, 127);
  rec.state = c.Text(128, 129);
  rec.postal_code = c.Text(130, 139);
  rec.country = c.Text(140, 142);
  rec.region = c.Text(143, 143);
  rec.team_code5 = c.Text(150, 150);
  return true;
}

bool LoadC2Rec(std::string_view line, SdifC2& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.lsc = c.Text(12, 13);
  rec.team_code = c.Text(14, 17);
  rec.coach_name = c.Text(18, 47);
  rec.coach_phone = c.Text(48, 59);
  rec.counts = {c.Int(60, 65), c.Int(66, 71), c.Int(72, 76), c.Int(77, 82), c.Int(83, 88)};
  rec.reserved = c.Text(89, 104);
  rec.reserved150 = c.Text(150, 150);
  return true;
}

bool LoadD0Rec(std::string_view line, int date_order, SdifD0& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.swimmer_name = UCase(c.Text(12, 39));
  rec.swimmer_number = c.Text(40, 51);
  rec.attach = c.Text(52, 52);
  rec.citizen = c.Trimmed(53, 55);
  rec.birth = c.DateAt(56, date_order);
  rec.age_text = c.Text(64, 65);
  rec.age = c.Int(64, 65);
  rec.sex = c.Text(66, 66);
  rec.event_sex = c.Text(67, 67);
  rec.distance = c.Int(68, 71);
  rec.stroke_as_read = c.Text(72, 72);
  rec.event_number = c.Int(73, 75);
  rec.event_letter = c.Trimmed(76, 76);
  rec.event_age = c.AgeRangeAt(77);
  rec.swim_date = c.DateAt(81, date_order);
  rec.seed_time = c.TimeAt(89);
  rec.seed_course = c.Text(97, 97);
  rec.prelim_course = c.Text(106, 106);
  rec.swim_off_time = c.TimeAt(107);
  rec.swim_off_course = c.Text(115, 115);
  rec.finals_course = c.Text(124, 124);
  rec.prelim_heat = c.Int(125, 126);
  rec.prelim_lane = c.Int(127, 128);
  rec.finals_heat = c.Int(129, 130);
  rec.finals_lane = c.Int(131, 132);
  rec.prelim_place = c.Int(133, 135);
  rec.finals_place = c.Int(136, 138);
  rec.points_tenths = PointsTenths(c, 139);
  rec.lower_time_class = c.Text(143, 143);
  rec.upper_time_class = c.Text(144, 144);
  rec.flight = c.Text(145, 145);
  rec.private_stroke = c.Text(150, 150);
  rec.points_hundredths = c.Text(151, 152);
  rec.exhibition = c.Text(156, 156);
  if (rec.stroke_as_read == "H") {
    rec.stroke = rec.private_stroke;
    rec.prelim_time = DivingPoints(c, 98);
    rec.finals_time = DivingPoints(c, 116);
  } else {
    rec.stroke = rec.stroke_as_read;
    rec.prelim_time = c.TimeAt(98);
    rec.finals_time = c.TimeAt(116);
  }
  return true;
}

bool LoadD1Rec(std::string_view line, int date_order, SdifD1& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.lsc = c.Text(12, 13);
  rec.team_code = c.Trimmed(14, 17);
  rec.team_code5 = c.Text(18, 18);
  rec.swimmer_name = c.Text(19, 46);
  rec.swimmer_number = c.Text(48, 59);
  rec.attach = c.Text(60, 60);
  rec.citizen = c.Trimmed(61, 63);
  rec.birth = c.DateAt(64, date_order);
  rec.age = c.Text(72, 73);
  rec.sex = c.Text(74, 74);
  rec.admin1 = c.Text(75, 104);
  rec.admin2 = c.Text(105, 124);
  rec.day_phone = c.Text(125, 136);
  rec.evening_phone = c.Text(137, 148);
  rec.last_membership = c.DateAt(149, date_order);
  rec.member_code = c.Text(157, 157);
  return true;
}

bool LoadD2Rec(std::string_view line, SdifD2& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.lsc = c.Text(12, 13);
  rec.team_code = c.Text(14, 17);
  rec.team_code5 = c.Text(18, 18);
  rec.swimmer_name = c.Text(19, 46);
  rec.addressee = c.Text(47, 76);
  rec.street = c.Trimmed(77, 106);
  rec.city = c.Trimmed(107, 126);
  rec.state = c.Text(127, 128);
  rec.country = c.Trimmed(129, 140);
  rec.zip = c.Trimmed(141, 150);
  rec.country_code = c.Text(151, 153);
  rec.region = c.Text(154, 154);
  rec.answer = c.Text(155, 155);
  rec.season = c.Text(156, 156);
  return true;
}

bool LoadD3Rec(std::string_view line, SdifD3& rec) {
  const SdifColumns c(line);
  rec.new_swimmer_number = c.Trimmed(3, 16);
  rec.preferred_first_name = c.Text(17, 31);
  rec.ethnicity = c.Text(32, 33);
  const std::string flags = c.Text(34, 46);  // column 42 is not a flag
  for (int i = 0; i < 8; ++i) rec.flags[i] = flags[i];
  for (int i = 0; i < 4; ++i) rec.flags[8 + i] = flags[9 + i];
  return true;
}

bool LoadE0Rec(std::string_view line, int date_order, SdifE0& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.team_letter = c.Text(12, 12);
  rec.lsc = c.Text(13, 14);
  rec.team_code = c.Text(15, 18);
  rec.f0_count = c.Int(19, 20);
  rec.event_sex = c.Text(21, 21);
  rec.distance = c.Int(22, 25);
  rec.stroke_as_read = c.Text(26, 26);
  rec.private_stroke = c.Text(150, 150);
  rec.stroke = rec.stroke_as_read == "H" ? rec.private_stroke : rec.stroke_as_read;
  rec.relay_stroke = rec.stroke == "6" ? "1" : rec.stroke == "7" ? "5" : rec.stroke;
  rec.event_number_text = c.Text(27, 29);
  rec.event_number = c.Int(27, 29);
  rec.event_letter = c.Trimmed(30, 30);
  rec.event_age = c.AgeRangeAt(31);
  rec.total_age = c.Text(35, 37);
  rec.swim_date = c.DateAt(38, date_order);
  rec.seed_time = c.TimeAt(46);
  rec.seed_course = c.Text(54, 54);
  rec.prelim_time = c.TimeAt(55);
  rec.prelim_course = c.Text(63, 63);
  rec.swim_off_time = c.TimeAt(64);
  rec.swim_off_course = c.Text(72, 72);
  rec.finals_time = c.TimeAt(73);
  rec.finals_course = c.Text(81, 81);
  rec.prelim_heat = c.Int(82, 83);
  rec.prelim_lane = c.Int(84, 85);
  rec.finals_heat = c.Int(86, 87);
  rec.finals_lane = c.Int(88, 89);
  rec.prelim_place = c.Int(90, 92);
  rec.finals_place = c.Int(93, 95);
  rec.points_tenths = PointsTenths(c, 96);
  rec.lower_time_class = c.Text(100, 100);
  rec.upper_time_class = c.Text(101, 101);
  rec.exhibition = c.Text(156, 156);
  rec.no_finals = rec.finals_time.score == 0;
  return true;
}

bool LoadF0Rec(std::string_view line, int date_order, SdifF0& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.lsc = c.Text(16, 17);
  rec.team_code = c.Text(18, 21);
  rec.team_code5 = c.Text(22, 22);
  rec.swimmer_name = c.Text(23, 45);  // of columns 23-50 only 23 count
  rec.swimmer_number = c.Text(51, 62);
  rec.citizen = c.Text(63, 65);
  rec.birth = c.DateAt(66, date_order);
  rec.age = c.Text(74, 75);
  rec.sex = c.Text(76, 76);
  rec.prelim_order = c.Text(77, 77);
  rec.swim_off_order = c.Text(78, 78);
  rec.finals_order = c.Text(79, 79);
  rec.leg_time = c.TimeAt(80);
  rec.leg_course = c.Text(88, 88);
  rec.take_off = c.Text(89, 92);
  rec.new_swimmer_number = c.Text(93, 106);
  return true;
}

bool LoadG0Rec(std::string_view line, SdifG0& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.swimmer_name = c.Text(16, 43);
  rec.swimmer_number = c.Text(44, 55);
  rec.sequence = c.Int(56, 56);
  rec.total_splits = c.Int(57, 58);
  rec.split_distance = c.Int(59, 62);
  rec.split_code = c.Text(63, 63);
  for (int i = 0; i < 10; ++i) rec.splits[i] = c.TimeAt(64 + 8 * i);
  const int held_before = std::max(0, rec.sequence - 1) * 10;
  rec.count = std::clamp(rec.total_splits - held_before, 0, 10);
  rec.prelim_final = c.Text(144, 144);
  return true;
}

bool LoadJ0Rec(std::string_view line, int date_order, SdifJ0& rec) {
  const SdifColumns c(line);
  rec.meet_code = c.Text(11, 11);
  rec.event_sex = c.Text(17, 17);
  rec.distance = c.Int(18, 21);
  rec.stroke = c.Text(22, 22);
  for (int i = 0; i < 3; ++i) rec.times[i] = c.TimeAt(23 + 8 * i).score;
  rec.event_age = c.AgeRangeAt(47);
  rec.reserved51 = c.Text(51, 51);
  rec.reserved52 = c.Text(52, 53);
  rec.reserved54 = c.Text(54, 55);
  rec.date = c.DateAt(66, date_order);
  return true;
}

bool LoadJ2Rec(std::string_view line, int date_order, SdifJ2& rec) {
  const SdifColumns c(line);
  rec.event_sex = c.Text(3, 3);
  rec.distance = c.Int(4, 7);
  rec.stroke = c.Text(8, 8);
  rec.color = c.Text(9, 12);
  for (int i = 0; i < 6; ++i) rec.times[i] = c.TimeAt(13 + 8 * i);
  rec.date = c.DateAt(66, date_order);
  return true;
}

bool LoadZ0Rec(std::string_view line, SdifZ0& rec) {
  const SdifColumns c(line);
  rec.organization = c.Text(3, 3);
  rec.file_code = c.Text(12, 13);
  rec.notes = c.Text(14, 43);
  rec.b1_count = c.Int(44, 46);
  rec.meet_count = c.Int(47, 49);
  rec.c1_count = c.Int(50, 53);
  rec.team_count = c.Int(54, 57);
  rec.d0_count = c.Int(58, 63);
  rec.swimmer_count = c.Int(64, 69);
  rec.e0_count = c.Int(70, 74);
  rec.f0_count = c.Int(75, 80);
  rec.g0_count = c.Int(81, 86);
  rec.batch_counts = {c.Int(87, 91), c.Int(92, 94), c.Int(98, 100), c.Int(101, 103)};
  return true;
}

}  // namespace kvlr
