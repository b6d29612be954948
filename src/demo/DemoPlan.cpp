#include "demo/DemoPlan.h"

#include <array>
#include <cmath>
#include <random>

#include <fmt/format.h>

#include "core/TimeText.h"

namespace kvlr::demo {
namespace {

// One event a swimmer swims: its yards and metres distances (500 yards answers 400 metres),
// and the swimmer's yards time when the demo's timeline begins.
struct EventModel {
  int16_t yards;
  int16_t metres;
  int16_t stroke;
  int32_t base;
  bool long_course = true;  // swum in a 50-metre pool too
};

struct Athlete {
  Swimmer swimmer;
  double improvement;  // share of the time taken off over the whole timeline
  std::vector<EventModel> events;
};

constexpr long kTimelineDays = 546;
constexpr int kMeetCount = 16;

const std::vector<EventModel> kGirlEvents = {
    {50, 50, 1, 3050},    {100, 100, 1, 6650}, {200, 200, 1, 14600},
    {500, 400, 1, 40500}, {100, 100, 2, 7600}, {200, 200, 2, 16300},
    {100, 100, 3, 8600},  {100, 100, 4, 7700}, {200, 200, 5, 16500}};
const std::vector<EventModel> kBoyEvents = {
    {50, 50, 1, 3750}, {100, 100, 1, 8500}, {200, 200, 1, 19000},      {50, 50, 2, 4500},
    {50, 50, 3, 5000}, {50, 50, 4, 4400},   {100, 100, 5, 9500, false}};

struct Stem {
  const char* name;
  const char* location;
};
const std::vector<Stem> kYardMeets = {{"Pretend Pines Kickoff", "Pretend Pines, ZZ"},
                                      {"Imaginary Bay Autumn Dash", "Imaginary Bay, ZZ"},
                                      {"Lake Nowhere Sprints", "Lake Nowhere, ZZ"},
                                      {"Marlins Winter Open", "Anytown, ZZ"},
                                      {"Fictional Falls Invite", "Fictional Falls, ZZ"}};
const std::vector<Stem> kMetreMeets = {{"Nowhere Metric Cup", "Nowhere, ZZ"}};
const std::vector<Stem> kLongMeets = {{"Sandbox Valley LC Open", "Sandbox Valley, ZZ"},
                                      {"Summer Splash LC Invite", "Anytown, ZZ"},
                                      {"Pretend Pines LC Meet", "Pretend Pines, ZZ"},
                                      {"Anytown LC Classic", "Anytown, ZZ"}};
const Stem kYardChamps = {"Demo County Champs", "Anytown, ZZ"};
const Stem kLongChamps = {"Demo State LC Champs", "Sandbox Valley, ZZ"};

// Teammates from other made-up families: the import must pass them over.
const std::array<Swimmer, 6> kTeammates = {{{"Quill", "Hazel", "", 'F', {}, "DEMOHQ000003"},
                                            {"Brightwater", "Nell", "", 'F', {}, "DEMONB000004"},
                                            {"Ottersby", "June", "", 'F', {}, "DEMOJO000005"},
                                            {"Fenwick", "Arlo", "", 'M', {}, "DEMOAF000006"},
                                            {"Pebble", "Milo", "", 'M', {}, "DEMOMP000007"},
                                            {"Larkspur", "Ezra", "", 'M', {}, "DEMOEL000008"}}};

class Model {
 public:
  Model(const Date& today, uint32_t seed) : rng_(seed), start_(AddDays(today, -kTimelineDays)) {
    const Swimmer girl{"Sampleton", "Mira", "J", 'F', Date{today.year - 13, 3, 14}, "DEMOMS000001"};
    const Swimmer boy{"Sampleton", "Theo", "", 'M', Date{today.year - 10, 9, 2}, "DEMOTS000002"};
    athletes_ = {{girl, 0.07, kGirlEvents}, {boy, 0.12, kBoyEvents}};
  }

  Plan Make() {
    Plan plan;
    for (const Athlete& a : athletes_) plan.family.push_back(a.swimmer);
    std::array<size_t, 3> stem_counter{};
    for (int i = 0; i < kMeetCount; ++i) plan.meets.push_back(MakeMeet(i, stem_counter));
    plan.goals = Goals();
    plan.standard_csv = StandardCsv();
    return plan;
  }

 private:
  // A time in hundredths: the swimmer's model at `progress` (0 start, 1 today) with noise
  // of up to `spread` either way.
  int32_t Time(const Athlete& a, const EventModel& e, char course, double progress,
               double spread = 0.012) {
    double t = e.base * CourseFactor(e, course) * (1 - a.improvement * progress);
    t *= 1 + spread * (static_cast<double>(rng_() % 2001) - 1000) / 1000;
    return static_cast<int32_t>(std::lround(t));
  }

  static double CourseFactor(const EventModel& e, char course) {
    if (course == 'Y') return 1.0;
    const double metres = course == 'S' ? 1.11 : 1.13;
    return e.yards == e.metres ? metres : metres * 0.80;
  }

  int Pick(int n) { return static_cast<int>(rng_() % static_cast<uint32_t>(n)); }

