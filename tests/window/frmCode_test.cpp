#include "codegen/frmCode.h"
#include "codegen/JavaGenerator.h"
#include "model/ProjectModel.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QWheelEvent>

namespace pirol {
namespace {

constexpr std::string_view source = "import sum.ereignis.*;\r\n"
                                    "\r\n"
                                    "public class SuMAnwendung extends EBAnwendung\r\n"
                                    "{\r\n"
                                    "    // Größe, Ärger\r\n"
                                    "    hatKnopf = new Knopf(1, \"größe\");\r\n"
                                    "}\r\n";

std::string ManyLines(int count) {
    std::string text;
    for (int line = 0; line < count; ++line)
        text += "    private int zahl" + std::to_string(line) + ";\r\n";
    return text;
}

/// The viewer on the screen, with its parts.
class Bench {
  public:
    explicit Bench(std::string_view text = source)
        : form(text, nullptr), box(*form.findChild<CodeBox*>("rtfCode")), find(*form.findChild<QLineEdit*>("txtFind")),
          found(*form.findChild<QLabel*>("lblFound")) {
        form.show();
        if (!QTest::qWaitForWindowActive(&form))
            QTest::qFail("the viewer was not activated", __FILE__, __LINE__);
    }

    void Click(const char* button) { QTest::mouseClick(form.findChild<QPushButton*>(button), Qt::LeftButton); }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    /// The colour of a character as the box paints it; invalid for the box's own.
    QColor ColourAt(int line, int column) const {
        const QTextBlock block = box.document()->findBlockByNumber(line);
        for (const QTextLayout::FormatRange& range : block.layout()->formats())
            if (range.start <= column && column < range.start + range.length)
                return range.format.foreground().color();
        return {};
    }

    /// The selection as line:column:text, lines and columns from 0.
    QString Selection() const {
        QTextCursor cursor = box.textCursor();
        const QString text = cursor.selectedText();
        cursor.setPosition(cursor.selectionStart());
        return QString("%1:%2:%3").arg(cursor.blockNumber()).arg(cursor.positionInBlock()).arg(text);
    }

    frmCode form;
    CodeBox& box;
    QLineEdit& find;
    QLabel& found;
};

} // namespace

class frmCodeTest : public QObject {
    Q_OBJECT

  private slots:
    void ShowsTheSourceColoured() {
        Bench bench;
        QCOMPARE(bench.box.toPlainText(), QString::fromUtf8(source.data(), source.size()).replace("\r\n", "\n"));
        bench.form.grab();
        const QColor type(204, 0, 0);
        QCOMPARE(bench.ColourAt(0, 0), type);                  // import
        QVERIFY(!bench.ColourAt(0, 7).isValid());              // sum
        QCOMPARE(bench.ColourAt(2, 0), QColor(102, 0, 51));    // public
        QCOMPARE(bench.ColourAt(2, 7), type);                  // class
        QCOMPARE(bench.ColourAt(4, 4), QColor(153, 153, 153)); // comment, to its end
        QCOMPARE(bench.ColourAt(4, 18), QColor(153, 153, 153));
        QVERIFY(!bench.ColourAt(5, 4).isValid());
        QCOMPARE(bench.ColourAt(5, 28), QColor(0, 102, 0)); // the string with its quotes
        QCOMPARE(bench.ColourAt(5, 34), QColor(0, 102, 0));
        QVERIFY(!bench.ColourAt(5, 35).isValid());
    }

