#pragma once
// The one main window: start-up, the menu and its enable rules, login, the way out. Every
// other screen is opened from its menu as a child of it.

#include <filesystem>
#include <functional>
#include <map>
#include <vector>

#include <QLabel>
#include <QMainWindow>
#include <QStackedWidget>

#include "core/AppState.h"
#include "core/DialogRunner.h"
#include "home/HomeScreen.h"
#include "shell/MenuPlan.h"

namespace kvlr {

class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(AppState& state, QWidget* parent = nullptr);

  // The start-up sequence: panel, database, reminders, printer, menus, login, title,
  // background. Runs once.
  void Start();
  // A database named on the command line, opened by Start instead of the last one.
  void SetStartFile(std::filesystem::path file) { start_file_ = std::move(file); }

  // Renews the title, and the home page or the background, from the state.
  void RefreshTitle();
  // The page shown while a swimmer is current.
  frmHome& Home() { return *home_; }
  bool ShowsHome() const { return central_->currentWidget() == home_; }
  void SetMenus(bool database_open);
  void SetFileMenus(bool database_open);

  // What a command opens. A command without one says it is not available yet.
  void SetHandler(MenuCommand command, std::function<void()> handler);
  QAction* Action(MenuCommand command) const;
  const std::vector<QAction*>& LastFileActions() const { return last_file_actions_; }

  // How modal dialogs run (tests answer for the user).
  void SetDialogRunner(DialogRunner runner) { run_dialog_ = std::move(runner); }
  // Where a database's "Add Athlete" screen comes from when it has no swimmer.
  void SetAddAthleteScreen(std::function<void()> open) { add_athlete_ = std::move(open); }

  // The login: none, one at once, or the choice among several. Then the title.
  void RunLogin();
  // Opens or makes a database chosen by name, then the login.
  bool OpenDatabaseFile(const QString& file);
  // After a screen changed the open database (backup, restore): settings, menus, login.
  void DatabaseChanged();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenus();
  // The everyday commands, with the usual shortcuts and icons, on a tool bar.
  void BuildToolBar();
  // After a command: the status bar goes back to idle and the page shows what changed.
  void CommandEnded();
  void InstallShellHandlers();
  void ShowLastFiles(const std::vector<std::string>& files);
  void OpenNew();
  void Repair();
  // The way out; false when the user stays.
  bool ConfirmExit();

  AppState& state_;
  DialogRunner run_dialog_ = ModalRunner();
  std::function<void()> add_athlete_;
  std::map<MenuCommand, QAction*> actions_;
  std::map<MenuCommand, std::function<void()>> handlers_;
  std::map<QString, QMenu*> menus_;
  std::vector<QAction*> last_file_actions_;
  QAction* last_files_separator_ = nullptr;
  QAction* home_action_ = nullptr;
  QStackedWidget* central_ = nullptr;
  QLabel* background_ = nullptr;
  frmHome* home_ = nullptr;
  PrinterNames printer_at_start_;
  std::filesystem::path start_file_;
  bool started_ = false;
  bool set_up_ = false;  // Start has run to its end
  bool leaving_ = false;
};

}  // namespace kvlr
