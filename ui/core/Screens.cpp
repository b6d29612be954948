#include "core/Screens.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QTimer>

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "athletes/AthleteListScreen.h"
#include "athletes/TeamScreen.h"
#include "core/ErrorHandler.h"
#include "core/MainWindow.h"
#include "daily/DailyScreens.h"
#include "handheld/PalmScreens.h"
#include "interchange/ExportScreens.h"
#include "interchange/ImportScreen.h"
#include "interchange/OnlineScreens.h"
#include "meets/CommentsScreen.h"
#include "meets/DefaultEvents.h"
#include "meets/EntriesScreen.h"
#include "meets/FavoritesScreen.h"
#include "meets/MeetListScreen.h"
#include "meets/MeetTypeScreens.h"
#include "meets/RelayLegsScreen.h"
#include "meets/ResultsBrowserScreen.h"
#include "meets/ResultsByNameScreen.h"
#include "meets/SplitsScreen.h"
#include "reports/ReportScreens.h"
#include "reports/GraphScreens.h"
#include "standards/ConvertScreen.h"
#include "standards/GoalsScreen.h"
#include "standards/StandardScreens.h"
#include "standards/Standards.h"
#include "standards/StandardsCsv.h"
#include "store/BackupScreen.h"
#include "store/Database.h"
#include "store/RestoreScreen.h"
#include "workouts/WorkoutSetupScreens.h"