    void NothingCanBeTyped() {
        Bench bench;
        const QString before = bench.box.toPlainText();
        for (const Qt::Key key : {Qt::Key_X, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Return})
            QTest::keyClick(&bench.box, key);
        QTest::keyClick(&bench.box, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(bench.box.toPlainText(), before);
        QVERIFY(bench.form.isVisible());
    }

    void TheFontIsMonospaced() {
        Bench bench;
        const QFontMetrics font(bench.box.font());
        QCOMPARE(font.horizontalAdvance("iiiiiiiiii"), font.horizontalAdvance("WWWWWWWWWW"));
    }

    void Copies_data() {
        QTest::addColumn<QString>("how");
        QTest::addColumn<bool>("all");
        QTest::newRow("selection by button") << "@cmdCopy" << false;
        QTest::newRow("selection by key") << "Ctrl+C" << false;
        QTest::newRow("everything without a selection") << "none @cmdCopy" << true;
        QTest::newRow("everything by key") << "Ctrl+A Ctrl+C" << true;
        QTest::newRow("everything by button") << "@cmdSelectAll @cmdCopy" << true;
    }

    void Copies() {
        QFETCH(QString, how);
        QFETCH(bool, all);
        Bench bench;
        QApplication::clipboard()->clear();
        QTextCursor cursor = bench.box.textCursor();
        cursor.setPosition(24);
        cursor.setPosition(30, QTextCursor::KeepAnchor);
        bench.box.setTextCursor(cursor);
        for (const QString& step : how.split(' '))
            if (step.startsWith('@'))
                bench.Click(step.mid(1).toLatin1());
            else if (step == "none")
                bench.box.moveCursor(QTextCursor::Start);
            else
                bench.Press(step.endsWith('A') ? Qt::Key_A : Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), all ? bench.box.toPlainText() : "public");
    }

    /// Steps of a search and what is selected after each; an empty step presses nothing.
    void Searches_data() {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QStringList>("selections");
        QTest::addColumn<QString>("message");
        QTest::newRow("while typing") << QStringList{"gr", "ö"} << QStringList{"4:7:Gr", "4:7:Grö"} << "";
        QTest::newRow("next") << QStringList{"größe", "Enter"} << QStringList{"4:7:Größe", "5:29:größe"} << "";
        QTest::newRow("next by F3") << QStringList{"größe", "F3"} << QStringList{"4:7:Größe", "5:29:größe"} << "";
        QTest::newRow("around the end") << QStringList{"größe", "Enter", "Enter"}
                                        << QStringList{"4:7:Größe", "5:29:größe", "4:7:Größe"}
                                        << "von vorn weitergesucht";
        QTest::newRow("around the beginning") << QStringList{"größe", "Shift+Enter"}
                                              << QStringList{"4:7:Größe", "5:29:größe"} << "vom Ende weitergesucht";
        QTest::newRow("previous") << QStringList{"größe", "@cmdFindNext", "@cmdFindPrevious"}
                                  << QStringList{"4:7:Größe", "5:29:größe", "4:7:Größe"} << "";
        QTest::newRow("back to the first character")
            << QStringList{"import", "Shift+F3"} << QStringList{"0:0:import", "0:0:import"} << "vom Ende weitergesucht";
        QTest::newRow("with its case") << QStringList{"@chkCase", "größe"} << QStringList{"0:0:", "5:29:größe"} << "";
        QTest::newRow("nothing") << QStringList{"großer"} << QStringList{"0:0:"} << "nicht gefunden";
        QTest::newRow("nothing, then something")
            << QStringList{"q", "Clear", "class"} << QStringList{"0:0:", "0:0:", "2:7:class"} << "";
        QTest::newRow("quotes") << QStringList{"\""} << QStringList{"5:28:\""} << "";
    }

    void Searches() {
        QFETCH(QStringList, steps);
        QFETCH(QStringList, selections);
        QFETCH(QString, message);
        Bench bench;
        QVERIFY(!bench.find.isVisible());
        bench.Press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(bench.find.isVisible() && bench.find.hasFocus());
        for (qsizetype step = 0; step < steps.size(); ++step) {
            const QString& what = steps[step];
            if (what.startsWith('@'))
                QTest::mouseClick(bench.form.findChild<QWidget*>(what.mid(1)), Qt::LeftButton, {}, QPoint(8, 8));
            else if (what.endsWith("Enter") || what.endsWith("F3"))
                bench.Press(what.endsWith("F3") ? Qt::Key_F3 : Qt::Key_Return,
                            what.startsWith("Shift") ? Qt::ShiftModifier : Qt::NoModifier);
            else if (what == "Clear")
                bench.find.clear();
            else
                bench.find.insert(what);
            QCOMPARE(bench.Selection(), selections[step]);
        }
        QCOMPARE(bench.found.text(), message);
    }

