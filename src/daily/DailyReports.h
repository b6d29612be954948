#pragma once
// The printed calendar month and the health report as kinds of the report frame. They are
// run with RunReport; the request's athlete and since (the first day of the month) choose
// the calendar's month.

#include "daily/Health.h"
#include "reports/ReportFrame.h"

namespace kvlr {

ReportKind CalendarReportKind();
ReportKind HealthReportKind(const HealthReportOptions& options);

}  // namespace kvlr
