#include "interchange/ExportEntriesScreen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/DateText.h"
#include "interchange/ExportFolderBox.h"
#include "interchange/ExportTexts.h"

namespace kvlr {

void AddTeamRows(AppState& state, QFormLayout* form) {
  const auto team = state.gDb ? LoadExportTeam(*state.gDb) : std::nullopt;
  const ExportTeam t = team.value_or(ExportTeam{});
  form->addRow(QObject::tr("LSC Code:"), new QLabel(QString::fromStdString(t.lsc)));
  form->addRow(QObject::tr("Team Name:"), new QLabel(QString::fromStdString(t.name)));
  form->addRow(QObject::tr("Team Code:"), new QLabel(QString::fromStdString(t.code)));
}

frmExpEnt::frmExpEnt(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmExpEnt");
  setWindowTitle(QString::fromUtf8(kExportEntriesTitle.data(), kExportEntriesTitle.size()));
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  meet_ = new QComboBox(this);
  meet_->setObjectName("cboMeets");
  if (state.gDb) meets_ = MeetsWithEntries(*state.gDb);
  for (const auto& m : meets_) {
    const std::string start = m.start ? ShownDate(*m.start, state.gDateOrder) : "";
    meet_->addItem(QString::fromStdString(m.name + "  " + start));
  }
  form->addRow(tr("Meet:"), meet_);
  actual_ = new QCheckBox(tr("Use Unconverted Times"), this);
  actual_->setObjectName("chkActual");
  form->addRow(QString(), actual_);
  folder_ = new ExportFolderBox(state, this);
  form->addRow(tr("Export to Directory:"), folder_);
  AddTeamRows(state, form);
  layout->addLayout(form);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  auto* run = buttons->addButton(tr("Export"), QDialogButtonBox::AcceptRole);
  run->setObjectName("cmdExport");
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    if (Export()) accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

EntryExportOptions frmExpEnt::Options() const {
  EntryExportOptions o;
  const int i = meet_->currentIndex();
  o.meet = i >= 0 && i < static_cast<int>(meets_.size()) ? meets_[static_cast<size_t>(i)].meet : 0;
  o.actual = actual_->isChecked();
  o.folder = folder_->Folder();
  return o;
}

bool frmExpEnt::Export() {
  return ExportEntries(state_, Options()).ok;
}

}  // namespace kvlr
