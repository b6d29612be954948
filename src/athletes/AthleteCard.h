#pragma once
// The athlete card (`frmAthMt`): what it holds, how it is filled from the records and how it
// is written back with the checks of the card.

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

// The AthInfo columns the card keeps, every one of them text.
inline constexpr std::array<std::string_view, 36> kInfoColumns = {"MailTo",
                                                                  "Addr",
                                                                  "SecAddr",
                                                                  "City",
                                                                  "State",
                                                                  "Cntry",
                                                                  "ZIP",
                                                                  "EMail",
                                                                  "MailTo2",
                                                                  "Addr2",
                                                                  "SecAddr2",
                                                                  "City2",
                                                                  "State2",
                                                                  "Cntry2",
                                                                  "ZIP2",
                                                                  "EMail2",
                                                                  "DayP1",
                                                                  "EveP1",
                                                                  "CellP1",
                                                                  "FaxP1",
                                                                  "DayP2",
                                                                  "EveP2",
                                                                  "CellP2",
                                                                  "FaxP2",
                                                                  "PrimaryLast",
                                                                  "PrimaryFirst1",
                                                                  "PrimaryFirst2",
                                                                  "SecondaryLast",
                                                                  "SecondaryFirst1",
                                                                  "SecondaryFirst2",
                                                                  "DoctorName",
                                                                  "DoctorPhone",
                                                                  "EmerContact",
                                                                  "EmerPhone",
                                                                  "MedCondition",
                                                                  "Medication"};

// The calendar columns of Athlete the card keeps: the visible range of the day view, then
// start and end of each activity.
inline constexpr std::array<std::string_view, 18> kTimeColumns = {
    "StartTimeDay", "EndTimeDay", "StartSwim",   "EndSwim",   "StartDry",      "EndDry",
    "StartMeet",    "EndMeet",    "StartGoal",   "EndGoal",   "StartMeeting",  "EndMeeting",
    "StartNote",    "EndNote",    "StartHealth", "EndHealth", "StartVacation", "EndVacation"};

struct AthleteCard {
  int32_t athlete = 0;  // 0 while adding: the card is in add mode
  std::string last;
  std::string first;
  std::string initial;
  std::string pref;
  std::string sex;  // "M", "F" or "" when none is chosen
  std::string id_no;
  std::optional<Date> birth;
  std::map<std::string, std::string, std::less<>> info;   // by kInfoColumns; missing = ""
  std::map<std::string, std::string, std::less<>> times;  // by kTimeColumns, as shown; "" none

  bool AddMode() const { return athlete == 0; }
  std::string Info(std::string_view column) const;
};

// `LoadFields`: the card of swimmer `athlete`, nulls as empty, times shown for the machine's
// clock (the visible range takes its defaults when missing). nullopt when there is no such
// swimmer. Store failures throw SQLite::Exception.
std::optional<AthleteCard> LoadAthleteCard(AppState& state, int32_t athlete);

// A new, empty card in add mode, with the default visible range.
AthleteCard NewAthleteCard(const AppState& state);

enum class SaveStatus {
  kSaved,    // written; card.athlete holds the key and the swimmer is current
  kRefused,  // a check said no (its words shown); the card stays open
  kFailed,   // the store failed (reported as frmAthMt.SaveAthlete); nothing was written
};

// Where the card puts the cursor after a refusal.
enum class CardField { kNone, kLast, kFirst, kSex };

struct SaveOutcome {
  SaveStatus status = SaveStatus::kSaved;
  CardField focus = CardField::kNone;
};

// `SaveAthlete`: the checks in their order (first name, sex, field sizes, same name, sex
// change), then Athlete and AthInfo in one transaction, then the swimmer becomes current.
// Changes `card`: the key after an add or after the "No" of the same-name question (the card
// becomes the other swimmer's, its empty fields taking what that swimmer has on file), the
// old sex when a change is refused.
SaveOutcome SaveAthlete(AppState& state, AthleteCard& card);

}  // namespace kvlr
