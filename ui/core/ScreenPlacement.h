#pragma once
// Screens open inside the main window: the first time at a size that fits it, centred on
// it; afterwards at the size and place they were left, kept in a file of the program home.
// The main window itself comes back as it was left, and the first time fills most of the
// screen.
// Their grids size their columns to what they hold and fill their width.

#include <filesystem>

#include <QObject>
#include <QRect>

class QWidget;

namespace kvlr {

class ScreenPlacement final : public QObject {
  Q_OBJECT
 public:
  // Watches every dialog of the application; `main` is the window they open in.
  ScreenPlacement(QWidget& main, std::filesystem::path file);

  // The place of a screen that wants `wanted` inside a main window at `main`: no larger
  // than the window less a margin, centred on it.
  static QRect Fit(const QRect& main, const QSize& wanted);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place(QWidget& screen);
  void Keep(const QWidget& screen) const;

  QWidget& main_;
  QString file_;
};

}  // namespace kvlr
