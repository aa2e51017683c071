#include "designer/ListText.h"
#include "designer/PropertyPanel.h"
#include "designer/view/PaintingFunctions.h"
#include "project/ProjectFile.h"
#include "window/Rows.h"

#include <QColorSpace>
#include <QDir>
#include <QElapsedTimer>
#include <QPainter>
#include <QRegion>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace pirol {
namespace {

constexpr QRgb background = qRgb(255, 255, 255);

enum class Letters { Hard, Smooth };

/// The pictures show programs whose letters are not smooth. With hard letters the same pixels are expected, but for
/// another version of the font. Smooth letters are lighter and softer; they must fill the same rows.
struct Tolerance {
    Letters letters;
    double difference; ///< in brightness, mean over a component's pixels; 1 is between black and white
    int boxDifference; ///< of what is painted of a component, sideways
};
constexpr Tolerance tolerances[] = {{Letters::Hard, 0.002, 0}, {Letters::Smooth, 0.08, 1}};

constexpr QSize usualSize(200, 200);

QImage Canvas(const QSize& size = usualSize) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(background);
    return image;
}

void PaintModel(QImage& image, const ProjectModel& model, int menuBarHeight, Letters letters) {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing, letters == Letters::Smooth);
    painter.translate(0, menuBarHeight);
    model.ForEachVisible([&painter](const Control& control) { PaintControl(painter, control); });
}

QImage Painted(const Control& control, const QSize& size = usualSize) {
    QImage image = Canvas(size);
    QPainter painter(&image);
    PaintControl(painter, control);
    return image;
}

QRect BoxOf(const Control& control) {
    return {control.Left, control.Top, control.Width, control.Height};
}

/// The smallest rectangle around what is painted in the area, but for faces and the faintest edges of smooth letters.
QRect PaintedBox(const QImage& image, const QRect& area) {
    constexpr int dark = 190;
    QRegion painted;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (qGray(image.pixel(x, y)) < dark)
                painted += QRect(x, y, 1, 1);
    return painted.boundingRect();
}

double MeanDifference(const QImage& image, const QImage& other, const QRect& area) {
    int sum = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            sum += std::abs(qGray(image.pixel(x, y)) - qGray(other.pixel(x, y)));
    return sum / (255.0 * area.width() * area.height());
}

/// Says how the painting differs from the picture inside a component's box; empty when it does not.
QString Difference(const QImage& painted, const QImage& expected, const QRect& area, const std::string& component,
                   const Tolerance& tolerance) {
    const QRect box = PaintedBox(painted, area);
    const QRect expectedBox = PaintedBox(expected, area);
    const QString name = QString::fromStdString(component);
    if (box.top() != expectedBox.top() || box.bottom() != expectedBox.bottom() ||
        std::abs(box.left() - expectedBox.left()) > tolerance.boxDifference ||
        std::abs(box.right() - expectedBox.right()) > tolerance.boxDifference)
        return QString("%1 reaches from %2 instead of %3\n")
            .arg(name, QDebug::toString(box), QDebug::toString(expectedBox));
    const double difference = MeanDifference(painted, expected, area);
    return difference > tolerance.difference ? QString("%1 differs by %2\n").arg(name).arg(difference) : QString();
}

/// Leaves both pictures beside each other for the reader of a failure.
QString SaveBeside(const QImage& painted, const QImage& expected, const QString& name) {
    QImage both = Canvas({painted.width() + expected.width(), painted.height()});
    QPainter painter(&both);
    painter.drawImage(0, 0, painted);
    painter.drawImage(painted.width(), 0, expected);
    QString file = QDir::current().absoluteFilePath(QString("look_%1.png").arg(name));
    both.save(file);
    return file;
}

/// The design as its program shows it at first, when no radio button is chosen yet.
ProjectModel LoadAsStarted(const QString& file) {
    ProjectModel model;
    if (ReadPRLFile(file.toStdString(), model) != ReadResult::Loaded)
        qFatal("damaged test data");
    for (std::size_t index = 1; index < model.ElementCount(ComponentKind::OptionGroup); ++index)
        for (cRadioButton& row :
             static_cast<dOptionsgruppe&>(model.EditElement({ComponentKind::OptionGroup, index})).OptionButtons)
            row.Selected = false;
    return model;
}

/// A component of a kind, at 20, 30, with the text wherever it takes one.
class Component {
  public:
    Component(ComponentKind kind, const std::string& text) : ref_(model_.PlaceComponent(kind, {20, 30, 120, 60})) {
        const std::string radioRow = text + "/" + text + "/32767/20/-50/0/Wahr";
        Set("value", text);
        Set("combovalues", text);
        Set("columns", ListText(text + "/" + text + "/" + text));
        Set("rows", "32767");
        Set("optionbuttons", ListText(radioRow + "/" + radioRow));
    }

    /// Changes a property; a kind without it ignores that.
    void Set(const char* key, const std::string& value) { PropertyChanged(model_, ref_, key, value); }

