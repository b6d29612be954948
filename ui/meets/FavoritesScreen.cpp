#include "meets/FavoritesScreen.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "meets/EntryTexts.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

const QString kHeart = QString::fromUtf8("\u2665");

// Puts `value` as the choice of `box`, "None" when empty; a value the list lacks is added.
void Choose(QComboBox* box, const std::string& value) {
  if (value.empty()) {
    box->setCurrentIndex(0);
    return;
  }
  int at = box->findData(QString::fromStdString(value), Qt::UserRole, Qt::MatchFixedString);
  if (at < 0) {
    box->addItem(QString::fromStdString(value), QString::fromStdString(value));
    at = box->count() - 1;
  }
  box->setCurrentIndex(at);
}

}  // namespace

void FavoriteModel::Reload() {
  beginResetModel();
  rows_ = LoadFavorites(state_);
  endResetModel();
}

int FavoriteModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int FavoriteModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 3;
}

QVariant FavoriteModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const Favorite& f = rows_[static_cast<size_t>(index.row())];
  const bool is_default =
      !state_.gFavorite.empty() && UCase(Trim(f.name)) == UCase(Trim(state_.gFavorite));
  if (role == Qt::FontRole && is_default) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  if (role != Qt::DisplayRole) return {};
  switch (index.column()) {
    case 0:
      return QString::fromStdString(f.name) + (is_default ? "  " + kHeart : QString());
    case 1:
      return QString::fromStdString(f.meet_type);
    default:
      return QString::fromStdString(f.course);
  }
}

QVariant FavoriteModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  switch (section) {
    case 0:
      return Q(entrytxt::kColName);
    case 1:
      return Q(entrytxt::kColMeetType);
    case 2:
      return Q(entrytxt::kColCourse);
    default:
      return {};
  }
}

