#include "meets/Ranking.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "meets/RankPass.h"
#include "store/FieldType.h"

namespace kvlr {
namespace {

// A savepoint rather than BEGIN, so that a ranking also runs inside a caller's transaction.
class RankTransaction {
 public:
  explicit RankTransaction(SQLite::Database& db) : db_(db) { db_.exec("SAVEPOINT kvlr_rank"); }
  ~RankTransaction() {
    if (!open_) return;
    try {
      db_.exec("ROLLBACK TO kvlr_rank");
      db_.exec("RELEASE kvlr_rank");
    } catch (const std::exception&) {
      // Nothing more can be done from a destructor; the store keeps its own state.
    }
  }
  RankTransaction(const RankTransaction&) = delete;
  RankTransaction& operator=(const RankTransaction&) = delete;

  void Commit() {
    db_.exec("RELEASE kvlr_rank");
    open_ = false;
  }

 private:
  SQLite::Database& db_;
  bool open_ = true;
};

enum class Step { kDone, kSkipped, kAbort, kLeave };

// Runs the steps of one routine under its error trap.
class Trap {
 public:
  Trap(AppState& state, std::string_view source, std::string_view abort_message)
      : state_(state), source_(source), abort_message_(abort_message) {}

  // Repeats `step` while the user asks to retry it.
  template <class F>
  Step Run(F&& step) {
    for (;;) {
      try {
        step();
        return Step::kDone;
      } catch (const std::exception& e) {
        failed_ = true;
        const int next = ReportError(state_, source_, e);
        if (next == action::kRetry) continue;
        if (next == action::kContinue) return Step::kSkipped;
        if (next == action::kAbort) {
          state_.io->Tell(abort_message_);
          return Step::kAbort;
        }
        return Step::kLeave;
      }
    }
  }

  // The stop asked for between rows: the same message as an Abort.
  void Stopped() {
    failed_ = true;
    state_.io->Tell(abort_message_);
  }

  bool Failed() const { return failed_; }

