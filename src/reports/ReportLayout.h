#pragma once
// The layout step: a ReportDoc made into pages and painted with Qt. Every page has the page
// header (title, header lines, column headings) and the footer (report date, "Page N of M").
// Columns share the printable width by weight; when they can't fit at the normal size the
// body font shrinks (down to a floor), and what still doesn't fit is elided, never cut
// through a character. Needs a QGuiApplication (the offscreen platform will do).

#include <filesystem>

#include <QPageLayout>
#include <QPagedPaintDevice>

#include "reports/ReportFrame.h"

namespace kvlr {

// The paper and orientation of the doc with half-inch margins.
QPageLayout ReportPageLayout(const ReportDoc& doc);

// Paints every page on `device`, whose page layout is already set (QPdfWriter, QPrinter).
// Returns the page count; 0 when the device can't be painted on.
int PaintReport(const ReportDoc& doc, QPagedPaintDevice& device);

// The doc as a PDF file, written under a temporary name and renamed into place. The page
// count; 0 when the file can't be written.
int WriteReportPdf(const ReportDoc& doc, const std::filesystem::path& file);

}  // namespace kvlr
