#include "reports/ReportFrame.h"
