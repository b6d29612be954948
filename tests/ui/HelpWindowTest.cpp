// The shipped help pages load, and F1 opens the section of the screen it was pressed on.

#include <gtest/gtest.h>

#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextBrowser>

#include "core/HelpWindow.h"
#include "support/QtApp.h"

namespace kvlr {
namespace {

TEST(HelpWindowTest, PagesLoadAndF1OpensTheScreensSection) {
  test::QtApp();
  QWidget main;
  QString source;
  QString text;
  const DialogRunner run = [&](QDialog& help) {
    auto* browser = help.findChild<QTextBrowser*>("txtHelp");
    source = browser->source().toString();
    text = browser->toPlainText();
    return 0;
  };
  // Pages that were not linked in came up blank.
  for (const char* page : {kHelpContentsPage, kHelpReleaseNotesPage, kHelpSupportPage}) {
    text.clear();
    ShowHelp(&main, page, run);
    EXPECT_GT(text.size(), 1000) << page;
  }
  EXPECT_EQ(HelpPageFor("support"), kHelpSupportPage);

  InstallHelpKey(&main, run);
  QDialog results(&main);
  results.setObjectName("frmResults");
  auto* in_results = new QLineEdit(&results);
  QDialog unnamed(&main);
  auto* in_unnamed = new QLineEdit(&unnamed);
  const std::pair<QWidget*, QString> cases[] = {{in_results, "qrc:/help/KVL-R.html#frmResults"},
                                                {in_unnamed, "qrc:/help/KVL-R.html"}};
  for (const auto& [widget, want] : cases) {
    source.clear();
    QKeyEvent f1(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QApplication::sendEvent(widget, &f1);
    EXPECT_EQ(source, want);
  }
}

}  // namespace
}  // namespace kvlr
