#include "core/HelpWindow.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QKeyEvent>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

// The pages live in a static library, whose resources are linked only when named.
static void InitHelpResources() {
  Q_INIT_RESOURCE(help);
}

namespace kvlr {
namespace {

const QString& ContentsHtml() {
  static const QString html = [] {
    InitHelpResources();
    QFile file(":/help/KVL-R.html");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  }();
  return html;
}

bool HasAnchor(const QString& name) {
  return !name.isEmpty() && ContentsHtml().contains(QStringLiteral("name=\"%1\"").arg(name));
}

bool IsF1(QEvent* event) {
  return (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) &&
         static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1 &&
         static_cast<QKeyEvent*>(event)->modifiers() == Qt::NoModifier;
}

class HelpKeyFilter final : public QObject {
 public:
  HelpKeyFilter(QWidget* main_window, DialogRunner run)
      : QObject(main_window), main_window_(main_window), run_(std::move(run)) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!IsF1(event)) return false;
    if (event->type() == QEvent::ShortcutOverride) {
      // Claimed here so that a menu shortcut on F1 can't take it past the screen's help.
      event->accept();
      return true;
    }
    QWidget* start = qobject_cast<QWidget*>(watched);
    if (!start) start = QApplication::focusWidget();
    if (!start) start = QApplication::activeModalWidget();
    if (!start) start = QApplication::activeWindow();
    if (!start) start = main_window_;
    QWidget* window = start->window();
    if (showing_ || window->objectName() == "frmHelp") return true;
    QString screen;
    for (QWidget* w = start; w && screen.isEmpty(); w = w->parentWidget()) {
      if (HasAnchor(w->objectName())) screen = w->objectName();
    }
    showing_ = true;
    ShowHelp(window, HelpPageFor(screen), run_);
    showing_ = false;
    return true;
  }

 private:
  QWidget* main_window_;
  DialogRunner run_;
  bool showing_ = false;
};

}  // namespace

void ShowHelp(QWidget* parent, const QString& page_and_anchor, const DialogRunner& run) {
  InitHelpResources();
  QDialog help(parent);
  help.setObjectName("frmHelp");
  help.setWindowTitle(QObject::tr("KVL-R Help"));
  help.resize(780, 580);
  auto* layout = new QVBoxLayout(&help);
  auto* browser = new QTextBrowser(&help);
  browser->setObjectName("txtHelp");
  browser->setOpenExternalLinks(true);
  browser->setSource(QUrl(page_and_anchor));
  layout->addWidget(browser);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &help);
  QPushButton* back = buttons->addButton(QObject::tr("&Back"), QDialogButtonBox::ActionRole);
  QPushButton* contents =
      buttons->addButton(QObject::tr("C&ontents"), QDialogButtonBox::ActionRole);
  back->setEnabled(false);
  QObject::connect(browser, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  QObject::connect(back, &QPushButton::clicked, browser, &QTextBrowser::backward);
  QObject::connect(contents, &QPushButton::clicked, browser,
                   [browser] { browser->setSource(QUrl(kHelpContentsPage)); });
  QObject::connect(buttons, &QDialogButtonBox::rejected, &help, &QDialog::reject);
  layout->addWidget(buttons);
  run(help);
}

QString HelpPageFor(const QString& screen_name) {
  const QString contents = QString::fromLatin1(kHelpContentsPage);
  return HasAnchor(screen_name) ? contents + "#" + screen_name : contents;
}

void InstallHelpKey(QWidget* main_window, DialogRunner run) {
  qApp->installEventFilter(new HelpKeyFilter(main_window, std::move(run)));
}

}  // namespace kvlr
