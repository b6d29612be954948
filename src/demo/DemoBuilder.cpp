#include "demo/DemoBuilder.h"

#include <fstream>
#include <map>
#include <optional>

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "athletes/AthleteCard.h"
#include "athletes/CurrentAthlete.h"
#include "core/DatabaseName.h"
#include "core/DateText.h"
#include "core/Options.h"
#include "core/TimeText.h"
#include "daily/Calendar.h"
#include "daily/Health.h"
#include "daily/Journal.h"
#include "demo/DemoTraining.h"
#include "interchange/ImportPrepare.h"
#include "interchange/ImportRun.h"
#include "meets/DefaultEvents.h"
#include "meets/Entries.h"
#include "meets/Favorites.h"
#include "meets/Goals.h"
#include "meets/MeetTypes.h"
#include "meets/Meets.h"
#include "meets/RelayLegs.h"
#include "shell/Preferences.h"
#include "standards/Standards.h"
#include "standards/StandardsCsv.h"
#include "store/Backup.h"
#include "store/Database.h"
#include "store/DbVersion.h"
#include "store/ReportDatabase.h"
#include "workouts/LineEdits.h"
#include "workouts/WorkoutArrays.h"
#include "workouts/WorkoutLines.h"
#include "workouts/WorkoutSetup.h"
#include "workouts/WorkoutStore.h"

namespace kvlr::demo {
namespace fs = std::filesystem;

namespace {

// Answers every question Yes and keeps the plain boxes for the error that may follow.
class YesIo final : public UserIo {
 public:
  explicit YesIo(UserIo& outer) : outer_(outer) {}
  Answer Message(std::string_view text, int style, std::string_view) override {
    if (box::Buttons(style) == box::kOk) {
      told.emplace_back(text);
      return Answer::kOk;
    }
    return box::Buttons(style) == box::kOkCancel ? Answer::kOk : Answer::kYes;
  }
  void Progress(std::string_view line) override { outer_.Progress(line); }

  std::vector<std::string> told;

 private:
  UserIo& outer_;
};

// A new file whose build stops on any failure needs no sync after each of its hundreds of
// saves; the backup is taken with the setting restored.
class NoSync {
 public:
  explicit NoSync(SQLite::Database& db) : db_(db) {
    SQLite::Statement q(db, "PRAGMA synchronous");
    was_ = q.executeStep() ? q.getColumn(0).getInt() : 2;
    db.exec("PRAGMA synchronous = OFF");
  }
  ~NoSync() {
    try {
      db_.exec(fmt::format("PRAGMA synchronous = {}", was_));
    } catch (const std::exception&) {  // the connection keeps the faster setting
    }
  }
  NoSync(const NoSync&) = delete;
  NoSync& operator=(const NoSync&) = delete;

 private:
  SQLite::Database& db_;
  int was_ = 2;
};

class Builder {
 public:
  Builder(AppState& state, uint32_t seed)
      : state_(state),
        outer_(*state.io),
        io_(outer_),
        plan_(MakePlan(state.clock->Today(), seed)),
        training_(MakeTraining(state.clock->Today(), seed)) {
    state_.io = &io_;
  }
  ~Builder() { state_.io = &outer_; }
  Builder(const Builder&) = delete;
  Builder& operator=(const Builder&) = delete;

  DemoSummary Build(const fs::path& database) {
    summary_.database = fs::absolute(database);
    OpenNew();
    std::optional<NoSync> no_sync(std::in_place, *state_.gDb);
    AddFamily();
    ShowLeadOffs();
    ImportMeets();
    MarkMeets();
    AddStandard();
    AddGoals();
    AddFavorites();
    AddNextMeet();
    AddWorkouts();
    AddDaily();
    Require(SetCurrentAthlete(state_, athletes_.at(0)), "making the first swimmer current");
    no_sync.reset();
    Backup();
    Count();
    return summary_;
  }

 private:
  void Require(bool ok, std::string_view step) {
    if (ok) return;
    std::string words = io_.told.empty() ? "" : ": " + io_.told.back();
    throw DemoError(fmt::format("The demo stopped while {}{}", step, words));
  }

  void OpenNew() {
    const fs::path& file = summary_.database;
    if (fs::exists(file)) throw DemoError(file.string() + " already exists: choose a new name.");
    Require(
        file.extension() == ".mdb" && DatabaseNameOk(file.stem().string(), kMaxDatabaseName, io_),
        "checking the database name (NAME.mdb, 20 characters at most)");
    fs::create_directories(file.parent_path());
    Require(CreateNewDatabase(state_, file), "making the database");
    state_.gDatabaseName = file.string();
    Require(OpenLocalDB(state_), "opening the database");
    CheckDbVersion(state_);
    ApplyDatabaseSettings(state_);
    Require(CheckReportTables(state_), "making the report tables");
  }

