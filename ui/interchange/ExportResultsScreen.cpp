#include "interchange/ExportResultsScreen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/DateText.h"
#include "core/SwimCodes.h"
#include "interchange/ExportEntriesScreen.h"
#include "interchange/ExportFolderBox.h"
#include "interchange/ExportTexts.h"
#include "interchange/ImportRun.h"

namespace kvlr {
namespace {

QString ToQ(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

}  // namespace

frmExpRes::frmExpRes(AppState& state, ResultExportKind kind, QWidget* parent)
    : QDialog(parent), state_(state), kind_(kind) {
  setObjectName("frmExpRes");
  auto* layout = new QVBoxLayout(this);
  heading_ = new QLabel(this);
  heading_->setObjectName("lblHeading");
  layout->addWidget(heading_);

  auto* group = new QGroupBox(tr("Result Export Restrictions"), this);
  auto* form = new QFormLayout(group);
  since_ = new QDateEdit(QDate::currentDate().addYears(-1), group);
  since_->setDisplayFormat(ShownDatePattern(state.gDateOrder));
  since_->setCalendarPopup(true);
  use_since_ = new QCheckBox(tr("Use Since Date"), group);
  use_since_->setObjectName("chkSince");
  auto* since_row = new QHBoxLayout;
  since_row->addWidget(since_);
  since_row->addWidget(use_since_);
  form->addRow(tr("Best Times Since:"), since_row);
  meet_ = new QComboBox(group);
  meet_->setObjectName("cboMeet");
  meet_->addItem(QString());
  if (state.gDb) meets_ = MeetsWithResults(*state.gDb, 0);
  for (const auto& m : meets_) {
    const std::string start = m.start ? ShownDate(*m.start, state.gDateOrder) : "";
    meet_->addItem(QString::fromStdString(m.name + "  " + start));
  }
  form->addRow(tr("Specific Meet:"), meet_);
  course_ = new QComboBox(group);
  course_->setObjectName("cboCourse");
  for (const auto& word : CourseList()) course_->addItem(QString::fromStdString(word));
  form->addRow(tr("Specific Course:"), course_);
  splits_ = new QCheckBox(tr("Export Splits"), group);
  splits_->setObjectName("chkSplits");
  form->addRow(QString(), splits_);
  all_ = new QCheckBox(tr("Include All Family Member's Results"), group);
  all_->setObjectName("chkAllAthletes");
  all_->setEnabled(OffersAllFamily(state));
  form->addRow(QString(), all_);
  // Best times go out plain or as proof of time: the screen's two captions.
  proof_ = new QCheckBox(ToQ(kExportProofTitle), group);
  proof_->setObjectName("chkProof");
  proof_->setChecked(kind == ResultExportKind::kProof);
  proof_->setVisible(kind != ResultExportKind::kResults);
  form->addRow(QString(), proof_);
  layout->addWidget(group);

  auto* where = new QFormLayout;
  folder_ = new ExportFolderBox(state, this);
  where->addRow(tr("Export to Directory:"), folder_);
  AddTeamRows(state, where);
  layout->addLayout(where);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  buttons->addButton(tr("Export"), QDialogButtonBox::AcceptRole)->setObjectName("cmdExport");
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    if (Export()) accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(proof_, &QCheckBox::toggled, this, [this](bool on) {
    kind_ = on ? ResultExportKind::kProof : ResultExportKind::kBestTimes;
    ShowKind();
  });
  connect(course_, &QComboBox::currentIndexChanged, this, &frmExpRes::ShowKind);
  ShowKind();
}

void frmExpRes::ShowKind() {
  switch (kind_) {
    case ResultExportKind::kResults:
      setWindowTitle(tr("Export Results"));
      break;
    case ResultExportKind::kBestTimes:
      setWindowTitle(ToQ(kExportBestTimesTitle));
      break;
    case ResultExportKind::kProof:
      setWindowTitle(ToQ(kExportProofTitle));
      break;
  }
  heading_->setText(kind_ == ResultExportKind::kProof
                        ? ToQ(kBestTimesHeading) + ToQ(kForProof)
                        : ToQ(kBestTimesHeading) + course_->currentText());
}

ResultExportOptions frmExpRes::Options() const {
  ResultExportOptions o;
  o.kind = kind_;
  o.athlete = state_.gAthlete;
  o.all_family = all_->isEnabled() && all_->isChecked();
  o.splits = splits_->isChecked();
  o.lead_off = state_.gUseLeadOff;
  if (use_since_->isChecked()) {
    const QDate d = since_->date();
    o.since = Date{d.year(), d.month(), d.day()};
  }
  const int m = meet_->currentIndex() - 1;
  if (m >= 0 && m < static_cast<int>(meets_.size())) o.meet = meets_[static_cast<size_t>(m)].meet;
  const int c = course_->currentIndex();
  if (c >= 1 && c <= 3) o.course = CourseLetters[static_cast<size_t>(c - 1)];
  o.folder = folder_->Folder();
  return o;
}

bool frmExpRes::Export() {
  return ExportResults(state_, Options()).ok;
}

}  // namespace kvlr
