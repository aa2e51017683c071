#include "Cases.h"
#include "FakeDialogs.h"
#include "ui/code/frmCode.h"
#include "ui/code/frmPrint.h"
#include "ui/Forms.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QWheelEvent>

namespace pirol::test {

constexpr std::string_view source = "import sum.ereignis.*;\r\n"
                                    "\r\n"
                                    "public class SuMAnwendung extends EBAnwendung\r\n"
                                    "{\r\n"
                                    "    // Größe, Ärger\r\n"
                                    "    hatKnopf = new Knopf(1, \"größe\");\r\n"
                                    "}\r\n";

const QColor plain;
const QColor access(102, 0, 51);

std::string ManyLines(int count) {
    std::string lines;
    for (int line = 0; line < count; ++line)
        lines += "    private int zahl" + std::to_string(line) + ";\r\n";
    return lines;
}

QString Copied() {
    return QApplication::clipboard()->text();
}

/// The viewer on the screen with its parts, and a clipboard that holds nothing.
struct Bench {
    explicit Bench(std::string_view shown = source) : form(shown, nullptr) {
        QApplication::clipboard()->clear();
        Show(form);
    }

    /// The colour of a character as the box paints it; plain for the box's own.
    QColor ColourAt(int line, int column) const {
        const QTextBlock block = box.document()->findBlockByNumber(line);
        for (const QTextLayout::FormatRange& range : block.layout()->formats())
            if (range.start <= column && column < range.start + range.length)
                return range.format.foreground().color();
        return plain;
    }

    /// The selection as line:column:text, lines and columns from 0.
    QString Selection() const {
        QTextCursor cursor = box.textCursor();
        const QString selected = cursor.selectedText();
        cursor.setPosition(cursor.selectionStart());
        return QString("%1:%2:%3").arg(cursor.blockNumber()).arg(cursor.positionInBlock()).arg(selected);
    }

    QString Label(const char* name) const { return Part<QLabel>(form, name)->text(); }

    frmCode form;
    CodeBox& box = *Part<CodeBox>(form, "rtfCode");
    QLineEdit& find = *Part<QLineEdit>(form, "txtFind");
};

/// A text of a given number of lines.
struct Printable : QTextDocument {
    explicit Printable(int lines) {
        setPlainText(QString("    public void hatKnopf1Geklickt() // größer\n").repeated(lines));
    }
};

/// The form that prints a text of some pages.
struct Printing {
    Printable source{100};
    FakeDialogs dialogs;
    frmPrint form{source, dialogs, nullptr};
};

int PagesOf(const std::string& pdf) {
    return int(QString::fromLatin1(pdf.data(), qsizetype(pdf.size())).count("/Type /Page\n"));
}

/// The viewer of the source, and printing from there.
class frmCodeTest : public QObject {
    Q_OBJECT

  private slots:
    void ShowsTheSourceColouredAndLetsNobodyType() {
        Bench bench;
        Do(bench.form, "x Del Backspace Return Ctrl+V");
        QVERIFY(bench.form.isVisible());
        QCOMPARE(bench.box.toPlainText(), QString::fromUtf8(source.data(), source.size()).replace("\r\n", "\n"));
        bench.form.grab();
        std::string colours;
        for (const auto& [line, column] : {std::pair(0, 0), {0, 7}, {2, 0}, {4, 4}, {4, 18}, {5, 4}, {5, 28}, {5, 35}})
            colours += bench.ColourAt(line, column).name().toStdString() + " ";
        QCOMPARE(colours, "#cc0000 #000000 #660033 #999999 #999999 #000000 #006600 #000000 ");
        const QFontMetrics font(bench.box.font());
        QCOMPARE(font.horizontalAdvance("iiiiiiiiii"), font.horizontalAdvance("WWWWWWWWWW"));
    }

    void Copies() {
        Bench bench;
        const QString all = bench.box.toPlainText();
        const std::pair<const char*, QString> ways[] = {
            {"@cmdCopy", "public"},          {"Ctrl+C", "public"}, {"Left @cmdCopy", all}, {"Ctrl+A Ctrl+C", all},
            {"@cmdSelectAll @cmdCopy", all},
        };
        for (const auto& [steps, copied] : ways) {
            QApplication::clipboard()->clear();
            bench.box.setFocus();
            bench.box.moveCursor(QTextCursor::Start);
            bench.box.find("public");
            Do(bench.form, steps);
            QCOMPARE(Copied(), copied);
        }
    }

    void Searches_data() { AddRows("code-search"); }