namespace kvlr {

namespace {

// The athlete list; `add_first` opens its card for a new swimmer at once.
void ShowAthletes(MainWindow& window, AppState& state, bool add_first) {
  frmAthlete list(state, &window);
  QObject::connect(&list, &frmAthlete::currentAthleteChanged, &window, &MainWindow::RefreshTitle);
  if (add_first) QTimer::singleShot(0, &list, [&list] { list.Add(); });
  list.exec();
  window.RefreshTitle();
}

// Standards travel as CSV files: one header line, one line per line of the standard.
void ImportStandard(MainWindow& window, AppState& state) {
  const QString file = QFileDialog::getOpenFileName(&window, QObject::tr("Import Standards"),
                                                    QString::fromStdString(state.gDataDir.string()),
                                                    QObject::tr("Standards (*.csv)"));
  if (file.isEmpty()) return;
  bool ok = false;
  const QString name = QInputDialog::getText(
      &window, QObject::tr("Import Standards"), QObject::tr("Standard name (8 characters):"),
      QLineEdit::Normal, QFileInfo(file).completeBaseName().left(8).toUpper(), &ok);
  if (!ok || name.trimmed().isEmpty()) return;
  try {
    CsvImportResult result =
        ImportStandardCsvFile(state, name.trimmed().toStdString(), file.toStdString());
    if (!result.ok) {
      state.io->Tell(result.message);
      return;
    }
    state.io->Message(
        fmt::format("{} lines imported into {}.", result.lines, name.trimmed().toStdString()),
        box::kInformation, "");
  } catch (const std::exception& e) {
    ReportError(state, "frmMain.ImportStandards", e);
  }
}

void ExportStandard(MainWindow& window, AppState& state) {
  StandardsCombo combo = LoadStandardsCombo(state);
  if (combo.lines.empty()) {
    state.io->Tell("There are no standards to export.");
    return;
  }
  QStringList names;
  for (const auto& line : combo.lines) names << QString::fromStdString(line.std_file);
  bool ok = false;
  const QString name =
      QInputDialog::getItem(&window, QObject::tr("Export Standards"), QObject::tr("Standard:"),
                            names, std::max(combo.selected, 0), false, &ok);
  if (!ok) return;
  const QString file = QFileDialog::getSaveFileName(
      &window, QObject::tr("Export Standards"),
      QString::fromStdString((state.gDataDir / (name.toStdString() + ".csv")).string()),
      QObject::tr("Standards (*.csv)"));
  // The dialog has asked about replacing a file there.
  if (!file.isEmpty()) ExportStandardCsvFile(state, name.toStdString(), file.toStdString(), true);
}

// What the split, relay-leg and comment screens need to know of one result row.
struct ResultFacts {
  int32_t meet = 0;
  int32_t athlete = 0;
  int distance = 0;
  int32_t score = 0;
  int32_t split = 0;
  std::string course;
  std::string sex;
};

std::optional<ResultFacts> ReadResult(AppState& state, int32_t result) {
  SQLite::Statement q(*state.gDb,
                      "SELECT R.MEET, R.ATHLETE, R.DISTANCE, R.SCORE, R.SPLIT, R.COURSE, A.Sex "
                      "FROM RESULT R LEFT JOIN Athlete A ON A.Athlete = R.ATHLETE "
                      "WHERE R.RESULT = ?");
  q.bind(1, result);
  if (!q.executeStep()) return std::nullopt;
  auto text = [&q](int i) { return q.getColumn(i).isNull() ? "" : q.getColumn(i).getString(); };
  auto number = [&q](int i) { return q.getColumn(i).isNull() ? 0 : q.getColumn(i).getInt(); };
  return ResultFacts{number(0), number(1), number(2), number(3), number(4), text(5), text(6)};
}

void ShowGoals(MainWindow& window, AppState& state, char course) {
  frmGoals screen(state, course, &window);
  if (!screen.Ready()) return;
  screen.SetOpenSplits([&state, &screen](int32_t result) {
    auto facts = ReadResult(state, result);
    if (!facts) return;
    frmSplits splits(state,
                     SplitsRequest{result, facts->distance, facts->score, facts->split,
                                   facts->course, "Goal Splits"},
                     &screen);
    splits.exec();
  });
  screen.SetOpenRelayLegs([&state, &screen](int32_t result) {
    auto facts = ReadResult(state, result);
    if (!facts) return;
    frmRelayLegs legs(state, facts->meet, facts->athlete, facts->sex, &screen);
    legs.exec();
  });
  screen.SetOpenComment([&state, &screen](int32_t result, const std::string& heading) {
    frmComments comments(state, CommentRequest{result, heading, "", state.gAthleteName}, &screen);
    comments.exec();
  });
  screen.exec();
}

void ShowMeetResults(AppState& state, QWidget* parent, int32_t meet) {
  if (!OfferDefaultEvents(state, EventList::kResults, meet)) return;
  frmResNa results(state, meet, parent);
  results.exec();
}

void ShowMeetEntries(AppState& state, QWidget* parent, int32_t meet) {
  if (!OfferDefaultEvents(state, EventList::kEntries, meet)) return;
  frmEntNa entries(state, meet, parent);
  if (entries.Ready()) entries.exec();
}

// Where a row of the home page leads.
void OpenFromHome(MainWindow& window, AppState& state, const HomeLink& link) {
  switch (link.target) {
    case HomeTarget::kResults: {
      frmResults screen(state, &window);
      if (link.distance > 0) screen.ShowEvent(link.distance, link.stroke);
      screen.exec();
      break;
    }
    case HomeTarget::kMeetResults:
      ShowMeetResults(state, &window, link.meet);
      break;
    case HomeTarget::kEntries:
      ShowMeetEntries(state, &window, link.meet);
      break;
    case HomeTarget::kGoals:
      ShowGoals(window, state, link.course);
      break;
    case HomeTarget::kNone:
      return;
  }
  window.RefreshTitle();
}

}  // namespace

void InstallScreens(MainWindow& window, AppState& state) {
  using C = MenuCommand;
  window.Home().SetOpen(
      [&window, &state](const HomeLink& link) { OpenFromHome(window, state, link); });
  window.SetHandler(C::kAthletes, [&window, &state] { ShowAthletes(window, state, false); });
  window.SetAddAthleteScreen([&window, &state] { ShowAthletes(window, state, true); });
  window.SetHandler(C::kMeets, [&window, &state] {
    frmMeets meets(state, &window);
    meets.SetOpenResults([&state, &meets](int32_t meet) { ShowMeetResults(state, &meets, meet); });
    meets.SetOpenEntries([&state, &meets](int32_t meet) { ShowMeetEntries(state, &meets, meet); });
    meets.exec();
  });
  window.SetHandler(C::kMeetTypes, [&window, &state] {
    frmCodes types(state, &window);
    types.exec();
  });
  window.SetHandler(C::kResults, [&window, &state] {
    frmResults screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kStandardsEdit, [&window, &state] {
    frmStan screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kStandardsImport, [&window, &state] { ImportStandard(window, state); });
  window.SetHandler(C::kStandardsExport, [&window, &state] { ExportStandard(window, state); });
  window.SetHandler(C::kFavoriteFilters, [&window, &state] {
    frmFav screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kGoalsYards, [&window, &state] { ShowGoals(window, state, 'Y'); });
  window.SetHandler(C::kGoalsShort, [&window, &state] { ShowGoals(window, state, 'S'); });
  window.SetHandler(C::kGoalsLong, [&window, &state] { ShowGoals(window, state, 'L'); });
  window.SetHandler(C::kImportResults,
                    [&window, &state] { ShowImportResults(state, &window, ImportMode::kImport); });
  window.SetHandler(C::kImportCsOnline, [&window, &state] {
    ShowCSOInfo(&window);
    ShowImportResults(state, &window, ImportMode::kOnline);
  });
  window.SetHandler(C::kReportImportExport,
                    [&window, &state] { ShowImportResults(state, &window, ImportMode::kReport); });
  InstallReportScreens(window, state);
  window.SetHandler(C::kImportEvents, [&window, &state] { ShowImportEvents(state, &window); });
  window.SetHandler(C::kUnzip, [&window, &state] { ShowUnZip(state, &window); });
  window.SetHandler(C::kTeam, [&window, &state] {
    frmTeamMaint screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kCourseConversion, [&window, &state] {
    frmConvt screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kBackup, [&window, &state] {
    frmBackup screen(state, &window);
    screen.exec();
    window.DatabaseChanged();
  });
  window.SetHandler(C::kRestore, [&window, &state] {
    frmRestore screen(state, &window);
    if (screen.ChooseBackup()) screen.exec();
    window.DatabaseChanged();
  });
  InstallGraphScreens(window, state);
  InstallHandheldScreens(window, state);
  InstallExportScreens(window, state);
  InstallWorkoutScreens(window, state);
  InstallDailyScreens(window, state);
}

}  // namespace kvlr
