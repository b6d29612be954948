#include "meets/MeetListModel.h"

#include <QMimeData>

#include "core/ErrorHandler.h"

namespace kvlr {
namespace {

constexpr const char* kMeetMime = "application/x-kvlr-meet";
const char* const kHeaders[] = {"Meet Name", "Start Date", "Course", "Type",
                                "End",       "Ageup",      "Since",  "Location"};

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

MeetListModel::MeetListModel(AppState& state, QObject* parent)
    : QAbstractTableModel(parent), state_(state) {}

void MeetListModel::Reload() {
  beginResetModel();
  rows_.clear();
  if (state_.gDb) {
    try {
      rows_ = ListMeets(*state_.gDb, filter_);
    } catch (const std::exception& e) {
      rows_.clear();
      ReportError(state_, "frmMeets.GetMeets", e);
    }
  }
  endResetModel();
}

void MeetListModel::SetFilter(const MeetFilter& filter) {
  filter_ = filter;
  Reload();
}

void MeetListModel::SortByColumn(int column) {
  switch (column) {
    case 0:
      filter_.sort = MeetSort::kName;
      break;
    case 1:
      filter_.sort =
          filter_.sort == MeetSort::kStartNewest ? MeetSort::kStartOldest : MeetSort::kStartNewest;
      break;
    case 2:
      filter_.sort = MeetSort::kCourseNewest;
      break;
    default:
      return;
  }
  Reload();
}

const Meet* MeetListModel::MeetAt(int row) const {
  return row >= 0 && row < static_cast<int>(rows_.size()) ? &rows_[static_cast<size_t>(row)]
                                                          : nullptr;
}

int MeetListModel::RowOf(int32_t meet) const {
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].meet == meet) return static_cast<int>(i);
  }
  return -1;
}

int MeetListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int MeetListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(std::size(kHeaders));
}

QVariant MeetListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
    return {};
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const Meet& m = rows_[static_cast<size_t>(index.row())];
  const int order = state_.gDateOrder;
  switch (index.column()) {
    case 0:
      return Q(m.mname);
    case 1:
      return Q(MeetShortDate(m.start, order));
    case 2:
      return Q(m.course);
    case 3:
      return Q(m.type);
    case 4:
      return Q(MeetShortDate(m.end, order));
    case 5:
      return Q(MeetShortDate(m.age_up, order));
    case 6:
      return Q(MeetShortDate(m.since, order));
    case 7:
      return Q(m.location);
    default:
      return {};
  }
}

QVariant MeetListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
      section >= static_cast<int>(std::size(kHeaders)))
    return QAbstractTableModel::headerData(section, orientation, role);
  return QString::fromLatin1(kHeaders[section]);
}

Qt::ItemFlags MeetListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
}

Qt::DropActions MeetListModel::supportedDropActions() const {
  return Qt::MoveAction;
}

QStringList MeetListModel::mimeTypes() const {
  return {QString::fromLatin1(kMeetMime)};
}

QMimeData* MeetListModel::mimeData(const QModelIndexList& indexes) const {
  if (indexes.isEmpty()) return nullptr;
  const Meet* m = MeetAt(indexes.front().row());
  if (!m) return nullptr;
  auto* data = new QMimeData;
  data->setData(QString::fromLatin1(kMeetMime), QByteArray::number(m->meet));
  return data;
}

bool MeetListModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                    const QModelIndex& parent) const {
  return data && data->hasFormat(QString::fromLatin1(kMeetMime)) && parent.isValid();
}

bool MeetListModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                 const QModelIndex& parent) {
  if (!canDropMimeData(data, action, row, column, parent)) return false;
  const Meet* to = MeetAt(parent.row());
  const int32_t from = data->data(QString::fromLatin1(kMeetMime)).toInt();
  if (to && from != 0 && from != to->meet) emit mergeRequested(from, to->meet);
  // The rows stay where they are; a merge reloads the list.
  return false;
}

}  // namespace kvlr
