#include "meets/RelayLegs.h"

#include <optional>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "meets/Ranking.h"
#include "meets/ResultTexts.h"

namespace kvlr {

std::vector<RelayChoice> RelayEvents(SQLite::Database& db, int32_t meet, std::string_view sex) {
  SQLite::Statement q(db,
                      "SELECT MtEvent, Distance, Sex, Lo_Hi, Stroke FROM MTEVENT WHERE Meet = ? "
                      "AND I_R = 'R' AND (Sex = ? OR Sex = 'X') ORDER BY MtEv, MtEvX");
  SQLite::bind(q, meet, std::string(sex));
  std::vector<RelayChoice> out;
  while (q.executeStep()) {
    RelayChoice c;
    c.mt_event = q.getColumn(0).getInt();
    c.distance = static_cast<int16_t>(q.getColumn(1).getInt());
    const std::string s = q.getColumn(2).isNull() ? "" : UCase(q.getColumn(2).getString());
    const char* word = s == "F" ? "Female " : s == "M" ? "Male " : "Mixed ";
    c.text = word + LoHiText(q.getColumn(3).getInt()) + " " + std::to_string(c.distance) + " " +
             StrokeText(q.getColumn(4).getInt(), "R");
    out.push_back(std::move(c));
  }
  return out;
}

int16_t StrokeOfRelayName(std::string_view name) {
  int16_t stroke = 0;
  const std::pair<std::string_view, int16_t> words[] = {
      {"Free", 1}, {"Back", 2}, {"Breast", 3}, {"Fly", 4}};
  // Searched one word after the other, each hit replacing the one before.
  for (const auto& [word, code] : words) {
    if (name.find(word) != std::string_view::npos) stroke = code;
  }
  return stroke;
}

int16_t LegDistance(int16_t relay_distance) {
  return static_cast<int16_t>(RoundHalfEven(relay_distance / 4.0));
}

bool TimeCharactersValid(std::string_view text) {
  for (char ch : text) {
    if (!((ch >= '0' && ch <= '9') || ch == ':' || ch == '.')) return false;
  }
  return true;
}

RelayLegOutcome SaveRelayLeg(AppState& state, const RelayLegInput& input) {
  UserIo& io = *state.io;
  if (input.i_r.empty()) {
    io.Tell(kSelectLeadOff);
    return RelayLegOutcome::kRefused;
  }
  if (input.f_p.empty()) {
    io.Tell(kSelectRound);
    return RelayLegOutcome::kRefused;
  }
  // Warned, not stopped: the leg is saved with stroke 0.
  if (input.stroke == 0) io.Tell(kSelectStroke);
  TimeInput checked;
  if (!CheckResultText(input.time, checked, 1, nullptr) || checked.nt > 0) {
    io.Tell(kEnterValidTime);
    return RelayLegOutcome::kRefused;
  }

  SQLite::Database& db = *state.gDb;
  std::optional<int64_t> existing;
  std::string meet_course;
  const bool read = RunTrapped(state, "frmRelayLegs.SaveLeg", [&] {
    SQLite::Statement q(db,
                        "SELECT RESULT FROM RESULT WHERE ATHLETE = ? AND MEET = ? AND MTEVENT = ? "
                        "AND F_P = ?");
    SQLite::bind(q, input.athlete, input.meet, input.relay.mt_event, input.f_p);
    existing = q.executeStep() ? std::optional<int64_t>(q.getColumn(0).getInt64()) : std::nullopt;
    SQLite::Statement m(db, "SELECT Course FROM MEET WHERE Meet = ?");
    m.bind(1, input.meet);
    meet_course = m.executeStep() && !m.getColumn(0).isNull()
                      ? Trim(m.getColumn(0).getString()).substr(0, 1)
                      : std::string();
    return true;
  });
  if (!read) {
    io.Tell(kErrorSavingResult);
    return RelayLegOutcome::kFailed;
  }
  if (existing && !io.AskYesNo(kRelayLegExists)) return RelayLegOutcome::kKept;

  std::string time = input.time;
  const int32_t score = TimeTextToScore(time);
  const int16_t distance = LegDistance(input.relay.distance);
  const bool written = RunTrapped(state, "frmRelayLegs.SaveLeg", [&] {
    if (existing) {
      SQLite::Statement u(
          db,
          "UPDATE RESULT SET MTEVENT = ?, STROKE = ?, F_P = ?, I_R = ?, ATHLETE = ?, "
          "MEET = ?, SCORE = ?, DISTANCE = ?, COURSE = ? WHERE RESULT = ?");
      SQLite::bind(u, input.relay.mt_event, input.stroke, input.f_p, input.i_r, input.athlete,
                   input.meet, score, distance, meet_course, *existing);
      u.exec();
    } else {
      // NT stays Null: ranking orders Null first, so legs are numbered apart from the
      // individual swims, whose NT is 0.
      SQLite::Statement a(db,
                          "INSERT INTO RESULT (MTEVENT, STROKE, F_P, I_R, ATHLETE, MEET, SCORE, "
                          "DISTANCE, COURSE, NT, PLACE) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, NULL, "
                          "0)");
      SQLite::bind(a, input.relay.mt_event, input.stroke, input.f_p, input.i_r, input.athlete,
                   input.meet, score, distance, meet_course);
      a.exec();
    }
    return true;
  });
  if (!written) {
    io.Tell(kErrorSavingResult);
    return RelayLegOutcome::kFailed;
  }
  if (input.i_r == "N") {
    AddRankForOneRelayLeg(state, input.athlete, input.stroke, distance, meet_course);
  } else {
    AddRankForOne(state, input.athlete, input.stroke, distance, meet_course);
  }
  return RelayLegOutcome::kSaved;
}

}  // namespace kvlr
