// kvlr_stress: runs the real kvlr as child processes, kills it at random moments and runs
// two at once, then checks that what is left on disk is whole and all-or-nothing.
//
//   kvlr_stress PATH-TO-KVLR [SEED]
//
// Prints a line per failed check (scenario, round, kill delay, the check, the command's
// stderr), a summary per scenario and "N passed, M failed"; exits 1 on any failure. The
// scratch folder is kept when something failed, with each failed round's files.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Stress.h"

namespace kvlr::stress {
namespace {

constexpr int kKillRounds = 50;
constexpr int kPairRounds = 12;
// The imported meet: the family's events, and other swimmers' lines read past. Sized so a
// complete import takes a noticeable fraction of a second.
constexpr int kMeetSwims = 900;
constexpr int kStrangerSwims = 16000;
// Earlier meets already in the starting database, so copies and checks have work to do.
constexpr int kEarlierMeets = 6;

namespace fs = std::filesystem;
using Args = std::vector<std::string>;

// Folders of one run; every run of a scenario uses the same paths, so a failure's command
// line can be run again by hand.
struct Place {
  fs::path root;
  fs::path Home() const { return root / "home"; }
  fs::path Data() const { return root / "data"; }
  fs::path Backups() const { return root / "backups"; }
  fs::path Db() const { return Data() / "family.mdb"; }
};

struct Env {
  fs::path kvlr;
  fs::path root;
  std::mt19937 random;
  fs::path Files() const { return root / "files"; }
  fs::path Scratch() const { return root / "scratch"; }
  Place Start() const { return {root / "start"}; }    // four swimmers, earlier meets
  Place Single() const { return {root / "single"}; }  // one swimmer, no meets
  fs::path Backup() const { return Files() / "KVL-RBkupfamily-01.zip"; }  // two swimmers
  // kvlr --home H --yes ARGS
  Args Kvlr(const Place& p, Args args) const {
    args.insert(args.begin(), {kvlr.string(), "--home", p.Home().string(), "--yes"});
    return args;
  }
  // A fresh copy of `from` at root/`name`.
  Place Fresh(const Place& from, const std::string& name) const {
    const Place to{root / name};
    fs::remove_all(to.root);
    fs::copy(from.root, to.root, fs::copy_options::recursive);
    return to;
  }
  double Pick(double seconds) { return std::uniform_real_distribution<double>(0, seconds)(random); }
};

std::string Line(const Args& args) {
  std::string text;
  for (const std::string& a : args) text += (text.empty() ? "" : " ") + a;
  return text;
}

// Runs to the end and throws when the command fails: for setting up, not for checking.
Exit MustRun(const Env& env, const Place& p, const Args& args) {
  const Args line = env.Kvlr(p, args);
  const Exit run = RunToEnd(line, env.root / "setup-stderr.txt");
  if (run.code != 0) {
    throw std::runtime_error("setup `" + Line(line) + "` exit " + std::to_string(run.code) + ": " +
                             run.err);
  }
  return run;
}

class Tally {
 public:
  explicit Tally(std::string name) : name_(std::move(name)) {}
  // One round's problems (none: passed); `setting` says what reproduces it.
  void Round(const Env& env, const Place& p, int round, const std::string& setting,
             const std::vector<std::string>& problems, const std::string& err) {
    ++runs_;
    if (problems.empty()) return;
    ++failures_;
    const fs::path kept = env.root / ("failed-" + name_ + "-" + std::to_string(round));
    std::error_code ignored;
    fs::rename(p.root, kept, ignored);
    for (const std::string& problem : problems) {
      std::cout << "FAIL " << name_ << " round " << round << " (" << setting << "): " << problem
                << "\n";
    }
    if (!err.empty()) std::cout << "  stderr: " << err << (err.ends_with('\n') ? "" : "\n");
    std::cout << "  files kept in " << kept.string() << "\n";
  }
  // A failure before the rounds could start.
  void Broken(const std::string& problem) {
    ++failures_;
    std::cout << "FAIL " << name_ << " setup: " << problem << "\n";
  }
  // What happened how often, to show the rounds really raced or were really cut short.
  void Note(const std::string& outcome) { ++notes_[outcome]; }
  void Detail(std::string text) { detail_ = std::move(text); }
  bool Passed() const { return failures_ == 0; }
  void Summary(double seconds) const {
    std::printf("%-24s %3d runs %3d failures %7.1f s\n", name_.c_str(), runs_, failures_, seconds);
    std::string notes = detail_;
    for (const auto& [outcome, times] : notes_) {
      notes += (notes.empty() ? "" : "; ") + std::to_string(times) + "x " + outcome;
    }
    if (!notes.empty()) std::printf("  (%s)\n", notes.c_str());
  }