    void Searches() {
        const auto [steps, selections, message] = CurrentRow<3>();
        Bench bench;
        QVERIFY(!bench.find.isVisible());
        Do(bench.form, "Ctrl+F");
        QStringList found;
        for (const QString& step : steps.split(' ')) {
            Do(bench.form, step);
            found << bench.Selection();
        }
        QCOMPARE(found.join(' '), selections);
        QCOMPARE(bench.Label("lblFound"), message);
    }

    void SearchTakesOverTheSelectionAndEscapeClosesIt() {
        Bench bench;
        Do(bench.form, "Shift+Right @cmdFind");
        QCOMPARE(bench.find.text(), "i");
        QCOMPARE(bench.find.selectedText(), "i");
        for (const QWidget* part : bench.find.parentWidget()->findChildren<QWidget*>())
            if (part->focusPolicy() != Qt::NoFocus)
                QVERIFY2(!part->accessibleName().isEmpty(), qPrintable(part->objectName()));
        Do(bench.form, "Esc");
        QVERIFY(!bench.find.isVisible());
        QVERIFY(bench.form.isVisible() && bench.box.hasFocus());
        Do(bench.form, "Tab Return"); // Enter on the focused button
        QVERIFY(!bench.form.isVisible());
    }

    void Zooms() {
        Bench bench;
        const int first = bench.box.font().pointSize();
        const auto turnWheel = [&bench](int times, int direction) {
            QWheelEvent turn({20, 20}, bench.box.viewport()->mapToGlobal(QPointF(20, 20)), {}, {0, direction * 120},
                             Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
            for (int time = 0; time < times; ++time)
                QApplication::sendEvent(bench.box.viewport(), &turn);
            return bench.box.font().pointSize();
        };
        QCOMPARE(turnWheel(1, 1), first + 1);
        const std::pair<const char*, int> steps[] = {
            {"@cmdZoomIn", 2},  {"Ctrl++", 3}, {"Ctrl+=", 4},  {"Ctrl+-", 3},
            {"@cmdZoomOut", 2}, {"Ctrl+0", 0}, {"Ctrl+-", -1}, {"@cmdZoomReset", 0},
        };
        for (const auto& [step, larger] : steps) {
            Do(bench.form, step);
            QCOMPARE(bench.box.font().pointSize(), first + larger);
            QCOMPARE(Part<QPushButton>(bench.form, "cmdZoomReset")->text(),
                     QString("%1 %").arg((first + larger) * 100 / first));
        }
        // Neither direction leads to letters that nobody can read.
        QCOMPARE(turnWheel(100, -1), 6);
        QCOMPARE(turnWheel(100, 1), 48);
    }

    void PrintsTheColouredTextWhenAsked() {
        Bench bench(ManyLines(5000));
        const auto* print = Part<QPushButton>(bench.form, "cmdPrint");
        QVERIFY(!print->isVisible());
        int lines = 0;
        bench.form.OfferPrinting([&lines](QTextDocument& document) { lines = document.blockCount(); });
        QVERIFY(print->isVisible());
        Do(bench.form, "Ctrl+P");
        QCOMPARE(lines, 5001);
        QCOMPARE(bench.ColourAt(4999, 4), access);
    }

    /// A big source is there at once, whole when it counts, and coloured wherever one looks.
    void BigSources() {
        constexpr int lineCount = 100'000;
        const std::string lines = ManyLines(lineCount);
        Bench bench(lines);
        QVERIFY(bench.box.blockCount() < lineCount);
        QCOMPARE(bench.Label("lblLines"), "100.001 Zeilen");
        QTRY_COMPARE(bench.box.blockCount(), lineCount + 1);
        QCOMPARE(bench.box.toPlainText().size(), qsizetype(lines.size()) - lineCount);
        QCOMPARE(bench.box.textCursor().position(), 0);
        for (const int line : {lineCount / 2, lineCount - 1}) {
            QCOMPARE(bench.ColourAt(line, 5), plain);
            bench.box.verticalScrollBar()->setValue(line);
            bench.form.grab();
            QCOMPARE(bench.ColourAt(line, 5), access);
        }
    }

    /// Whoever wants all of a big source need not wait until it is loaded.
    void BigSourcesAreWholeForTheUser() {
        const QString last = "private int zahl29999;";
        for (const char* steps :
             {"@cmdCopy", "@cmdSelectAll @cmdCopy", "Ctrl+End Shift+Up Shift+Up Ctrl+C", "@cmdFind"}) {
            Bench bench(ManyLines(30'000));
            Do(bench.form, steps);
            bench.find.setText(last);
            QVERIFY2(Copied().contains(last) || bench.box.textCursor().blockNumber() == 29'999, steps);
        }
    }

    /// Whatever a design holds, the viewer shows it: one endless line, odd line ends, no text at all.
    void OddSources() {
        const QByteArray sources[] = {
            {},
            QByteArray(300'000, 'x'),
            QByteArray("a\rb\r\rpublic c ").repeated(20'000),
            QByteArray("a\0b\1c\xE2\x80\xA9 d \"\xC2\x85\" ", 16),
            "public \xFF\xFE \"\xC3",
            "public\"//super",
        };
        for (const QByteArray& odd : sources) {
            Bench bench(std::string_view(odd.constData(), static_cast<std::size_t>(odd.size())));
            Do(bench.form, "Ctrl+End");
            bench.form.grab();
            QCOMPARE(bench.box.document()->characterCount(), bench.box.Source().size() + 1);
            Do(bench.form, "Ctrl+A Ctrl+C");
            QCOMPARE(Copied(), bench.box.Source());
        }
    }

    void PrintsPages_data() { AddRows("print-layouts"); }

    void PrintsPages() {
        const auto [lines, pointSize, orientation, lastPage, fewest, most] = CurrentRow<6>();
        PrintJob job;
        job.PdfFile = TextOf(folder_ / "a.pdf");
        job.Paper = "A4";
        job.Landscape = orientation == "landscape";
        job.LastPage = lastPage.toInt();
        job.FirstPage = job.LastPage > 0 ? 1 : 0;
        const std::string family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family().toStdString();
        const Printable source(lines.toInt());
        FakeDialogs dialogs;
        dialogs.fonts = {{.Family = family, .Style = {}, .PointSize = pointSize.toDouble()}};
        dialogs.jobs = {job};
        frmPrint form(source, dialogs, nullptr);
        Do(form, "@cmdFont @cmdPrinter");
        const std::string pdf = ReadFileBytes(folder_ / "a.pdf");
        QVERIFY(pdf.starts_with("%PDF-"));
        const int pages = PagesOf(pdf);
        QVERIFY2(pages >= fewest.toInt() && pages <= most.toInt(), qPrintable(QString::number(pages)));
    }

    void PrintingAsksBeforeItReplaces() {
        for (const bool yes : {false, true}) {
            ReplaceFileBytes(folder_ / "b.pdf", "old");
            Printing printing;
            printing.dialogs.paths = {TextOf(folder_ / "b.pdf")};
            printing.dialogs.yes = {yes};
            Do(printing.form, "@cmdPdf");
            QCOMPARE(printing.dialogs.TakeSeen(), "save <PDF-Dateien (*.pdf)|*.pdf|Alle Dateien (*.*)|*.*> 2048 "
                                                  "<SuMAnwendung.pdf>\n"
                                                  "question Die Datei existiert bereits! Überschreiben?\n");
            QCOMPARE(ReadFileBytes(folder_ / "b.pdf").starts_with("%PDF-"), yes);
            QCOMPARE(printing.form.isVisible(), !yes);
        }
    }

    void PrintsInTheChosenFont() {
        Printing printing;
        const std::string family = QFontInfo(QApplication::font()).family().toStdString();
        printing.dialogs.fonts = {{.Family = family, .Style = "Bold", .PointSize = 24}};
        printing.dialogs.jobs = {{.Printer = {}, .PdfFile = TextOf(folder_ / "c.pdf"), .Paper = "A5"}};
        Do(printing.form, "@cmdFont @cmdFont @cmdPdf"); // the last two are cancelled
        QCOMPARE(Part<QLabel>(printing.form, "lblFont")->text().toStdString(), family + " Bold, 24 Punkt");
        QVERIFY(printing.form.isVisible());
        Click(printing.form, "cmdPrinter");
        QVERIFY(!printing.form.isVisible());
        QVERIFY(PagesOf(ReadFileBytes(folder_ / "c.pdf")) > 5);
    }

    void ReportsWhatCannotBePrinted() {
        const std::pair<PrintJob, const char*> jobs[] = {
            {{.Printer = {}, .PdfFile = TextOf(folder_ / "missing/a.pdf"), .Paper = {}}, "Fehlernummer: 76\n"},
            {{.Printer = "no such printer", .PdfFile = {}, .Paper = {}}, "Fehlernummer: 57\n"},
        };
        for (const auto& [job, begin] : jobs) {
            Printing printing;
            printing.dialogs.jobs = {job};
            QString report;
            ExpectError(report);
            Click(printing.form, "cmdPrinter");
            QVERIFY2(report.startsWith(begin) && report.endsWith("Main.Code.Print"), qPrintable(report));
            Click(printing.form, "cmdPrinter"); // and now cancelled
            QVERIFY(printing.form.isVisible());
            Click(printing.form, "cmdCancel");
            QVERIFY(!printing.form.isVisible());
        }
    }

  private:
    ScratchFolder folder_;
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::frmCodeTest)
#include "frmCode_test.moc"
