#include "Cases.h"
#include "designer/ListText.h"
#include "designer/PropertyPanel.h"
#include "project/ProjectFile.h"
#include "ui/canvas/PaintingFunctions.h"
#include "ui/parts/Bitmaps.h"

#include <QColorSpace>
#include <QPainter>
#include <QPicture>
#include <QRegion>
#include <QTest>

#include <algorithm>

namespace pirol::test {

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

QPixmap Decoded(const std::string& path, double scale) {
    return QPixmap::fromImage(DecodedPicture(path, scale));
}

/// The control on a screen with so many pixels for each of the design's in a row.
QImage Painted(const Control& control, int pixelRatio = 1) {
    QImage image = Canvas(usualSize * pixelRatio);
    image.setDevicePixelRatio(pixelRatio);
    QPainter painter(&image);
    PaintControl(painter, control, Decoded);
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

/// Says how the design differs from the picture of its program; empty when it does not.
QString DesignDifference(const QString& project, const QString& picture, int menuBarHeight,
                         const Tolerance& tolerance) {
    QImage expected(QString(PIROL_TEST_DATA "/look/%1.png").arg(picture));
    expected.convertTo(QImage::Format_RGB32);
    expected.setColorSpace({}); // what is painted has none
    const QRect content = expected.rect().adjusted(0, menuBarHeight, 0, 0);
    const ProjectModel model = LoadAsStarted(project);
    QImage painted = Canvas(expected.size());
    QPainter painter(&painted);
    painter.setRenderHint(QPainter::TextAntialiasing, tolerance.letters == Letters::Smooth);
    painter.translate(content.topLeft());
    model.ForEachVisible([&painter](const Control& control) { PaintControl(painter, control, Decoded); });
    QString differences;
    model.ForEachVisible([&](const Control& control) {
        const QRect area = BoxOf(control).translated(content.topLeft()).intersected(content);
        differences += Difference(painted, expected, area, control.ObjectName, tolerance);
    });
    return differences;
}

/// A component of a kind, at 20, 30, with the text wherever it takes one.
class Component {
  public:
    Component(ComponentKind kind, const std::string& text) : ref_(model_.PlaceComponent(kind, {20, 30, 120, 60})) {
        Set("value", text);
        Set("combovalues", text);
        Set("columns", ListText(text + "/" + text + "/" + text));
        Set("rows", "32767");
        Set("optionbuttons", RadioButtons(text, "Wahr"));
    }

    /// Two buttons, the lower one chosen or not.
    static std::string RadioButtons(const std::string& text, const std::string& chosen) {
        const std::string button = text + "/" + text + "/32767/20/0/";
        return ListText(button + "0/Falsch/" + button + "20/" + chosen);
    }

    /// Changes a property; a kind without it ignores that.
    void Set(const char* key, const std::string& value) {
        Control& control = model_.EditElement(ref_);
        if (const PropertyRow* row = FindRow(control, key))
            row->set(control, value);
    }

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

class LookTest : public QObject {
    Q_OBJECT

  private slots:
    /// The pictures are made by tests/java/run_generated.py with --write.
    void DesignsLookLikeTheirPrograms() {
        const struct {
            const char *project, *picture;
            int menuBarHeight;
        } designs[] = {
            {PIROL_TEST_DATA "/look/alle.prl", "alle", 2},     // all kinds
            {PIROL_TEST_DATA "/look/formen.prl", "formen", 2}, // sizes and long texts
            {PIROL_EXAMPLES "/Quiz.prl", "Quiz", 21},
        };
        for (const auto& row : designs)
            for (const Tolerance& tolerance : tolerances) {
                const QString differences = DesignDifference(row.project, row.picture, row.menuBarHeight, tolerance);
                QVERIFY2(differences.isEmpty(), qPrintable(differences));
            }
    }

    void PaintsInsideItsBoxAndWhatIsSeen_data() {
        QTest::addColumn<ComponentKind>("kind");
        for (const KindRow& row : KindRows())
            QTest::newRow(row.key.data()) << row.kind;
    }

    void PaintsInsideItsBoxAndWhatIsSeen() {
        QFETCH(ComponentKind, kind);
        Component component(kind, std::string(1'000'000, 'W')); // that no line and no screen holds
        const QSize sizes[] = {{120, 60}, {60, 120}, {40, 20}, {17, 17},  {5, 40},  {40, 5},          {2, 2},
                               {1, 1},    {0, 50},   {50, 0},  {-50, 50}, {50, -1}, {-32768, -32768}, {32767, 32767}};
        for (const QSize& size : sizes) {
            const Control& control = component.Sized(size);
            const QImage image = Painted(control);
            for (const QRect& area : QRegion(image.rect()) - BoxOf(control))
                QCOMPARE(image.copy(area), Canvas(area.size()));
        }
        // A letter takes some 300 bytes; not all of the text is painted for the little that is seen.
        QPicture strokes;
        {
            QPainter painter(&strokes);
            PaintControl(painter, component.Sized({120, 60}), Decoded);
        }
        QVERIFY2(strokes.size() < 2'000'000, qPrintable(QString("%1 bytes").arg(strokes.size())));
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

    /// What is painted differently when a component is on or half full: the mark, the lower mark, the left half of a
    /// bar, which lies although it is higher than wide.
    void ValuesAreSeen() {
        const struct {
            ComponentKind kind;
            QSize size;
            const char* key;
            std::string before, after;
            QRect change;
        } rows[] = {
            {ComponentKind::CheckBox, {25, 25}, "checked", "falsch", "wahr", {27, 39, 7, 7}},
            {ComponentKind::OptionGroup,
             {40, 40},
             "optionbuttons",
             Component::RadioButtons("", "Falsch"),
             Component::RadioButtons("", "Wahr"),
             {27, 57, 6, 6}},
            {ComponentKind::ProgressBar, {30, 100}, "currentvalue", "0", "50", {21, 31, 14, 98}},
        };
        for (const auto& row : rows) {
            Component component(row.kind, "");
            component.Set(row.key, row.before);
            const QImage before = Painted(component.Sized(row.size));
            component.Set(row.key, row.after);
            const QImage after = Painted(component.Sized(row.size));
            QRegion change;
            for (int y = 0; y < before.height(); ++y)
                for (int x = 0; x < before.width(); ++x)
                    if (before.pixel(x, y) != after.pixel(x, y))
                        change += QRect(x, y, 1, 1);
            QCOMPARE(change.boundingRect(), row.change);
        }
    }

    /// As it is at the time; what is no picture shows the kind's symbol.
    void PicturesShowTheirFile() {
        const ScratchFolder folder;
        dBild picture;
        const QImage symbol = Painted(picture);
        QVERIFY(symbol != Canvas());
        for (const std::string& path : {TextOf(folder / ""), TextOf(folder / "fehlt.jpg"), std::string("/dev/zero")}) {
            picture.File = path;
            QVERIFY2(Painted(picture) == symbol, path.c_str());
        }
        picture.File = TextOf(folder / "bild.jpg");
        const auto paintedFile = [&](std::string_view bytes) {
            ReplaceFileBytes(folder / "bild.jpg", bytes);
            return Painted(picture);
        };
        // In its own size, from the upper left corner of a box that is seen where it is larger.
        const auto rows = [](int count, const std::string& left, const std::string& right) {
            std::string text;
            for (int i = 0; i < 40 * count; ++i)
                text += i % 40 < 10 ? left : right;
            return "P3 40 " + std::to_string(count) + " 255" + text;
        };
        const QImage flag = paintedFile(rows(20, " 0 0 255", " 255 0 0"));
        QCOMPARE(flag.pixel(5, 10), qRgb(0, 0, 255));
        QCOMPARE(flag.pixel(38, 18), qRgb(255, 0, 0));
        QCOMPARE(flag.pixel(45, 10), Canvas().pixel(45, 10));
        QVERIFY(flag.copy(50, 119, 20, 1) != Canvas().copy(50, 119, 20, 1));
        QCOMPARE(paintedFile(rows(1, " 0 255 0", " 0 255 0")).pixel(2, 60), Canvas().pixel(2, 60));
        using namespace std::string_view_literals;
        for (const std::string_view bytes :
             {""sv, "kein Bild"sv, "BM\x46\0\0\0\0\0\0\0\x36\0\0\0"sv, "P6 100000 100000 255 x"sv})
            QVERIFY2(paintedFile(bytes) == symbol, bytes.data());
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

    /// The toolbar's pictures stand on its own background and are told apart at a glance.
    void EveryKindHasItsOwnIcon() {
        QList<QImage> seen;
        for (const KindRow& row : KindRows())
            for (const int size : {48, 32, 24, 16}) {
                const QImage image = KindIcon(row.kind).pixmap(size, size).toImage();
                QCOMPARE(image.size(), QSize(size, size));
                QVERIFY2(qAlpha(image.pixel(0, 0)) == 0, row.key.data());
                QVERIFY2(!seen.contains(image), row.key.data());
                seen.append(image);
            }
    }

    /// On a screen with small pixels lines stay lines and letters get more pixels.
    void FinerScreensShowMore() {
        dSchalter box;
        box.Width = 120;
        box.Height = 25;
        box.Caption = "Schalter";
        box.Checked = true;
        const QImage coarse = Painted(box);
        const QImage fine = Painted(box, 2);
        const QImage enlarged = coarse.scaled(fine.size());
        for (const QRect& part : {QRect(0, 0, 40, 50), QRect(40, 0, 200, 50)}) // the mark and its caption
            QVERIFY(fine.copy(part) != enlarged.copy(part));
        const QRgb outline = coarse.pixel(4, 12);
        for (const int x : {8, 9})
            QCOMPARE(fine.pixel(x, 24), outline);
        QVERIFY(fine.pixel(7, 24) != outline && fine.pixel(10, 24) != outline);
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::LookTest)
#include "look_test.moc"