 private:
  std::string name_;
  int runs_ = 0;
  int failures_ = 0;
  std::map<std::string, int> notes_;
  std::string detail_;
};

std::string Outcome(const Exit& run) {
  return run.killed ? "killed" : "exit " + std::to_string(run.code);
}

void Expect(std::vector<std::string>& problems, bool ok, const std::string& what) {
  if (!ok) problems.push_back(what);
}

// A run that ended by itself ends with 0, or with 1 and words.
void ExpectCleanEnd(std::vector<std::string>& problems, const std::string& what, const Exit& run,
                    bool may_refuse) {
  const bool refused = may_refuse && run.code == 1 && !run.err.empty();
  Expect(
      problems, run.code == 0 || refused,
      what + " ended with " + Outcome(run) + (run.err.empty() ? " and no words" : ": " + run.err));
}

// The database is whole and in one of `states`; every archive in `folders` is readable.
void ExpectWhole(std::vector<std::string>& problems, const Env& env, const fs::path& db,
                 const std::set<std::string>& states, const std::vector<fs::path>& folders) {
  const std::string integrity = IntegrityProblem(db);
  Expect(problems, integrity.empty(), integrity);
  if (integrity.empty()) {
    const std::string counts = RowCounts(db);
    std::string known;
    for (const std::string& s : states) known += "\n    " + s;
    Expect(problems, states.contains(counts),
           "rows are in none of the consistent states:\n    " + counts + "\n  known:" + known);
  }
  for (const fs::path& zip : Archives(folders)) {
    const std::string problem = ZipProblem(zip, env.Scratch());
    Expect(problems, problem.empty(), problem);
  }
}

void ExpectNothingLeft(std::vector<std::string>& problems, const Place& p,
                       const std::vector<fs::path>& folders) {
  for (const std::string& left : Leftovers(p.Home(), folders)) {
    problems.push_back("left behind: " + left);
  }
}

// --- Setup --------------------------------------------------------------------------------

std::string Date(int month, int day) {
  char text[9];
  std::snprintf(text, sizeof text, "%02d%02d2026", month, day);
  return text;
}

void Prepare(const Env& env) {
  fs::create_directories(env.Files() / "a");
  fs::create_directories(env.Files() / "b");
  fs::create_directories(env.Scratch());
  WriteFile(env.Files() / "meet.cl2",
            MeetText("Made-Up Winter Open", Date(12, 5), kMeetSwims, kStrangerSwims));
  WriteZip(env.Files() / "a" / "meet.zip", "MEET.CL2",
           MeetText("Made-Up Spring Invite", Date(3, 7), 300, 2000));
  WriteZip(env.Files() / "b" / "meet.zip", "MEET.CL2",
           MeetText("Made-Up Summer Classic", Date(6, 13), 200, 3000));
  for (const Place& p : {env.Start(), env.Single()}) {
    fs::create_directories(p.Home());
    fs::create_directories(p.Data());
    fs::create_directories(p.Backups());
    MustRun(env, p, {"new-db", p.Db().string()});
    MustRun(env, p,
            {"add-athlete", "--db", p.Db().string(), "--last", "Doe", "--first", "Jane", "--sex",
             "F", "--birth", "2014-01-02"});
  }
  const Place start = env.Start();
  const std::string db = start.Db().string();
  MustRun(env, start,
          {"add-athlete", "--db", db, "--last", "Doe", "--first", "John", "--sex", "M", "--birth",
           "2012-03-04"});
  for (int m = 0; m < kEarlierMeets; ++m) {
    const fs::path file = env.Scratch() / "earlier.cl2";
    WriteFile(file, MeetText("Made-Up Meet " + std::to_string(m + 1), Date(m + 1, 20), 900, 0));
    MustRun(env, start, {"import", file.string(), "--db", db, "--athlete", "1"});
    fs::remove(file);
  }
  // The backup a restore brings back holds two swimmers; the file it replaces holds four.
  MustRun(env, start, {"backup", "--db", db, "--to", env.Files().string()});
  if (!fs::exists(env.Backup())) throw std::runtime_error("no " + env.Backup().string());
  MustRun(env, start,
          {"add-athlete", "--db", db, "--last", "Doe", "--first", "Ann", "--sex", "F", "--birth",
           "2016-05-06"});
  MustRun(env, start,
          {"add-athlete", "--db", db, "--last", "Doe", "--first", "Max", "--sex", "M", "--birth",
           "2018-07-08"});
}

// --- Killed at random moments ---------------------------------------------------------------

struct KillJob {
  Args command;     // with the paths of Place{root / "run"}
  Args next_start;  // what runs after the kill on the same home and database
  bool changes;     // a complete run changes row counts
};

void KillRounds(Env& env, Tally& tally, const KillJob& job) {
  // The window the kills fall in: a little past the shortest of a few complete runs (the
  // first pays for cold caches), so some kills land on the last steps and some too late.
  std::set<std::string> states;
  double seconds = 1e9;
  for (int i = 0; i < 3; ++i) {
    const Place full = env.Fresh(env.Start(), "run");
    states.insert(RowCounts(full.Db()));
    const Exit complete = RunToEnd(env.Kvlr(full, job.command), full.root / "stderr.txt");
    if (complete.code != 0) {
      tally.Broken("complete run `" + Line(env.Kvlr(full, job.command)) + "` exit " +
                   std::to_string(complete.code) + ": " + complete.err);
      return;
    }
    states.insert(RowCounts(full.Db()));
    seconds = std::min(seconds, complete.seconds);
  }
  if (states.size() != (job.changes ? 2 : 1)) {
    tally.Broken("complete runs of `" + Line(job.command) + "` left " +
                 std::to_string(states.size()) + " different row counts");
    return;
  }
  tally.Detail("complete run " + std::to_string(static_cast<int>(seconds * 1000)) + " ms");
  for (int round = 1; round <= kKillRounds; ++round) {
    const Place p = env.Fresh(env.Start(), "run");
    const double delay = env.Pick(1.2 * seconds);
    Child child(env.Kvlr(p, job.command), p.root / "stderr.txt");
    const pid_t pid = child.Pid();
    std::this_thread::sleep_for(std::chrono::duration<double>(delay));
    const Exit killed = child.Kill();
    tally.Note(killed.killed ? "killed" : "finished before the kill");
    std::vector<std::string> problems;
    if (!killed.killed)
      ExpectCleanEnd(problems, "the run (finished before the kill)", killed, false);
    ExpectWhole(problems, env, p.Db(), states, {p.Data(), p.Backups()});
    const Exit next = RunToEnd(env.Kvlr(p, job.next_start), p.root / "next-stderr.txt");
    ExpectCleanEnd(problems, "next start `" + Line(job.next_start) + "`", next, false);
    ExpectNothingLeft(problems, p, {p.Data(), p.Backups()});
    char setting[96];
    std::snprintf(setting, sizeof setting, "kill after %.0f ms of %.0f, pid %d", delay * 1000,
                  seconds * 1000, static_cast<int>(pid));
    tally.Round(env, p, round, setting + std::string(", `") + Line(env.Kvlr(p, job.command)) + "`",
                problems, killed.err);
  }
}

// --- Two at once ----------------------------------------------------------------------------

// Two zips with the same member name, imported into two databases under one home.
void ImportPair(Env& env, Tally& tally) {
  struct Side {
    fs::path zip;
    std::string meet;
    std::string rows;
  };
  Side sides[2] = {{env.Files() / "a" / "meet.zip", "Made-Up Spring Invite", ""},
                   {env.Files() / "b" / "meet.zip", "Made-Up Summer Classic", ""}};
  for (Side& side : sides) {
    const Place p = env.Fresh(env.Single(), "run");
    MustRun(env, p, {"import", side.zip.string(), "--db", p.Db().string(), "--athlete", "1"});
    side.rows = RowCounts(p.Db());
  }
  for (int round = 1; round <= kPairRounds; ++round) {
    const Place p = env.Fresh(env.Single(), "run");
    const fs::path dbs[2] = {p.Db(), p.root / "data2" / "family.mdb"};
    fs::copy(p.Data(), dbs[1].parent_path(), fs::copy_options::recursive);
    std::vector<std::unique_ptr<Child>> children;
    for (int i = 0; i < 2; ++i) {
      children.push_back(std::make_unique<Child>(
          env.Kvlr(p, {"import", sides[i].zip.string(), "--db", dbs[i].string(), "--athlete", "1"}),
          p.root / ("stderr" + std::to_string(i) + ".txt")));
    }
    std::vector<std::string> problems;
    std::string err;
    for (int i = 0; i < 2; ++i) {
      const Exit run = children[i]->Wait();
      err += run.err;
      const std::string who = "import of " + sides[i].meet;
      ExpectCleanEnd(problems, who, run, false);
      ExpectWhole(problems, env, dbs[i], {sides[i].rows}, {});
      const std::string meets = QueryText(dbs[i], "SELECT group_concat(MName, '|') FROM MEET");
      Expect(problems, meets == sides[i].meet, who + " left the meets: " + meets);
    }
    ExpectNothingLeft(problems, p, {p.Data(), dbs[1].parent_path()});
    tally.Round(env, p, round, "two imports started together", problems, err);
  }
}

// `second` started at a random moment while `first` works on the same database; either may
// refuse with words. The consistent states are those the `orders` of complete runs leave.
struct Race {
  std::string first_name, second_name;
  Args first, second;
  std::vector<std::vector<int>> orders;  // 1: first, 2: second
  bool second_archives;                  // a second run that ends with 0 leaves an archive
};

void RaceRounds(Env& env, Tally& tally, const Race& race) {
  std::set<std::string> states;
  for (const std::vector<int>& order : race.orders) {
    const Place p = env.Fresh(env.Start(), "run");
    for (int which : order) MustRun(env, p, which == 1 ? race.first : race.second);
    states.insert(RowCounts(p.Db()));
  }
  const double first_seconds = MustRun(env, env.Fresh(env.Start(), "run"), race.first).seconds;
  for (int round = 1; round <= kPairRounds; ++round) {
    const Place p = env.Fresh(env.Start(), "run");
    const double delay = env.Pick(first_seconds);
    Child first(env.Kvlr(p, race.first), p.root / "stderr-first.txt");
    std::this_thread::sleep_for(std::chrono::duration<double>(delay));
    Child second(env.Kvlr(p, race.second), p.root / "stderr-second.txt");
    const Exit second_end = second.Wait();
    const Exit first_end = first.Wait();
    tally.Note(race.first_name + " " + Outcome(first_end) + ", " + race.second_name + " " +
               Outcome(second_end));
    std::vector<std::string> problems;
    ExpectCleanEnd(problems, race.first_name, first_end, true);
    ExpectCleanEnd(problems, race.second_name, second_end, true);
    if (race.second_archives && second_end.code == 0) {
      Expect(problems, !Archives({p.Data()}).empty(), race.second_name + " exit 0 but no archive");
    }
    ExpectWhole(problems, env, p.Db(), states, {p.Data()});
    ExpectNothingLeft(problems, p, {p.Data()});
    char setting[32];
    std::snprintf(setting, sizeof setting, "%.0f ms", delay * 1000);
    tally.Round(env, p, round, race.second_name + " started " + setting + " into the " + race.first_name,
                problems, first_end.err + second_end.err);
  }
}

struct Scenario {
  const char* name;
  std::function<void(Env&, Tally&)> run;
};

int Main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::cerr << "usage: kvlr_stress PATH-TO-KVLR [SEED]\n";
    return 2;
  }
  const unsigned seed = argc == 3 ? static_cast<unsigned>(std::stoul(argv[2]))
                                  : static_cast<unsigned>(std::random_device{}());
  char root[] = "/tmp/kvlr-stress-XXXXXX";
  if (!mkdtemp(root)) {
    std::perror("mkdtemp");
    return 2;
  }
  Env env{fs::absolute(argv[1]), root, std::mt19937(seed)};
  std::cout << "kvlr_stress seed " << seed << ", scratch " << root << "\n" << std::flush;
  const Place run{env.root / "run"};
  const std::string db = run.Db().string();
  const Args import = {"import", (env.Files() / "meet.cl2").string(), "--db", db, "--athlete", "1"};
  const Args restore = {"restore", env.Backup().string(), "--to", run.Data().string()};
  const Args check = {"check-db", db};
  // Only a backup into the same folder is bound to look there again.
  const Args backup = {"backup", "--db", db, "--to", run.Backups().string()};
  const Args silent = {"backup", "--db", db, "--silent"};
  const auto kill = [](KillJob job) {
    return [job](Env& env, Tally& tally) { KillRounds(env, tally, job); };
  };
  const auto race = [](Race r) { return [r](Env& env, Tally& tally) { RaceRounds(env, tally, r); }; };
  const Scenario scenarios[] = {
      {"import killed", kill({import, check, true})},
      {"backup killed", kill({backup, backup, false})},
      {"silent backup killed", kill({silent, check, false})},
      {"restore killed", kill({restore, check, true})},
      {"repair killed", kill({{"repair", db}, check, false})},
      {"two imports", ImportPair},
      {"backup during rank",
       race({"rank", "silent backup", {"rank", "--db", db}, silent, {std::vector<int>{}}, true})},
      // Neither, either, or both one after the other.
      {"restore during import",
       race({"import", "restore", import, restore, {{}, {1}, {2}, {1, 2}, {2, 1}}, false})},
  };
  int passed = 0, failed = 0;
  std::string setup_problem;
  try {
    Prepare(env);
  } catch (const std::exception& e) {
    setup_problem = e.what();
  }
  for (const Scenario& scenario : scenarios) {
    Tally tally(scenario.name);
    const auto started = std::chrono::steady_clock::now();
    try {
      if (!setup_problem.empty()) throw std::runtime_error(setup_problem);
      scenario.run(env, tally);
    } catch (const std::exception& e) {
      tally.Broken(e.what());
    }
    tally.Summary(
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count());
    std::cout << std::flush;
    (tally.Passed() ? passed : failed) += 1;
  }
  if (failed == 0) fs::remove_all(env.root);
  std::cout << passed << " passed, " << failed << " failed\n";
  return failed == 0 ? 0 : 1;
}

}  // namespace
}  // namespace kvlr::stress

int main(int argc, char** argv) {
  return kvlr::stress::Main(argc, argv);
}
