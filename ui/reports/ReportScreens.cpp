#include "reports/ReportScreens.h"
