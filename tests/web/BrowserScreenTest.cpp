#include <QAbstractItemModelTester>
#include <QTableView>
#include <QTcpServer>
#include <QTest>
#include <QWebEngineView>
#include <QtWebEngineCore/QWebEngineLoadingInfo>
#include <QtWebEngineCore/QWebEnginePage>

#include "support/DbTest.h"
#include "support/QtApp.h"
#include "web/BrowserScreen.h"
#include "web/SwimmerPage.h"
#include "web/WebScreens.h"
#include "web/WebTexts.h"

namespace kvlr {
namespace {

// Chromium starts slowly on a small machine; a page of our own comes well within this.
constexpr int kLoadTimeoutMs = 10000;

QApplication& WebApp() {
  // Software rendering, and no sandbox: tests may run as root, where Chromium's refuses.
  qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu --no-sandbox");
  PrepareWebEngine();
  return test::QtApp();
}

class BrowserTest : public test::DbTest {
 protected:
  BrowserTest() { WebApp(); }

  // Loads `url` and waits until that load has ended, well or not; false on a timeout.
  bool Load(frmKVLBrowser& browser, const QUrl& url) {
    bool ended = false;
    const auto watch = QObject::connect(
        browser.View().page(), &QWebEnginePage::loadingChanged,
        [&](const QWebEngineLoadingInfo& info) {
          ended = ended || (info.url() == url &&
                            info.status() != QWebEngineLoadingInfo::LoadStartedStatus);
        });
    browser.View().load(url);
    const bool ok = QTest::qWaitFor([&] { return ended; }, kLoadTimeoutMs);
    QObject::disconnect(watch);
    return ok;
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
  QAbstractItemModelTester tester(grid, QAbstractItemModelTester::FailureReportingMode::Warning);
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

}  // namespace
}  // namespace kvlr
