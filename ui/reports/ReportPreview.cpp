#include "reports/ReportPreview.h"

#include <QAction>
#include <QFileDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolBar>

#include "reports/ReportLayout.h"
#include "store/ReportDatabase.h"

namespace kvlr {

ReportPreviewDialog::ReportPreviewDialog(AppState& state, ReportDoc doc, QWidget* parent)
    : QPrintPreviewDialog(parent), state_(state), doc_(std::move(doc)) {
  setObjectName("frmReportPreview");
  setWindowTitle(QString::fromStdString(doc_.title));
  QPrinter& p = *printer();
  const QString chosen = QString::fromStdString(state_.gPrinter.device);
  if (!chosen.isEmpty() && !QPrinterInfo::printerInfo(chosen).isNull()) p.setPrinterName(chosen);
  p.setPageLayout(ReportPageLayout(doc_));
  p.setDocName(QString::fromStdString(doc_.title));
  connect(this, &QPrintPreviewDialog::paintRequested, this,
          [this](QPrinter* target) { PaintReport(doc_, *target); });
  if (auto* tools = findChild<QToolBar*>()) {
    tools->addSeparator();
    QAction* save = tools->addAction(tr("Save as PDF..."));
    save->setObjectName("actSavePdf");
    connect(save, &QAction::triggered, this, [this] {
      const QString file = QFileDialog::getSaveFileName(
          this, tr("Save as PDF"),
          QString::fromStdString((state_.gDataDir / (doc_.title + ".pdf")).string()),
          tr("PDF files (*.pdf)"));
      if (!file.isEmpty()) SaveAsPdf(file);
    });
  }
  resize(900, 1000);
}

bool ReportPreviewDialog::SaveAsPdf(const QString& file) {
  if (WriteReportPdf(doc_, file.toStdString()) > 0) return true;
  state_.io->Tell("Could not write " + file.toStdString());
  return false;
}

bool PreviewReport(AppState& state, QWidget* parent, std::string_view kind,
                   const ReportRequest& request) {
  if (!state.gDb) return false;
  // A report database lost since start-up (a repair, another process) is made again.
  if (!state.gReportDb && !CheckReportTables(state) && !state.gReportDb) return false;
  const ReportCatalog catalog = BuiltInReports();
  const ReportKind* found = catalog.Find(kind);
  if (!found) return false;
  std::optional<ReportDoc> doc = RunReport(state, *found, request);
  if (!doc) return false;
  ReportPreviewDialog preview(state, std::move(*doc), parent);
  preview.exec();
  return true;
}

}  // namespace kvlr