  void AddFamily() {
    for (const Swimmer& s : plan_.family) {
      AthleteCard card = NewAthleteCard(state_);
      card.last = s.last;
      card.first = s.first;
      card.initial = s.initial;
      card.sex = std::string(1, s.sex);
      card.birth = s.birth;
      card.id_no = s.id;
      Require(SaveAthlete(state_, card).status == SaveStatus::kSaved, "adding " + s.first);
      athletes_.push_back(card.athlete);
    }
  }

  // The results browser lists relay lead-offs only with this preference on.
  void ShowLeadOffs() {
    SystemPreferences prefs = LoadSystemPreferences(state_);
    prefs.use_lead_off = true;
    SaveSystemPreferences(state_, prefs);
  }

  void ImportMeets() {
    summary_.meets_folder =
        summary_.database.parent_path() / (summary_.database.stem().string() + "-meets");
    fs::create_directories(summary_.meets_folder);
    ImportMonitor quiet;
    ImportCriteria criteria;
    criteria.import_splits = true;
    criteria.lead_off = true;
    criteria.all_family = true;
    for (size_t i = 0; i < plan_.meets.size(); ++i) {
      const MeetFile& meet = plan_.meets[i].file;
      std::string slug = meet.name;
      for (char& c : slug) c = c == ' ' ? '-' : c;
      const fs::path file =
          summary_.meets_folder / fmt::format("{:02}-{}{}", i + 1, slug, Extension(meet.format));
      std::ofstream(file, std::ios::binary) << MeetFileText(meet);
      summary_.meet_files.push_back(file);
      // The import screen's swimmer is the current one; the family's others come along.
      Require(SetCurrentAthlete(state_, athletes_.at(0)), "choosing the swimmer");
      const ImportFile prepared = PrepareImportFile(state_, quiet, file, ImportMode::kImport);
      Require(prepared.ready,
              "checking " + file.filename().string() + " (" + prepared.status + ")");
      const ImportOutcome out = RunImportFile(state_, quiet, prepared, criteria);
      Require(out.ok && !out.not_all_imported, "importing " + file.filename().string());
    }
  }

  // The meet card's type for each meet, and the legs behind a lead-off as the relay legs
  // screen enters them.
  void MarkMeets() {
    Require(SaveMeetType(state_, "", kChampionshipType, "Championship"), "adding a meet type");
    std::map<std::pair<std::string, Date>, Meet> meets;
    for (Meet& m : ListMeets(*state_.gDb, MeetFilter{})) {
      if (m.start) meets[{m.mname, *m.start}] = m;
    }
    for (const PlannedMeet& pm : plan_.meets) {
      const auto found = meets.find({pm.file.name, pm.file.start});
      Require(found != meets.end(), "finding the meet " + pm.file.name);
      MeetForm form = MeetFormOf(found->second, state_.gDateOrder);
      form.type = pm.championship ? kChampionshipType : kAgeGroupType;
      Require(SaveMeet(state_, form).status == MeetSaveStatus::kSaved, "typing " + pm.file.name);
      for (const LaterLeg& leg : pm.later_legs) {
        const Swimmer& s = plan_.family.at(static_cast<size_t>(leg.family));
        RelayLegInput in;
        in.athlete = athletes_.at(static_cast<size_t>(leg.family));
        in.meet = found->second.meet;
        for (const RelayChoice& c : RelayEvents(*state_.gDb, in.meet, std::string(1, s.sex))) {
          if (c.distance == leg.relay_distance && StrokeOfRelayName(c.text) == 1) in.relay = c;
        }
        Require(in.relay.mt_event != 0, "finding the relay of " + s.first);
        in.i_r = "N";
        in.f_p = "F";
        in.stroke = 1;
        in.time = FormatTime(leg.time, false);
        Require(SaveRelayLeg(state_, in) == RelayLegOutcome::kSaved, "adding a relay leg");
      }
    }
  }

  void AddStandard() {
    const CsvImportResult csv = ImportStandardCsv(state_, kStandardName, plan_.standard_csv);
    if (!csv.ok) io_.told.push_back(csv.message);
    Require(csv.ok, "storing the time standard");
    auto def = ReadStandardDefinition(*state_.gDb, kStandardName);
    Require(def.has_value(), "reading the time standard");
    def->year = std::to_string(state_.clock->Today().year);
    def->descript = "Made-up demo times";
    WriteStandardDefinition(*state_.gDb, *def);
    Require(MakeCurrentStandard(state_, kStandardName), "making the standard current");
  }

