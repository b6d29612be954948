#include "daily/CalendarScreen.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "daily/CalendarViews.h"
#include "daily/DailyReports.h"
#include "daily/DailyTexts.h"
#include "daily/EventDialog.h"
#include "daily/HealthDialog.h"
#include "meets/MeetCardScreen.h"
#include "reports/ReportPreview.h"

namespace kvlr {

namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

Date FirstOfMonth(const Date& d) {
  return Date{d.year, d.month, 1};
}

}  // namespace

frmCalendar::frmCalendar(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state), date_(state.clock->Today()) {
  setObjectName("frmCalendar");
  setWindowTitle(tr("Calendar") + " - " + QString::fromStdString(state.gAthleteName));
  auto* layout = new QVBoxLayout(this);
  auto* tools = new QToolBar(this);
  layout->addWidget(tools);

  add_menu_ = new QMenu(tr("&Add Event"), this);
  add_menu_->setObjectName("mnuAdds");
  const struct {
    const char* caption;
    int type;
  } adds[] = {{"Add &Meet", kEventMeet},       {"Add &Goal", kEventGoal},
              {"Add M&eeting", kEventMeeting}, {"Add &Note", kEventNote},
              {"Add &Health", kEventHealth},   {"Add &Vacation", kEventVacation}};
  for (const auto& a : adds) {
    const int type = a.type;
    add_menu_->addAction(tr(a.caption), this, [this, type] { Add(type); });
  }
  auto* add = new QToolButton(this);
  add->setObjectName("cmdAdd");
  add->setText(tr("Add"));
  add->setMenu(add_menu_);
  add->setPopupMode(QToolButton::InstantPopup);
  tools->addWidget(add);
  tools->addAction(tr("Edit"), this, &frmCalendar::Edit)->setObjectName("mnuEdit");
  tools->addAction(tr("Delete"), this, &frmCalendar::Delete)->setObjectName("mnuDelete");
  tools->addAction(Q(dailytext::kPrint), this, &frmCalendar::Print)->setObjectName("mnuPrint");
  tools->addAction(Q(dailytext::kExitForm), this, &QDialog::reject);
  tools->addSeparator();
  tools->addWidget(new QLabel(tr("Show:"), this));
  show_ = new QComboBox(this);
  show_->setObjectName("ComboEvent");
  for (const SelectorItem& item : EventSelector()) show_->addItem(Q(item.text), item.type);
  tools->addWidget(show_);

  auto* views = new QHBoxLayout;
  layout->addLayout(views, 1);
  year_ = new YearView(this);
  month_ = new MonthView(this);
  day_ = new DayView(this);
  auto* scroll = new QScrollArea(this);
  scroll->setWidget(day_);
  scroll->setWidgetResizable(true);
  scroll->setMinimumWidth(300);
  auto* month_side = new QVBoxLayout;
  auto* nav = new QHBoxLayout;
  auto* prev = new QToolButton(this);
  prev->setArrowType(Qt::LeftArrow);
  auto* next = new QToolButton(this);
  next->setArrowType(Qt::RightArrow);
  nav->addWidget(prev);
  nav->addStretch();
  nav->addWidget(next);
  month_side->addLayout(nav);
  month_side->addWidget(month_, 1);
  views->addWidget(year_, 3);
  views->addLayout(month_side, 4);
  views->addWidget(scroll, 3);
  resize(1100, 620);

  connect(show_, &QComboBox::currentIndexChanged, this, &frmCalendar::LoadMarks);
  connect(month_, &MonthView::dateChosen, this, &frmCalendar::ShowDate);
  connect(year_, &YearView::dateChosen, this, &frmCalendar::ShowDate);
  connect(month_, &MonthView::dateMenu, this,
          [this](const Date&, QPoint global) { add_menu_->popup(global); });
  connect(prev, &QToolButton::clicked, this, [this] {
    ShowDate(AddDays(FirstOfMonth(date_), -1));
  });
  // A month's first day plus 32 days always lands in the next month.
  connect(next, &QToolButton::clicked, this,
          [this] { ShowDate(FirstOfMonth(AddDays(FirstOfMonth(date_), 32))); });
  connect(day_, &DayView::blockMoved, this, &frmCalendar::Moved);
  connect(day_, &DayView::blockOpened, this, [this](int64_t) { Edit(); });
  connect(day_, &DayView::timeChosen, this,
          [this](int start) { chosen_ = TimeSpan{start, start + kQuarter}; });
  ShowDate(date_);
}

