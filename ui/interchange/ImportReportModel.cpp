#include "interchange/ImportReportModel.h"

#include "core/ErrorHandler.h"

namespace kvlr {
namespace {

QString ToQ(const std::string& text) {
  return QString::fromStdString(text);
}

// A time with its course letter behind it, as the result grids show times.
std::string TimeWithCourse(const std::string& time, const std::string& course) {
  if (time.empty() || course.empty()) return time;
  return time + " " + course;
}

std::string TeamText(const IsdinRow& r) {
  return r.team_name.empty() ? r.team_code : r.team_name;
}

std::string DatesText(const IsdinRow& r) {
  if (r.meet_end.empty() || r.meet_end == r.meet_beg) return r.meet_beg;
  return r.meet_beg + " - " + r.meet_end;
}

}  // namespace

ImportReportModel::ImportReportModel(AppState& state, bool relay, QObject* parent)
    : QAbstractTableModel(parent), state_(state), relay_(relay) {}

void ImportReportModel::Reload() {
  beginResetModel();
  rows_.clear();
  if (state_.gReportDb) {
    try {
      rows_ = ReadIsdinRows(*state_.gReportDb, relay_);
    } catch (const std::exception& e) {
      rows_.clear();
      ReportError(state_, "frmImportReport.LoadReportRows", e);
    }
  }
  endResetModel();
}

const ReportRow* ImportReportModel::RowAt(int row) const {
  return row >= 0 && row < static_cast<int>(rows_.size()) ? &rows_[static_cast<size_t>(row)]
                                                          : nullptr;
}

int ImportReportModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ImportReportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant ImportReportModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
    return {};
  const ReportRow& report_row = rows_[static_cast<size_t>(index.row())];
  const IsdinRow& r = report_row.row;
  if (role == Qt::TextAlignmentRole) {
    switch (index.column()) {
      case kAge:
      case kPrelim:
      case kFinals:
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
      default:
        return {};
    }
  }
  if (role == Qt::ToolTipRole) {
    if (index.column() == kReason) return ToQ(r.reason);
    if (index.column() == kTeam)
      return ToQ(r.lsc.empty() ? r.team_code : r.lsc + " " + r.team_code);
    return {};
  }
  if (role != Qt::DisplayRole) return {};
  switch (index.column()) {
    case kReason:
      return ToQ(report_row.reason_words);
    case kMeet:
      return ToQ(r.meet_name);
    case kDates:
      return ToQ(DatesText(r));
    case kTeam:
      return ToQ(TeamText(r));
    case kName:
      return ToQ(IsdinNameText(r));
    case kSex:
      return ToQ(r.sex);
    case kAge:
      return ToQ(r.age);
    case kBirth:
      return ToQ(r.birth);
    case kIdNo:
      return ToQ(r.id_no);
    case kEvent:
      return ToQ(IsdinEventText(r));
    case kPrelim:
      return ToQ(TimeWithCourse(r.p_time, r.p_cors));
    case kFinals:
      return ToQ(TimeWithCourse(r.f_time, r.f_cors));
    default:
      return {};
  }
}

QVariant ImportReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static const char* const kHeadings[kColumnCount] = {"Reason", "Meet",  "Dates",  "Team",
                                                      "Name",   "Sex",   "Age",    "Born",
                                                      "ID",     "Event", "Prelim", "Finals"};
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
      section >= kColumnCount)
    return QAbstractTableModel::headerData(section, orientation, role);
  return QString(kHeadings[section]);
}

}  // namespace kvlr
