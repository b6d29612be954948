#pragma once
// The report frame. A report kind is two steps:
//   fill   writes finished rows of text and numbers into the tables of the report database
//          (state.gReportDb) and the parameter row RPTWINCS (SetReportParameters);
//   layout reads those tables back into a ReportDoc: lines grouped under headings in columns.
// ReportLayout.h turns a ReportDoc into pages (PDF, printer, preview). A new kind (top times,
// memorized reports, the printout of a graph) plugs in by a function of its own file that
// adds ReportKinds to a catalog, called from BuiltInReports() (ReportFrame.cpp); its screen
// calls PreviewReport (ui/reports/ReportPreview.h) and `kvlr report NAME` finds it with no
// more code. Options a kind needs and ReportRequest lacks are added to ReportRequest (and to
// the command's flags in cli/ReportCommands.cpp). Nothing here includes Qt.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

// The paper of a run; kPreferences takes "Paper Size" of Report Preferences (OPTIONS).
enum class PaperChoice { kPreferences, kLetter, kLegal, kA4 };

// The options of frmRptTopTimes beyond the shared ones.
struct TopTimesOptions {
  enum class Improve { kNone, kEachMeet, kMeetToMeet, kBest };
  char convert_to = 0;       // 'Y', 'S', 'L': every course converted to it (course unused)
  bool show_actual = false;  // with convert_to: ordered converted, printed as swum
  std::string round;         // "", "F" finals only, "P" prelims only
  int stroke = 0;            // 0 every stroke
  int distance = 0;          // 0 every distance
  bool include_nt = false;   // "Include DQs and NSs"
  std::optional<bool> lead_offs;  // relay lead-offs as swims; unset: OPTIONS UseLeadOff
  bool standards = false;    // levels of ReportRequest::standard, else of the current one
  bool current_age = false;  // levels at today's age, not the age at the meet
  bool chronological = false;
  Improve improve = Improve::kNone;
  bool baseline_before_since = false;  // the best before the since date is the baseline
  int top_n = 0;                       // 0: every swim
  bool goals = false;
  bool comments = false;
};

// The options of the two workout reports (logbook, workout-stats); dates are the request's
// since / until.
struct WorkoutReportChoices {
  bool by_number = false;
  int32_t from_number = 0, to_number = 0;  // 0: the lowest / highest
  bool energy = true, strokes = true, times = true, notes = true, analysis = false,
       stress = true, paces = true;
  bool one_per_page = false;
  int columns = 1;                 // 1 or 2
  std::vector<std::string> users;  // group_abbr codes; empty: all users
  bool selected_users = false;     // `users` are the marked ones (maybe none)
  int stat_type = 3;               // energy, stroke, work, distance, stress
  bool meters = false, minutes = false;
  int cycle_days = 7;
};

// The options of a report screen. Each kind reads the members it knows and ignores the rest;
// the screen and the command line fill the same struct, so both print the same report.
struct ReportRequest {
  int32_t athlete = 0;        // 0: every swimmer, where the kind allows it
  int32_t meet = 0;           // 0: every meet of the date range
  char course = 0;            // 'Y', 'S', 'L'; 0 for every course
  std::string sex;            // "", "M" or "F"
  std::optional<Date> since;  // inclusive bounds on a meet's Start
  std::optional<Date> until;
  std::string meet_type;      // CODE abbreviation; "" for any
  int split_mode = 0;         // 0 none, 2 cumulative, 3 lap and cumulative
  std::string standard;       // STDNAME StdFile
  std::string file;           // an import file to report on
  std::string title;          // a title the caller gives, where a kind takes one
  bool landscape = false;
  PaperChoice paper = PaperChoice::kPreferences;
  TopTimesOptions top;
  WorkoutReportChoices workouts;
};

// One column of a section. `weight` is its share of the line (about the characters it
// usually needs); texts wider than the column are elided, never cut mid-character.
struct ReportColumn {
  enum class Align { kLeft, kRight, kCenter };
  std::string heading;
  double weight = 10;
  Align align = Align::kLeft;
};