 private:
  AppState& state_;
  std::string_view source_;
  std::string_view abort_message_;
  bool failed_ = false;
};

struct StoredSwim {
  int64_t id = 0;
  RankedSwim swim;            // course and I_R folded to lower case
  std::optional<int> stored;  // the rank as it stands; nullopt for Null
};

// The order keys of a row as the store compares them: each number with its Null flag
// (Null first), each one-letter text folded as NOCASE folds it (lower case).
struct OrderKey {
  int64_t id;
  uint32_t row;  // index of the row in the list read
  int32_t athlete, distance, stroke, nt, score;
  uint8_t course, i_r;
  uint8_t nulls;  // bits of NullKey
};

enum NullKey : uint8_t {
  kNullAthlete = 1,
  kNullIR = 2,
  kNullDistance = 4,
  kNullStroke = 8,
  kNullNt = 16,
  kNullCourse = 32,
  kNullScore = 64,
};

// Columns every ranking query gives, in this order.
constexpr std::string_view kSwimColumns =
    "RESULT.RESULT, RESULT.ATHLETE, RESULT.DISTANCE, RESULT.STROKE, RESULT.COURSE, "
    "RESULT.I_R, RESULT.NT, RESULT.SCORE";

bool NoNonTimeCode(const SQLite::Column& nt) {
  if (nt.isNull()) return true;  // Val("" & Null) is 0
  if (nt.isInteger()) return nt.getInt64() == 0;
  return Val(nt.getString()) == 0;
}

// NOCASE folds ASCII letters to lower case before comparing bytes.
std::string NoCaseFold(std::string text) {
  for (char& ch : text) {
    if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch - 'A' + 'a');
  }
  return text;
}

// The rows as the query gives them, with their order keys. `keys` is left empty when a
// value isn't of the kind its field declares (a real or a text in a number field, a
// number or more than one letter in a text field): the store's own order must then serve.
std::vector<StoredSwim> ReadSwims(SQLite::Statement& query, std::vector<OrderKey>* keys) {
  std::vector<StoredSwim> swims;
  bool plain = keys != nullptr;
  OrderKey key{};
  auto number = [&](const SQLite::Column& c, uint8_t null_bit, int32_t& out) {
    const int type = c.getType();
    if (type == SQLite::Null) {
      key.nulls |= null_bit;
      out = 0;
      return;
    }
    const int64_t value = c.getInt64();
    if (type != SQLite::INTEGER || value < INT32_MIN || value > INT32_MAX) plain = false;
    out = static_cast<int32_t>(value);
  };
  auto text = [&](const SQLite::Column& c, uint8_t null_bit, uint8_t& letter) {
    const int type = c.getType();
    if (type == SQLite::Null) key.nulls |= null_bit;
    std::string folded = NoCaseFold(c.getString());
    if ((type != SQLite::TEXT && type != SQLite::Null) || folded.size() > 1) plain = false;
    letter = folded.empty() ? 0 : static_cast<uint8_t>(folded[0]);
    return folded;
  };
  while (query.executeStep()) {
    StoredSwim s;
    key = OrderKey{};
    s.id = key.id = query.getColumn(0).getInt64();
    key.row = static_cast<uint32_t>(swims.size());
    number(query.getColumn(1), kNullAthlete, key.athlete);
    number(query.getColumn(2), kNullDistance, key.distance);
    number(query.getColumn(3), kNullStroke, key.stroke);
    s.swim.course = text(query.getColumn(4), kNullCourse, key.course);
    s.swim.i_r = text(query.getColumn(5), kNullIR, key.i_r);
    const SQLite::Column nt = query.getColumn(6);
    s.swim.timed = NoNonTimeCode(nt);
    number(nt, kNullNt, key.nt);
    number(query.getColumn(7), kNullScore, key.score);
    s.swim.athlete = key.athlete;
    s.swim.distance = key.distance;
    s.swim.stroke = key.stroke;
    s.swim.score = key.score;
    const SQLite::Column rank = query.getColumn(8);
    if (!rank.isNull()) s.stored = rank.getInt();
    swims.push_back(std::move(s));
    if (plain) keys->push_back(key);
  }
  if (keys && !plain) keys->clear();
  return swims;
}

// -1, 0, 1 as the store orders two values: Null first.
inline int Compare(uint8_t a_nulls, uint8_t b_nulls, uint8_t bit, int64_t x, int64_t y) {
  const bool a_null = a_nulls & bit;
  const bool b_null = b_nulls & bit;
  if (a_null || b_null) return a_null == b_null ? 0 : (a_null ? -1 : 1);
  return x < y ? -1 : (y < x ? 1 : 0);
}

// ORDER BY ATHLETE, [I_R,] DISTANCE, STROKE, NT, COURSE, SCORE, RESULT.
bool OrderedBefore(const OrderKey& a, const OrderKey& b, bool by_i_r) {
  int c = Compare(a.nulls, b.nulls, kNullAthlete, a.athlete, b.athlete);
  if (c == 0 && by_i_r) c = Compare(a.nulls, b.nulls, kNullIR, a.i_r, b.i_r);
  if (c == 0) c = Compare(a.nulls, b.nulls, kNullDistance, a.distance, b.distance);
  if (c == 0) c = Compare(a.nulls, b.nulls, kNullStroke, a.stroke, b.stroke);
  if (c == 0) c = Compare(a.nulls, b.nulls, kNullNt, a.nt, b.nt);
  if (c == 0) c = Compare(a.nulls, b.nulls, kNullCourse, a.course, b.course);
  if (c == 0) c = Compare(a.nulls, b.nulls, kNullScore, a.score, b.score);
  if (c == 0) return a.id < b.id;
  return c < 0;
}

// One ranking: which rows, how they are numbered, where the numbers go.
struct Job {
  Job(std::string_view source, std::string_view abort_message, const char* update_sql)
      : source(source), abort_message(abort_message), update_sql(update_sql) {}

