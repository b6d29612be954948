#include "workouts/WorkoutSetupScreens.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "core/MainWindow.h"
#include "core/VbRules.h"
#include "shell/MenuPlan.h"
#include "workouts/Memorized.h"
#include "workouts/WorkoutDialogs.h"
#include "workouts/WorkoutExchange.h"
#include "workouts/WorkoutReportScreens.h"
#include "workouts/WorkoutScreen.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr {
namespace {

QString Q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<int>(s.size())); }

QTableWidget* Grid(QWidget* parent, const QStringList& heads) {
  auto* g = new QTableWidget(0, static_cast<int>(heads.size()), parent);
  g->setHorizontalHeaderLabels(heads);
  g->verticalHeader()->hide();
  g->setSelectionBehavior(QAbstractItemView::SelectRows);
  g->setSelectionMode(QAbstractItemView::SingleSelection);
  g->setEditTriggers(QAbstractItemView::NoEditTriggers);
  g->horizontalHeader()->setStretchLastSection(true);
  return g;
}

QHBoxLayout* Buttons(QDialog* d, std::initializer_list<std::pair<QString, std::function<void()>>> list) {
  auto* row = new QHBoxLayout;
  for (const auto& [text, run] : list) {
    auto* b = new QPushButton(text, d);
    QObject::connect(b, &QPushButton::clicked, d, run);
    row->addWidget(b);
  }
  auto* close = new QPushButton(QObject::tr("Close"), d);
  QObject::connect(close, &QPushButton::clicked, d, &QDialog::accept);
  row->addStretch();
  row->addWidget(close);
  return row;
}

// A small form of line boxes; false on Cancel.
bool AskFields(QWidget* parent, const QString& title, const QStringList& labels,
               std::vector<QString>& values, const std::function<bool(const std::vector<QString>&)>& check) {
  QDialog d(parent);
  d.setWindowTitle(title);
  auto* form = new QFormLayout(&d);
  std::vector<QLineEdit*> boxes;
  for (int i = 0; i < labels.size(); ++i) {
    boxes.push_back(new QLineEdit(values[static_cast<size_t>(i)], &d));
    form->addRow(labels[i], boxes.back());
  }
  auto* ok = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &d);
  form->addRow(ok);
  QObject::connect(ok, &QDialogButtonBox::rejected, &d, &QDialog::reject);
  QObject::connect(ok, &QDialogButtonBox::accepted, &d, [&] {
    for (size_t i = 0; i < boxes.size(); ++i) values[i] = boxes[i]->text();
    if (check(values)) d.accept();
  });
  return d.exec() == QDialog::Accepted;
}

}  // namespace