  static int LoHi(int age) {
    if (age <= 10) return 10;
    const int lo = age % 2 == 1 ? age : age - 1;
    return lo * 100 + lo + 1;
  }

  // Cumulative splits every 50: a quick first length, then a slow fade.
  static std::vector<int32_t> Splits(int32_t total, int distance) {
    const int n = distance / 50;
    if (n < 2) return {};
    std::vector<double> weights;
    double sum = 0;
    for (int k = 0; k < n; ++k) sum += weights.emplace_back(k == 0 ? 0.94 : 1 + 0.015 * k);
    std::vector<int32_t> out;
    double run = 0;
    for (int k = 0; k < n; ++k) {
      run += weights[static_cast<size_t>(k)];
      out.push_back(k == n - 1 ? total : static_cast<int32_t>(std::lround(total * run / sum)));
    }
    return out;
  }

  // The Saturday on or before the i-th fifth week.
  Date MeetDate(int i) const {
    const Date d = AddDays(start_, i * 35L);
    return AddDays(d, -((Weekday(d) + 1) % 7));
  }

  static char CourseOf(const Date& d) {
    return d.month >= 4 && d.month <= 8 ? 'L' : d.month == 12 ? 'S' : 'Y';
  }

  PlannedMeet MakeMeet(int i, std::array<size_t, 3>& stem_counter) {
    const Date start = MeetDate(i);
    const double progress = static_cast<double>(DaysBetween(start_, start)) / kTimelineDays;
    const char course = CourseOf(start);
    PlannedMeet pm;
    // The last meet of a yards winter or a summer long-course season.
    pm.championship =
        i + 1 < kMeetCount && CourseOf(MeetDate(i + 1)) != course &&
        (start.month == 2 || start.month == 3 || start.month == 7 || start.month == 8);
    const size_t slot = course == 'Y' ? 0 : course == 'S' ? 1 : 2;
    const auto& stems = slot == 0 ? kYardMeets : slot == 1 ? kMetreMeets : kLongMeets;
    const Stem stem = pm.championship ? (course == 'L' ? kLongChamps : kYardChamps)
                                      : stems[stem_counter[slot]++ % stems.size()];
    MeetFile& m = pm.file;
    m.format = i % 5 == 4 ? FileFormat::kNv3 : i % 4 == 2 ? FileFormat::kSd3 : FileFormat::kCl2;
    m.name = fmt::format("{} {}", start.year, stem.name);
    m.location = stem.location;
    m.start = start;
    m.end = pm.championship ? AddDays(start, 1) : start;
    m.course = course;
    m.lsc = "ZZ";
    m.team_code = "MUMM";
    m.team_name = "Made-Up Marlins";
    for (const Athlete& a : athletes_) m.swimmers.push_back(a.swimmer);
    for (Swimmer t : kTeammates) {
      t.birth = Date{start.year - 11 - Pick(3), 1 + Pick(12), 1 + Pick(28)};
      m.swimmers.push_back(t);
    }

    // The family's swims: four events for her, three for him, moving through their lists.
    int number = 1;
    for (size_t f = 0; f < athletes_.size(); ++f) {
      const Athlete& a = athletes_[f];
      const int age = AgeOn(a.swimmer.birth, start);
      const size_t count = f == 0 ? 4 : 3;
      for (size_t k = 0; k < count; ++k) {
        const EventModel& e = a.events[(static_cast<size_t>(i) * 3 + k * 2) % a.events.size()];
        if (course == 'L' && !e.long_course) continue;
        Swim s;
        s.swimmer = static_cast<int>(f);
        s.distance = course == 'Y' ? e.yards : e.metres;
        s.stroke = e.stroke;
        s.event_number = number++;
        s.lo_hi = LoHi(age);
        s.seed = Time(a, e, course, std::max(0.0, progress - 0.1), 0.005);
        s.finals = Time(a, e, course, progress);
        s.finals_place = 1 + Pick(8);
        if (pm.championship && f == 0) {
          s.prelim = s.finals + 20 + Pick(80);
          s.prelim_place = 1 + Pick(16);
        }
        if (f == 1 && i == 3 && k == 1) {
          s.disqualified = true;  // every swimmer meets a DQ sooner or later
          s.finals = 0;
        }
        s.splits = Splits(s.finals, s.distance);
        m.swims.push_back(std::move(s));
      }
    }
    // Teammates swim too, so the file is not the family's alone.
    for (size_t t = 0; t < kTeammates.size(); ++t) {
      Swim s;
      s.swimmer = static_cast<int>(athletes_.size() + t);
      s.distance = 100;
      s.stroke = static_cast<int16_t>(1 + t % 4);
      s.event_number = number++;
      s.lo_hi = 1112;
      s.finals = static_cast<int32_t>(7000 * CourseFactor({100, 100, 1, 0}, course)) + Pick(900);
      s.finals_place = 1 + Pick(12);
      m.swims.push_back(std::move(s));
    }
    if (m.format != FileFormat::kNv3) AddRelays(pm, i, progress, number);
    return pm;
  }

