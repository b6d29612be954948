#include <QAbstractItemModelTester>
#include <QTableView>
#include <QTcpServer>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWebEngineView>
#include <QtWebEngineCore/QWebEngineLoadingInfo>
#include <QtWebEngineCore/QWebEnginePage>

#include <fstream>

#include "support/DbTest.h"
#include "support/QtApp.h"
#include "web/BrowserScreen.h"
#include "core/MainWindow.h"
#include "web/SwimmerPage.h"
#include "web/WebScreens.h"
#include "web/WebTexts.h"

namespace kvlr {
namespace {

// Chromium starts slowly on a small machine; a page of our own comes well within this.
constexpr int kLoadTimeoutMs = 10000;

QApplication& WebApp() {
  // Software rendering, and no sandbox: tests may run as root, where Chromium's refuses.
  if (!QCoreApplication::instance()) {
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu --no-sandbox");
    PrepareWebEngine();
  }
  return test::QtApp();
}

class BrowserTest : public test::DbTest {
 protected:
  BrowserTest() { WebApp(); }

  // Loads `url` and waits until that load has ended, well or not; false on a timeout. A
  // running event loop: Chromium's work stalls under QTest's poll-and-sleep waits.
  bool Load(frmKVLBrowser& browser, const QUrl& url) {
    QEventLoop loop;
    bool ended = false;
    QObject::connect(browser.View().page(), &QWebEnginePage::loadingChanged, &loop,
                     [&](const QWebEngineLoadingInfo& info) {
                       if (info.url() != url ||
                           info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
                         return;
                       }
                       ended = true;
                       loop.quit();
                     });
    QTimer::singleShot(kLoadTimeoutMs, &loop, &QEventLoop::quit);
    browser.View().load(url);
    loop.exec();
    return ended;
  }
};

TEST_F(BrowserTest, ShowsTheSwimmersPageAndSaysWhenAPageCannotLoad) {
  t.state.gAthlete = 1;
  t.state.gAthleteName = "Tess O'Hara";
  t.state.gAthleteFirst = "TESS";
  const std::filesystem::path file = SwimmerPageFile(t.state);
  WriteSwimmerPage(t.state, 'Y', file);

  WebSettings settings = DefaultWebSettings();
  // Nothing starts before the test's own load.
  settings.pages[0].url = "about:blank";
  frmKVLBrowser browser(t.state, settings, QUrl("about:blank"), {});
  browser.show();
  ASSERT_TRUE(Load(browser, QUrl::fromLocalFile(QString::fromStdString(file.string()))));
  QTRY_COMPARE_WITH_TIMEOUT(browser.View().title(), QString("KVL-R for Tess O'Hara"),
                            kLoadTimeoutMs);
  QTRY_COMPARE_WITH_TIMEOUT(browser.windowTitle(), QString("Tess's KVL-R - KVL-R for Tess O'Hara"),
                            kLoadTimeoutMs);
  EXPECT_TRUE(browser.Notice().isEmpty());

  // Add keeps the page shown under its title and the grid shows it.
  QAbstractItemModel* grid = test::Child<QTableView>(browser, "TDBGFav")->model();
  QAbstractItemModelTester tester(grid, QAbstractItemModelTester::FailureReportingMode::Fatal);
  browser.AddFavorite();
  EXPECT_EQ(Rows("SELECT Comment FROM tblWebPages"), "KVL-R for Tess O'Hara\n");
  EXPECT_EQ(grid->rowCount(), 1);

  // A refused connection stands for a missing network: words over the page, no box.
  QTcpServer closed;
  ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
  const quint16 port = closed.serverPort();
  closed.close();
  ASSERT_TRUE(Load(browser, QUrl(QString("http://127.0.0.1:%1/").arg(port))));
  EXPECT_TRUE(browser.Notice().startsWith(QString::fromUtf8(web_text::kOffline.data())))
      << browser.Notice().toStdString();
  EXPECT_TRUE(t.io.shown.empty());
}

TEST_F(BrowserTest, MenuCommandsRefuseWithoutOpeningAnything) {
  MainWindow window(t.state);
  InstallWebScreens(window, t.state);
  window.SetMenus(true);
  std::filesystem::create_directories(t.Home());
  std::ofstream(t.Home() / "KVL-Rweb.ini") << "Restricted=1\n";
  window.Action(MenuCommand::kWebBrowser)->trigger();
  EXPECT_EQ(LastShown(), web_text::kRestricted);
  EXPECT_EQ(window.findChild<frmKVLBrowser*>(), nullptr);

  window.Action(MenuCommand::kConvertKvl)->trigger();
  EXPECT_TRUE(t.io.Saw(web_text::kConverterMissing));
  EXPECT_TRUE(t.io.Saw(t.Home().string()));
}

}  // namespace
}  // namespace kvlr
