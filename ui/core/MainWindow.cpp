#include "core/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMenuBar>
#include <QPrinterInfo>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUrl>

#include <fmt/format.h>

#include "core/HelpWindow.h"
#include "core/PreferenceScreens.h"
#include "core/PrinterInfo.h"
#include "core/ShellDialogs.h"
#include "core/SwimCodes.h"
#include "shell/Login.h"
#include "shell/OpenDatabase.h"
#include "shell/ShellTexts.h"
#include "shell/Startup.h"
#include "store/Repair.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {
QString Q(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

// Shows progress lines on the start-up panel while passing everything on.
class PanelIo final : public UserIo {
 public:
  PanelIo(UserIo& inner, frmSetup& panel) : inner_(inner), panel_(panel) {}
  Answer Message(std::string_view text, int style, std::string_view title) override {
    return inner_.Message(text, style, title);
  }
  void Progress(std::string_view line) override {
    panel_.SetLine(Q(line));
    inner_.Progress(line);
  }

 private:
  UserIo& inner_;
  frmSetup& panel_;
};
}  // namespace

MainWindow::MainWindow(AppState& state, QWidget* parent) : QMainWindow(parent), state_(state) {
  setObjectName("frmMain");
  resize(960, 680);
  // The lists every screen picks from, as they stand before a database is read.
  state_.gStroke = StartStrokeList();
  state_.gDistance = DistanceList();
  state_.gCourse = CourseList();
  central_ = new QStackedWidget(this);
  background_ = new QLabel(central_);
  background_->setObjectName("picBackground");
  background_->setAlignment(Qt::AlignCenter);
  background_->setScaledContents(false);
  home_ = new frmHome(state_, central_);
  central_->addWidget(background_);
  central_->addWidget(home_);
  setCentralWidget(central_);
  BuildMenus();
  BuildToolBar();
  InstallHelpKey(this, [this](QDialog& dialog) { return run_dialog_(dialog); });
  InstallShellHandlers();
  statusBar();
  SetFileMenus(false);
  SetMenus(false);
  RefreshTitle();
}

void MainWindow::BuildMenus() {
  QMenu* current_top = nullptr;
  QMenu* current_sub = nullptr;
  std::string_view top_name, sub_name;
  for (const auto& entry : MainMenu()) {
    if (entry.caption.empty()) {
      // A menu-bar entry that is itself the command.
      QAction* action = menuBar()->addAction(Q(entry.top));
      actions_[entry.command] = action;
      current_top = nullptr;
      top_name = {};
    } else {
      if (!current_top || entry.top != top_name) {
        current_top = menuBar()->addMenu(Q(entry.top));
        menus_[Q(entry.top)] = current_top;
        top_name = entry.top;
        current_sub = nullptr;
        sub_name = {};
      }
      QMenu* target = current_top;
      if (!entry.sub.empty()) {
        if (!current_sub || entry.sub != sub_name) {
          if (entry.separator_before) current_top->addSeparator();
          current_sub = current_top->addMenu(Q(entry.sub));
          menus_[Q(entry.top) + "/" + Q(entry.sub)] = current_sub;
          sub_name = entry.sub;
        } else if (entry.separator_before) {
          current_sub->addSeparator();
        }
        target = current_sub;
      } else {
        current_sub = nullptr;
        sub_name = {};
        if (entry.separator_before) current_top->addSeparator();
      }
      actions_[entry.command] = target->addAction(Q(entry.caption));
    }
    QAction* action = actions_[entry.command];
    action->setObjectName(QString("mnu%1").arg(static_cast<int>(entry.command)));
    const MenuCommand command = entry.command;
    const QString plain =
        QString::fromStdString(PlainCaption(entry.caption.empty() ? entry.top : entry.caption));
    connect(action, &QAction::triggered, this, [this, command, plain] {
      auto it = handlers_.find(command);
      if (it != handlers_.end() && it->second) {
        it->second();
        CommandEnded();
      } else {
        state_.io->Message((plain + Q(shell_text::kNotAvailableYet)).toStdString(),
                           box::kInformation, "");
      }
    });
    if (entry.command == MenuCommand::kExit) {
      QMenu* file = menus_["&File"];
      last_files_separator_ = file->addSeparator();
      for (int i = 0; i < 5; ++i) {
        QAction* last = file->addAction(QString());
        last->setObjectName(QString("mnuLastFile%1").arg(i));
        last->setVisible(false);
        connect(last, &QAction::triggered, this, [this, last] {
          std::vector<std::string> files;
          if (OpenLastFile(state_, last->data().toString().toStdString(), &files)) {
            ShowLastFiles(files);
          }
          DatabaseChanged();
        });
        last_file_actions_.push_back(last);
      }
      last_files_separator_->setVisible(false);
    }
  }
}

