#include <iostream>

#include "Command.h"
#include "athletes/AthleteCard.h"
#include "athletes/AthleteList.h"
#include "athletes/CardTimes.h"
#include "core/TextClean.h"
#include "core/VbRules.h"

namespace kvlr::cli {
namespace {

void NoPositional(const Context& c) {
  if (!c.args.positional.empty()) throw UsageError("takes no PATH words; the database is --db");
}

int Athletes(Context& c) {
  NoPositional(c);
  if (!OpenAsAtStart(c, Required(c, "--db"))) return kRefused;
  Row(c.env.out,
      {"Athlete", "Last", "First", "Initial", "Sex", "Birth", "Age", "Pref", "ID_NO", "Active"});
  const Date today = c.state.clock->Today();
  for (const auto& row : ListAthletes(*c.state.gDb)) {
    const auto age = ListAge(row, today);
    Row(c.env.out, {std::to_string(row.athlete), row.last, row.first, row.initial, row.sex,
                    row.birth ? row.birth->Iso() : "", age ? std::to_string(*age) : "", row.pref,
                    row.id_no, row.active ? "1" : "0"});
  }
  return kOk;
}

int AddAthlete(Context& c) {
  NoPositional(c);
  const std::string db = Required(c, "--db");
  const std::string sex = UCase(Trim(Required(c, "--sex")));
  if (!sex.empty() && sex != "M" && sex != "F") throw UsageError("--sex is M or F");
  std::optional<Date> birth;
  if (c.args.values.count("--birth")) {
    birth = Date::FromIso(c.args.values.at("--birth"));
    if (!birth || c.args.values.at("--birth").size() != 10) {
      throw UsageError("--birth is a date YYYY-MM-DD");
    }
    // The card takes typed birth dates from 1930 to today.
    if (const auto problem = BirthDateProblem(*birth, c.state.clock->Today()); !problem.empty()) {
      c.io.Tell(problem);
      return kRefused;
    }
  }

  if (!OpenAsAtStart(c, db)) return kRefused;
  if (!MayAddAthlete(c.state)) return kRefused;

  AthleteCard card = NewAthleteCard(c.state);
  // Names are taken as the card takes what is typed.
  card.last = ProperName(Required(c, "--last"));
  card.first = ProperName(Required(c, "--first"));
  card.pref = ProperName(c.args.Value("--pref"));
  card.initial = c.args.Value("--initial");
  card.sex = sex;
  card.id_no = c.args.Value("--id");
  card.birth = birth;
  if (SaveAthlete(c.state, card).status != SaveStatus::kSaved) return kRefused;
  Row(c.env.out, {"Athlete"});
  Row(c.env.out, {std::to_string(card.athlete)});
  return kOk;
}

}  // namespace

std::vector<Command> AthleteCommands() {
  return {
      {"athletes",
       "kvlr athletes --db PATH",
       "List the swimmers of a database: key, names, sex, birth date, age today, preferred "
       "name, ID, active.",
       {"--db"},
       {},
       Athletes},
      {"add-athlete",
       "kvlr add-athlete --db PATH --last L --first F --sex M|F [--initial I] [--pref P] "
       "[--birth YYYY-MM-DD] [--id ID_NO]",
       "Add a swimmer with the checks of the athlete card (at most four; a birth date from "
       "1930 to today; texts within their field sizes); prints the new key. "
       "A same-name question is answered by the global --yes (save as entered) or --no (merge "
       "with the swimmer on file).",
       {"--db", "--last", "--first", "--sex", "--initial", "--pref", "--birth", "--id"},
       {},
       AddAthlete},
  };
}

}  // namespace kvlr::cli