  void AddGoals() {
    for (const Goal& goal : plan_.goals) {
      const Swimmer& s = plan_.family.at(static_cast<size_t>(goal.family));
      const int32_t athlete = athletes_.at(static_cast<size_t>(goal.family));
      const int32_t meet = GetGoalMeet(state_, goal.course);
      Require(meet != 0, "finding the goal meet");
      bool written = false;
      for (GoalRow& row : LoadGoals(state_, meet, athlete, std::string(1, s.sex))) {
        if (row.event.distance != goal.distance || row.event.stroke != goal.stroke) continue;
        const auto age = static_cast<int16_t>(AgeOn(s.birth, state_.clock->Today()));
        written = WriteGoal(state_, row, FormatTime(goal.time, false), age, athlete);
        break;
      }
      Require(written,
              fmt::format("writing a goal of {} ({} {})", s.first, goal.distance, goal.course));
    }
  }

  void AddFavorites() {
    const Favorite favorites[] = {
        {0, "Yards", "", "Yards"}, {0, "LCM", "", "LCM"}, {0, "Champs", kChampionshipType, ""}};
    for (const Favorite& f : favorites) {
      Require(SaveFavorite(state_, f).has_value(), "saving the favourite filter " + f.name);
    }
  }

  // A meet two weeks ahead with the default events of yards, each swimmer entered in the
  // events of a best time, as the entries screen enters them.
  void AddNextMeet() {
    MeetForm form = NewMeetForm(state_);
    const Date start = AddDays(state_.clock->Today(), 14);
    form.mname = fmt::format("{} Make-Believe Holiday Classic", start.year);
    form.course = "Y";
    form.start = ShownDate(start, state_.gDateOrder);
    form.end = ShownDate(AddDays(start, 1), state_.gDateOrder);
    form.location = "Nowhere Aquatic Center";
    form.type = kAgeGroupType;
    const MeetSaveOutcome saved = SaveMeet(state_, form);
    Require(saved.status == MeetSaveStatus::kSaved, "adding the meet ahead");
    Require(LoadDefaultEvents(state_, EventList::kEntries, saved.meet) > 0,
            "adding the events of the meet ahead");
    const auto meet = ReadEntryMeet(*state_.gDb, saved.meet);
    Require(meet.has_value(), "reading the meet ahead");
    for (const EntrySwimmer& swimmer : LoadEntrySwimmers(*state_.gDb)) {
      EntrySheet sheet(state_, *meet);
      Require(sheet.Load(swimmer), "loading the entries of " + swimmer.first);
      int entered = 0;
      for (size_t row = 0; row < sheet.Rows().size() && entered < 4; ++row) {
        if (sheet.Rows()[row].best_score == 0) continue;
        Require(sheet.SetEntered(row, true), "entering " + swimmer.first);
        ++entered;
      }
    }
  }

  // Each workout as the workout screen builds it: the header dialog, the line steps at the End
  // row, then the screen's refresh that stores the totals.
  void AddWorkouts() {
    SQLite::Database& db = *state_.gDb;
    const EnergyArray energy = gLoadWKEnergyArray(db);
    const auto work_stroke = gLoadWKWorkStrokeArray(db);
    const StartValues start =
        gSetStartParmeters(ReadStartParameters(StartParametersFile(state_.home.Root())));
    for (const PlannedWorkout& w : training_.workouts) {
      HeaderEntry entry;
      entry.wk_num = NextWorkoutNumber(db);
      entry.wk_date = w.date;
      entry.start_text = w.start;
      entry.user = std::to_string(athletes_.at(static_cast<size_t>(w.family)));
      const HeaderCheck check = CheckWorkoutHeader(db, entry);
      if (!check.message.empty()) io_.told.push_back(check.message);
      Require(check.message.empty(), "checking a workout header");
      const int32_t ptr = SaveWorkoutHeader(db, entry);
      std::vector<WkLine> lines;
      for (const PlannedLine& pl : w.lines) {
        const SetValues& v = pl.values;
        const int r = static_cast<int>(lines.size()) + 1;
        const std::string refused =
            pl.kind == PlannedLine::kNote
                ? CheckNoteEntry(v.desc)
                : CheckSetEntry(v.reps, v.dist, v.interval, ValidWorkType(work_stroke, v.type));
        if (!refused.empty()) io_.told.push_back(refused);
        bool added = refused.empty();
        if (added && pl.kind == PlannedLine::kSet) added = AddSingleSet(lines, r, v);
        if (added && pl.kind == PlannedLine::kNote) added = AddNote(lines, r, v.desc);
        if (added && pl.kind == PlannedLine::kNewCircuit) {
          added = NewCircuit(lines, r, v, pl.circuit_reps);
        }
        if (added && pl.kind == PlannedLine::kCircuitLine) {
          const CircuitPlace place = PlanAddCircuitLine(lines, r);
          added = AddCircuitLine(lines, r, place, v, CircuitRepsAt(lines, r, place, 4));
        }
        Require(added, "adding the line " + v.desc);
      }
      WriteWorkoutLines(db, ptr, lines);
      WorkoutLinesResult result;
      Require(gGetWorkoutLines(state_, ptr, ParamsOfWorkout(db, ptr, start.base_interval), energy,
                               true, result),
              "totalling a workout");
      RefreshWorkoutHeader(db, ptr, result);
    }
  }