  std::string_view source;
  std::string_view abort_message;
  const char* update_sql;
  // Steps done in the transaction before the query (TRANK cleared).
  std::function<void(SQLite::Database&)> prepare;
  // The query; with `ordered` false it may leave the order to the caller.
  std::function<SQLite::Statement(SQLite::Database&, bool ordered)> query;
  // Whole rankings are put in order here, by the keys of their ORDER BY (a sort of the
  // store's own costs three times as much); `by_i_r` when I_R is one of them.
  bool sort_here = false;
  bool by_i_r = false;
  // Whole rankings show progress under `caption` and stop when asked to.
  bool whole = false;
  std::string_view caption;
  bool clear_progress = false;
  // An index on the ranked field that is cheaper to build again than to keep up to date
  // while most of the table changes.
  const char* rank_index = nullptr;
};

// Rows from which setting the rank index aside pays, and the share of them that must change.
constexpr size_t kRebuildFromRows = 5000;
constexpr size_t kRebuildShare = 4;

// Takes an index out for a large rewrite and puts it back before the rows are kept.
class IndexSetAside {
 public:
  IndexSetAside(SQLite::Database& db, const char* name) : db_(db) {
    {
      SQLite::Statement q(db, "SELECT sql FROM sqlite_master WHERE type = 'index' AND name = ?");
      q.bind(1, name);
      if (!q.executeStep()) return;
      sql_ = q.getColumn(0).getString();
    }
    db.exec(fmt::format("DROP INDEX {}", Quoted(name)));
  }
  // Builds the index again; a rollback of the transaction brings it back by itself.
  void Restore() {
    if (sql_.empty()) return;
    db_.exec(sql_);
    sql_.clear();
  }

 private:
  SQLite::Database& db_;
  std::string sql_;
};

template <class Pass, class MakePass>
bool RunRanking(AppState& state, const Job& job, MakePass make_pass, RankCount* count) {
  if (count) *count = RankCount{};
  if (!state.gDb) return false;
  SQLite::Database& db = *state.gDb;
  Trap trap(state, job.source, job.abort_message);
  std::unique_ptr<RankTransaction> transaction;
  std::optional<SQLite::Statement> update;
  std::vector<StoredSwim> swims;
  std::vector<uint32_t> order;  // rows in ranking order; empty when read in that order
  std::optional<IndexSetAside> set_aside;

  // Keeps what is done when the user stops; anything else leaves the old values.
  auto leave = [&](bool keep) {
    if (keep && transaction) {
      trap.Run([&] {
        if (set_aside) set_aside->Restore();
        transaction->Commit();
      });
    }
    if (job.whole && job.clear_progress) state.io->Progress("");
    return false;
  };

  const Step loaded = trap.Run([&] {
    update.reset();
    transaction.reset();
    transaction = std::make_unique<RankTransaction>(db);
    if (job.prepare) job.prepare(db);
    order.clear();
    std::vector<OrderKey> keys;
    {
      SQLite::Statement query = job.query(db, !job.sort_here);
      swims = ReadSwims(query, job.sort_here ? &keys : nullptr);
    }
    if (job.sort_here && keys.size() == swims.size()) {
      std::sort(keys.begin(), keys.end(), [&job](const OrderKey& a, const OrderKey& b) {
        return OrderedBefore(a, b, job.by_i_r);
      });
      order.reserve(keys.size());
      for (const OrderKey& k : keys) order.push_back(k.row);
    } else if (job.sort_here) {
      SQLite::Statement query = job.query(db, true);
      swims = ReadSwims(query, nullptr);
    }
    update.emplace(db, job.update_sql);
  });
  if (loaded != Step::kDone) return leave(loaded != Step::kLeave);
  if (count) count->rows = static_cast<int64_t>(swims.size());

  if (job.rank_index && swims.size() >= kRebuildFromRows) {
    // The numbering is cheap: count the changes first to know whether a rebuild pays.
    Pass dry = make_pass(swims[order.empty() ? 0 : order[0]].swim);
    size_t changes = 0;
    for (size_t i = 0; i < swims.size(); ++i) {
      const StoredSwim& s = swims[order.empty() ? i : order[i]];
      if (s.stored != dry.Next(s.swim)) ++changes;
    }
    if (changes * kRebuildShare >= swims.size()) {
      const Step aside = trap.Run([&] {
        update.reset();
        set_aside.emplace(db, job.rank_index);
        update.emplace(db, job.update_sql);
      });
      if (aside != Step::kDone) return leave(false);
    }
  }

  if (!swims.empty()) {
    if (job.whole) state.io->Progress(RankProgressLine(job.caption, 0));
    Pass pass = make_pass(swims[order.empty() ? 0 : order[0]].swim);
    const size_t rows = swims.size();
    int shown = 0;
    for (size_t i = 0; i < rows; ++i) {
      if (job.whole && state.io->Cancelled()) {
        trap.Stopped();
        return leave(true);
      }
      const StoredSwim& s = swims[order.empty() ? i : order[i]];
      const int value = pass.Next(s.swim);
      if (s.stored != value) {
        const Step written = trap.Run([&] {
          update->reset();
          update->bind(1, value);
          update->bind(2, s.id);
          update->exec();
        });
        if (written == Step::kDone && count) ++count->changed;
        if (written == Step::kAbort) return leave(true);
        if (written == Step::kLeave) return leave(false);
      }
      if (job.whole) {
        const int percent = static_cast<int>(100 * (i + 1) / rows);
        if (percent != shown) {
          shown = percent;
          state.io->Progress(RankProgressLine(job.caption, percent));
        }
      }
    }
  }

  update.reset();
  const Step kept = trap.Run([&] {
    if (set_aside) set_aside->Restore();
    transaction->Commit();
  });
  if (kept != Step::kDone) return leave(false);
  if (job.whole && job.clear_progress) state.io->Progress("");
  return !trap.Failed();
}

SQLite::Statement GroupQuery(SQLite::Database& db, std::string_view i_r_and_order, int32_t athlete,
                             int16_t stroke, int16_t distance, std::string_view course) {
  SQLite::Statement q(db, fmt::format("SELECT {}, RESULT.RANK FROM RESULT WHERE ATHLETE = ? AND "
                                      "STROKE = ? AND DISTANCE = ? AND COURSE = ? {}",
                                      kSwimColumns, i_r_and_order));
  q.bind(1, athlete);
  q.bind(2, stroke);
  q.bind(3, distance);
  q.bind(4, std::string(course));
  return q;
}

constexpr const char* kUpdateRank = "UPDATE RESULT SET RANK = ? WHERE RESULT = ?";
constexpr const char* kUpdateTRank = "UPDATE RESULT SET TRANK = ? WHERE RESULT = ?";

}  // namespace