void MainWindow::InstallShellHandlers() {
  using C = MenuCommand;
  SetHandler(C::kOpenNew, [this] { OpenNew(); });
  SetHandler(C::kRepair, [this] { Repair(); });
  SetHandler(C::kLogin, [this] { RunLogin(); });
  SetHandler(C::kExit, [this] { close(); });
  SetHandler(C::kSystemPrefs, [this] {
    frmSystem screen(state_, this);
    run_dialog_(screen);
  });
  SetHandler(C::kReportPrefs, [this] {
    frmReptPref screen(state_, this);
    run_dialog_(screen);
  });
  SetHandler(C::kDirectoryPrefs, [this] {
    frmDirectories screen(state_, this);
    run_dialog_(screen);
  });
  SetHandler(C::kInstallMobile, [this] {
    state_.io->Tell(
        fmt::format("{}\r\n{}", shell_text::kMobileMissing, shell_text::kContactSupport));
  });
  SetHandler(C::kInstallUpdate, [this] {
    if (!state_.gDbOpen) return;
    if (state_.io->AskYesNo(fmt::format("{}\r\n{}", shell_text::kInstallUpdateFirst,
                                        shell_text::kInstallUpdateQuestion))) {
      close();
    }
  });
  SetHandler(C::kHelpContents, [this] { ShowHelp(this, kHelpContentsPage, run_dialog_); });
  SetHandler(C::kHelpReleaseNotes,
             [this] { ShowHelp(this, kHelpReleaseNotesPage, run_dialog_); });
  SetHandler(C::kHelpTechSupport, [this] { ShowHelp(this, kHelpSupportPage, run_dialog_); });
  SetHandler(C::kHelpAbout, [this] {
    state_.io->Message(
        "KVL-R 2.1\r\nA log of meets, times, standards and training for up to "
        "four swimmers.",
        box::kInformation, "About KVL-R");
  });
}

void MainWindow::BuildToolBar() {
  using C = MenuCommand;
  auto icon = [this](const char* theme, QStyle::StandardPixmap fallback) {
    return QIcon::fromTheme(theme, style()->standardIcon(fallback));
  };
  struct Tool {
    C command;
    const char* label;
    const char* theme;
    QStyle::StandardPixmap fallback;
    QKeySequence keys;
  };
  const Tool tools[] = {
      {C::kOpenNew, "Open", "document-open", QStyle::SP_DialogOpenButton, QKeySequence::Open},
      {C::kImportResults, "Import", "document-import", QStyle::SP_ArrowDown, QKeySequence("Ctrl+I")},
      {C::kResults, "Results", "view-list-details", QStyle::SP_FileDialogDetailedView,
       QKeySequence("Ctrl+R")},
      {C::kMeets, "Meets", "x-office-calendar", QStyle::SP_FileDialogListView, QKeySequence("Ctrl+M")},
      {C::kBackup, "Backup", "document-save", QStyle::SP_DialogSaveButton, QKeySequence("Ctrl+B")},
  };
  QToolBar* bar = addToolBar(tr("Everyday"));
  bar->setObjectName("tbrMain");
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  home_action_ = bar->addAction(icon("go-home", QStyle::SP_DirHomeIcon), tr("Best Times"));
  home_action_->setObjectName("tbrHome");
  home_action_->setShortcut(QKeySequence("Ctrl+H"));
  home_action_->setToolTip(tr("The home page: best times, last and next meet, goals (Ctrl+H)"));
  connect(home_action_, &QAction::triggered, this, &MainWindow::RefreshTitle);
  for (const Tool& tool : tools) {
    // A button of its own: an icon on a menu-bar command would replace its word there.
    QAction* command = actions_[tool.command];
    QAction* button = bar->addAction(icon(tool.theme, tool.fallback), tr(tool.label));
    button->setToolTip(QString("%1 (%2)").arg(QString::fromStdString(PlainCaption(
                                                  command->text().toStdString())),
                                              tool.keys.toString(QKeySequence::NativeText)));
    button->setObjectName("tbr" + command->objectName());
    button->setShortcut(tool.keys);
    button->setEnabled(command->isEnabled());
    connect(button, &QAction::triggered, command, &QAction::trigger);
    connect(command, &QAction::changed, button,
            [button, command] { button->setEnabled(command->isEnabled()); });
  }
  actions_[C::kExit]->setShortcut(QKeySequence("Ctrl+Q"));
  actions_[C::kExit]->setIcon(icon("application-exit", QStyle::SP_DialogCloseButton));
  actions_[C::kHelpContents]->setShortcut(QKeySequence::HelpContents);
  actions_[C::kHelpContents]->setIcon(icon("help-contents", QStyle::SP_DialogHelpButton));
}