frmFavEdit::frmFavEdit(AppState& state, const Favorite& favorite, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmFavEdit");
  setWindowTitle(Q(entrytxt::kAddEditTitle));
  name_ = new QLineEdit(this);
  name_->setObjectName("txtFavName");
  name_->setMaxLength(8);
  meet_type_ = new QComboBox(this);
  meet_type_->setObjectName("cboMeetType");
  meet_type_->addItem(Q(entrytxt::kNone), QString());
  for (const auto& [abbr, desc] : FavoriteMeetTypes(state)) {
    meet_type_->addItem(QString::fromStdString(abbr + " - " + desc), QString::fromStdString(abbr));
  }
  course_ = new QComboBox(this);
  course_->setObjectName("cboCourse");
  course_->addItem(Q(entrytxt::kNone), QString());
  for (const std::string& c : CourseList()) {
    if (!c.empty()) course_->addItem(QString::fromStdString(c), QString::fromStdString(c));
  }

  auto* form = new QFormLayout;
  form->addRow(Q(entrytxt::kFavoriteNameLabel), name_);
  form->addRow(Q(entrytxt::kMeetTypeLabel), meet_type_);
  form->addRow(Q(entrytxt::kCourseLabel), course_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  SetValues(favorite);
}

Favorite frmFavEdit::Values() const {
  return {row_, name_->text().toStdString(), meet_type_->currentData().toString().toStdString(),
          course_->currentData().toString().toStdString()};
}

void frmFavEdit::SetValues(const Favorite& favorite) {
  row_ = favorite.row;
  name_->setText(QString::fromStdString(favorite.name));
  Choose(meet_type_, favorite.meet_type);
  Choose(course_, favorite.course);
}

frmFav::frmFav(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmFav");
  setWindowTitle(Q(entrytxt::kFavoritesTitle));

  model_ = new FavoriteModel(state_, this);
  model_->Reload();
  view_ = new QTableView(this);
  view_->setObjectName("TDBGFav");
  view_->setModel(model_);
  view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  view_->setSelectionMode(QAbstractItemView::SingleSelection);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->verticalHeader()->hide();
  view_->horizontalHeader()->setStretchLastSection(true);
  view_->setColumnWidth(0, 140);

  auto make = [this](const QString& text, const char* name, const QString& tip) {
    auto* b = new QPushButton(text, this);
    b->setObjectName(name);
    b->setToolTip(tip);
    b->setAutoDefault(false);
    return b;
  };
  QPushButton* add = make(tr("&Add"), "cmdAdd", tr("Add a Favorite"));
  QPushButton* edit = make(tr("&Edit"), "cmdEdit", tr("Edit the selected Favorite"));
  QPushButton* remove = make(tr("&Delete"), "cmdDelete", tr("Remove the selected Favorite"));
  QPushButton* heart = make(kHeart + tr(" Set Default"), "cmdDefault",
                            tr("Make the selected Favorite the Default Filter"));
  QPushButton* clear = make(tr("C&lear Default"), "cmdClearDefault", tr("No Default Filter"));
  QPushButton* help = make(tr("&Help"), "cmdHelp", {});
  QPushButton* close = make(tr("&Close"), "cmdClose", {});

  auto* tools = new QHBoxLayout;
  for (QPushButton* b : {add, edit, remove, heart, clear, help}) tools->addWidget(b);
  tools->addStretch(1);
  auto* bottom = new QHBoxLayout;
  bottom->addStretch(1);
  bottom->addWidget(close);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(tools);
  layout->addWidget(view_, 1);
  layout->addLayout(bottom);
  resize(560, 360);

  connect(add, &QPushButton::clicked, this, &frmFav::AddFavorite);
  connect(edit, &QPushButton::clicked, this, &frmFav::EditFavorite);
  connect(view_, &QTableView::doubleClicked, this, &frmFav::EditFavorite);
  connect(remove, &QPushButton::clicked, this, &frmFav::DeleteFavorite);
  connect(heart, &QPushButton::clicked, this, &frmFav::SetDefault);
  connect(clear, &QPushButton::clicked, this, &frmFav::ClearDefault);
  connect(help, &QPushButton::clicked, this,
          [this] { state_.io->Message(entrytxt::kFavoritesHelp, box::kInformation, ""); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  if (model_->rowCount() > 0) view_->selectRow(0);
}

std::optional<Favorite> frmFav::Current() const {
  const QModelIndex at = view_->currentIndex();
  if (!at.isValid() || at.row() >= model_->rowCount()) return std::nullopt;
  return model_->Favorites()[static_cast<size_t>(at.row())];
}

void frmFav::SelectRow(int64_t row_id) {
  const auto& rows = model_->Favorites();
  for (size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].row == row_id) view_->selectRow(static_cast<int>(i));
  }
}

void frmFav::Edit(const Favorite& start) {
  frmFavEdit box(state_, start, this);
  while (run_(box) == QDialog::Accepted) {
    const Favorite values = box.Values();
    if (const auto saved = SaveFavorite(state_, values)) {
      // An edited default keeps its values in force.
      if (values.row != 0) GetFavorites(state_);
      model_->Reload();
      SelectRow(*saved);
      return;
    }
  }
}

void frmFav::AddFavorite() {
  Edit({});
}

void frmFav::EditFavorite() {
  if (const auto f = Current()) Edit(*f);
}

void frmFav::DeleteFavorite() {
  if (const auto f = Current()) {
    if (kvlr::DeleteFavorite(state_, *f)) model_->Reload();
  }
}

void frmFav::SetDefault() {
  if (const auto f = Current()) {
    SetDefaultFavorite(state_, f->name);
    model_->Reload();
    SelectRow(f->row);
  }
}

void frmFav::ClearDefault() {
  const auto f = Current();
  SetDefaultFavorite(state_, "");
  model_->Reload();
  if (f) SelectRow(f->row);
}

void frmFav::done(int result) {
  if (!MayLeaveFavorites(state_)) return;
  QDialog::done(result);
}

}  // namespace kvlr
