#include "app/frmError.h"
#include "Cases.h"
#include "codegen/frmPrint.h"
#include "FakeDialogs.h"
#include "window/Forms.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace pirol {
namespace {

using test::Click;
using test::Part;
using test::WhenShown;

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

class PrintTest : public QObject {
    Q_OBJECT

  private slots:
    void LaysOutPages_data();
    void LaysOutPages();
    void AsksBeforeItReplaces();
    void UsesTheChosenFont();
    void CancellingPrintsNothing();
    void ReportsWhatCannotBeWritten_data();
    void ReportsWhatCannotBeWritten();

  private:
    test::ScratchFolder folder_;
};

void PrintTest::LaysOutPages_data() {
    QTest::addColumn<int>("lines");
    QTest::addColumn<double>("pointSize");
    QTest::addColumn<bool>("landscape");
    QTest::addColumn<int>("lastPage"); // 0: all
    QTest::addColumn<int>("fewest");
    QTest::addColumn<int>("most");
    QTest::newRow("nothing") << 0 << 10.0 << false << 0 << 1 << 1;
    QTest::newRow("short") << 30 << 10.0 << false << 0 << 1 << 1;
    QTest::newRow("long") << 200 << 10.0 << false << 0 << 3 << 5;
    QTest::newRow("large") << 200 << 20.0 << false << 0 << 6 << 30;
    QTest::newRow("landscape") << 200 << 10.0 << true << 0 << 5 << 8;
    QTest::newRow("two pages of many") << 200 << 20.0 << false << 2 << 2 << 2;
}

void PrintTest::LaysOutPages() {
    QFETCH(int, lines);
    QFETCH(double, pointSize);
    QFETCH(bool, landscape);
    QFETCH(int, lastPage);
    QFETCH(int, fewest);
    QFETCH(int, most);
    PrintJob job;
    job.PdfFile = TextOf(folder_ / "a.pdf");
    job.Paper = "A4";
    job.Landscape = landscape;
    job.FirstPage = lastPage > 0 ? 1 : 0;
    job.LastPage = lastPage;
    const std::string family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family().toStdString();
    PrintText(*Source(lines), {.Family = family, .Style = {}, .PointSize = pointSize}, job);
    const std::string pdf = ReadFileBytes(folder_ / "a.pdf");
    QVERIFY(pdf.starts_with("%PDF-"));
    const int pages = PagesOf(pdf);
    QVERIFY2(pages >= fewest && pages <= most, qPrintable(QString::number(pages)));
}

void PrintTest::AsksBeforeItReplaces() {
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

void PrintTest::UsesTheChosenFont() {
    const auto source = Source(100);
    test::FakeDialogs dialogs;
    const std::string family = QFontInfo(QApplication::font()).family().toStdString();
    dialogs.fonts = {{.Family = family, .Style = "Bold", .PointSize = 24}};
    dialogs.jobs = {{.Printer = {}, .PdfFile = TextOf(folder_ / "c.pdf"), .Paper = "A5"}};
    frmPrint form(*source, dialogs, nullptr);
    form.show();
    const QString before = Part<QLabel>(form, "lblFont")->text();
    Click(form, "cmdFont");
    const QString shown = Part<QLabel>(form, "lblFont")->text();
    QVERIFY(shown != before);
    QCOMPARE(shown, QString::fromStdString(family + " Bold, 24 Punkt"));
    Click(form, "cmdFont"); // cancelled
    QCOMPARE(Part<QLabel>(form, "lblFont")->text(), shown);
    Click(form, "cmdPrinter");
    QVERIFY(!form.isVisible());
    QVERIFY(PagesOf(ReadFileBytes(folder_ / "c.pdf")) > 5);
}

void PrintTest::CancellingPrintsNothing() {
    const auto source = Source(3);
    test::FakeDialogs dialogs;
    frmPrint form(*source, dialogs, nullptr);
    form.show();
    Click(form, "cmdPrinter");
    Click(form, "cmdPdf");
    QCOMPARE(QString::fromStdString(dialogs.TakeSeen()), "printer\n" + QString(pdfDialog));
    QVERIFY(form.isVisible());
    Click(form, "cmdCancel");
    QVERIFY(!form.isVisible());
}

void PrintTest::ReportsWhatCannotBeWritten_data() {
    QTest::addColumn<QString>("pdf");
    QTest::addColumn<QString>("number");
    QTest::newRow("missing folder") << "missing/a.pdf"
                                    << "76";
    QTest::newRow("no such printer") << ""
                                     << "57";
}

void PrintTest::ReportsWhatCannotBeWritten() {
    QFETCH(QString, pdf);
    QFETCH(QString, number);
    const auto source = Source(3);
    test::FakeDialogs dialogs;
    const std::string path = pdf.isEmpty() ? "" : TextOf(folder_ / pdf.toLatin1());
    dialogs.jobs = {{.Printer = "no such printer", .PdfFile = path, .Paper = {}}};
    frmPrint form(*source, dialogs, nullptr);
    form.show();
    QString report;
    WhenShown<frmError>([&report](frmError& error) {
        report = Part<QPlainTextEdit>(error, "txtError")->toPlainText();
        Click(error, "cmdClose");
    });
    Click(form, "cmdPrinter");
    QVERIFY2(report.startsWith("Fehlernummer: " + number + "\n"), qPrintable(report));
    QVERIFY2(report.endsWith("Main.Code.Print"), qPrintable(report));
    QVERIFY(form.isVisible());
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::PrintTest)
#include "frmPrint_test.moc"
