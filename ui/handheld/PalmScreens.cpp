#include "handheld/PalmScreens.h"

#include <fmt/format.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

#include <SQLiteCpp/Statement.h>

#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/MainWindow.h"
#include "handheld/HandheldFiles.h"
#include "handheld/HandheldTexts.h"
#include "handheld/PalmImportModel.h"

namespace kvlr {

namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

template <size_t N>
QString Joined(const std::string_view (&lines)[N], const char* between) {
  QString text;
  for (size_t i = 0; i < N; ++i) text += (i ? QString(between) : QString()) + Q(lines[i]);
  return text;
}

std::vector<int32_t> AllSwimmers(SQLite::Database& db) {
  std::vector<int32_t> all;
  SQLite::Statement q(db, "SELECT Athlete FROM Athlete ORDER BY Athlete");
  while (q.executeStep()) all.push_back(q.getColumn(0).getInt());
  return all;
}

void ShowPalmImport(MainWindow& window, AppState& state) {
  using namespace palm_text;
  std::filesystem::path folder = FindPalmFolder(state);
  if (folder.empty()) {
    if (!state.io->AskYesNo(fmt::format("{}\r\n{}", kFindError, kSelectYourself),
                            kFindErrorTitle)) {
      return;
    }
    frmPalmDirectory directory(state, &window);
    directory.exec();
    folder = FindPalmFolder(state);
    if (folder.empty()) return;
  }
  auto opening = OpenPalmImport(state, folder);
  if (!opening) return;
  frmPalmImport screen(state, std::move(*opening), &window);
  screen.exec();
}

}  // namespace

void InstallHandheldScreens(MainWindow& window, AppState& state) {
  window.SetHandler(MenuCommand::kExportMobile, [&window, &state] {
    frmPalm screen(state, &window);
    screen.exec();
  });
  window.SetHandler(MenuCommand::kImportMobile, [&window, &state] {
    RunTrapped(state, "frmPalmImport.Form_Load", [&] {
      ShowPalmImport(window, state);
      return true;
    });
  });
}