    void SearchTakesOverTheSelection() {
        Bench bench;
        QTextCursor cursor = bench.box.textCursor();
        cursor.setPosition(24);
        cursor.setPosition(30, QTextCursor::KeepAnchor);
        bench.box.setTextCursor(cursor);
        bench.Click("cmdFind");
        QCOMPARE(bench.find.text(), "public");
        QCOMPARE(bench.find.selectedText(), "public");
    }

    void EscapeClosesTheSearchFirst() {
        Bench bench;
        bench.Press(Qt::Key_F, Qt::ControlModifier);
        bench.Press(Qt::Key_Escape);
        QVERIFY(!bench.find.isVisible());
        QVERIFY(bench.form.isVisible() && bench.box.hasFocus());
        bench.Press(Qt::Key_Escape);
        QVERIFY(!bench.form.isVisible());
    }

    void CloseCloses_data() {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("mouse") << false;
        QTest::newRow("Enter") << true;
    }

    void CloseCloses() {
        QFETCH(bool, byKey);
        Bench bench;
        if (byKey) {
            bench.form.findChild<QPushButton*>("cmdClose")->setFocus();
            bench.Press(Qt::Key_Return);
        } else {
            bench.Click("cmdClose");
        }
        QVERIFY(!bench.form.isVisible());
    }

