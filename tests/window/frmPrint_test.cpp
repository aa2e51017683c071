#include "Cases.h"
#include "codegen/frmPrint.h"
#include "FakeDialogs.h"
#include "window/Forms.h"
#include "window/Rows.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace pirol {
namespace {

using test::Click;
using test::Part;

constexpr const char* pdfDialog = "save <PDF-Dateien (*.pdf)|*.pdf|Alle Dateien (*.*)|*.*> 2048 <SuMAnwendung.pdf>\n";

/// A source of a given number of lines.
std::unique_ptr<QTextDocument> Source(int lines) {
    auto source = std::make_unique<QTextDocument>();
    source->setPlainText(QString("    public void hatKnopf1Geklickt() // größer\n").repeated(lines));
    return source;
}

int PagesOf(const std::string& pdf) {
    int pages = 0;
    for (std::size_t at = pdf.find("/Type /Page\n"); at != std::string::npos; at = pdf.find("/Type /Page\n", at + 1))
        ++pages;
    return pages;
}

constexpr struct {
    const char* name;
    int lines;
    double pointSize;
    bool landscape;
    int lastPage; ///< 0: all
    int fewest, most;
} layouts[] = {
    {"nothing", 0, 10, false, 0, 1, 1},    {"short", 30, 10, false, 0, 1, 1},
    {"long", 200, 10, false, 0, 3, 5},     {"large", 200, 20, false, 0, 6, 30},
    {"landscape", 200, 10, true, 0, 5, 8}, {"two pages of many", 200, 20, false, 2, 2, 2},
};

class PrintTest : public QObject {
    Q_OBJECT

  private slots:
    void LaysOutPages_data() { test::AddRows(layouts); }

    void LaysOutPages() {
        const auto& row = test::CurrentRow(layouts);
        PrintJob job;
        job.PdfFile = TextOf(folder_ / "a.pdf");
        job.Paper = "A4";
        job.Landscape = row.landscape;
        job.FirstPage = row.lastPage > 0 ? 1 : 0;
        job.LastPage = row.lastPage;
        const std::string family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family().toStdString();
        PrintText(*Source(row.lines), {.Family = family, .Style = {}, .PointSize = row.pointSize}, job);
        const std::string pdf = ReadFileBytes(folder_ / "a.pdf");
        QVERIFY(pdf.starts_with("%PDF-"));
        const int pages = PagesOf(pdf);
        QVERIFY2(pages >= row.fewest && pages <= row.most, qPrintable(QString::number(pages)));
    }

    void AsksBeforeItReplaces() {
        const auto source = Source(3);
        for (const bool yes : {false, true}) {
            ReplaceFileBytes(folder_ / "b.pdf", "old");
            test::FakeDialogs dialogs;
            dialogs.paths = {TextOf(folder_ / "b.pdf")};
            dialogs.yes = {yes};
            frmPrint form(*source, dialogs, nullptr);
            form.show();
            Click(form, "cmdPdf");
            QCOMPARE(QString::fromStdString(dialogs.TakeSeen()),
                     QString(pdfDialog) + "question Die Datei existiert bereits! Überschreiben?\n");
            QCOMPARE(ReadFileBytes(folder_ / "b.pdf").starts_with("%PDF-"), yes);
            QCOMPARE(form.isVisible(), !yes);
        }
    }

    void UsesTheChosenFont() {
        const auto source = Source(100);
        test::FakeDialogs dialogs;
        const std::string family = QFontInfo(QApplication::font()).family().toStdString();
        dialogs.fonts = {{.Family = family, .Style = "Bold", .PointSize = 24}};
        dialogs.jobs = {{.Printer = {}, .PdfFile = TextOf(folder_ / "c.pdf"), .Paper = "A5"}};
        frmPrint form(*source, dialogs, nullptr);
        form.show();
        Click(form, "cmdFont");
        const QString shown = Part<QLabel>(form, "lblFont")->text();
        QCOMPARE(shown, QString::fromStdString(family + " Bold, 24 Punkt"));
        Click(form, "cmdFont"); // cancelled
        QCOMPARE(Part<QLabel>(form, "lblFont")->text(), shown);
        Click(form, "cmdPdf"); // cancelled too
        QVERIFY(form.isVisible());
        Click(form, "cmdPrinter");
        QVERIFY(!form.isVisible());
        QVERIFY(PagesOf(ReadFileBytes(folder_ / "c.pdf")) > 5);
    }

    void ReportsWhatCannotBeWritten() {
        const auto source = Source(3);
        const std::pair<PrintJob, const char*> jobs[] = {
            {{.Printer = {}, .PdfFile = TextOf(folder_ / "missing/a.pdf"), .Paper = {}}, "Fehlernummer: 76\n"},
            {{.Printer = "no such printer", .PdfFile = {}, .Paper = {}}, "Fehlernummer: 57\n"},
        };
        for (const auto& [job, begin] : jobs) {
            test::FakeDialogs dialogs;
            dialogs.jobs = {job};
            frmPrint form(*source, dialogs, nullptr);
            form.show();
            QString report;
            test::ExpectError(report);
            Click(form, "cmdPrinter");
            QVERIFY2(report.startsWith(begin), qPrintable(report));
            QVERIFY2(report.endsWith("Main.Code.Print"), qPrintable(report));
            Click(form, "cmdPrinter"); // and now cancelled
            QVERIFY(form.isVisible());
            Click(form, "cmdCancel");
            QVERIFY(!form.isVisible());
        }
    }

  private:
    test::ScratchFolder folder_;
};

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::PrintTest)
#include "frmPrint_test.moc"
