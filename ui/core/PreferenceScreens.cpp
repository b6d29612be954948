#include "core/PreferenceScreens.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrinterInfo>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/DateText.h"
#include "core/SwimCodes.h"
#include "handheld/HandheldFiles.h"

namespace kvlr {
namespace {

QString Q(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

template <size_t N>
QGroupBox* RadioGroup(QWidget* parent, const QString& title,
                      const std::array<const char*, N>& words,
                      std::array<QRadioButton*, N>& buttons) {
  auto* box = new QGroupBox(title, parent);
  auto* layout = new QVBoxLayout(box);
  auto* group = new QButtonGroup(box);
  for (size_t i = 0; i < N; ++i) {
    buttons[i] = new QRadioButton(QString::fromUtf8(words[i]), box);
    group->addButton(buttons[i], static_cast<int>(i));
    layout->addWidget(buttons[i]);
  }
  return box;
}

template <size_t N>
int Checked(const std::array<QRadioButton*, N>& buttons) {
  for (size_t i = 0; i < N; ++i) {
    if (buttons[i]->isChecked()) return static_cast<int>(i);
  }
  return 0;
}

QDialogButtonBox* OkCancel(QDialog* dialog) {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
  QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  return buttons;
}

}  // namespace

frmSystem::frmSystem(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state), loaded_(LoadSystemPreferences(state)) {
  setObjectName("frmSystem");
  setWindowTitle(tr("System Preferences"));
  auto* layout = new QVBoxLayout(this);

  auto* top = new QHBoxLayout;
  top->addWidget(RadioGroup<3>(this, tr("Gender Designations"),
                               {"Men/Women (M/W)", "Male/Female (M/F)", "Boys/Girls (B/G)"},
                               gender_));
  auto* age_box =
      RadioGroup<4>(this, tr("Meet Age-Up Date"),
                    {"Meet Start Date", "Meet End Date", "Date:", "Not Applicable"}, age_up_);
  age_up_date_ = new QDateEdit(age_box);
  age_up_date_->setObjectName("dtAgeUp");
  age_up_date_->setCalendarPopup(true);
  age_up_date_->setDisplayFormat(ShownDatePattern(state.gDateOrder));
  age_box->layout()->addWidget(age_up_date_);
  top->addWidget(age_box);
  layout->addLayout(top);

  lead_off_ = new QCheckBox(tr("Use Relay Lead Off Splits"), this);
  lead_off_->setObjectName("chkLeadOff");
  layout->addWidget(lead_off_);

  auto* reminders = new QGroupBox(tr("Automated Reminders"), this);
  auto* grid = new QGridLayout(reminders);
  backup_days_ = new QSpinBox(reminders);
  update_days_ = new QSpinBox(reminders);
  backup_days_->setObjectName("txtBackupDays");
  update_days_->setObjectName("txtUpdateDays");
  // The range is checked on OK with the program's own words, so the boxes take any byte.
  for (auto* spin : {backup_days_, update_days_}) spin->setRange(0, 255);
  grid->addWidget(new QLabel(tr("Automatic Backup every"), reminders), 0, 0);
  grid->addWidget(backup_days_, 0, 1);
  grid->addWidget(new QLabel(tr("days"), reminders), 0, 2);
  grid->addWidget(new QLabel(tr("Automatic Update Check every"), reminders), 1, 0);
  grid->addWidget(update_days_, 1, 1);
  grid->addWidget(new QLabel(tr("days"), reminders), 1, 2);
  auto* help = new QLabel(Q(pref_text::kRemindersHelp), reminders);
  help->setWordWrap(true);
  grid->addWidget(help, 2, 0, 1, 3);
  layout->addWidget(reminders);
  layout->addWidget(OkCancel(this));

  gender_[std::clamp(loaded_.fav_sex, 0, 2)]->setChecked(true);
  lead_off_->setChecked(loaded_.use_lead_off);
  backup_days_->setValue(loaded_.backup_days);
  update_days_->setValue(loaded_.update_days);
  age_up_[static_cast<int>(loaded_.age_up)]->setChecked(true);
  const Date d = loaded_.age_up_date.value_or(state.clock->Today());
  age_up_date_->setDate(QDate(d.year, d.month, d.day));
}

SystemPreferences frmSystem::Current() const {
  SystemPreferences p;
  p.fav_sex = Checked(gender_);
  p.use_lead_off = lead_off_->isChecked();
  p.backup_days = backup_days_->value();
  p.update_days = update_days_->value();
  p.age_up = static_cast<AgeUpChoice>(Checked(age_up_));
  const QDate d = age_up_date_->date();
  if (d.isValid()) p.age_up_date = Date::FromParts(d.year(), d.month(), d.day());
  return p;
}

void frmSystem::accept() {
  const SystemPreferences p = Current();
  if (auto refusal = CheckSystemPreferences(p)) {
    state_.io->Tell(*refusal);
    return;
  }
  SaveSystemPreferences(state_, p);
  QDialog::accept();
}

void frmSystem::reject() {
  if (lead_off_->isChecked() != loaded_.use_lead_off) state_.io->Tell(pref_text::kCancelWarning);
  QDialog::reject();
}

frmReptPref::frmReptPref(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state), loaded_(LoadReportPreferences(state)) {
  setObjectName("frmReptPref");
  setWindowTitle(tr("Report Preferences"));
  auto* layout = new QVBoxLayout(this);
  auto* row = new QHBoxLayout;
  row->addWidget(RadioGroup<3>(this, tr("Output Options"),
                               {"As keyed/imported", "UPPERCASE Only", "Upper/Lower Case"},
                               output_));
  row->addWidget(
      RadioGroup<3>(this, tr("Open Events"), {"No Designation", "Senior", "Open"}, open_));
  row->addWidget(RadioGroup<2>(this, tr("Paper Size"), {"8 1/2 x 11", "8 1/2 x 14"}, paper_));
  layout->addLayout(row);

  auto* headers = new QGroupBox(tr("Report Headers"), this);
  auto* form = new QFormLayout(headers);
  header1_ = new QLineEdit(headers);
  header2_ = new QLineEdit(headers);
  header1_->setObjectName("txtHeader1");
  header2_->setObjectName("txtHeader2");
  for (auto* edit : {header1_, header2_}) edit->setMaxLength(40);
  form->addRow(tr("Header 1 :"), header1_);
  form->addRow(tr("Header 2 :"), header2_);
  layout->addWidget(headers);

  auto* printers = new QGroupBox(tr("Report Printer"), this);
  auto* p = new QVBoxLayout(printers);
  printer_ = new QComboBox(printers);
  printer_->setObjectName("cboPrinter");
  printer_->addItems(QPrinterInfo::availablePrinterNames());
  const QString current = QString::fromStdString(loaded_.printer.device);
  if (!current.isEmpty() && printer_->findText(current) < 0) printer_->addItem(current);
  printer_->setCurrentText(current);
  p->addWidget(printer_);
  layout->addWidget(printers);
  layout->addWidget(OkCancel(this));

  output_[loaded_.output_case]->setChecked(true);
  open_[loaded_.open_events]->setChecked(true);
  paper_[loaded_.paper_size]->setChecked(true);
  header1_->setText(QString::fromStdString(loaded_.header1));
  header2_->setText(QString::fromStdString(loaded_.header2));
}

void frmReptPref::accept() {
  ReportPreferences p = loaded_;
  p.output_case = Checked(output_);
  p.open_events = Checked(open_);
  p.paper_size = Checked(paper_);
  p.header1 = header1_->text().toStdString();
  p.header2 = header2_->text().toStdString();
  const QString device = printer_->currentText();
  if (device.toStdString() != loaded_.printer.device) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(device);
    p.printer = PrinterNames{device.toStdString(), info.makeAndModel().toStdString(), ""};
  }
  SaveReportPreferences(state_, p);
  QDialog::accept();
}

frmDirectories::frmDirectories(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmDirectories");
  setWindowTitle(tr("Favorite Directories"));
  resize(720, 480);
  auto* layout = new QHBoxLayout(this);
  model_ = new QFileSystemModel(this);
  model_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  model_->setRootPath(QDir::rootPath());
  tree_ = new QTreeView(this);
  tree_->setObjectName("dirTree");
  tree_->setModel(model_);
  for (int c = 1; c < model_->columnCount(); ++c) tree_->hideColumn(c);
  tree_->setHeaderHidden(true);
  layout->addWidget(tree_, 1);

  auto* right = new QVBoxLayout;
  auto* help = new QLabel(Q(pref_text::kDirectoriesHelp), this);
  help->setWordWrap(true);
  right->addWidget(help);
  auto* grid = new QGridLayout;
  for (int i = 0; i < 4; ++i) {
    const auto kind = static_cast<DirectoryKind>(i);
    grid->addWidget(new QLabel(QString::fromStdString(DirectoryWord(kind)), this), i * 2, 0);
    auto* set = new QPushButton(tr("Set Directory"), this);
    set->setObjectName(QString("cmdSet%1").arg(i));
    connect(set, &QPushButton::clicked, this, [this, kind] { SetDirectory(kind); });
    grid->addWidget(set, i * 2, 1);
    current_[i] = new QLabel(this);
    current_[i]->setWordWrap(true);
    grid->addWidget(current_[i], i * 2 + 1, 0, 1, 2);
  }
  // The handheld's sync folder is kept beside the program, not with the database's folders.
  grid->addWidget(new QLabel(tr("Handheld sync folder"), this), 8, 0);
  auto* set_sync = new QPushButton(tr("Set Directory"), this);
  set_sync->setObjectName("cmdSetSync");
  connect(set_sync, &QPushButton::clicked, this, &frmDirectories::SetSyncDirectory);
  grid->addWidget(set_sync, 8, 1);
  sync_ = new QLabel(this);
  sync_->setObjectName("lblSync");
  sync_->setWordWrap(true);
  grid->addWidget(sync_, 9, 0, 1, 2);
  right->addLayout(grid);
  right->addStretch();
  auto* close = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
  right->addWidget(close);
  layout->addLayout(right, 1);
  SelectFolder(QString::fromStdString(state.gDataDir.string()));
  Refresh();
}

void frmDirectories::SelectFolder(const QString& folder) {
  const QModelIndex index = model_->index(folder);
  tree_->setCurrentIndex(index);
  tree_->scrollTo(index);
}

void frmDirectories::SetDirectory(DirectoryKind kind) {
  const QString folder = model_->filePath(tree_->currentIndex());
  if (folder.isEmpty()) return;
  if (SetFavoriteDirectory(state_, kind, folder.toStdString())) Refresh();
}

void frmDirectories::SetSyncDirectory() {
  const QString folder = model_->filePath(tree_->currentIndex());
  if (folder.isEmpty()) return;
  if (SetHandheldSyncDir(state_, folder.toStdString())) Refresh();
}

void frmDirectories::Refresh() {
  sync_->setText(QString::fromStdString(HandheldSyncDir(state_).string()));
  for (int i = 0; i < 4; ++i) {
    current_[i]->setText(
        QString::fromStdString(GetDirectories(state_, static_cast<DirectoryKind>(i)).string()));
  }
}

}  // namespace kvlr
