#include "core/ShellDialogs.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QVBoxLayout>

#include "shell/ShellTexts.h"

namespace kvlr {
namespace {
QString Q(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<int>(s.size()));
}
}  // namespace

frmSetup::frmSetup(QWidget* parent) : QDialog(parent) {
  setObjectName("frmSetup");
  setWindowTitle(Q(kProgramTitle));
  auto* layout = new QVBoxLayout(this);
  line_ = new QLabel(this);
  line_->setObjectName("lblProgress");
  line_->setMinimumWidth(320);
  layout->addWidget(line_);

  welcome_ = new QWidget(this);
  auto* w = new QVBoxLayout(welcome_);
  auto* head = new QLabel(Q(shell_text::kWelcomeHead), welcome_);
  QFont big = head->font();
  big.setPointSize(big.pointSize() + 4);
  big.setBold(true);
  head->setFont(big);
  w->addWidget(head);
  w->addWidget(new QLabel(Q(shell_text::kWelcome), welcome_));
  for (auto text :
       {shell_text::kWelcomeStep1, shell_text::kWelcomeStep1More, shell_text::kWelcomeStep2}) {
    auto* label = new QLabel(Q(text), welcome_);
    label->setWordWrap(true);
    w->addWidget(label);
  }
  auto* ok = new QPushButton(tr("OK"), welcome_);
  ok->setObjectName("cmdOK");
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  w->addWidget(ok, 0, Qt::AlignRight);
  welcome_->hide();
  layout->addWidget(welcome_);
}

void frmSetup::SetLine(const QString& line) {
  line_->setText(line);
}

void frmSetup::ShowWelcome() {
  line_->hide();
  welcome_->show();
  setMinimumWidth(560);
  adjustSize();
}

frmLogin::frmLogin(const std::vector<LoginRow>& rows, UserIo& io, QWidget* parent)
    : QDialog(parent), io_(io) {
  setObjectName("frmLogin");
  setWindowTitle(tr("Login"));
  auto* layout = new QVBoxLayout(this);
  auto* box = new QGroupBox(tr("Select the current swimmer"), this);
  auto* inner = new QVBoxLayout(box);
  auto* group = new QButtonGroup(this);
  for (const auto& row : rows) {
    auto* button = new QRadioButton(QString::fromStdString(row.name), box);
    button->setProperty("athlete", row.athlete);
    group->addButton(button);
    inner->addWidget(button);
    buttons_.push_back(button);
  }
  layout->addWidget(box);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
}

void frmLogin::Choose(int32_t athlete) {
  for (auto* b : buttons_) {
    if (b->property("athlete").toInt() == athlete) b->setChecked(true);
  }
}

void frmLogin::accept() {
  chosen_ = 0;
  for (auto* b : buttons_) {
    if (b->isChecked()) chosen_ = b->property("athlete").toInt();
  }
  if (chosen_ == 0) {
    io_.Tell(shell_text::kSelectSwimmer);
    return;
  }
  QDialog::accept();
}

frmExit::frmExit(QWidget* parent) : QDialog(parent) {
  setObjectName("frmExit");
  setWindowTitle(Q(kProgramTitle));
  auto* layout = new QVBoxLayout(this);
  exit_ = new QRadioButton(Q(shell_text::kExitChoice), this);
  switch_ = new QRadioButton(Q(shell_text::kSwitchChoice), this);
  exit_->setChecked(true);
  layout->addWidget(exit_);
  layout->addWidget(switch_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
}

int frmExit::Result() const {
  if (result() != QDialog::Accepted) return 2;
  return switch_->isChecked() ? 1 : 0;
}

void frmExit::ChooseSwitch() {
  switch_->setChecked(true);
}

}  // namespace kvlr
