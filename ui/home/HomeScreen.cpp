#include "home/HomeScreen.h"

#include <QComboBox>
#include <QScrollArea>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

#include "core/DateText.h"
#include "home/HomePage.h"

namespace kvlr {

frmHome::frmHome(AppState& state, QWidget* parent) : QWidget(parent), state_(state) {
  setObjectName("frmHome");
  date_text_ = [&state](const Date& date) { return ShownDate(date, state.gDateOrder); };
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

  // The four tables one below the other, each as tall as its rows; the page scrolls.
  auto* scroll = new QScrollArea(this);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  auto* page = new QWidget(scroll);
  auto* tables = new QVBoxLayout(page);
  for (size_t i = 0; i < models_.size(); ++i) {
    titles_[i] = new QLabel(page);
    QFont bold = titles_[i]->font();
    bold.setBold(true);
    titles_[i]->setFont(bold);
    models_[i] = new HomeTableModel(this);
    views_[i] = new QTableView(page);
    views_[i]->setObjectName(QString("grdHome%1").arg(i));
    views_[i]->setModel(models_[i]);
    views_[i]->setSelectionBehavior(QAbstractItemView::SelectRows);
    views_[i]->setSelectionMode(QAbstractItemView::SingleSelection);
    views_[i]->setEditTriggers(QAbstractItemView::NoEditTriggers);
    views_[i]->setAlternatingRowColors(true);
    views_[i]->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    views_[i]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    views_[i]->verticalHeader()->hide();
    views_[i]->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    views_[i]->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    const int table = static_cast<int>(i);
    connect(views_[i], &QTableView::activated, this,
            [this, table](const QModelIndex& index) { Activate(table, index.row()); });
    tables->addWidget(titles_[i]);
    tables->addWidget(views_[i]);
    tables->addSpacing(8);
  }
  tables->addStretch(1);
  scroll->setWidget(page);
  layout->addWidget(scroll, 1);
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
    QTableView& view = *views_[i];
    view.clearSpans();
    if (models_[i]->ShowsHint() && models_[i]->columnCount() > 1) {
      view.setSpan(0, 0, 1, models_[i]->columnCount());
    }
    view.setFixedHeight(view.horizontalHeader()->sizeHint().height() +
                        models_[i]->rowCount() * view.verticalHeader()->defaultSectionSize() +
                        2 * view.frameWidth());
  }
}

void frmHome::Activate(int table, int row) {
  if (table < 0 || table >= static_cast<int>(models_.size())) return;
  const HomeLink link = models_[static_cast<size_t>(table)]->LinkAt(row);
  if (link.target != HomeTarget::kNone && open_) open_(link);
}

}  // namespace kvlr
