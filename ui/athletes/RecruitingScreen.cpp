#include "athletes/RecruitingScreen.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleValidator>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "athletes/AthleteTexts.h"
#include "reports/ReportPreview.h"

namespace kvlr {
namespace txt = athlete_text;

frmRecr::frmRecr(AppState& state, int32_t athlete, QWidget* parent)
    : QDialog(parent), state_(state), choose_file_(DialogFileChooser(this, "bmp")) {
  setObjectName("frmRecr");
  setWindowTitle(Q(txt::kRecruitingTitle));

  auto* heading = new QLabel(this);
  heading->setObjectName("lblName");
  QFont bold = heading->font();
  bold.setBold(true);
  bold.setPointSizeF(bold.pointSizeF() * 1.3);
  heading->setFont(bold);

  auto* school = new QGroupBox(tr("School"), this);
  auto* school_form = new QFormLayout(school);
  school_form->addRow(tr("School:"), Edit("HS_Name"));
  school_form->addRow(tr("Address:"), Edit("HS_Addr"));
  school_form->addRow(tr("City:"), Edit("HS_City"));
  auto* state_zip = new QHBoxLayout;
  state_zip->addWidget(Edit("HS_State"));
  state_zip->addWidget(new QLabel(tr("ZIP:"), school));
  state_zip->addWidget(Edit("HS_ZIP"));
  school_form->addRow(tr("State:"), state_zip);
  school_form->addRow(tr("Phone:"), Edit("HS_Phone"));
  school_form->addRow(tr("Coach:"), Edit("HS_Coach"));
  school_form->addRow(tr("Graduation Year:"), NumberEdit("Grad"));
  school_form->addRow(tr("Course of Study:"), Edit("HS_Study"));
  school_form->addRow(tr("GPA:"), NumberEdit("HS_GPA", true));
  auto* rank = new QHBoxLayout;
  rank->addWidget(NumberEdit("HS_Rank"));
  rank->addWidget(new QLabel(tr("of"), school));
  rank->addWidget(NumberEdit("HS_Num"));
  school_form->addRow(tr("Class Rank:"), rank);

  auto* tests = new QGroupBox(tr("Tests"), this);
  auto* test_grid = new QGridLayout(tests);
  test_grid->addWidget(new QLabel(tr("Test1:"), tests), 0, 0);
  test_grid->addWidget(Edit("T1Name"), 0, 1);
  test_grid->addWidget(new QLabel(tr("Score:"), tests), 0, 2);
  test_grid->addWidget(NumberEdit("T1Score"), 0, 3);
  test_grid->addWidget(new QLabel(tr("Test2:"), tests), 1, 0);
  test_grid->addWidget(Edit("T2Name"), 1, 1);
  test_grid->addWidget(new QLabel(tr("Score:"), tests), 1, 2);
  test_grid->addWidget(NumberEdit("T2Score"), 1, 3);
  test_grid->addWidget(new QLabel(tr("Test3:"), tests), 2, 0);
  test_grid->addWidget(Edit("T3Name"), 2, 1);
  test_grid->addWidget(new QLabel(tr("Parts:"), tests), 3, 0);
  test_grid->addWidget(Edit("T3SName1"), 3, 1);
  test_grid->addWidget(new QLabel(tr("Score:"), tests), 3, 2);
  test_grid->addWidget(NumberEdit("T3Score1"), 3, 3);
  test_grid->addWidget(Edit("T3SName2"), 4, 1);
  test_grid->addWidget(new QLabel(tr("Score:"), tests), 4, 2);
  test_grid->addWidget(NumberEdit("T3Score2"), 4, 3);
  test_grid->setColumnStretch(1, 1);

  auto* other = new QGroupBox(tr("Other Swim Team"), this);
  auto* other_form = new QFormLayout(other);
  other_form->addRow(tr("Team:"), Edit("Oth_Team"));
  other_form->addRow(tr("Coach:"), Edit("Oth_Coach"));
  other_form->addRow(tr("Phone:"), Edit("Oth_Phone"));

  auto* more = new QGroupBox(tr("Activities and Awards"), this);
  auto* more_form = new QFormLayout(more);
  more_form->addRow(tr("Activities:"), Edit("Activities"));
  more_form->addRow(tr("Awards:"), Edit("Awards"));
  more_form->addRow(tr("Camps/Clinics:"), Edit("Camps"));
  more_form->addRow(tr("Additional Info:"), Edit("Add_Info"));
  auto* body = new QHBoxLayout;
  body->addWidget(NumberEdit("Height"));
  body->addWidget(new QLabel(tr("Weight:"), more));
  body->addWidget(NumberEdit("Weight"));
  video_ = new QCheckBox(tr("Has Video"), more);
  video_->setObjectName("chkVideo");
  body->addWidget(video_);
  more_form->addRow(tr("Height:"), body);

  auto* picture_box = new QGroupBox(tr("Picture"), this);
  auto* picture_layout = new QVBoxLayout(picture_box);
  picture_ = new QLabel(picture_box);
  picture_->setObjectName("lblPicture");
  picture_->setFixedSize(120, 150);
  picture_->setAlignment(Qt::AlignCenter);
  picture_->setFrameShape(QFrame::StyledPanel);
  QLineEdit* path = Edit("Picture");
  path->setReadOnly(true);
  auto* load = new QPushButton(Q(txt::kRecruitingLoadPicture), picture_box);
  load->setObjectName("cmdLoadPicture");
  connect(load, &QPushButton::clicked, this, &frmRecr::LoadPicture);
  picture_layout->addWidget(picture_, 0, Qt::AlignHCenter);
  picture_layout->addWidget(path);
  picture_layout->addWidget(load);
  picture_layout->addStretch();

  comments_ = FieldTextEdit("ATHRECR", "Comments", "txtComments", this);
  comments_->setFixedHeight(60);

  auto* buttons = new QDialogButtonBox(this);
  auto* print = buttons->addButton(Q(txt::kRecruitingPrint), QDialogButtonBox::ActionRole);
  print->setObjectName("cmdPrint");
  auto* save = buttons->addButton(tr("&Save"), QDialogButtonBox::ApplyRole);
  save->setObjectName("cmdSave");
  auto* close = buttons->addButton(QDialogButtonBox::Close);
  close->setObjectName("cmdClose");
  connect(print, &QPushButton::clicked, this, &frmRecr::Print);
  connect(save, &QPushButton::clicked, this, &frmRecr::Save);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);