// A line of a section. kGroup and kSubGroup headings are kept on the page of the first row
// under them and are repeated, marked continued, on the next page of a long group. kDetail
// is a smaller text under a row (splits, comments) that wraps at word breaks.
struct ReportLine {
  enum class Kind { kGroup, kSubGroup, kRow, kDetail, kNote };
  Kind kind = Kind::kRow;
  std::vector<std::string> cells;  // kRow: one a column
  std::string text;                // the other kinds
  bool bold = false;               // kRow: printed bold
};

// A table of a report under its own heading; a section with `new_page` starts on a fresh
// page (the relay report behind a file report).
struct ReportSection {
  std::string heading;
  std::vector<ReportColumn> columns;
  std::vector<ReportLine> lines;
  bool new_page = false;
  bool fixed_pitch = false;  // text laid out by padding: a fixed-width font

  void Group(std::string text) { lines.push_back({ReportLine::Kind::kGroup, {}, std::move(text)}); }
  void SubGroup(std::string text) {
    lines.push_back({ReportLine::Kind::kSubGroup, {}, std::move(text)});
  }
  void Row(std::vector<std::string> cells) {
    lines.push_back({ReportLine::Kind::kRow, std::move(cells), {}});
  }
  void Detail(std::string text) {
    lines.push_back({ReportLine::Kind::kDetail, {}, std::move(text)});
  }
  void Note(std::string text) { lines.push_back({ReportLine::Kind::kNote, {}, std::move(text)}); }
};

// What a layout gives the page maker. The page header (title, header lines) and the footer
// (report date, "Page N of M") are printed on every page.
struct ReportDoc {
  std::string title;
  std::vector<std::string> head_lines;  // header1, header2, then team, meet, misc, date lines
  std::string report_date;              // as shown in the user's date order
  std::vector<ReportSection> sections;
  bool landscape = false;
  PaperChoice paper = PaperChoice::kLetter;  // never kPreferences once laid out
  int flow_columns = 1;  // the body flows down 1 or 2 columns of a page
};

// The parameter row RPTWINCS, as every layout reads it.
struct ReportParameters {
  Date rev_date;
  std::string header1, header2, date_line, title;
  std::string girl_sex, boy_sex, open_event, sort_by;
  std::string team_line, meet_line, misc_line;
};

// The lines a caller passes to SetReportParameters.
struct ReportLines {
  std::string team, meet, misc, date;
};

// Rewrites the one RPTWINCS row: rev_date today, header1/2 from OPTIONS Line1/Line2, the
// gender words of FavSex, OpenEvent by NoAge ("", "Senior", "Open"). Texts are cut to their
// field sizes. Store failures throw.
void SetReportParameters(AppState& state, std::string_view title, const ReportLines& lines,
                         std::string_view sort_by = {});
// The RPTWINCS row; empty values when there is none.
ReportParameters ReadReportParameters(SQLite::Database& report_db);

// A ReportDoc headed from RPTWINCS: title, non-empty header lines, the report date. The paper
// of `request` is resolved against OPTIONS PaperSize.
ReportDoc StartReportDoc(AppState& state, const ReportRequest& request);

struct ReportKind {
  std::string name;     // the word of `kvlr report NAME`
  std::string summary;  // one line for `kvlr report --help`
  // False when there is nothing to print; the user has been told why (UserIo).
  std::function<bool(AppState&, const ReportRequest&)> fill;
  std::function<ReportDoc(AppState&, const ReportRequest&)> layout;
};

class ReportCatalog {
 public:
  void Add(ReportKind kind) { kinds_.push_back(std::move(kind)); }
  // nullptr when no kind has that name.
  const ReportKind* Find(std::string_view name) const;
  const std::vector<ReportKind>& Kinds() const { return kinds_; }

 private:
  std::vector<ReportKind> kinds_;
};

// Every kind of the frame, in the order the help lists them.
ReportCatalog BuiltInReports();

// Fill then layout. nullopt when the fill found nothing (the user told) or failed (reported
// through ReportError under the kind's name). Needs state.gDb and state.gReportDb.
std::optional<ReportDoc> RunReport(AppState& state, const ReportKind& kind,
                                   const ReportRequest& request);

}  // namespace kvlr
