#include "ui/parts/SystemPrinters.h"

#include <QPrintDialog>
#include <QPrinter>

namespace pirol {
namespace {

PrintJob JobOf(const QPrinter& printer) {
    PrintJob job;
    if (printer.outputFormat() == QPrinter::PdfFormat)
        job.PdfFile = printer.outputFileName().toStdString();
    else
        job.Printer = printer.printerName().toStdString();
    job.Paper = printer.pageLayout().pageSize().key().toStdString();
    job.Landscape = printer.pageLayout().orientation() == QPageLayout::Landscape;
    job.Copies = printer.copyCount();
    job.FirstPage = printer.fromPage();
    job.LastPage = printer.toPage();
    return job;
}

} // namespace

std::optional<PrintJob> SystemPrinters::Ask(QWidget* owner) {
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, owner);
    dialog.setObjectName("printDialog");
    dialog.setWindowTitle("Drucken");
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return JobOf(printer);
}

bool SystemPrinters::Print(const PrintJob& job, const QString& documentName,
                           const std::function<void(QPagedPaintDevice&)>& paint) {
    QPrinter printer(QPrinter::HighResolution);
    // Qt ignores an unknown name, and the pages would come out of another printer.
    const QString name = QString::fromStdString(job.Printer);
    printer.setPrinterName(name);
    if (!printer.isValid() || printer.printerName() != name)
        return false;
    printer.setDocName(documentName);
    printer.setCopyCount(job.Copies);
    paint(printer);
    return printer.printerState() != QPrinter::Error;
}

} // namespace pirol

#ifdef PIROL_MODULE
/// What the designer looks for in the module.
extern "C" Q_DECL_EXPORT pirol::Printers* PirolSystemPrinters() {
    return new pirol::SystemPrinters;
}
#endif