  // Her 400 free relay at every meet (lead-off at even meets, anchor otherwise); his 200
  // free relay in the short pools, and a 200 medley relay he leads off now and then.
  void AddRelays(PlannedMeet& pm, int i, double progress, int number) {
    MeetFile& m = pm.file;
    const auto relay = [&](size_t f, int16_t distance, bool medley, int family_leg,
                           const EventModel& e, size_t mates) {
      const Athlete& a = athletes_[f];
      Relay r;
      r.sex = a.swimmer.sex;
      r.distance = distance;
      r.medley = medley;
      r.event_number = number++;
      r.lo_hi = LoHi(AgeOn(a.swimmer.birth, m.start));
      r.finals_place = 1 + Pick(6);
      const int32_t own = Time(a, e, m.course, progress);
      size_t mate = mates;
      for (int leg = 0; leg < 4; ++leg) {
        Leg& l = r.legs[static_cast<size_t>(leg)];
        if (leg == family_leg) {
          l.swimmer = static_cast<int>(f);
          // A relay start is worth most of a second after the first leg.
          l.time = leg == 0 ? own : own - 60;
          if (leg == 0) l.splits = Splits(l.time, distance / 4);
        } else {
          l.swimmer = static_cast<int>(athletes_.size() + mate++);
          l.time = own + 100 + Pick(300);
        }
      }
      if (family_leg > 0)
        pm.later_legs.push_back(
            {static_cast<int>(f), distance, r.legs[static_cast<size_t>(family_leg)].time});
      m.relays.push_back(r);
    };
    relay(0, 400, false, i % 2 == 0 ? 0 : 3, kGirlEvents[1], 0);
    if (m.course != 'L') relay(1, 200, false, i % 3 == 0 ? 0 : 1, kBoyEvents[0], 3);
    if (m.course == 'Y' && i % 4 == 1) relay(1, 200, true, 0, kBoyEvents[3], 3);
  }

  std::vector<Goal> Goals() {
    std::vector<Goal> goals;
    const std::array<std::vector<size_t>, 2> picks = {{{1, 8, 7}, {0, 1, 2}}};
    for (size_t f = 0; f < athletes_.size(); ++f) {
      for (const char course : {'Y', 'L'}) {
        for (size_t k : picks[f]) {
          const EventModel& e = athletes_[f].events[k];
          // A goal a little beyond today's form, rounded to a tenth; the goal meets hold the
          // default events, so no 50s but free.
          const int32_t t = Time(athletes_[f], e, course, 1.25, 0) / 10 * 10;
          goals.push_back(
              {static_cast<int>(f), course, course == 'Y' ? e.yards : e.metres, e.stroke, t});
        }
      }
    }
    return goals;
  }

  // Five levels, the hardest first; each course's cut from the swimmer's model at the start
  // of the timeline, the older age group a little faster.
  std::string StandardCsv() {
    static constexpr std::array<const char*, 5> kLevels = {"AAA", "AA", "A", "BB", "B"};
    static constexpr std::array<double, 5> kFactors = {0.86, 0.90, 0.95, 0.99, 1.04};
    std::string csv = "Sex,I_R,Lo_Age,Hi_Age,Distance,Stroke";
    for (const char* level : kLevels) {
      for (const char course : {'Y', 'S', 'L'}) {
        csv += fmt::format(",{0} {1} Faster,{0} {1} Slower", level, course);
      }
    }
    csv += "\n";
    const std::array<std::array<int, 2>, 2> younger = {{{11, 12}, {0, 10}}};
    const std::array<double, 2> older_factor = {0.95, 0.92};
    for (size_t f = 0; f < athletes_.size(); ++f) {
      const Athlete& a = athletes_[f];
      for (int group = 0; group < 2; ++group) {
        const int lo = group == 0 ? younger[f][0] : younger[f][1] + 1;
        const int hi = group == 0 ? younger[f][1] : younger[f][1] + 2;
        const double factor = group == 0 ? 1.0 : older_factor[f];
        for (const EventModel& e : a.events) {
          for (const int16_t distance : {e.yards, e.metres}) {
            csv += fmt::format("{},I,{},{},{},{}", a.swimmer.sex, lo, hi, distance, e.stroke);
            for (size_t level = 0; level < kLevels.size(); ++level) {
              for (const char course : {'Y', 'S', 'L'}) {
                const bool yards = course == 'Y';
                const bool fits =
                    (yards ? e.yards : e.metres) == distance && (course != 'L' || e.long_course);
                const double cut = e.base * CourseFactor(e, course) * factor * kFactors[level];
                csv += fits ? "," + FormatTime(static_cast<int32_t>(std::lround(cut)), false) + ","
                            : ",,";
              }
            }
            csv += "\n";
            if (e.yards == e.metres) break;  // one line serves all three courses
          }
        }
      }
    }
    return csv;
  }

  std::mt19937 rng_;
  Date start_;
  std::vector<Athlete> athletes_;
};

}  // namespace

Plan MakePlan(const Date& today, uint32_t seed) {
  return Model(today, seed).Make();
}

}  // namespace kvlr::demo