frmPalm::frmPalm(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  using namespace palm_text;
  setObjectName("frmPalm");
  setWindowTitle(Q(kExportTitle));
  auto* form = new QFormLayout;
  just_active_ = new QRadioButton(Q(kJustActive), this);
  auto* all = new QRadioButton(Q(kAllFamily), this);
  (state_.gAthlete != 0 ? just_active_ : all)->setChecked(true);
  form->addRow(just_active_);
  form->addRow(all);
  course_ = new QComboBox(this);
  course_->addItem(tr("Yards"), "Y");
  course_->addItem(tr("SC Meters"), "S");
  course_->addItem(tr("LC Meters"), "L");
  form->addRow(Q(kCourse), course_);
  form->addRow(new QLabel(Q(kSameCourse), this));
  since_ = new QCheckBox(Q(kUseSince), this);
  since_date_ = new QDateEdit(QDate::currentDate().addYears(-1), this);
  since_date_->setCalendarPopup(true);
  since_date_->setDisplayFormat(ShownDatePattern(state_.gDateOrder));
  form->addRow(since_);
  form->addRow(Q(kBestSince), since_date_);
  meets_ = new QListWidget(this);
  form->addRow(new QLabel(Q(kResultMeets), this));
  form->addRow(meets_);
  entry_meet_ = new QComboBox(this);
  form->addRow(Q(kEntryMeet), entry_meet_);
  sync_dir_ = new QLineEdit(QString::fromStdString(HandheldSyncDir(state_).string()), this);
  sync_dir_->setReadOnly(true);
  auto* choose = new QPushButton(tr("Sync Folder..."), this);
  auto* sync_row = new QHBoxLayout;
  sync_row->addWidget(sync_dir_);
  sync_row->addWidget(choose);
  form->addRow(tr("Sync folder:"), sync_row);
  panel_ = new QLabel(this);
  form->addRow(panel_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  form->addRow(buttons);
  setLayout(form);

  connect(course_, &QComboBox::currentIndexChanged, this, &frmPalm::LoadMeets);
  connect(meets_, &QListWidget::itemChanged, this, &frmPalm::MeetTicked);
  connect(choose, &QPushButton::clicked, this, &frmPalm::ChooseSyncFolder);
  connect(buttons, &QDialogButtonBox::accepted, this, &frmPalm::Ok);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  LoadMeets();
}

void frmPalm::LoadMeets() {
  const char course = course_->currentData().toString().toStdString()[0];
  QSignalBlocker block(meets_);
  meets_->clear();
  entry_meet_->clear();
  entry_meet_->addItem("", 0);
  try {
    for (const PalmMeetChoice& m : PalmResultMeets(*state_.gDb, course)) {
      auto* item = new QListWidgetItem(
          QString::fromStdString(m.name + "  " + (m.start ? ShownDate(*m.start, state_.gDateOrder) : "")),
          meets_);
      item->setData(Qt::UserRole, m.meet);
      item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
      item->setCheckState(Qt::Unchecked);
    }
    for (const PalmMeetChoice& m : PalmEntryMeets(*state_.gDb, course)) {
      entry_meet_->addItem(QString::fromStdString(m.name), m.meet);
    }
  } catch (const std::exception& e) {
    ReportError(state_, "frmPalm.LoadMeets", e);
  }
}

void frmPalm::MeetTicked(QListWidgetItem* item) {
  if (item->checkState() != Qt::Checked || Choice().meets.size() <= 5) return;
  QSignalBlocker block(meets_);
  item->setCheckState(Qt::Unchecked);
  state_.io->Tell(palm_text::kOnlyFive);
}

void frmPalm::ChooseSyncFolder() {
  const QString folder = QFileDialog::getExistingDirectory(this, tr("Sync Folder"), sync_dir_->text());
  if (folder.isEmpty()) return;
  if (SetHandheldSyncDir(state_, folder.toStdString())) sync_dir_->setText(folder);
}

PalmExportChoice frmPalm::Choice() const {
  PalmExportChoice choice;
  if (just_active_->isChecked()) {
    if (state_.gAthlete != 0) choice.athletes = {state_.gAthlete};
  } else {
    choice.athletes = AllSwimmers(*state_.gDb);
  }
  const QString course = course_->currentData().toString();
  choice.course = course.isEmpty() ? 0 : course.toStdString()[0];
  if (since_->isChecked()) {
    const QDate d = since_date_->date();
    choice.since = Date{d.year(), d.month(), d.day()};
  }
  for (int i = 0; i < meets_->count(); ++i) {
    if (meets_->item(i)->checkState() == Qt::Checked) {
      choice.meets.push_back(meets_->item(i)->data(Qt::UserRole).toInt());
    }
  }
  choice.entry_meet = entry_meet_->currentData().toInt();
  return choice;
}

void frmPalm::Ok() {
  if (done_) {
    accept();
    return;
  }
  const PalmExportChoice choice = Choice();
  if (const auto refusal = CheckPalmExport(choice)) {
    if (!refusal->empty()) state_.io->Tell(*refusal);
    return;
  }
  ok_->setEnabled(false);
  const bool ok = RunPalmExport(state_, choice, sync_dir_->text().toStdString());
  ok_->setEnabled(true);
  if (!ok) return;
  panel_->setText(Q(palm_text::kPrepareHotSync));
  setWindowTitle(Q(palm_text::kExportDoneTitle));
  ok_->setText(tr("Close"));
  done_ = true;
}

frmPalmDirectory::frmPalmDirectory(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmPalmDirectory");
  setWindowTitle(Q(palm_text::kBackupDirectoryWord));
  auto* layout = new QVBoxLayout(this);
  auto* help = new QLabel(Joined(palm_text::kDirectoryHelp, "\n"), this);
  help->setWordWrap(true);
  layout->addWidget(help);
  folder_ = new QLineEdit(QString::fromStdString(GetPalmDirectory(state_).string()), this);
  auto* browse = new QPushButton(tr("Browse..."), this);
  auto* row = new QHBoxLayout;
  row->addWidget(folder_);
  row->addWidget(browse);
  layout->addLayout(row);
  auto* set = new QPushButton(tr("Set Directory"), this);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  buttons->addButton(set, QDialogButtonBox::ActionRole);
  layout->addWidget(buttons);
  connect(browse, &QPushButton::clicked, this, [this] {
    const QString folder = QFileDialog::getExistingDirectory(this, windowTitle(), folder_->text());
    if (!folder.isEmpty()) folder_->setText(folder);
  });
  connect(set, &QPushButton::clicked, this, [this] {
    RunTrapped(state_, "frmPalmDirectory.cmdSet_Click", [this] {
      if (SetPalmDirectory(state_, folder_->text().toStdString())) accept();
      return true;
    });
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

frmPalmImport::frmPalmImport(AppState& state, PalmOpening opening, QWidget* parent)
    : QDialog(parent), state_(state), opening_(std::move(opening)) {
  setObjectName("frmPalmImport");
  setWindowTitle(tr("Import from KVL-R Mobile"));
  auto* layout = new QVBoxLayout(this);
  const PalmMeet& m = opening_.meet;
  layout->addWidget(new QLabel(
      QString::fromStdString(m.name + "   " + m.course_word + "   " +
                             (m.start ? ShownDate(*m.start, state_.gDateOrder) : "") +
                             (m.age_up ? "   Age-Up: " + ShownDate(*m.age_up, state_.gDateOrder)
                                       : "")),
      this));
  model_ = new PalmImportModel(this);
  model_->SetRows(opening_.rows);
  grid_ = new QTableView(this);
  grid_->setModel(model_);
  grid_->horizontalHeader()->setSectionsClickable(true);
  grid_->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(grid_);
  replace_ = new QCheckBox(tr("Replace results already in the database"), this);
  layout->addWidget(replace_);
  status_ = new QLabel(this);
  layout->addWidget(status_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* folder = new QPushButton(tr("Set Pocket TALLY Import Directory"), this);
  buttons->addButton(folder, QDialogButtonBox::ActionRole);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  layout->addWidget(buttons);
  resize(760, 480);
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this, &frmPalmImport::SortBy);
  connect(folder, &QPushButton::clicked, this, [this] {
    frmPalmDirectory directory(state_, this);
    directory.exec();
  });
  connect(buttons, &QDialogButtonBox::accepted, this, &frmPalmImport::Ok);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void frmPalmImport::SortBy(int column) {
  if (column == 0) return;
  // The ticks the user changed stay with their rows.
  std::vector<PalmRow> rows = opening_.data->Rows(column);
  for (PalmRow& r : rows) {
    for (const PalmRow& old : model_->Rows()) {
      if (old.result_id == r.result_id && old.athlete_id == r.athlete_id) {
        r.chosen = old.chosen;
        r.state = old.state;
      }
    }
  }
  model_->SetRows(std::move(rows));
}

void frmPalmImport::Ok() {
  if (ok_->text() == tr("Close")) {
    accept();
    return;
  }
  const PalmImportCounts counts =
      RunTrapped(state_, "frmPalmImport.cmdOK_Click", [this] {
        return ImportPalmRows(state_, *opening_.data, opening_.meet, model_->Rows(),
                              replace_->isChecked());
      });
  model_->RowsChanged();
  status_->setText(QString::fromStdString(PalmImportStatus(counts)));
  ok_->setText(tr("Close"));
}

}  // namespace kvlr
