#include "ui/code/frmPrint.h"

#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"
#include "ui/parts/LateModules.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QPageSize>
#include <QPdfWriter>
#include <QPushButton>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QVBoxLayout>

#include <memory>

namespace pirol {
namespace {

constexpr const char* documentName = "SuMAnwendung.java";

FontChoice UsualFont() {
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    return {.Family = QFontInfo(font).family().toStdString(), .Style = {}, .PointSize = 10};
}

QFont ToFont(const FontChoice& choice) {
    QFont font(ToText(choice.Family));
    font.setStyleName(ToText(choice.Style));
    font.setPointSizeF(choice.PointSize);
    return font;
}

/// The paper of that name; A4 when the name says nothing.
QPageSize PaperOf(const PrintJob& job) {
    const QString name = ToText(job.Paper);
    for (int id = 0; id <= QPageSize::LastPageSize; ++id)
        if (const QPageSize size(static_cast<QPageSize::PageSizeId>(id)); size.key() == name)
            return size;
    return QPageSize(QPageSize::A4);
}

void Prepare(QPagedPaintDevice& device, const PrintJob& job) {
    device.setPageSize(PaperOf(job));
    device.setPageOrientation(job.Landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    if (job.FirstPage > 0)
        device.setPageRanges(QPageRanges::fromString(QString("%1-%2").arg(job.FirstPage).arg(job.LastPage)));
}

/// A copy in another typeface. Colours that lie only over the text on the screen are copied with it.
std::unique_ptr<QTextDocument> Copy(const QTextDocument& text, const FontChoice& font) {
    std::unique_ptr<QTextDocument> copy(text.clone());
    copy->setDefaultFont(ToFont(font));
    QTextBlock to = copy->begin();
    for (QTextBlock from = text.begin(); from.isValid() && to.isValid(); from = from.next(), to = to.next())
        to.layout()->setFormats(from.layout()->formats());
    return copy;
}

/// The pages are made in memory first, so that a file is replaced by a whole one or not at all.
void WriteFile(const QTextDocument& text, const PrintJob& job) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&bytes);
        writer.setTitle(documentName);
        writer.setCreator("Pirol");
        Prepare(writer, job);
        text.print(&writer);
    }
    ReplaceFileBytes(PathOf(job.PdfFile), bytes.data().toStdString());
}

void WritePages(const QTextDocument& text, const PrintJob& job) {
    const bool isPrinted = NewSystemPrinters()->Print(job, documentName, [&](QPagedPaintDevice& printer) {
        Prepare(printer, job);
        text.print(&printer);
    });
    if (!isPrinted)
        throw RuntimeError(RuntimeError::DeviceError);
}

void PrintText(const QTextDocument& text, const FontChoice& font, const PrintJob& job) {
    UnderLabel("Main.Code.Print", [&] {
        const std::unique_ptr<QTextDocument> copy = Copy(text, font);
        job.PdfFile.empty() ? WritePages(*copy, job) : WriteFile(*copy, job);
    });
}

} // namespace

frmPrint::frmPrint(const QTextDocument& text, cCommonDialog& dialogs, QWidget* owner)
    : QDialog(owner), text_(text), dialogs_(dialogs), font_(UsualFont()),
      lblFont_(Named(new QLabel, "lblFont", "Gewählte Schriftart")) {
    setObjectName("frmPrint");
    setWindowTitle("Pirol - Quelltext drucken");

    auto* const group = new QGroupBox("Schriftart");
    auto* const font = new QHBoxLayout(group);
    auto* const cmdFont = NewButton("cmdFont", "Schrift&art …", "Eine andere Schriftart wählen");
    lblFont_->setTextFormat(Qt::PlainText);
    lblFont_->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    font->addWidget(lblFont_, 1);
    font->addWidget(cmdFont);

    auto* const cmdPrinter = NewIconButton("cmdPrinter", "&Drucken …", "print", "Den Drucker wählen und drucken");
    auto* const cmdPdf =
        NewIconButton("cmdPdf", "Als &PDF speichern …", "export", "Die Seiten in eine PDF-Datei schreiben");
    auto* const cmdCancel = NewButton("cmdCancel", "Abbrechen", "Nichts drucken");
    cmdPrinter->setDefault(true);
    auto* const all = new QVBoxLayout(this);
    all->addWidget(group);
    all->addStretch();
    all->addLayout(NewButtonRow({cmdPrinter, cmdPdf, cmdCancel}));

    connect(cmdFont, &QPushButton::clicked, this, &frmPrint::ChooseFont);
    connect(cmdPrinter, &QPushButton::clicked, this, &frmPrint::PrintOnPrinter);
    connect(cmdPdf, &QPushButton::clicked, this, &frmPrint::PrintIntoPdf);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ShowFont();
    cmdPrinter->setFocus();
}

void frmPrint::ChooseFont() {
    if (const std::optional<FontChoice> chosen = dialogs_.ShowFont(font_))
        font_ = *chosen;
    ShowFont();
}

void frmPrint::PrintOnPrinter() {
    std::optional<PrintJob> job;
    ReportErrors(this, [&] { UnderLabel("Main.Code.Print", [&] { job = dialogs_.ShowPrinter(); }); });
    if (job)
        Print(*job);
}

void frmPrint::PrintIntoPdf() {
    PrintJob job;
    job.PdfFile = dialogs_.ShowSave({.Title = "Als PDF speichern",
                                     .Filter = "PDF-Dateien (*.pdf)|*.pdf|Alle Dateien (*.*)|*.*",
                                     .Flags = FileDialogSetup::PathMustExist,
                                     .FileName = "SuMAnwendung.pdf",
                                     .Name = "pdfDialog"});
    if (!job.PdfFile.empty() && MayReplaceFile(job.PdfFile, dialogs_))
        Print(job);
}

void frmPrint::Print(const PrintJob& job) {
    if (ReportErrors(this, [&] { PrintText(text_, font_, job); }))
        accept();
}

void frmPrint::ShowFont() {
    lblFont_->setText(
        QString("%1, %2 Punkt").arg(ToText(font_.Family + " " + font_.Style).trimmed()).arg(font_.PointSize));
    QFont shown = ToFont(font_);
    shown.setPointSizeF(font().pointSizeF());
    lblFont_->setFont(shown);
}

} // namespace pirol
