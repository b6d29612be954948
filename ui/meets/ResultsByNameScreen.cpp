#include "meets/ResultsByNameScreen.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <SQLiteCpp/Statement.h>

#include "core/ErrorHandler.h"
#include "core/TimeText.h"
#include "meets/RelayLegsScreen.h"
#include "meets/ResultTexts.h"
#include "meets/ScreenParts.h"
#include "meets/SplitsScreen.h"
#include "reports/ReportPreview.h"
#include "standards/CalcScreen.h"

namespace kvlr {
frmResNa::frmResNa(AppState& state, int32_t meet, QWidget* parent)
    : QDialog(parent), state_(state), meet_(meet), events_(state, meet) {
  setObjectName("frmResNa");
  // The writers key every row by the current meet.
  state_.gCurrentMeet = meet;
  meet_name_ = RunTrapped(state_, "frmResNa.Load", [&] {
    SQLite::Statement q(*state_.gDb, "SELECT MName FROM MEET WHERE Meet = ?");
    q.bind(1, meet_);
    return q.executeStep() && !q.getColumn(0).isNull() ? q.getColumn(0).getString() : std::string();
  });
  setWindowTitle("Results by Name - " + QString::fromStdString(meet_name_));

  swimmer_grid_ = new QTableView(this);
  swimmer_grid_->setObjectName("TDBGAthletes");
  swimmer_grid_->setModel(&swimmers_);
  swimmer_grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  swimmer_grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  swimmer_grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  swimmer_grid_->verticalHeader()->hide();

  event_grid_ = new QTableView(this);
  event_grid_->setObjectName("TDBGResults");
  event_grid_->setModel(&events_);
  event_grid_->verticalHeader()->hide();
  event_grid_->setEditTriggers(QAbstractItemView::DoubleClicked |
                               QAbstractItemView::EditKeyPressed |
                               QAbstractItemView::AnyKeyPressed);

  auto* split = new QSplitter(this);
  split->addWidget(swimmer_grid_);
  split->addWidget(event_grid_);
  split->setStretchFactor(1, 1);
  split->setSizes({220, 900});

  QHBoxLayout* tools = screen::CommandBar<frmResNa>(
      this, {{tr("Splits"), "cmdSplits", &frmResNa::OpenSplits},
             {tr("Relay Legs"), "cmdRelayLegs", &frmResNa::OpenRelayLegs},
             {tr("Print"), "cmdPrint", &frmResNa::Print},
             {tr("Calculator"), "cmdCalc", &frmResNa::OpenCalculator}});

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(split, 1);
  layout->addLayout(tools);
  resize(1200, 560);

  swimmers_.SetRows(
      RunTrapped(state_, "frmResNa.LoadAthletes", [&] { return ActiveSwimmers(*state_.gDb); }));
  connect(swimmer_grid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) { SelectSwimmer(current.row()); });
  if (swimmers_.rowCount() > 0) swimmer_grid_->selectRow(0);
}

void frmResNa::SelectSwimmer(int row) {
  if (row < 0 || row >= swimmers_.rowCount()) return;
  swimmer_row_ = row;
  const ResNaSwimmer& s = swimmers_.Swimmer(row);
  const auto loaded = RunTrapped(state_, "frmResNa.SelectAthlete", [&] {
    const int16_t age =
        ResultAge(s.birth, s.age, MeetAgeUp(*state_.gDb, meet_), SystemAgeUp(*state_.gDb));
    return std::optional(std::make_pair(age, IndividualEvents(*state_.gDb, meet_, s.sex)));
  });
  if (!loaded) return;
  events_.SetSwimmer(s.athlete, loaded->first, loaded->second);
  event_grid_->resizeColumnsToContents();
  // Room for a typed time with its course letter.
  for (int c = 0; c < events_.columnCount(); ++c) {
    if (events_.ColumnAt(c).kind == ResNaEventModel::CellKind::kTime) {
      event_grid_->setColumnWidth(c, std::max(event_grid_->columnWidth(c), 76));
    }
  }
}

void frmResNa::OpenSplits() {
  const QModelIndex at = event_grid_->currentIndex();
  if (!at.isValid() || events_.ColumnAt(at.column()).kind != ResNaEventModel::CellKind::kTime) {
    state_.io->Tell(kMustBeInTimeColumn);
    return;
  }
  const int round = events_.ColumnAt(at.column()).round;
  const ResNaCell& cell = events_.Cell(at.row(), round);
  if (!cell.exists) return;
  const ResNaEvent& event = events_.Event(at.row());
  const ResNaSwimmer& s = swimmers_.Swimmer(swimmer_row_);
  SplitsRequest request{
      cell.result,
      event.distance,
      cell.score,
      cell.split,
      cell.course,
      SplitsCaption(event.distance, event.stroke, kResultRounds[static_cast<size_t>(round)].f_p,
                    TimeCellText(cell, event.stroke), s.first + " " + s.last, "")};
  auto* splits = new frmSplits(state_, request, this);
  splits->setAttribute(Qt::WA_DeleteOnClose);
  splits->open();
}

void frmResNa::OpenRelayLegs() {
  if (swimmer_row_ < 0) return;
  const ResNaSwimmer& s = swimmers_.Swimmer(swimmer_row_);
  const bool any = RunTrapped(state_, "frmResNa.RelayLegs",
                              [&] { return HasRelayEvents(*state_.gDb, meet_, s.sex); });
  if (!any) {
    state_.io->Tell(kNoRelayEventsYet);
    return;
  }
  auto* legs = new frmRelayLegs(state_, meet_, s.athlete, s.sex, this);
  legs->setAttribute(Qt::WA_DeleteOnClose);
  legs->open();
}

void frmResNa::Print() {
  ReportRequest request;
  request.meet = meet_;
  PreviewReport(state_, this, "meet-results", request);
}

void frmResNa::OpenCalculator() {
  auto* calc = new frmCalc(this);
  calc->setAttribute(Qt::WA_DeleteOnClose);
  calc->show();
}

}  // namespace kvlr