    Control& Sized(const QSize& size) {
        Control& control = model_.EditElement(ref_);
        control.Width = static_cast<std::int16_t>(size.width());
        control.Height = static_cast<std::int16_t>(size.height());
        return control;
    }

  private:
    ProjectModel model_;
    ComponentRef ref_;
};

constexpr struct {
    const char* name;
    const char* project;
    const char* picture;
    int menuBarHeight;
} designs[] = {
    {"all kinds", PIROL_TEST_DATA "/look/alle.prl", "alle", 2},
    {"sizes and long texts", PIROL_TEST_DATA "/look/formen.prl", "formen", 2},
    {"an example", PIROL_EXAMPLES "/Quiz.prl", "Quiz", 21},
};

} // namespace

class LookTest : public QObject {
    Q_OBJECT

    static void AddKinds() {
        QTest::addColumn<ComponentKind>("kind");
        for (const KindRow& row : KindRows())
            QTest::newRow(row.key.data()) << row.kind;
    }

  private slots:
    /// The pictures are made by tests/java/run_generated.py with --write.
    void DesignsLookLikeTheirPrograms_data() { test::AddRows(designs); }

    void DesignsLookLikeTheirPrograms() {
        const auto& [name, project, picture, menuBarHeight] = test::CurrentRow(designs);
        QImage expected(QString(PIROL_TEST_DATA "/look/%1.png").arg(picture));
        expected.convertTo(QImage::Format_RGB32);
        expected.setColorSpace({}); // what is painted has none
        const QRect content = expected.rect().adjusted(0, menuBarHeight, 0, 0);
        const ProjectModel model = LoadAsStarted(project);
        for (const Tolerance& tolerance : tolerances) {
            QImage painted = Canvas(expected.size());
            PaintModel(painted, model, menuBarHeight, tolerance.letters);
            QString differences;
            QRegion outside(content);
            model.ForEachVisible([&](const Control& control) {
                const QRect area = BoxOf(control).translated(content.topLeft()).intersected(content);
                differences += Difference(painted, expected, area, control.ObjectName, tolerance);
                outside -= area;
            });
            for (const QRect& area : outside)
                if (painted.copy(area) != expected.copy(area))
                    differences += QString("something is painted outside the components\n");
            if (!differences.isEmpty())
                differences += SaveBeside(painted, expected, picture);
            QVERIFY2(differences.isEmpty(), qPrintable(differences));
        }
    }

    void NothingIsPaintedOutside_data() { AddKinds(); }

    void NothingIsPaintedOutside() {
        QFETCH(ComponentKind, kind);
        Component component(kind, std::string(500, 'W'));
        const QSize sizes[] = {{120, 60}, {60, 120}, {40, 20}, {17, 17},  {5, 40},  {40, 5},         {2, 2},
                               {1, 1},    {0, 50},   {50, 0},  {-50, 50}, {50, -1}, {-32768, -32768}};
        for (const QSize& size : sizes) {
            const Control& control = component.Sized(size);
            const QImage image = Painted(control);
            for (const QRect& area : QRegion(image.rect()) - BoxOf(control))
                QCOMPARE(image.copy(area), Canvas(area.size()));
        }
    }

    /// The largest box there is, and text that no line and no screen holds.
    void LongTextCostsWhatIsSeenOfIt_data() { AddKinds(); }

    void LongTextCostsWhatIsSeenOfIt() {
        QFETCH(ComponentKind, kind);
        const auto time = [kind](std::size_t length) {
            Component component(kind, std::string(length, 'x'));
            qint64 shortest = std::numeric_limits<qint64>::max();
            for (int repetition = 0; repetition < 5; ++repetition) {
                QElapsedTimer timer;
                timer.start();
                Painted(component.Sized({120, 60}));
                shortest = std::min(shortest, timer.nsecsElapsed());
            }
            Painted(component.Sized({32767, 32767}));
            return shortest;
        };
        const qint64 usual = time(500);
        const qint64 endless = time(1'000'000);
        QVERIFY2(endless < 10 * usual + 1'000'000, qPrintable(QString("%1 ns, %2 ns").arg(usual).arg(endless)));
    }

    void OddLettersAndFontSizes() {
        dEtikett label;
        label.Width = 100;
        label.Height = 30;
        for (const char* caption : {"漢字", "Ω", "🐦", "\xff\xfe", "a\tb", "\xf0\x9f"}) {
            label.Caption = caption;
            QVERIFY2(Painted(label) != Canvas(), caption);
        }
        for (const int size : {0, -1, -32768}) {
            label.FontSize = static_cast<std::int16_t>(size);
            QCOMPARE(Painted(label), Canvas());
        }
        label.FontSize = 32767;
        Painted(label);
    }

    void AlignmentMovesTheTextOfFields() {
        for (const ComponentKind kind : {ComponentKind::TextField, ComponentKind::Password}) {
            Component field(kind, "Text");
            const auto leftOf = [&field](int align) {
                field.Set("align", std::to_string(align));
                return PaintedBox(Painted(field.Sized({170, 25})), {25, 33, 160, 20}).left() - 20;
            };
            QVERIFY(leftOf(0) < 15);
            QVERIFY(leftOf(1) > 50 && leftOf(1) < 90);
            QVERIFY(leftOf(2) > 120);
            QCOMPARE(leftOf(7), leftOf(0));
            QCOMPARE(leftOf(-1), leftOf(0));
        }
    }

