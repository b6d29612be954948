#include "meets/EventListModel.h"

#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"

namespace kvlr {
namespace {

const char* const kHeaders[] = {"Event #", "Gen", "Distance", "Stroke", "Age"};

}  // namespace

EventListModel::EventListModel(AppState& state, EventList list, int32_t meet, QObject* parent)
    : QAbstractTableModel(parent), state_(state), list_(list), meet_(meet) {}

void EventListModel::Reload() {
  beginResetModel();
  rows_.clear();
  if (state_.gDb) {
    try {
      rows_ = ListEvents(*state_.gDb, list_, meet_, filter_);
    } catch (const std::exception& e) {
      rows_.clear();
      ReportError(state_, ".GetEvents", e);
    }
  }
  endResetModel();
}

void EventListModel::SetFilter(const EventFilter& filter) {
  filter_ = filter;
  Reload();
}

void EventListModel::SortByColumn(int column) {
  static constexpr EventSort kByColumn[] = {EventSort::kNumber, EventSort::kSexMenFirst,
                                            EventSort::kDistance, EventSort::kStroke,
                                            EventSort::kAge};
  if (column < 0 || column >= static_cast<int>(std::size(kByColumn))) return;
  EventSort sort = kByColumn[column];
  if (sort == EventSort::kSexMenFirst && filter_.sort == EventSort::kSexMenFirst)
    sort = EventSort::kSexWomenLast;
  filter_.sort = sort;
  Reload();
}

const MeetEvent* EventListModel::EventAt(int row) const {
  return row >= 0 && row < static_cast<int>(rows_.size()) ? &rows_[static_cast<size_t>(row)]
                                                          : nullptr;
}

int EventListModel::RowOf(int32_t mt_event) const {
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].mt_event == mt_event) return static_cast<int>(i);
  }
  return -1;
}

int EventListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int EventListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(std::size(kHeaders));
}

QVariant EventListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
    return {};
  const MeetEvent& e = rows_[static_cast<size_t>(index.row())];
  if (role == Qt::TextAlignmentRole && (index.column() == 0 || index.column() == 2))
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  switch (index.column()) {
    case 0:
      return QString::fromStdString(EventNumberOf(e));
    case 1:
      return QString::fromStdString(e.sex);
    case 2:
      return e.distance;
    case 3:
      return QString::fromStdString(StrokeText(e.stroke, e.i_r));
    case 4:
      return QString::fromStdString(AgeGroupWord(e.lo_hi));
    default:
      return {};
  }
}

QVariant EventListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
      section >= static_cast<int>(std::size(kHeaders)))
    return QAbstractTableModel::headerData(section, orientation, role);
  return QString::fromLatin1(kHeaders[section]);
}

}  // namespace kvlr
