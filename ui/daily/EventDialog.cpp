#include "daily/EventDialog.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

namespace kvlr {

frmKVLEVENT::frmKVLEVENT(AppState& state, const CalendarEventForm& form, QWidget* parent)
    : QDialog(parent), state_(state), form_(form) {
  setObjectName("frmKVLEVENT");
  setWindowTitle(form.id ? tr("Edit Event") : tr("Add Event"));
  auto* layout = new QFormLayout(this);
  type_ = new QComboBox(this);
  type_->setObjectName("cboType");
  for (int t = kEventSwim; t <= kEventVacation; ++t) {
    type_->addItem(QString::fromUtf8(EventTypeText(t).data()), t);
  }
  type_->setCurrentIndex(type_->findData(form.type));
  // The type of a stored meet or health record belongs to rows elsewhere.
  type_->setEnabled(form.type != kEventMeet && form.type != kEventHealth);
  date_ = new QDateEdit(QDate(form.date.year, form.date.month, form.date.day), this);
  date_->setObjectName("dtpDate");
  date_->setCalendarPopup(true);
  date_->setDateRange(QDate(1890, 1, 1), QDate(2099, 12, 31));
  start_ = new QLineEdit(QString::fromStdString(form.start), this);
  start_->setObjectName("txtStart");
  end_ = new QLineEdit(QString::fromStdString(form.end), this);
  end_->setObjectName("txtEnd");
  comment_ = new QLineEdit(QString::fromStdString(form.comment), this);
  comment_->setObjectName("txtComment");
  comment_->setMaxLength(80);
  layout->addRow(tr("Type"), type_);
  layout->addRow(tr("Date"), date_);
  layout->addRow(tr("Start Time"), start_);
  layout->addRow(tr("End Time"), end_);
  layout->addRow(tr("Comment"), comment_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  layout->addRow(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &frmKVLEVENT::Save);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

CalendarEventForm frmKVLEVENT::Form() const {
  CalendarEventForm f = form_;
  f.type = type_->currentData().toInt();
  const QDate d = date_->date();
  f.date = Date{d.year(), d.month(), d.day()};
  f.start = start_->text().toStdString();
  f.end = end_->text().toStdString();
  f.comment = comment_->text().toStdString();
  return f;
}

bool frmKVLEVENT::Save() {
  const EventSaveResult r = SaveEvent(state_, Form());
  if (!r.saved) {
    if (r.focus == EventFocus::kStart) start_->setFocus();
    if (r.focus == EventFocus::kEnd) end_->setFocus();
    return false;
  }
  saved_id_ = r.id;
  accept();
  return true;
}

}  // namespace kvlr
