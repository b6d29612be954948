#include "meets/CommentsScreen.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "meets/ResultComments.h"

namespace kvlr {

frmComments::frmComments(AppState& state, const CommentRequest& request, QWidget* parent)
    : QDialog(parent), state_(state), request_(request) {
  setObjectName("frmComments");
  setWindowTitle("Comments");
  text_ = new QLineEdit(this);
  text_->setObjectName("txtComment");
  text_->setMaxLength(static_cast<int>(kCommentSize));
  const auto comment = RunTrapped(state_, "frmComments.Load",
                                  [&] { return LoadComment(*state_.gDb, request_.result); });
  if (comment) text_->setText(QString::fromStdString(*comment));

  auto* form = new QFormLayout;
  form->addRow("Event:", new QLabel(QString::fromStdString(request.event), this));
  form->addRow("Meet:", new QLabel(QString::fromStdString(request.meet), this));
  form->addRow("Athlete:", new QLabel(QString::fromStdString(request.swimmer), this));
  form->addRow("Comment:", text_);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Save)->setObjectName("cmdSave");
  connect(buttons, &QDialogButtonBox::accepted, this, [this] { Save(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
  setMinimumWidth(420);
}

bool frmComments::Save() {
  const bool written = RunTrapped(state_, "frmComments.Save", [&] {
    SaveComment(*state_.gDb, request_.result, text_->text().toStdString());
    return true;
  });
  if (!written) return false;
  emit saved();
  accept();
  return true;
}

}  // namespace kvlr
