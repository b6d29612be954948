#include "athletes/TeamScreen.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "athletes/AthleteTexts.h"
#include "athletes/AthleteWidgets.h"
#include "core/ErrorHandler.h"

namespace kvlr {

frmTeamMaint::frmTeamMaint(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmTeamMaint");
  setWindowTitle(Q(athlete_text::kTeamTitle));

  auto* team = new QFormLayout;
  team->addRow(tr("Team Code:"), Edit("TCode", "txtCode"));
  team->addRow(tr("Team Name:"), Edit("TName", "txtName"));

  auto* mailing = new QGroupBox(tr("Mailing Information"), this);
  auto* mail_form = new QFormLayout(mailing);
  mail_form->addRow(tr("Mail To:"), Edit("MailTo", "txtMailTo"));
  mail_form->addRow(tr("Address:"), Edit("TAddr", "txtAddr"));
  mail_form->addRow(tr("City:"), Edit("TCity", "txtCity"));
  mail_form->addRow(tr("State/Province:"), Edit("TState", "txtState"));
  mail_form->addRow(tr("Postal Code:"), Edit("TZip", "txtZIP"));
  mail_form->addRow(tr("E-Mail Address:"), Edit("EMail", "txtEmail"));
  mail_form->addRow(tr("LSC:"), Edit("LSC", "txtLSC"));

  auto* phones = new QGroupBox(tr("Telephone Information"), this);
  auto* phone_form = new QFormLayout(phones);
  phone_form->addRow(tr("Day Phone:"), Edit("Day", "txtDay"));
  phone_form->addRow(tr("Evening Phone:"), Edit("Eve", "txtEve"));
  phone_form->addRow(tr("FAX:"), Edit("Fax", "txtFax"));

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
  buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
  connect(buttons, &QDialogButtonBox::accepted, this, &frmTeamMaint::Save);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* groups = new QHBoxLayout;
  groups->addWidget(mailing, 3);
  groups->addWidget(phones, 2, Qt::AlignTop);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(team);
  layout->addLayout(groups);
  layout->addWidget(buttons);

  try {
    card_ = LoadTeam(*state_.gDb);
  } catch (const std::exception& e) {
    ReportError(state_, athlete_text::kTeamLoadSource, e);
  }
  for (auto& [column, edit] : edits_) edit->setText(Q(card_.Value(column)));
}

QLineEdit* frmTeamMaint::Edit(std::string_view column, const QString& object_name) {
  QLineEdit* edit = FieldEdit("TEAM", column, object_name, this);
  edits_[std::string(column)] = edit;
  return edit;
}

void frmTeamMaint::Save() {
  for (const auto& [column, edit] : edits_) card_.values[column] = S(edit->text());
  if (SaveTeam(state_, card_)) accept();
}

}  // namespace kvlr