void frmCalendar::ShowDate(const Date& date) {
  const bool new_month = date.year != date_.year || date.month != date_.month ||
                         month_->Selected() == Date{};
  date_ = date;
  chosen_.reset();
  month_->SetSelected(date);
  if (new_month) LoadMarks();
  LoadDayView();
}

void frmCalendar::LoadMarks() {
  RunTrapped(state_, "frmCalendar.LoadEvents", [&] {
    SQLite::Database& db = *state_.gDb;
    const int type = show_->currentData().toInt();
    const Date first = FirstOfMonth(date_);
    Date last = first;
    while (last.month == first.month) last = AddDays(last, 1);
    auto marks = LoadEventMarks(db, state_.gAthlete, type, first, AddDays(last, -1));
    if (type == kEventMultiple) std::erase_if(marks, [](const auto& m) { return m.second != kEventMultiple; });
    month_->SetMonth(date_.year, date_.month, marks);
    const int start_month = StartMonth(db, state_.gAthlete);
    const int year = date_.month >= start_month ? date_.year : date_.year - 1;
    const Date year_first{year, start_month, 1};
    auto year_marks = LoadEventMarks(db, state_.gAthlete, type == kEventMultiple ? -1 : type,
                                     year_first, Date{year + 1, start_month, 1});
    if (type == kEventMultiple) std::erase_if(year_marks, [](const auto& m) { return m.second != kEventMultiple; });
    year_->SetYear(year, start_month, std::move(year_marks));
    return true;
  });
}

void frmCalendar::LoadDayView() {
  RunTrapped(state_, "frmCalendar.LoadDay", [&] {
    day_->SetDay(date_, LoadDay(state_, state_.gAthlete, date_), false);
    return true;
  });
}

void frmCalendar::Add(int type) {
  if (type == kEventMeet) {
    frmMeetMaint card(state_, 0, this);
    card.exec();
  } else if (type == kEventHealth) {
    HealthForm form;
    form.date = date_;
    if (chosen_) {
      form.start = ClockText(chosen_->start);
      form.end = ClockText(chosen_->end);
    }
    frmKVLEVENTHealth dialog(state_, form, this);
    dialog.exec();
  } else {
    const AddStart start = RunTrapped(state_, "frmCalendar.AddEvent",
                                      [&] { return StartAdd(state_, type, date_, chosen_); });
    if (start.choice == AddChoice::kCancelled) return;
    frmKVLEVENT dialog(state_, start.form, this);
    dialog.exec();
  }
  LoadMarks();
  LoadDayView();
}

void frmCalendar::EditEvent(const CalendarEvent& e) {
  if (e.type == kEventHealth) {
    ShowHealthRecord(state_, e.id, this);
  } else {
    frmKVLEVENT dialog(state_,
                       {e.id, e.type, e.date, e.start ? ClockText(*e.start) : "",
                        e.end ? ClockText(*e.end) : "", e.comment},
                       this);
    dialog.exec();
  }
  LoadMarks();
  LoadDayView();
}

void frmCalendar::Edit() {
  const CalendarEvent* selected = day_->Selected();
  if (!selected) {
    state_.io->Tell(dailytext::kSelectTask);
    return;
  }
  const CalendarEvent chosen = *selected;
  const auto day = RunTrapped(state_, "frmCalendar.Edit",
                              [&] { return LoadDay(state_, state_.gAthlete, chosen.date); });
  for (const CalendarEvent& e : day) {
    if (e.id == chosen.id) return EditEvent(e);
  }
  state_.io->Tell(dailytext::kNotFound);
}

void frmCalendar::Delete() {
  const CalendarEvent* selected = day_->Selected();
  if (!selected) {
    state_.io->Tell(dailytext::kSelectTask);
    return;
  }
  if (DeleteEvent(state_, *selected)) {
    LoadMarks();
    LoadDayView();
  }
}

void frmCalendar::Moved(int64_t id, int start, int end) {
  MoveEvent(state_, id, start, end);
  LoadDayView();
}

void frmCalendar::Print() {
  ReportRequest request;
  request.athlete = state_.gAthlete;
  request.since = FirstOfMonth(date_);
  std::optional<ReportDoc> doc = RunReport(state_, CalendarReportKind(), request);
  if (!doc) return;
  ReportPreviewDialog preview(state_, std::move(*doc), this);
  preview.exec();
}

}  // namespace kvlr
