#include "reports/ReportScreens.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>

#include "athletes/AthleteList.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/MainWindow.h"
#include "meets/MeetTypes.h"
#include "meets/Meets.h"
#include "reports/ReportFill.h"
#include "reports/ReportPreview.h"
#include "reports/TopTimesScreen.h"
#include "standards/StandardStore.h"

namespace kvlr {
namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

QString TitleOf(const std::string& kind) {
  if (kind == "meets") return QObject::tr("Meets");
  if (kind == "standards") return QObject::tr("Time Standards");
  if (kind == "meet-results") return QObject::tr("Meet Results");
  return QObject::tr("Meet Entries");
}

QDate ToQDate(const Date& d) { return QDate(d.year, d.month, d.day); }

std::optional<Date> FromQDate(const QDate& d) {
  return Date::FromParts(d.year(), d.month(), d.day());
}

}  // namespace

frmRptMeet::frmRptMeet(AppState& state, std::string kind, QWidget* parent)
    : QDialog(parent), state_(state), kind_(std::move(kind)) {
  setObjectName("frmRptMeet");
  setWindowTitle(TitleOf(kind_));
  auto* form = new QFormLayout;
  const bool meets = kind_ == "meets", standards = kind_ == "standards";
  const bool results = kind_ == "meet-results", entries = kind_ == "meet-entries";
  SQLite::Database& db = *state_.gDb;

  if (results || entries) {
    meet_ = new QComboBox(this);
    meet_->setObjectName("cboMeet");
    meet_->addItem(tr("All meets"), 0);
    MeetFilter filter;
    filter.sort = MeetSort::kStartNewest;
    for (const Meet& m : ListMeets(db, filter)) {
      meet_->addItem(Q(m.mname + "  " + MeetShortDate(m.start, state_.gDateOrder)), m.meet);
    }
    if (state_.gCurrentMeet != 0) {
      const int at = meet_->findData(state_.gCurrentMeet);
      if (at >= 0) meet_->setCurrentIndex(at);
    }
    form->addRow(tr("Meet:"), meet_);
    swimmer_ = new QComboBox(this);
    swimmer_->setObjectName("cboSwimmer");
    swimmer_->addItem(tr("All swimmers"), 0);
    for (const AthleteListRow& a : ListAthletes(db)) {
      swimmer_->addItem(Q(ReportName(a.last, a.first, a.initial)), a.athlete);
    }
    form->addRow(tr("Swimmer:"), swimmer_);
  }
  if (standards) {
    standard_ = new QComboBox(this);
    standard_->setObjectName("cboStandards");
    for (const StandardDefinition& d : ReadStandardDefinitions(db)) {
      standard_->addItem(Q(d.name + (d.descript.empty() ? "" : "  " + d.descript)), Q(d.name));
    }
    const int at = standard_->findData(Q(state_.gStandardFile));
    if (at >= 0) standard_->setCurrentIndex(at);
    form->addRow(tr("Standard:"), standard_);
    sex_ = new QComboBox(this);
    sex_->setObjectName("cboSex");
    sex_->addItem(tr("Both"), "");
    sex_->addItem(Q(GirlWord(state_.gFavSex)), "F");
    sex_->addItem(Q(BoyWord(state_.gFavSex)), "M");
    form->addRow(tr("Sex:"), sex_);
  }
  course_ = new QComboBox(this);
  course_->setObjectName("SSOCourse");
  course_->addItem(standards ? tr("All three") : tr("All courses"), "");
  course_->addItem(tr("Yards"), "Y");
  course_->addItem(tr("SC Meters"), "S");
  course_->addItem(tr("LC Meters"), "L");
  form->addRow(tr("Course:"), course_);
  if (meets || results || entries) {
    type_ = new QComboBox(this);
    type_->setObjectName("CSCboMeetType");
    type_->addItem(tr("Any type"), "");
    for (const MeetType& t : LoadMeetTypeCombo(state_)) {
      type_->addItem(Q(t.abbr + "  " + t.desc), Q(t.abbr));
    }
    form->addRow(tr("Meet type:"), type_);
    auto dates = [this, form](QCheckBox*& use, QDateEdit*& edit, const QString& word,
                              const char* name, QDate start) {
      use = new QCheckBox(word, this);
      edit = new QDateEdit(start, this);
      edit->setObjectName(name);
      edit->setCalendarPopup(true);
      edit->setEnabled(false);
      connect(use, &QCheckBox::toggled, edit, &QWidget::setEnabled);
      auto* row = new QHBoxLayout;
      row->addWidget(use);
      row->addWidget(edit, 1);
      form->addRow(row);
    };
    const QDate today = ToQDate(state_.clock->Today());
    dates(use_since_, since_, tr("Since"), "SSDateSince", today.addYears(-1));
    dates(use_until_, until_, tr("Until"), "SSDateUntil", today);
  }
  if (results) {
    splits_ = new QComboBox(this);
    splits_->setObjectName("SSOSplits");
    splits_->addItem(tr("No splits"), 0);
    splits_->addItem(tr("Cumulative splits"), 2);
    splits_->addItem(tr("Laps and cumulative splits"), 3);
    form->addRow(tr("Splits:"), splits_);
  }
  orientation_ = new QComboBox(this);
  orientation_->setObjectName("cboOrientation");
  orientation_->addItem(tr("Portrait"));
  orientation_->addItem(tr("Landscape"));
  form->addRow(tr("Orientation:"), orientation_);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* preview = buttons->addButton(tr("&Preview"), QDialogButtonBox::AcceptRole);
  preview->setObjectName("cmdPreview");
  preview->setDefault(true);
  if (results || entries) {
    QPushButton* save = buttons->addButton(tr("&Memorize"), QDialogButtonBox::ActionRole);
    save->setObjectName("cmdSaveRpt");
    save->setIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));
    save->setToolTip(QString::fromUtf8(memtxt::kSaveButton.data(),
                                       static_cast<int>(memtxt::kSaveButton.size())));
    connect(save, &QPushButton::clicked, this, &frmRptMeet::Memorize);
  }
  QPushButton* close = buttons->addButton(QDialogButtonBox::Close);
  close->setObjectName("cmdClose");
  connect(preview, &QPushButton::clicked, this, &frmRptMeet::Preview);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
}

