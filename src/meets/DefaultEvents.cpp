#include "meets/DefaultEvents.h"

#include <cctype>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "meets/MeetTexts.h"

namespace kvlr {

const std::vector<DefaultEvent>& DefaultEvents(char course) {
  static const std::vector<DefaultEvent> yards = {
      {50, 1},  {100, 1}, {200, 1}, {500, 1}, {1000, 1}, {1650, 1}, {100, 2},
      {200, 2}, {100, 3}, {200, 3}, {100, 4}, {200, 4},  {200, 5},  {400, 5}};
  static const std::vector<DefaultEvent> short_course = {
      {50, 1}, {100, 1}, {200, 1}, {400, 1}, {800, 1}, {1500, 1}, {50, 2},  {100, 2}, {200, 2},
      {50, 3}, {100, 3}, {200, 3}, {50, 4},  {100, 4}, {200, 4},  {100, 5}, {200, 5}, {400, 5}};
  static const std::vector<DefaultEvent> long_course = {
      {50, 1}, {100, 1}, {200, 1}, {400, 1}, {800, 1}, {1500, 1}, {50, 2},  {100, 2}, {200, 2},
      {50, 3}, {100, 3}, {200, 3}, {50, 4},  {100, 4}, {200, 4},  {200, 5}, {400, 5}};
  static const std::vector<DefaultEvent> none;
  switch (std::toupper(static_cast<unsigned char>(course))) {
    case 'Y':
      return yards;
    case 'S':
      return short_course;
    case 'L':
      return long_course;
    default:
      return none;
  }
}

bool HasIndividualEvents(SQLite::Database& db, EventList list, int32_t meet) {
  SQLite::Statement q(
      db, fmt::format("SELECT 1 FROM {} WHERE I_R = 'I' AND Meet = ?", EventTable(list)));
  q.bind(1, meet);
  return q.executeStep();
}

int LoadDefaultEvents(AppState& state, EventList list, int32_t meet) {
  SQLite::Database& db = *state.gDb;
  const auto m = LoadMeet(db, meet);
  if (!m) return 0;
  const char letter = CourseLetter(m->course);
  const auto& events = DefaultEvents(letter);
  if (events.empty()) return 0;
  SQLite::Transaction transaction(db);
  SQLite::Statement top(
      db, fmt::format("SELECT IFNULL(MAX(MtEv), 0) FROM {} WHERE Meet = ?", EventTable(list)));
  top.bind(1, meet);
  top.executeStep();
  int number = top.getColumn(0).getInt();
  SQLite::Statement add(
      db, fmt::format("INSERT INTO {} (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, Sex, "
                      "I_R) VALUES (?, ?, '', ?, ?, ?, ?, ?, 'I')",
                      EventTable(list)));
  int added = 0;
  for (const DefaultEvent& e : events) {
    for (const char* sex : {"M", "F"}) {
      SQLite::bind(add, meet, ++number, kDefaultEventLoHi, std::string(1, letter), e.distance,
                   e.stroke, sex);
      add.exec();
      add.reset();
      ++added;
    }
  }
  transaction.commit();
  return added;
}

bool OfferDefaultEvents(AppState& state, EventList list, int32_t meet) {
  return RunTrapped(state, ".LoadDefaultEvents", [&] {
    if (HasIndividualEvents(*state.gDb, list, meet)) return true;
    if (!state.io->AskYesNo(std::string(meettxt::kNoEventsForSelectedMeet) + "\r" +
                            std::string(meettxt::kLoadDefaultEvents)))
      return false;
    return LoadDefaultEvents(state, list, meet) > 0;
  });
}

}  // namespace kvlr