  // Calendar events, health records and journal entries as their screens save them, each
  // for the swimmer made current.
  void AddDaily() {
    for (const PlannedEvent& e : training_.events) {
      Require(SetCurrentAthlete(state_, athletes_.at(static_cast<size_t>(e.family))),
              "choosing the swimmer");
      AddStart add = StartAdd(state_, e.type, e.date, TimeSpan{e.start, e.end});
      Require(add.choice == AddChoice::kNew, "adding a calendar event");
      add.form.comment = e.comment;
      Require(SaveEvent(state_, add.form).saved, "saving a calendar event");
    }
    for (const PlannedHealth& h : training_.health) {
      Require(SetCurrentAthlete(state_, athletes_.at(static_cast<size_t>(h.family))),
              "choosing the swimmer");
      HealthForm form;
      form.date = h.date;
      form.start = "06:30 AM";
      form.end = "06:45 AM";
      form.comment = h.comment;
      form.values = {h.hr, h.sleep, h.weight, h.wellness};
      Require(SaveHealth(state_, form).saved, "saving a health record");
    }
    for (const PlannedJournal& j : training_.journal) {
      Require(SaveJournal(state_, {0, j.date, j.subject, j.comment}) != 0,
              "saving a journal entry");
    }
  }

  void Backup() {
    const fs::path folder =
        summary_.database.parent_path() / (summary_.database.stem().string() + "-backups");
    fs::create_directories(folder);
    // The favourite folders hold 60 characters; a deeper checkout keeps the defaults.
    for (const auto& [kind, path] : {std::pair{DirectoryKind::kImport, summary_.meets_folder},
                                     std::pair{DirectoryKind::kBackup, folder}}) {
      if (path.string().size() <= 60) {
        Require(SetFavoriteDirectory(state_, kind, path), "setting a favourite folder");
      }
    }
    const auto made = BackupDatabase(state_, folder, "Demo family: every meet imported");
    Require(made.has_value(), "backing up");
    summary_.backup = *made;
  }

  int Number(const char* sql) {
    SQLite::Statement q(*state_.gDb, sql);
    return q.executeStep() ? q.getColumn(0).getInt() : 0;
  }

  void Count() {
    summary_.swimmers = Number("SELECT COUNT(*) FROM ATHLETE");
    summary_.meets = static_cast<int>(ListMeets(*state_.gDb, MeetFilter{}).size());
    summary_.results = Number("SELECT COUNT(*) FROM RESULT WHERE I_R IN ('I', 'L', 'N')");
    summary_.relay_legs = Number("SELECT COUNT(*) FROM RESULT WHERE I_R IN ('L', 'N')");
    summary_.splits = Number("SELECT COUNT(*) FROM SPLITS");
    summary_.goals = Number("SELECT COUNT(*) FROM RESULT WHERE I_R = 'G'");
    summary_.favorites = Number("SELECT COUNT(*) FROM FAVORITES");
    summary_.workouts = static_cast<int>(ListWorkouts(*state_.gDb).size());
    summary_.events = Number("SELECT COUNT(*) FROM tblEvents WHERE Type IN (0, 1)");
    summary_.health = Number("SELECT COUNT(*) FROM tblHealth");
    summary_.journal = static_cast<int>(ListJournal(*state_.gDb, JournalOrder::kSubject).size());
  }

  AppState& state_;
  UserIo& outer_;
  YesIo io_;
  Plan plan_;
  Training training_;
  std::vector<int32_t> athletes_;
  DemoSummary summary_;
};

}  // namespace

DemoSummary BuildDemo(AppState& state, const fs::path& database, uint32_t seed) {
  return Builder(state, seed).Build(database);
}

}  // namespace kvlr::demo
