#include "core/QtUserIo.h"

#include <QApplication>
#include <QMessageBox>

namespace kvlr {
namespace {

QString ToQ(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}

QMessageBox::StandardButtons ButtonsFor(int style) {
  switch (box::Buttons(style)) {
    case box::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case box::kAbortRetryIgnore:
      return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    case box::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case box::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case box::kRetryCancel:
      return QMessageBox::Retry | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

QMessageBox::Icon IconFor(int style) {
  switch (box::Icon(style)) {
    case box::kStop:
      return QMessageBox::Critical;
    case box::kQuestion:
      return QMessageBox::Question;
    case box::kExclamation:
      return QMessageBox::Warning;
    case box::kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

Answer AnswerFor(int button) {
  switch (button) {
    case QMessageBox::Cancel:
      return Answer::kCancel;
    case QMessageBox::Abort:
      return Answer::kAbort;
    case QMessageBox::Retry:
      return Answer::kRetry;
    case QMessageBox::Ignore:
      return Answer::kIgnore;
    case QMessageBox::Yes:
      return Answer::kYes;
    case QMessageBox::No:
      return Answer::kNo;
    default:
      return Answer::kOk;
  }
}

}  // namespace

Answer QtUserIo::Message(std::string_view text, int style, std::string_view title) {
  QString body = ToQ(text);
  body.replace("\r\n", "\n").replace('\r', '\n');
  QMessageBox box(IconFor(style), title.empty() ? ToQ(kProgramTitle) : ToQ(title), body,
                  ButtonsFor(style), parent_);
  return AnswerFor(box.exec());
}

void QtUserIo::Progress(std::string_view line) {
  if (progress_) progress_(ToQ(line));
  QApplication::processEvents();
}

}  // namespace kvlr
