#include "daily/HealthDialog.h"

#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

#include "core/ErrorHandler.h"
#include "daily/DailyTexts.h"

namespace kvlr {

namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

}  // namespace

frmKVLEVENTHealth::frmKVLEVENTHealth(AppState& state, const HealthForm& form, QWidget* parent)
    : QDialog(parent), state_(state), form_(form) {
  setObjectName("frmKVLEVENTHealth");
  setWindowTitle(Q(dailytext::kHealthRecord));
  auto* layout = new QFormLayout(this);
  auto box = [this, layout](const std::string& text, const char* name, std::string_view label) {
    auto* edit = new QLineEdit(QString::fromStdString(text), this);
    edit->setObjectName(name);
    layout->addRow(Q(label), edit);
    return edit;
  };
  hr_ = box(form.values.hr, "txtHR", dailytext::kHeartRate);
  sleep_ = box(form.values.sleep, "txtSleep", dailytext::kSleep);
  weight_ = box(form.values.weight, "txtWeight", dailytext::kWeight);
  wellness_ = box(form.values.wellness, "txtWellness", dailytext::kWellness);
  date_ = new QDateEdit(QDate(form.date.year, form.date.month, form.date.day), this);
  date_->setObjectName("dtpDate");
  date_->setCalendarPopup(true);
  layout->addRow(tr("Date"), date_);
  start_ = box(form.start, "txtStart", "Start Time");
  end_ = box(form.end, "txtEnd", "End Time");
  comment_ = box(form.comment, "txtComment", "Comment");
  comment_->setMaxLength(80);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
  layout->addRow(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &frmKVLEVENTHealth::Save);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

HealthForm frmKVLEVENTHealth::Form() const {
  HealthForm f = form_;
  const QDate d = date_->date();
  f.date = Date{d.year(), d.month(), d.day()};
  f.start = start_->text().toStdString();
  f.end = end_->text().toStdString();
  f.comment = comment_->text().toStdString();
  f.values = {hr_->text().toStdString(), sleep_->text().toStdString(),
              weight_->text().toStdString(), wellness_->text().toStdString()};
  return f;
}

bool frmKVLEVENTHealth::Save() {
  const EventSaveResult r = SaveHealth(state_, Form());
  if (!r.saved) {
    if (r.focus == EventFocus::kStart) start_->setFocus();
    if (r.focus == EventFocus::kEnd) end_->setFocus();
    return false;
  }
  accept();
  return true;
}

bool ShowHealthRecord(AppState& state, int64_t id, QWidget* parent) {
  HealthForm form;
  form.date = state.clock->Today();
  if (id != 0) {
    const auto rows = RunTrapped(state, "frmKVLEVENTHealth.ShowHealthRecord", [&] {
      return ListHealth(*state.gDb, state.gAthlete, std::nullopt, std::nullopt);
    });
    const auto it = std::find_if(rows.begin(), rows.end(), [id](const auto& r) { return r.id == id; });
    if (it == rows.end()) {
      state.io->Tell(dailytext::kNotFound);
      return false;
    }
    form = HealthFormOf(*it);
  }
  frmKVLEVENTHealth dialog(state, form, parent);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace kvlr