std::string RankProgressLine(std::string_view caption, int percent) {
  const bool blank = !caption.empty() && caption.back() == ' ';
  return fmt::format("{}{}{}%", caption, blank ? "" : " ", percent);
}

std::optional<int> RankProgressPercent(std::string_view line) {
  if (line.empty() || line.back() != '%') return std::nullopt;
  size_t start = line.size() - 1;
  while (start > 0 && std::isdigit(static_cast<unsigned char>(line[start - 1]))) --start;
  if (start == line.size() - 1) return std::nullopt;
  return static_cast<int>(Val(line.substr(start, line.size() - 1 - start)));
}

bool AddRankForOne(AppState& state, int32_t athlete, int16_t stroke, int16_t distance,
                   std::string_view course) {
  const bool lead_off = state.gUseLeadOff;
  Job job("basUtil.AddRankForOne", kRankForOneAbortMessage, kUpdateRank);
  job.query = [&](SQLite::Database& db, bool) {
    return GroupQuery(db,
                      lead_off ? "AND (I_R = 'I' OR I_R = 'L') ORDER BY NT, SCORE, RESULT"
                               : "AND (I_R = 'I' OR I_R = 'L') ORDER BY I_R, NT, SCORE, RESULT",
                      athlete, stroke, distance, course);
  };
  return RunRanking<GroupRankPass>(
      state, job, [&](const RankedSwim& first) { return GroupRankPass(lead_off, first); }, nullptr);
}

bool AddRankForOneRelayLeg(AppState& state, int32_t athlete, int16_t stroke, int16_t distance,
                           std::string_view course) {
  Job job("basUtil.AddRankForOneRelayLeg", kRankForOneAbortMessage, kUpdateRank);
  job.query = [&](SQLite::Database& db, bool) {
    return GroupQuery(db, "AND I_R = 'N' ORDER BY NT, SCORE, RESULT", athlete, stroke, distance,
                      course);
  };
  return RunRanking<LegCountPass>(
      state, job, [](const RankedSwim&) { return LegCountPass(); }, nullptr);
}

