#include "Cases.h"
#include "codegen/frmPrint.h"
#include "FakeDialogs.h"
#include "window/Forms.h"
#include "window/Rows.h"

#include <QFontDatabase>
#include <QLabel>
#include <QTextDocument>

namespace pirol::test {

constexpr const char* pdfDialog = "save <PDF-Dateien (*.pdf)|*.pdf|Alle Dateien (*.*)|*.*> 2048 <SuMAnwendung.pdf>\n";

/// A source of a given number of lines.
struct Source : QTextDocument {
    explicit Source(int lines) {
        setPlainText(QString("    public void hatKnopf1Geklickt() // größer\n").repeated(lines));
    }
};

int PagesOf(const std::string& pdf) {
    return int(QString::fromLatin1(pdf.data(), qsizetype(pdf.size())).count("/Type /Page\n"));
}

class PrintTest : public QObject {
    Q_OBJECT

  private slots:
    void LaysOutPages_data() { AddRows("print-layouts"); }

    void LaysOutPages() {
        const auto [lines, pointSize, orientation, lastPage, fewest, most] = CurrentRow<6>();
        PrintJob job;
        job.PdfFile = TextOf(folder_ / "a.pdf");
        job.Paper = "A4";
        job.Landscape = orientation == "landscape";
        job.LastPage = lastPage.toInt();
        job.FirstPage = job.LastPage > 0 ? 1 : 0;
        const std::string family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family().toStdString();
        PrintText(Source(lines.toInt()), {.Family = family, .Style = {}, .PointSize = pointSize.toDouble()}, job);
        const std::string pdf = ReadFileBytes(folder_ / "a.pdf");
        QVERIFY(pdf.starts_with("%PDF-"));
        const int pages = PagesOf(pdf);
        QVERIFY2(pages >= fewest.toInt() && pages <= most.toInt(), qPrintable(QString::number(pages)));
    }

    void AsksBeforeItReplaces() {
        const Source source(3);
        for (const bool yes : {false, true}) {
            ReplaceFileBytes(folder_ / "b.pdf", "old");
            FakeDialogs dialogs;
            dialogs.paths = {TextOf(folder_ / "b.pdf")};
            dialogs.yes = {yes};
            frmPrint form(source, dialogs, nullptr);
            Do(form, "@cmdPdf");
            QCOMPARE(dialogs.TakeSeen(),
                     std::string(pdfDialog) + "question Die Datei existiert bereits! Überschreiben?\n");
            QCOMPARE(ReadFileBytes(folder_ / "b.pdf").starts_with("%PDF-"), yes);
            QCOMPARE(form.isVisible(), !yes);
        }
    }

    void UsesTheChosenFont() {
        const Source source(100);
        FakeDialogs dialogs;
        const std::string family = QFontInfo(QApplication::font()).family().toStdString();
        dialogs.fonts = {{.Family = family, .Style = "Bold", .PointSize = 24}};
        dialogs.jobs = {{.Printer = {}, .PdfFile = TextOf(folder_ / "c.pdf"), .Paper = "A5"}};
        frmPrint form(source, dialogs, nullptr);
        Do(form, "@cmdFont @cmdFont @cmdPdf"); // the last two are cancelled
        QCOMPARE(Part<QLabel>(form, "lblFont")->text().toStdString(), family + " Bold, 24 Punkt");
        QVERIFY(form.isVisible());
        Click(form, "cmdPrinter");
        QVERIFY(!form.isVisible());
        QVERIFY(PagesOf(ReadFileBytes(folder_ / "c.pdf")) > 5);
    }

    void ReportsWhatCannotBeWritten() {
        const Source source(3);
        const std::pair<PrintJob, const char*> jobs[] = {
            {{.Printer = {}, .PdfFile = TextOf(folder_ / "missing/a.pdf"), .Paper = {}}, "Fehlernummer: 76\n"},
            {{.Printer = "no such printer", .PdfFile = {}, .Paper = {}}, "Fehlernummer: 57\n"},
        };
        for (const auto& [job, begin] : jobs) {
            FakeDialogs dialogs;
            dialogs.jobs = {job};
            frmPrint form(source, dialogs, nullptr);
            QString report;
            ExpectError(report);
            Click(form, "cmdPrinter");
            QVERIFY2(report.startsWith(begin) && report.endsWith("Main.Code.Print"), qPrintable(report));
            Click(form, "cmdPrinter"); // and now cancelled
            QVERIFY(form.isVisible());
            Click(form, "cmdCancel");
            QVERIFY(!form.isVisible());
        }
    }

  private:
    ScratchFolder folder_;
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::PrintTest)
#include "frmPrint_test.moc"
