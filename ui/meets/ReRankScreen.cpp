#include "meets/ReRankScreen.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

namespace kvlr {
namespace {

// The user of the ranking while the screen runs: its progress moves the bar, the rest goes
// to the program's own user.
class BarUserIo final : public UserIo {
 public:
  BarUserIo(UserIo& inner, QProgressBar& bar) : inner_(inner), bar_(bar) {}

  Answer Message(std::string_view text, int style, std::string_view title) override {
    return inner_.Message(text, style, title);
  }
  void Progress(std::string_view line) override {
    if (const auto percent = RankProgressPercent(line)) bar_.setValue(*percent);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  bool Cancelled() override { return inner_.Cancelled(); }

 private:
  UserIo& inner_;
  QProgressBar& bar_;
};

}  // namespace

frmReRank::frmReRank(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmReRank");
  setWindowTitle(QString::fromUtf8(kProgramTitle.data(), kProgramTitle.size()));
  setModal(true);

  auto* wait =
      new QLabel(QString::fromUtf8(kRankingTopTimes.data(), kRankingTopTimes.size()), this);
  wait->setObjectName("lblWait");
  wait->setWordWrap(true);
  wait->setAlignment(Qt::AlignCenter);

  progress_ = new QProgressBar(this);
  progress_->setObjectName("SSPProgress");
  progress_->setRange(0, 100);
  progress_->setValue(0);
  progress_->setFormat(
      QString::fromUtf8(kAdjustingForSinceDate.data(), kAdjustingForSinceDate.size()) + "  %p%");
  progress_->setAlignment(Qt::AlignCenter);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(wait);
  layout->addWidget(progress_);
  setMinimumWidth(460);
}

void frmReRank::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (started_) return;
  started_ = true;
  // After the first paint, so the words are seen while it works.
  QTimer::singleShot(0, this, &frmReRank::Run);
}

void frmReRank::Run() {
  BarUserIo bar_io(*state_.io, *progress_);
  struct Restore {
    AppState& state;
    UserIo* io;
    ~Restore() { state.io = io; }
  } restore{state_, state_.io};
  state_.io = &bar_io;
  succeeded_ = AddTRank(state_, selection_);
  if (succeeded_) {
    accept();
  } else {
    reject();
  }
}

}  // namespace kvlr