bool AddRank(AppState& state, std::string_view caption, RankCount* count) {
  const bool lead_off = state.gUseLeadOff;
  Job job("basUtil.AddRank", kRankAbortMessage, kUpdateRank);
  job.query = [&](SQLite::Database& db, bool ordered) {
    std::string sql = fmt::format("SELECT {}, RESULT.RANK FROM RESULT WHERE I_R = 'I' OR I_R = 'L'",
                                  kSwimColumns);
    if (ordered) {
      sql += lead_off ? " ORDER BY ATHLETE, DISTANCE, STROKE, NT, COURSE, SCORE, RESULT"
                      : " ORDER BY ATHLETE, I_R, DISTANCE, STROKE, NT, COURSE, SCORE, RESULT";
    }
    return SQLite::Statement(db, sql);
  };
  job.sort_here = true;
  job.by_i_r = !lead_off;
  job.whole = true;
  job.caption = caption;
  job.clear_progress = true;
  job.rank_index = "RESULT.Fast";
  return RunRanking<TableRankPass>(
      state, job,
      [&](const RankedSwim& first) {
        return TableRankPass(lead_off, TableRankPass::Start::kWhole, first);
      },
      count);
}

bool AddRankIndividualRelayLeg(AppState& state, std::string_view caption, RankCount* count) {
  Job job("basUtil.AddRankIndividualRelayLeg", kRankAbortMessage, kUpdateRank);
  job.query = [](SQLite::Database& db, bool ordered) {
    std::string sql =
        fmt::format("SELECT {}, RESULT.RANK FROM RESULT WHERE I_R = 'N'", kSwimColumns);
    if (ordered) sql += " ORDER BY ATHLETE, DISTANCE, STROKE, NT, COURSE, SCORE, RESULT";
    return SQLite::Statement(db, sql);
  };
  job.sort_here = true;
  job.whole = true;
  job.caption = caption;
  return RunRanking<LegNumberPass>(
      state, job, [](const RankedSwim& first) { return LegNumberPass(first); }, count);
}

bool AddTRank(AppState& state, const TRankSelection& selection, RankCount* count) {
  const bool lead_off = state.gUseLeadOff;
  const bool since = selection.since != state.gNullDate;
  const bool until = selection.until != state.gNullDate;
  const bool type = !Trim(selection.meet_type).empty();
  const bool athlete = selection.athlete != 0;
  const bool round = !selection.f_p.empty();

  Job job("basUtil.AddTRank", kTRankAbortMessage, kUpdateTRank);
  job.prepare = [](SQLite::Database& db) {
    // Rows already Null stay untouched: a repeated selection writes less.
    db.exec(
        "UPDATE RESULT SET TRANK = NULL WHERE (I_R = 'I' OR I_R = 'L') AND "
        "TRANK IS NOT NULL");
  };
  job.query = [&](SQLite::Database& db, bool ordered) {
    std::string sql = fmt::format(
        "SELECT {}, RESULT.TRANK FROM RESULT INNER JOIN MEET ON RESULT.MEET = MEET.MEET "
        "INNER JOIN ATHLETE ON RESULT.ATHLETE = ATHLETE.ATHLETE "
        "WHERE (RESULT.NT IS NULL OR RESULT.NT = 0)",
        kSwimColumns);
    if (since) sql += " AND MEET.START >= :since";
    if (until) sql += " AND MEET.START <= :until";
    if (type) sql += " AND MEET.TYPE = :type";
    if (athlete) sql += " AND RESULT.ATHLETE = :athlete";
    if (round) sql += " AND RESULT.F_P = :f_p";
    sql += " AND (RESULT.I_R = 'I' OR RESULT.I_R = 'L')";
    if (ordered) {
      sql += lead_off ? " ORDER BY RESULT.ATHLETE, " : " ORDER BY RESULT.ATHLETE, RESULT.I_R, ";
      sql +=
          "RESULT.DISTANCE, RESULT.STROKE, RESULT.NT, RESULT.COURSE, RESULT.SCORE, "
          "RESULT.RESULT";
    }
    SQLite::Statement q(db, sql);
    if (since) q.bind(":since", selection.since.Iso());
    if (until) q.bind(":until", selection.until.Iso());
    if (type) q.bind(":type", selection.meet_type);
    if (athlete) q.bind(":athlete", selection.athlete);
    if (round) q.bind(":f_p", selection.f_p);
    return q;
  };
  job.sort_here = true;
  job.by_i_r = !lead_off;
  job.whole = true;
  job.caption = kAdjustingForSinceDate;
  job.clear_progress = true;
  return RunRanking<TableRankPass>(
      state, job,
      [&](const RankedSwim& first) {
        return TableRankPass(lead_off, TableRankPass::Start::kSelection, first);
      },
      count);
}

}  // namespace kvlr
