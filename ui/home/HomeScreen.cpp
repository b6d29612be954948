#include "home/HomeScreen.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

#include "home/HomePage.h"

namespace kvlr {

frmHome::frmHome(AppState& state, QWidget* parent) : QWidget(parent), state_(state) {
  setObjectName("frmHome");
  date_text_ = [](const Date& date) { return date.Iso(); };
  auto* layout = new QVBoxLayout(this);
  auto* top = new QHBoxLayout;
  picture_ = new QLabel(this);
  picture_->setObjectName("picHome");
  picture_->hide();
  top->addWidget(picture_);
  heading_ = new QLabel(this);
  heading_->setObjectName("lblHome");
  QFont big = heading_->font();
  big.setPointSizeF(big.pointSizeF() * 1.5);
  big.setBold(true);
  heading_->setFont(big);
  top->addWidget(heading_, 1);
  top->addWidget(new QLabel(tr("Convert best times to:"), this));
  target_ = new QComboBox(this);
  target_->setObjectName("cboHomeCourse");
  for (char course : kHomeCourses) {
    target_->addItem(QString::fromStdString(HomeCourseWord(course)), QChar(course));
  }
  connect(target_, &QComboBox::currentIndexChanged, this, &frmHome::Refresh);
  top->addWidget(target_);
  layout->addLayout(top);

  auto* grid = new QGridLayout;
  for (size_t i = 0; i < models_.size(); ++i) {
    auto* box = new QVBoxLayout;
    titles_[i] = new QLabel(this);
    QFont bold = titles_[i]->font();
    bold.setBold(true);
    titles_[i]->setFont(bold);
    models_[i] = new HomeTableModel(this);
    views_[i] = new QTableView(this);
    views_[i]->setObjectName(QString("grdHome%1").arg(i));
    views_[i]->setModel(models_[i]);
    views_[i]->setSelectionBehavior(QAbstractItemView::SelectRows);
    views_[i]->setSelectionMode(QAbstractItemView::SingleSelection);
    views_[i]->setEditTriggers(QAbstractItemView::NoEditTriggers);
    views_[i]->setAlternatingRowColors(true);
    views_[i]->verticalHeader()->hide();
    views_[i]->horizontalHeader()->setStretchLastSection(true);
    const int table = static_cast<int>(i);
    connect(views_[i], &QTableView::activated, this,
            [this, table](const QModelIndex& index) { Activate(table, index.row()); });
    box->addWidget(titles_[i]);
    box->addWidget(views_[i]);
    // Best times across the top, the meets and goals side by side below.
    if (i == 0) {
      grid->addLayout(box, 0, 0, 1, 3);
    } else {
      grid->addLayout(box, 1, table - 1);
    }
  }
  grid->setRowStretch(0, 3);
  grid->setRowStretch(1, 2);
  layout->addLayout(grid, 1);
}

void frmHome::SetPicture(const QPixmap& picture) {
  picture_->setVisible(!picture.isNull());
  if (!picture.isNull()) {
    picture_->setPixmap(picture.scaledToHeight(96, Qt::SmoothTransformation));
  }
}

void frmHome::Refresh() {
  const char target = target_->currentData().toChar().toLatin1();
  const HomePage page = FillHomePage(state_, state_.clock->Today(), target);
  std::string heading = state_.gAthleteName;
  if (state_.gAthleteAge > 0) heading += ", " + std::to_string(state_.gAthleteAge);
  if (!state_.gStandardName.empty()) heading += "  (standard " + state_.gStandardName + ")";
  heading_->setText(QString::fromStdString(heading));
  const std::vector<HomeTable> tables = HomeTables(page, date_text_);
  for (size_t i = 0; i < models_.size(); ++i) {
    titles_[i]->setText(QString::fromStdString(tables[i].title));
    models_[i]->SetTable(tables[i]);
    views_[i]->clearSpans();
    if (models_[i]->ShowsHint() && models_[i]->columnCount() > 1) {
      views_[i]->setSpan(0, 0, 1, models_[i]->columnCount());
    } else {
      views_[i]->resizeColumnsToContents();
    }
  }
}

void frmHome::Activate(int table, int row) {
  if (table < 0 || table >= static_cast<int>(models_.size())) return;
  const HomeLink link = models_[static_cast<size_t>(table)]->LinkAt(row);
  if (link.target != HomeTarget::kNone && open_) open_(link);
}

}  // namespace kvlr