ReportRequest frmRptMeet::Request() const {
  ReportRequest r;
  if (meet_) r.meet = meet_->currentData().toInt();
  if (swimmer_) r.athlete = swimmer_->currentData().toInt();
  const QString course = course_->currentData().toString();
  if (!course.isEmpty()) r.course = course.at(0).toLatin1();
  if (sex_) r.sex = sex_->currentData().toString().toStdString();
  if (standard_) r.standard = standard_->currentData().toString().toStdString();
  if (splits_) r.split_mode = splits_->currentData().toInt();
  if (type_) r.meet_type = type_->currentData().toString().toStdString();
  if (use_since_ && use_since_->isChecked()) r.since = FromQDate(since_->date());
  if (use_until_ && use_until_->isChecked()) r.until = FromQDate(until_->date());
  r.landscape = orientation_->currentIndex() == 1;
  return r;
}

void frmRptMeet::Preview() { PreviewReport(state_, this, kind_, Request()); }

void frmRptMeet::Memorize() {
  const MemorizedType type =
      kind_ == "meet-entries" ? MemorizedType::kMeetEntries : MemorizedType::kMeetResults;
  frmRptSaveCustom save(state_, type, Request(), this);
  save.exec();
}

void InstallReportScreens(MainWindow& window, AppState& state) {
  using C = MenuCommand;
  const std::pair<C, const char*> menu[] = {{C::kReportMeets, "meets"},
                                            {C::kReportStandards, "standards"},
                                            {C::kReportMeetResults, "meet-results"},
                                            {C::kReportMeetEntries, "meet-entries"}};
  for (const auto& [command, kind] : menu) {
    window.SetHandler(command, [&window, &state, kind = std::string(kind)] {
      try {
        frmRptMeet screen(state, kind, &window);
        screen.exec();
      } catch (const std::exception& e) {
        ReportError(state, "frmRptMeet.Form_Load", e);
      }
    });
  }
  InstallTopTimesScreens(window, state);
}

}  // namespace kvlr
