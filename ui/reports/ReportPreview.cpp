#include "reports/ReportPreview.h"

#include <QAction>
#include <QFileDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolBar>

#include "reports/ReportLayout.h"
#include "store/ReportDatabase.h"

namespace kvlr {

bool PreviewReport(AppState& state, QWidget* parent, std::string_view kind,
                   const ReportRequest& request) {
  if (!state.gDb) return false;
  // A report database lost since start-up (a repair, another process) is made again.
  if (!state.gReportDb && !CheckReportTables(state) && !state.gReportDb) return false;
  const ReportCatalog catalog = BuiltInReports();
  const ReportKind* found = catalog.Find(kind);
  if (!found) return false;
  const std::optional<ReportDoc> doc = RunReport(state, *found, request);
  if (!doc) return false;
  PreviewReportDoc(state, parent, *doc);
  return true;
}

void PreviewReportDoc(AppState& state, QWidget* parent, const ReportDoc& doc) {
  QPrinter printer(QPrinter::HighResolution);
  const QString chosen = QString::fromStdString(state.gPrinter.device);
  if (!chosen.isEmpty() && !QPrinterInfo::printerInfo(chosen).isNull()) {
    printer.setPrinterName(chosen);
  }
  printer.setPageLayout(ReportPageLayout(doc));
  printer.setDocName(QString::fromStdString(doc.title));
  QPrintPreviewDialog preview(&printer, parent);
  preview.setObjectName("frmReportPreview");
  preview.setWindowTitle(QString::fromStdString(doc.title));
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested,
                   [&doc](QPrinter* p) { PaintReport(doc, *p); });
  if (auto* tools = preview.findChild<QToolBar*>()) {
    tools->addSeparator();
    QAction* save = tools->addAction(QObject::tr("Save as PDF..."));
    save->setObjectName("actSavePdf");
    QObject::connect(save, &QAction::triggered, &preview, [&preview, &doc, &state] {
      const QString file = QFileDialog::getSaveFileName(
          &preview, QObject::tr("Save as PDF"),
          QString::fromStdString((state.gDataDir / (doc.title + ".pdf")).string()),
          QObject::tr("PDF files (*.pdf)"));
      if (file.isEmpty()) return;
      if (WriteReportPdf(doc, file.toStdString()) == 0) {
        state.io->Tell("Could not write " + file.toStdString());
      }
    });
  }
  preview.resize(900, 1000);
  preview.exec();
}

}  // namespace kvlr