void MainWindow::CommandEnded() {
  statusBar()->clearMessage();
  RefreshTitle();
}

void MainWindow::SetHandler(MenuCommand command, std::function<void()> handler) {
  handlers_[command] = std::move(handler);
}

QAction* MainWindow::Action(MenuCommand command) const {
  auto it = actions_.find(command);
  return it == actions_.end() ? nullptr : it->second;
}

void MainWindow::SetMenus(bool open) {
  for (const auto& entry : MainMenu()) {
    if (entry.top == "&File" || entry.top == "&Help") continue;
    actions_[entry.command]->setEnabled(open);
    if (auto it = menus_.find(Q(entry.top)); it != menus_.end()) {
      it->second->menuAction()->setEnabled(open);
    }
  }
}

void MainWindow::SetFileMenus(bool open) {
  for (const auto& entry : MainMenu()) {
    if (entry.top != "&File") continue;
    actions_[entry.command]->setEnabled(MenuEnabled(entry, open));
  }
  for (const char* sub : {"&File/&Import", "&File/&Export"}) {
    if (auto it = menus_.find(sub); it != menus_.end()) it->second->menuAction()->setEnabled(open);
  }
}

void MainWindow::ShowLastFiles(const std::vector<std::string>& files) {
  for (size_t i = 0; i < last_file_actions_.size(); ++i) {
    QAction* a = last_file_actions_[i];
    if (i < files.size()) {
      a->setText(QString("&%1 %2").arg(i + 1).arg(QString::fromStdString(files[i])));
      a->setData(QString::fromStdString(files[i]));
      a->setVisible(true);
    } else {
      a->setVisible(false);
    }
  }
  last_files_separator_->setVisible(!files.empty());
}

void MainWindow::RefreshTitle() {
  setWindowTitle(QString::fromStdString(MainTitle(state_)));
  auto picture = BackgroundPicture(state_);
  QPixmap pixmap;
  if (picture) pixmap.load(QString::fromStdString(picture->string()));
  home_action_->setEnabled(state_.gDbOpen && state_.gAthlete > 0);
  if (state_.gDbOpen && state_.gAthlete > 0 && set_up_) {
    home_->SetPicture(pixmap);
    home_->Refresh();
    central_->setCurrentWidget(home_);
    return;
  }
  central_->setCurrentWidget(background_);
  if (!pixmap.isNull()) {
    background_->setPixmap(pixmap);
    return;
  }
  // Without a picture the window still says whose log is open.
  // The hint waits for the start-up panel to close: half hidden behind it, it read as noise.
  QString who = state_.gAthlete > 0 ? QString::fromStdString(state_.gAthleteName)
                : state_.gDbOpen    ? QString::fromStdString(state_.gShortDbName)
                : set_up_           ? tr("Choose File > Open/New to open or make a database")
                                    : QString();
  background_->setText(QString("<div style='color:#2a5d8f'><p style='font-size:48pt;"
                               "font-weight:bold'>KVL-R</p><p style='font-size:16pt'>%1</p></div>")
                           .arg(who.toHtmlEscaped()));
}