frmWorkoutStartParam::frmWorkoutStartParam(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state), p_(ReadStartParameters(StartParametersFile(state.home.Root()))) {
  setObjectName("frmWorkoutStartParam");
  setWindowTitle(tr("Workout Start Parameters"));
  auto* form = new QFormLayout;
  auto line = [&](int i, const QString& label, const char* mask = nullptr) {
    auto* e = new QLineEdit(this);
    if (mask) e->setInputMask(mask);
    e->setText(Q(p_.line[static_cast<size_t>(i)]));
    form->addRow(label, e);
    boxes_.push_back(e);
  };
  line(0, tr("Standard Start Time :"), "99:99 >A\\M");
  line(1, tr("Rest between sets (MM:SS) :"), "99:99");
  auto* course = new QComboBox(this);
  course->addItems({tr("Yards"), tr("Meters")});
  course->setCurrentIndex(p_.line[2] == "0" ? 0 : 1);
  form->addRow(tr("Course :"), course);
  boxes_.push_back(course);
  auto* base = new QComboBox(this);
  base->addItems({tr("100"), tr("50")});
  base->setCurrentIndex(p_.line[3] == "1" ? 1 : 0);
  form->addRow(tr("Pace per :"), base);
  boxes_.push_back(base);
  line(4, tr("Set Reps :"));
  line(5, tr("Set Distance :"));
  line(6, tr("Set Interval :"), "99:99");
  line(7, tr("Circuit Reps :"));
  line(8, tr("Set Description :"));
  for (int i = 9; i <= 10; ++i) {
    auto* c = new QCheckBox(i == 9 ? tr("Disable Energy Column") : tr("Disable Stroke Category Column"), this);
    c->setChecked(Trim(p_.line[static_cast<size_t>(i)]) == "-1");
    form->addRow(c);
    boxes_.push_back(c);
  }
  auto* ok = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(ok, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(ok, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* v = new QVBoxLayout(this);
  v->addLayout(form);
  v->addWidget(ok);
}

void frmWorkoutStartParam::accept() {
  StartParameters p = p_;
  for (size_t i = 0; i < boxes_.size(); ++i) {
    if (auto* e = qobject_cast<QLineEdit*>(boxes_[i])) p.line[i] = e->text().toUpper().toStdString();
    if (auto* c = qobject_cast<QComboBox*>(boxes_[i])) p.line[i] = c->currentIndex() ? "1" : "0";
    if (auto* c = qobject_cast<QCheckBox*>(boxes_[i])) p.line[i] = c->isChecked() ? "-1" : "0";
  }
  const std::string message = CheckStartParameters(p);
  if (!message.empty()) {
    state_.io->Tell(message);
    boxes_[message == wk_text::kStartInvalid ? 0 : message == wk_text::kRestInvalid ? 1 : 6]->setFocus();
    return;
  }
  try {
    WriteStartParameters(StartParametersFile(state_.home.Root()), p);
    QDialog::accept();
  } catch (const std::exception& e) {
    ReportError(state_, "frmWorkoutStartParam.cmdOK_Click", e);
  }
}

frmWorkoutSetupEnergy::frmWorkoutSetupEnergy(AppState& state, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmWorkoutSetupEnergy");
  setWindowTitle(tr("Energy Categories"));
  grid_ = Grid(this, {tr("Level"), tr("Code"), tr("Name"), tr("Stress Index")});
  connect(grid_, &QTableWidget::doubleClicked, this, &frmWorkoutSetupEnergy::Edit);
  auto* v = new QVBoxLayout(this);
  v->addWidget(grid_);
  v->addLayout(Buttons(this, {{tr("Edit"), [this] { Edit(); }}, {tr("Remove"), [this] { Remove(); }}}));
  resize(520, 360);
  Load();
}

void frmWorkoutSetupEnergy::Load() {
  rows_ = ReadEnergyRows(*state_.gDb);
  grid_->setRowCount(static_cast<int>(rows_.size()));
  for (size_t i = 0; i < rows_.size(); ++i) {
    const EnergyRow& r = rows_[i];
    const QString cells[] = {QString::number(r.energy_no), Q(Trim(r.abbr)), Q(Trim(r.name)),
                             QString::number(r.stress_index)};
    for (int c = 0; c < 4; ++c) grid_->setItem(static_cast<int>(i), c, new QTableWidgetItem(cells[c]));
  }
}

void frmWorkoutSetupEnergy::Edit() {
  const int row = grid_->currentRow();
  if (row < 0 || row >= static_cast<int>(rows_.size())) return;
  const EnergyRow r = rows_[static_cast<size_t>(row)];
  std::vector<QString> values = {Q(Trim(r.abbr)), Q(Trim(r.name)), QString::number(r.stress_index)};
  const bool ok = AskFields(this, tr("Level %1").arg(r.energy_no), {tr("Code :"), tr("Name :"), tr("Stress Index :")},
                            values, [&](const std::vector<QString>& v) {
                              const std::string m = CheckEnergyEntry(*state_.gDb, r.energy_no,
                                                                     v[0].toStdString(), v[1].toStdString());
                              if (!m.empty()) state_.io->Tell(m);
                              return m.empty();
                            });
  if (!ok) return;
  SaveEnergyEntry(*state_.gDb, r.energy_no, values[0].toStdString(), values[1].toStdString(),
                  values[2].toStdString());
  Load();
}

void frmWorkoutSetupEnergy::Remove() {
  const int row = grid_->currentRow();
  if (row < 0 || row >= static_cast<int>(rows_.size())) return;
  const EnergyRow& r = rows_[static_cast<size_t>(row)];
  if (state_.io->Message(RemoveCodeQuestion(Trim(r.abbr)), box::kYesNo + box::kQuestion,
                         wk_text::kRemoveCodeTitle) != Answer::kYes) {
    return;
  }
  ClearEnergyLevel(*state_.gDb, r.energy_no);
  Load();
}

frmWorkoutSetupStokeCat::frmWorkoutSetupStokeCat(AppState& state, CategoryKind kind, QWidget* parent)
    : QDialog(parent), state_(state), kind_(kind) {
  setObjectName("frmWorkoutSetupStokeCat");
  setWindowTitle(kind == CategoryKind::kStroke ? tr("Stroke Categories")
                 : kind == CategoryKind::kWork ? tr("Work Categories")
                                               : tr("Set Descriptions"));
  grid_ = kind == CategoryKind::kDescription ? Grid(this, {tr("Set Description")})
                                             : Grid(this, {tr("Code"), tr("Category Name")});
  connect(grid_, &QTableWidget::doubleClicked, this, [this] { Edit(false); });
  auto* v = new QVBoxLayout(this);
  v->addWidget(grid_);
  v->addLayout(Buttons(this, {{tr("Add"), [this] { Edit(true); }},
                              {tr("Edit"), [this] { Edit(false); }},
                              {tr("Remove"), [this] { Remove(); }}}));
  resize(440, 380);
  Load();
}

void frmWorkoutSetupStokeCat::Load() {
  rows_ = ReadCategories(*state_.gDb, kind_);
  grid_->setRowCount(0);
  if (rows_.empty()) {
    grid_->setRowCount(1);
    grid_->setItem(0, 0, new QTableWidgetItem(kind_ == CategoryKind::kDescription
                                                  ? tr("No set descriptions setup")
                                                  : tr("No categories setup")));
    return;
  }
  grid_->setRowCount(static_cast<int>(rows_.size()));
  for (size_t i = 0; i < rows_.size(); ++i) {
    const int r = static_cast<int>(i);
    if (kind_ == CategoryKind::kDescription) {
      grid_->setItem(r, 0, new QTableWidgetItem(Q(rows_[i].name)));
    } else {
      grid_->setItem(r, 0, new QTableWidgetItem(Q(rows_[i].code)));
      grid_->setItem(r, 1, new QTableWidgetItem(Q(rows_[i].name)));
    }
  }
}

void frmWorkoutSetupStokeCat::Edit(bool add) {
  const int row = grid_->currentRow();
  if (!add && (row < 0 || row >= static_cast<int>(rows_.size()))) return;
  const CategoryRow old = add ? CategoryRow{} : rows_[static_cast<size_t>(row)];
  const bool desc = kind_ == CategoryKind::kDescription;
  static const char* kTitles[3][2] = {{"Add Stroke Category", "Edit Stroke Category"},
                                      {"Add Work Type Category", "Edit Work Type Category"},
                                      {"Add Set Description", "Edit Set Description"}};
  const QString title = tr(kTitles[static_cast<int>(kind_)][add ? 0 : 1]);
  std::vector<QString> values = desc ? std::vector<QString>{Q(old.name)}
                                     : std::vector<QString>{Q(old.code), Q(old.name)};
  const QStringList labels = desc ? QStringList{tr("Description :")}
                                  : QStringList{tr("Code :"), tr("Category Name :")};
  const std::string old_key = desc ? old.name : old.code;
  auto parts = [&](const std::vector<QString>& v) {
    return desc ? std::pair{v[0].toStdString(), v[0].toStdString()}
                : std::pair{v[0].toStdString(), v[1].toStdString()};
  };
  const bool ok = AskFields(this, title, labels, values, [&](const std::vector<QString>& v) {
    const auto [code, name] = parts(v);
    const std::string m = CheckCategoryEntry(*state_.gDb, kind_, old_key, code, name);
    if (!m.empty()) state_.io->Tell(m);
    return m.empty();
  });
  if (!ok) return;
  const auto [code, name] = parts(values);
  SaveCategoryEntry(*state_.gDb, kind_, old_key, code, name);
  Load();
}

void frmWorkoutSetupStokeCat::Remove() {
  const int row = grid_->currentRow();
  if (row < 0 || row >= static_cast<int>(rows_.size())) return;
  const CategoryRow& r = rows_[static_cast<size_t>(row)];
  const bool desc = kind_ == CategoryKind::kDescription;
  const bool yes = desc ? state_.io->Message(wk_text::kRemoveDescription, box::kYesNo + box::kQuestion,
                                             wk_text::kRemoveDescriptionTitle) == Answer::kYes
                        : state_.io->Message(RemoveCodeQuestion(r.code), box::kYesNo + box::kQuestion,
                                             wk_text::kRemoveCodeTitle) == Answer::kYes;
  if (!yes) return;
  RemoveCategory(*state_.gDb, kind_, desc ? r.name : r.code);
  Load();
}

void ShowImportWorkouts(AppState& state, QWidget* parent) {
  const QString file = QFileDialog::getOpenFileName(
      parent, QObject::tr("Import Workouts"), QString::fromStdString(state.gDataDir.string()),
      QObject::tr("Workout files (*WorkoutExport*.zip *.wk3);;Zipped Files (*WorkoutExport*.zip);;"
                  "Workout files (*.wk3)"));
  if (file.isEmpty()) {
    return;
  }
  std::filesystem::path chosen = file.toStdString();
  if (const std::string refuse = RefuseSiblingBackup(chosen); !refuse.empty()) {
    state.io->Tell(refuse);
    return;
  }
  try {
    if (QFileInfo(file).suffix().compare("zip", Qt::CaseInsensitive) == 0) {
      const auto temp = state.home.Root() / "KVL-RTemp";
      const Wk3Unzip unzip = UnzipWorkoutExport(chosen, temp);
      if (!unzip.message.empty()) {
        state.io->Tell(unzip.message);
        return;
      }
      state.io->Message("The files inside the selected zip file have been unzipped to " +
                            temp.string() +
                            "\r\nThese unzipped files will be listed after you click OK.\r\n"
                            "After the list is displayed, double click on the file you wish to "
                            "import.\r\nNote only Norvan specific Workout Export .wk3 files will "
                            "be displayed.",
                        box::kInformation, "Import Workouts");
      const QString inner = QFileDialog::getOpenFileName(
          parent, QObject::tr("Import Workouts"), QString::fromStdString(temp.string()),
          QObject::tr("Workout Export files (*.wk3)"));
      if (inner.isEmpty()) {
        state.io->Tell(wk_text::kNoImportFile);
        return;
      }
      chosen = inner.toStdString();
    }
    const Wk3Summary summary = ReadWk3Summary(chosen);
    if (!summary.ok) {
      state.io->Tell(summary.message);
      return;
    }
    const std::string text = "File: " + chosen.filename().string() + "\r\nCreated by: " +
                             summary.creator + " with version " + summary.version +
                             "\r\nDate Created : " + summary.created +
                             "\r\nWorkouts to import:   " + std::to_string(summary.workouts);
    if (state.io->Message(text, box::kOkCancel + box::kQuestion, "Import Workouts") != Answer::kOk) {
      return;
    }
    const Wk3Import result =
        ImportWorkouts(state, chosen, [&state](const std::string& line) { state.io->Progress(line); });
    state.io->Message(result.message + "\r\n" + std::string(wk_text::kImported) +
                          std::to_string(result.imported),
                      result.ok ? box::kInformation : box::kExclamation, "Import Workouts");
  } catch (const std::exception& e) {
    ReportError(state, "frmWorkoutImportWorkouts.cmdImport_Click", e);
  }
}

void InstallWorkoutScreens(MainWindow& window, AppState& state) {
  using C = MenuCommand;
  window.SetHandler(C::kWorkouts, [&window, &state] {
    frmWorkout screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kWkStartParameters, [&window, &state] {
    frmWorkoutStartParam screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kWkEnergy, [&window, &state] {
    frmWorkoutSetupEnergy screen(state, &window);
    screen.exec();
  });
  const std::pair<C, CategoryKind> categories[] = {{C::kWkStroke, CategoryKind::kStroke},
                                                   {C::kWkWorkType, CategoryKind::kWork},
                                                   {C::kWkDescriptions, CategoryKind::kDescription}};
  for (const auto& [command, kind] : categories) {
    window.SetHandler(command, [&window, &state, kind = kind] {
      frmWorkoutSetupStokeCat screen(state, kind, &window);
      screen.exec();
    });
  }
  window.SetHandler(C::kImportWorkouts, [&window, &state] { ShowImportWorkouts(state, &window); });
  window.SetHandler(C::kReportLogBooks, [&window, &state] {
    if (ListWorkouts(*state.gDb).empty()) {
      state.io->Tell("No workouts have been created yet.");
      return;
    }
    frmWorkoutRptLogBook screen(state, 0, &window);
    screen.exec();
  });
  window.SetHandler(C::kReportWorkoutStats, [&window, &state] {
    frmWorkoutRptStats screen(state, &window);
    screen.exec();
  });
}

}  // namespace kvlr