    void MarksShowTheirState() {
        dSchalter box;
        box.Width = box.Height = 25;
        const QImage off = Painted(box);
        box.Checked = true;
        const QImage on = Painted(box);
        QVERIFY(qGray(off.pixel(8, 14)) > 160);
        QVERIFY(qGray(on.pixel(8, 14)) < 100);

        dOptionsgruppe group;
        group.Width = group.Height = 40;
        group.OptionButtons.resize(2);
        group.OptionButtons[1].Top = 20;
        group.OptionButtons[1].Selected = true;
        const QImage buttons = Painted(group);
        QVERIFY(qGray(buttons.pixel(10, 10)) > 160);
        QVERIFY(qGray(buttons.pixel(10, 30)) < 100);
    }

    void ProgressIsFilledFromTheLeft() {
        dFortschritt bar;
        bar.Width = 30;
        bar.Height = 100; // it lies although it is higher than wide
        bar.Value = 50;
        const QImage image = Painted(bar);
        bar.Value = 0;
        const QImage empty = Painted(bar);
        for (const int y : {1, 3, 50, 97})
            QVERIFY(image.pixel(13, y) != empty.pixel(13, y));
        QCOMPARE(image.copy(15, 0, 15, 100), empty.copy(15, 0, 15, 100));
    }

    void PicturesShowTheirFile() {
        const QTemporaryDir folder;
        const QString file = folder.filePath("bild.bmp");
        QImage flag(4, 2, QImage::Format_RGB32);
        flag.fill(Qt::red);
        flag.setPixelColor(0, 0, Qt::blue);
        flag.setPixelColor(0, 1, Qt::blue);
        QVERIFY(flag.save(file));

        dBild picture;
        picture.File = file.toStdString();
        const QImage image = Painted(picture);
        QCOMPARE(image.pixel(2, 60), qRgb(0, 0, 255));
        QCOMPARE(image.pixel(157, 2), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(157, 117), qRgb(255, 0, 0));

        QImage changed(3, 3, QImage::Format_RGB32);
        changed.fill(Qt::green);
        QVERIFY(changed.save(file));
        QCOMPARE(Painted(picture).pixel(2, 60), qRgb(0, 255, 0));
    }

    void FilesThatAreNoPictureShowTheSymbol() {
        const QImage symbol = Painted(dBild());
        QVERIFY(symbol != Canvas(symbol.size()));
        const QTemporaryDir folder;
        const QByteArray contents[] = {"", "kein Bild", QByteArray("BM\x46\0\0\0\0\0\0\0\x36\0\0\0", 14),
                                       "P6 100000 100000 255 x"};
        QStringList paths = {folder.path(), folder.filePath("fehlt.jpg"), "/dev/zero"};
        for (const QByteArray& content : contents) {
            paths << folder.filePath(QString("%1.jpg").arg(paths.size()));
            QFile file(paths.last());
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        }
        for (const QString& path : paths) {
            dBild picture;
            picture.File = path.toStdString();
            QVERIFY2(Painted(picture) == symbol, qPrintable(path));
        }
    }

    void SelectionStaysInsideAndIsSeenOnAnyComponent() {
        for (const QColor ground : {Qt::white, Qt::black}) {
            QImage before(60, 40, QImage::Format_RGB32);
            before.fill(ground);
            QImage image = before;
            QPainter painter(&image);
            PaintSelectionBorder(painter, {10, 10, 40, 20});
            PaintResizeHandle(painter, {33, 13, 17, 17});
            QVERIFY(MeanDifference(image, before, {10, 10, 40, 20}) > 0.1);
            painter.fillRect(10, 10, 40, 20, ground);
            QVERIFY(image == before);
        }
    }

    /// On a screen with small pixels lines stay lines and letters get more pixels.
    void FinerScreensShowMore() {
        dSchalter box;
        box.Width = 120;
        box.Height = 25;
        box.Caption = "Schalter";
        box.Checked = true;
        QImage coarse = Painted(box, {120, 25});
        QImage fine(240, 50, QImage::Format_RGB32);
        fine.setDevicePixelRatio(2);
        fine.fill(background);
        {
            QPainter painter(&fine);
            PaintControl(painter, box);
        }
        const QImage enlarged = coarse.scaled(240, 50);
        for (const QRect& part : {QRect(0, 0, 40, 50), QRect(40, 0, 200, 50)}) // the mark and its caption
            QVERIFY(fine.copy(part) != enlarged.copy(part));
        const QRgb outline = coarse.pixel(4, 12);
        for (const int x : {8, 9})
            QCOMPARE(fine.pixel(x, 24), outline);
        QVERIFY(fine.pixel(7, 24) != outline && fine.pixel(10, 24) != outline);
    }
};

} // namespace pirol

QTEST_MAIN(pirol::LookTest)
#include "look_test.moc"