void MainWindow::Start() {
  if (started_) return;
  started_ = true;
  frmSetup panel(this);
  panel.show();
  PanelIo panel_io(*state_.io, panel);
  UserIo* own_io = state_.io;
  state_.io = &panel_io;
  SetupOutcome outcome = RunSetup(state_, start_file_);
  state_.io = own_io;
  ShowLastFiles(outcome.last_files);
  if (outcome.first_run) {
    panel.ShowWelcome();
    run_dialog_(panel);
  }
  panel.hide();

  if (state_.gDbOpen) {
    BackupReminder(state_);
  } else {
    state_.gDataDir = state_.data_root;
  }

  const QString default_printer = QPrinterInfo::defaultPrinterName();
  state_.gDefaultPrinter = default_printer.toStdString();
  state_.gPrinter = GetPrinterInfo(state_.home, PrinterNames{state_.gDefaultPrinter, "", ""});
  printer_at_start_ = state_.gPrinter;

  SetFileMenus(!state_.gDatabaseName.empty());
  SetMenus(!state_.gDatabaseName.empty());
  if (state_.gDbOpen && state_.gAthlete == 0) {
    RunLogin();
    if (UpdateReminderDue(state_) &&
        state_.io->Message(shell_text::kUpdateQuestion, box::kYesNo + box::kQuestion,
                           shell_text::kUpdateTitle) == Answer::kYes) {
      actions_[MenuCommand::kWebBrowser]->trigger();
    }
  }
  set_up_ = true;
  CommandEnded();
}

void MainWindow::RunLogin() {
  if (!state_.gDbOpen) return;
  std::vector<LoginRow> rows = LoginRows(state_);
  if (rows.empty()) {
    LogIn(state_, 0);
    state_.io->Tell(shell_text::kNoSwimmers);
    RefreshTitle();
    if (add_athlete_) add_athlete_();
    rows = LoginRows(state_);
    if (rows.size() == 1) LogIn(state_, rows[0].athlete);
  } else if (rows.size() == 1) {
    LogIn(state_, rows[0].athlete);
  } else {
    frmLogin login(rows, *state_.io, this);
    if (run_dialog_(login) == QDialog::Accepted) LogIn(state_, login.Chosen());
  }
  if (state_.gAthlete == 0) state_.gAthleteCount = static_cast<int16_t>(rows.size());
  RefreshTitle();
}

void MainWindow::OpenNew() {
  QString start = QString::fromStdString(state_.gDataDir.string());
  QDir folder(start);
  if (folder.entryList({"*.mdb"}, QDir::Files).isEmpty() && !state_.gDatabaseName.empty()) {
    start = QString::fromStdString(state_.gDatabaseName);
  }
  QFileDialog dialog(this, Q(shell_text::kOpenNewTitle), start, Q(shell_text::kOpenNewFilter));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  if (run_dialog_(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  OpenDatabaseFile(dialog.selectedFiles().front());
}

bool MainWindow::OpenDatabaseFile(const QString& file) {
  std::vector<std::string> files;
  const bool opened = OpenOrCreateDatabase(state_, file.toStdString(), &files);
  if (opened) ShowLastFiles(files);
  DatabaseChanged();
  return opened;
}

void MainWindow::DatabaseChanged() {
  SetFileMenus(state_.gDbOpen);
  SetMenus(state_.gDbOpen);
  if (state_.gDbOpen && state_.gAthlete == 0) RunLogin();
  RefreshTitle();
}

void MainWindow::Repair() {
  if (!state_.gDbOpen) return;
  if (state_.io->Message(
          fmt::format("{}\r\n{}", shell_text::kRepairWarning, shell_text::kRepairQuestion),
          box::kYesNo + box::kQuestion, shell_text::kRepairTitle) != Answer::kYes) {
    return;
  }
  const int32_t athlete = state_.gAthlete;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  RepairAndCompact(state_);
  QApplication::restoreOverrideCursor();
  if (state_.gDbOpen && athlete > 0) LogIn(state_, athlete);
  DatabaseChanged();
}

bool MainWindow::ConfirmExit() {
  if (state_.gAthleteCount <= 1) {
    return state_.io->Message(shell_text::kExitQuestion, box::kYesNo + box::kQuestion, "") ==
           Answer::kYes;
  }
  frmExit choice(this);
  run_dialog_(choice);
  switch (choice.Result()) {
    case 0:
      return true;
    case 1:
      LogIn(state_, 0);
      RunLogin();
      return false;
    default:
      return false;
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (leaving_) {
    event->accept();
    return;
  }
  if (!ConfirmExit()) {
    event->ignore();
    return;
  }
  leaving_ = true;
  for (QWidget* child : findChildren<QDialog*>()) child->close();
  LeaveProgram(state_, printer_at_start_);
  event->accept();
}

}  // namespace kvlr
