#include "core/ScreenPlacement.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QTableView>
#include <QTreeView>

namespace kvlr {
namespace {

constexpr const char* kSized = "kvlrSized";

// Each grid follows its model: columns to their content whenever the rows change.
void SizeGrids(QWidget& screen) {
  for (QTableView* grid : screen.findChildren<QTableView*>()) {
    if (grid->property(kSized).toBool() || !grid->model()) continue;
    grid->setProperty(kSized, true);
    QHeaderView* header = grid->horizontalHeader();
    bool own_stretch = false;
    for (int i = 0; i < header->count(); ++i) {
      own_stretch = own_stretch || header->sectionResizeMode(i) == QHeaderView::Stretch;
    }
    // Unless the screen chose its stretching column, the last column shown takes the room
    // left; it needn't be the model's last, which a screen may hide.
    auto fit = [grid, header, own_stretch] {
      grid->resizeColumnsToContents();
      if (own_stretch) return;
      header->setStretchLastSection(false);
      int last = -1;
      for (int v = 0; v < header->count(); ++v) {
        const int logical = header->logicalIndex(v);
        if (header->sectionResizeMode(logical) == QHeaderView::Stretch) {
          header->setSectionResizeMode(logical, QHeaderView::Interactive);
        }
        if (!header->isSectionHidden(logical)) last = logical;
      }
      if (last >= 0) header->setSectionResizeMode(last, QHeaderView::Stretch);
    };
    QObject::connect(grid->model(), &QAbstractItemModel::modelReset, grid, fit);
    QObject::connect(grid->model(), &QAbstractItemModel::layoutChanged, grid, fit);
    fit();
  }
  for (QTreeView* tree : screen.findChildren<QTreeView*>()) {
    auto* files = qobject_cast<QFileSystemModel*>(tree->model());
    if (!files || tree->property(kSized).toBool()) continue;
    tree->setProperty(kSized, true);
    QObject::connect(files, &QFileSystemModel::directoryLoaded, tree, [tree] {
      tree->header()->resizeSections(QHeaderView::ResizeToContents);
    });
  }
}

}  // namespace

ScreenPlacement::ScreenPlacement(QWidget& main, std::filesystem::path file)
    : QObject(&main), main_(main), file_(QString::fromStdString(file.string())) {
  const QSettings kept(file_, QSettings::IniFormat);
  const QByteArray geometry = kept.value("screens/" + main.objectName()).toByteArray();
  if (geometry.isEmpty() || !main.restoreGeometry(geometry)) {
    // The first time: most of the screen, so the wide screens fit inside the window.
    if (const QScreen* display = main.screen()) {
      const QSize room = display->availableGeometry().size() * 0.9;
      main.resize(room.expandedTo(main.size()).boundedTo(display->availableGeometry().size()));
    }
  }
  qApp->installEventFilter(this);
}

QRect ScreenPlacement::Fit(const QRect& main, const QSize& wanted) {
  // A margin keeps the main window's edge in sight around the screen.
  const QSize size = wanted.boundedTo(main.size() - QSize(32, 32));
  QRect place(QPoint(0, 0), size);
  place.moveCenter(main.center());
  return place;
}

bool ScreenPlacement::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &main_ && event->type() == QEvent::Close) Keep(main_);
  auto* screen = qobject_cast<QDialog*>(watched);
  if (!screen || !screen->isWindow() || screen->objectName().isEmpty()) return false;
  if (event->type() == QEvent::Show) {
    SizeGrids(*screen);
    // Message boxes and file choosers place themselves; screens are placed once per show.
    if (screen->objectName().startsWith("frm")) Place(*screen);
  } else if (event->type() == QEvent::Hide && screen->objectName().startsWith("frm")) {
    Keep(*screen);
  }
  return false;
}

void ScreenPlacement::Place(QWidget& screen) {
  const QSettings kept(file_, QSettings::IniFormat);
  const QByteArray geometry = kept.value("screens/" + screen.objectName()).toByteArray();
  if (!geometry.isEmpty() && screen.restoreGeometry(geometry)) {
    // A place on a screen that has since gone is no place.
    const QScreen* display = QGuiApplication::screenAt(screen.geometry().center());
    if (display) return;
  }
  if (!main_.isVisible()) return;
  screen.setGeometry(Fit(main_.geometry(), screen.size()));
}

void ScreenPlacement::Keep(const QWidget& screen) const {
  QSettings kept(file_, QSettings::IniFormat);
  kept.setValue("screens/" + screen.objectName(), screen.saveGeometry());
}

}  // namespace kvlr
