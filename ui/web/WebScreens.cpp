#include "web/WebScreens.h"

#include <QCoreApplication>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <unistd.h>

#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/HelpWindow.h"
#include "core/MainWindow.h"
#include "interchange/UnZip.h"
#include "shell/ShellTexts.h"
#include "web/BrowserScreen.h"
#include "web/UpdateFiles.h"
#include "web/WebSettings.h"
#include "web/WebTexts.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {
// The program's folders: the program home, where every file of the program is kept, and the
// folder the program runs from.
std::vector<fs::path> ProgramFolders(const AppState& state) {
  std::vector<fs::path> folders{state.home.Root()};
  const fs::path own = QCoreApplication::applicationDirPath().toStdString();
  if (!own.empty() && own != state.home.Root()) folders.push_back(own);
  return folders;
}

fs::path DownloadFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::DownloadLocation).toStdString();
}

// A Debian package goes to the desktop's installer, which asks for the rights it needs.
bool StartPackage(AppState& state, const fs::path& package) {
  fs::path deb = package;
  if (package.extension() != ".deb") {
    try {
      const auto found = PackageInUpdateZip(package, state.home.TempDir() / "update");
      if (!found) {
        state.io->Tell(std::string(web_text::kNoPackageInZip) + package.string());
        return false;
      }
      deb = *found;
    } catch (const std::exception& e) {
      ReportError(state, "frmMain.InstallUpdate", e);
      return false;
    }
  }
  if (!QProcess::startDetached("xdg-open", {QString::fromStdString(deb.string())})) {
    state.io->Tell(std::string(web_text::kStartFailed) + deb.string());
    return false;
  }
  return true;
}

void OpenBrowser(MainWindow& window, AppState& state) {
  static QPointer<frmKVLBrowser> open;
  const WebSettings settings = LoadWebSettings(state.home.Root());
  if (settings.restricted) {
    state.io->Tell(web_text::kRestricted);
    return;
  }
  if (open) {
    open->raise();
    open->activateWindow();
    return;
  }
  auto* browser = new frmKVLBrowser(
      state, settings, QUrl(),
      [&window, &state](const fs::path& update) {
        // After the window is gone: installing may end the program.
        QTimer::singleShot(0, &window, [&window, &state, update] {
          InstallUpdate(window, state, update);
        });
      },
      &window);
  browser->setAttribute(Qt::WA_DeleteOnClose);
  browser->setWindowFlag(Qt::Window);
  open = browser;
  browser->show();
}
}  // namespace

void InstallUpdate(MainWindow& window, AppState& state, std::optional<fs::path> package) {
  const bool exit_first = state.gDbOpen;
  if (exit_first && !state.io->AskYesNo(fmt::format("{}\r\n{}", shell_text::kInstallUpdateFirst,
                                                    shell_text::kInstallUpdateQuestion))) {
    return;
  }
  if (!package) {
    std::vector<fs::path> folders = ProgramFolders(state);
    folders.push_back(DownloadFolder());
    package = FindUpdatePackage(folders);
    if (!package) {
      state.io->Tell(std::string(web_text::kNoUpdatePackage) + FolderList(folders));
      return;
    }
  }
  if (StartPackage(state, *package) && exit_first) window.close();
}

void PrepareWebEngine() {
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}

void InstallWebScreens(MainWindow& window, AppState& state) {
  using C = MenuCommand;
  window.SetHandler(C::kWebBrowser, [&window, &state] { OpenBrowser(window, state); });
  window.SetHandler(C::kInstallUpdate, [&window, &state] { InstallUpdate(window, state); });
  window.SetHandler(C::kConvertKvl, [&state] {
    const std::vector<fs::path> folders = ProgramFolders(state);
    const auto converter = FindConverter(folders);
    if (!converter) {
      state.io->Tell(std::string(web_text::kConverterMissing) + FolderList(folders));
      return;
    }
    // The converter runs on its own; the program goes on.
    if (!QProcess::startDetached(QString::fromStdString(converter->string()), {},
                                 QString::fromStdString(state.home.Root().string()))) {
      state.io->Tell(std::string(web_text::kStartFailed) + converter->string());
    }
  });
  window.SetHandler(C::kCreateUpdate, [&window] {
    ShowHelp(&window, QString(kHelpContentsPage) + "#createupdate", ModalRunner());
  });
}

}  // namespace kvlr