    void Zooms_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"keys", "buttons", "wheel"})
            QTest::newRow(way) << way;
    }

    void Zooms() {
        QFETCH(QString, way);
        Bench bench;
        const int first = bench.box.font().pointSize();
        const auto zoom = [&](int direction) {
            if (way == "keys") {
                bench.Press(direction > 0 ? Qt::Key_Plus : Qt::Key_Minus, Qt::ControlModifier);
            } else if (way == "buttons") {
                bench.Click(direction > 0 ? "cmdZoomIn" : "cmdZoomOut");
            } else {
                QWheelEvent turn({20, 20}, bench.box.viewport()->mapToGlobal(QPointF(20, 20)), {}, {0, direction * 120},
                                 Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
                QApplication::sendEvent(bench.box.viewport(), &turn);
            }
        };
        zoom(1);
        zoom(1);
        QCOMPARE(bench.box.font().pointSize(), first + 2);
        zoom(-1);
        QCOMPARE(bench.box.font().pointSize(), first + 1);
        auto* reset = bench.form.findChild<QPushButton*>("cmdZoomReset");
        QCOMPARE(reset->text(), QString("%1 %").arg((first + 1) * 100 / first));
        if (way == "keys")
            bench.Press(Qt::Key_0, Qt::ControlModifier);
        else
            bench.Click("cmdZoomReset");
        QCOMPARE(bench.box.font().pointSize(), first);
        QCOMPARE(reset->text(), "100 %");
        // Neither direction leads to letters that nobody can read.
        for (int step = 0; step < 100; ++step)
            zoom(-1);
        QVERIFY(bench.box.font().pointSize() >= 5);
        for (int step = 0; step < 100; ++step)
            zoom(1);
        QVERIFY(bench.box.font().pointSize() <= 60);
    }

    void PrintsTheColouredTextWhenAsked() {
        Bench bench(ManyLines(5000));
        auto* print = bench.form.findChild<QPushButton*>("cmdPrint");
        QVERIFY(!print->isVisible());
        int lines = 0;
        bench.form.OfferPrinting([&lines](QTextDocument& document) { lines = document.blockCount(); });
        QVERIFY(print->isVisible());
        bench.Click("cmdPrint");
        QCOMPARE(lines, 5001);
        QVERIFY(bench.ColourAt(4999, 4).isValid());
    }

    /// A big source is there at once, whole when it counts, and coloured wherever one looks.
    void BigSources() {
        constexpr int lineCount = 100'000;
        const std::string text = ManyLines(lineCount);
        Bench bench(text);
        QVERIFY(bench.box.blockCount() < lineCount);
        QCOMPARE(bench.form.findChild<QLabel*>("lblLines")->text(), "100.001 Zeilen");
        QTRY_COMPARE(bench.box.blockCount(), lineCount + 1);
        QCOMPARE(bench.box.toPlainText().size(), qsizetype(text.size()) - lineCount);
        QCOMPARE(bench.box.textCursor().position(), 0);
        for (const int line : {lineCount / 2, lineCount - 1}) {
            QVERIFY(!bench.ColourAt(line, 5).isValid());
            bench.box.verticalScrollBar()->setValue(line);
            bench.form.grab();
            QCOMPARE(bench.ColourAt(line, 5), QColor(102, 0, 51));
            QCOMPARE(bench.ColourAt(line, 12), QColor(204, 0, 0));
        }
    }

    void BigSourcesAreWholeForTheUser_data() {
        QTest::addColumn<QString>("what");
        for (const char* what : {"end", "all", "find", "copy"})
            QTest::newRow(what) << what;
    }

    void BigSourcesAreWholeForTheUser() {
        QFETCH(QString, what);
        constexpr int lineCount = 30'000;
        Bench bench(ManyLines(lineCount));
        const QString last = QString("private int zahl%1;").arg(lineCount - 1);
        if (what == "end") {
            bench.Press(Qt::Key_End, Qt::ControlModifier);
            QCOMPARE(bench.box.textCursor().blockNumber(), lineCount);
        } else if (what == "all") {
            bench.Click("cmdSelectAll");
            QVERIFY(bench.box.textCursor().selectedText().contains(last));
        } else if (what == "find") {
            bench.Press(Qt::Key_F, Qt::ControlModifier);
            bench.find.setText(last);
            QCOMPARE(bench.box.textCursor().blockNumber(), lineCount - 1);
        } else {
            bench.Click("cmdCopy");
            QVERIFY(QApplication::clipboard()->text().contains(last));
        }
    }

    /// Whatever a design holds, the viewer shows it: one endless line, odd line ends, no text at all.
    void OddSources_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("endless line") << QByteArray(300'000, 'x');
        QTest::newRow("lone carriage returns") << QByteArray("a\rb\r\rpublic c ").repeated(20'000);
        QTest::newRow("codes") << QByteArray("a\0b\1c\xE2\x80\xA9 d \"\xC2\x85\" ", 16);
        QTest::newRow("broken UTF-8") << QByteArray("public \xFF\xFE \"\xC3");
        QTest::newRow("without delimiters") << QByteArray("public\"//super");
    }

    void OddSources() {
        QFETCH(QByteArray, text);
        QApplication::clipboard()->clear();
        Bench bench(std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
        bench.Press(Qt::Key_End, Qt::ControlModifier);
        bench.form.grab();
        QCOMPARE(bench.box.document()->characterCount(), bench.box.Source().size() + 1);
        bench.Press(Qt::Key_A, Qt::ControlModifier);
        bench.Press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), bench.box.Source());
    }

    void EverythingSaysItsName() {
        Bench bench;
        bench.Click("cmdFind");
        for (const QWidget* part : bench.form.findChildren<QWidget*>())
            if (part->focusPolicy() != Qt::NoFocus && part->isVisible() && !part->objectName().startsWith("qt_"))
                QVERIFY2(!part->accessibleName().isEmpty(), qPrintable(part->objectName()));
    }
};

} // namespace pirol

QTEST_MAIN(pirol::frmCodeTest)
#include "frmCode_test.moc"