  auto* left = new QVBoxLayout;
  left->addWidget(school);
  left->addWidget(tests);
  auto* right = new QVBoxLayout;
  right->addWidget(other);
  right->addWidget(more);
  right->addStretch();
  auto* columns = new QHBoxLayout;
  columns->addLayout(left, 1);
  columns->addLayout(right, 1);
  columns->addWidget(picture_box, 0, Qt::AlignTop);
  auto* comments_row = new QFormLayout;
  comments_row->addRow(tr("Comments:"), comments_);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(heading);
  layout->addLayout(columns);
  layout->addLayout(comments_row);
  layout->addWidget(buttons);
  resize(900, 600);

  const auto card = LoadRecruiting(state_, athlete);
  loaded_ = card.has_value();
  if (!card) return;
  card_ = *card;
  heading->setText(Q(card_.heading));
  for (auto& [column, edit] : edits_) edit->setText(Q(card_.Value(column)));
  comments_->setPlainText(Q(card_.Value("Comments")));
  video_->setChecked(card_.Value("Video") == "1");
  ShowPicture();
}

QLineEdit* frmRecr::Edit(std::string_view column) {
  QLineEdit* edit = FieldEdit("ATHRECR", column, "txt" + Q(column), this);
  edits_[std::string(column)] = edit;
  return edit;
}

QLineEdit* frmRecr::NumberEdit(std::string_view column, bool decimals) {
  QLineEdit* edit = Edit(column);
  edit->setMaximumWidth(70);
  if (decimals) {
    auto* validator = new QDoubleValidator(0, 100, 2, edit);
    validator->setNotation(QDoubleValidator::StandardNotation);
    validator->setLocale(QLocale::c());
    edit->setValidator(validator);
  } else {
    edit->setValidator(new QIntValidator(0, 32767, edit));
  }
  return edit;
}

void frmRecr::ShowPicture() {
  QPixmap pixmap;
  const QString file = edits_["Picture"]->text();
  if (!file.isEmpty() && pixmap.load(file)) {
    picture_->setPixmap(
        pixmap.scaled(picture_->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
  } else {
    picture_->setPixmap(QPixmap());
    picture_->setText(tr("No picture"));
  }
}

void frmRecr::LoadPicture() {
  const QString chosen =
      choose_file_(Q(txt::kRecruitingPictureTitle), Q(txt::kRecruitingPictureFilter), QString());
  if (chosen.isEmpty()) return;
  if (!RecruitingPictureOk(*state_.io, S(chosen))) return;
  edits_["Picture"]->setText(chosen);
  ShowPicture();
}

// The report prints the card as stored, as the report table is copied from the file.
void frmRecr::Print() {
  ReportRequest request;
  request.athlete = card_.athlete;
  PreviewReport(state_, this, "recruiting", request);
}

bool frmRecr::Save() {
  for (const auto& [column, edit] : edits_) card_.values[column] = S(edit->text());
  card_.values["Comments"] = S(comments_->toPlainText());
  card_.values["Video"].assign(1, video_->isChecked() ? '1' : '0');
  return SaveRecruiting(state_, card_);
}

}  // namespace kvlr
