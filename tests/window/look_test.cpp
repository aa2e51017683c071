#include "designer/view/PaintingFunctions.h"
#include "project/ProjectFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QPainter>
#include <QRegion>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

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

QImage Canvas(const QSize& size) {
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

QImage Painted(const Control& control, const QSize& size) {
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

int DifferentPixels(const QImage& image, const QImage& other, const QRect& area) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            count += image.pixel(x, y) != other.pixel(x, y);
    return count;
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
        return QStringLiteral("%1 reaches from %2, %3 to %4, %5 instead of %6, %7 to %8, %9\n")
            .arg(name)
            .arg(box.left())
            .arg(box.top())
            .arg(box.right())
            .arg(box.bottom())
            .arg(expectedBox.left())
            .arg(expectedBox.top())
            .arg(expectedBox.right())
            .arg(expectedBox.bottom());
    const double difference = MeanDifference(painted, expected, area);
    if (difference > tolerance.difference)
        return QStringLiteral("%1 differs by %2\n").arg(name).arg(difference);
    return {};
}

/// Leaves both pictures beside each other for the reader of a failure.
QString SaveBeside(const QImage& painted, const QImage& expected, const QString& name) {
    QImage both = Canvas({painted.width() + expected.width(), painted.height()});
    QPainter painter(&both);
    painter.drawImage(0, 0, painted);
    painter.drawImage(painted.width(), 0, expected);
    QString file = QDir::current().absoluteFilePath(QStringLiteral("look_%1.png").arg(name));
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

struct KindCase {
    const char* name;
    std::function<std::unique_ptr<Control>(const std::string& text)> make;
};

template <class Kind>
std::unique_ptr<Control> Sized(Kind control) {
    control.Left = 20;
    control.Top = 30;
    control.Width = 120;
    control.Height = 60;
    return std::make_unique<Kind>(std::move(control));
}

/// Every kind, with the text wherever it takes one.
std::vector<KindCase> KindCases() {
    const auto withCaption = []<class Kind>(Kind control) {
        return [control](const std::string& text) {
            Kind copy = control;
            copy.Caption = text;
            return Sized(copy);
        };
    };
    return {
        {"label", withCaption(dEtikett())},
        {"button", withCaption(dButton())},
        {"textfield", withCaption(dText())},
        {"charfield", withCaption(dZeichenbereich())},
        {"rowfield", withCaption(dZeilenbereich())},
        {"password", withCaption(dPassword())},
        {"checkbox", withCaption(dSchalter())},
        {"optiongroup",
         [](const std::string& text) {
             dOptionsgruppe group;
             group.OptionButtons.assign(3, {});
             for (cRadioButton& row : group.OptionButtons)
                 row = {text, text, 32767, 20, -50, static_cast<std::int16_t>(&row - group.OptionButtons.data()), true};
             return Sized(group);
         }},
        {"combobox",
         [](const std::string& text) {
             dAuswahl box;
             box.Entries = {text};
             return Sized(box);
         }},
        {"slider", [](const std::string&) { return Sized(dRegler()); }},
        {"progressbar", [](const std::string&) { return Sized(dFortschritt()); }},
        {"table",
         [](const std::string& text) {
             dTabelle table;
             table.Rows = 32767;
             table.Columns.assign(20, text);
             return Sized(table);
         }},
        {"picture", [](const std::string&) { return Sized(dBild()); }},
        {"sound", [](const std::string&) { return Sized(dMusik()); }},
        {"movie", [](const std::string&) { return Sized(dVideo()); }},
    };
}

} // namespace

class LookTest : public QObject {
    Q_OBJECT

    void AddKinds() {
        QTest::addColumn<int>("kind");
        for (std::size_t kind = 0; kind < cases_.size(); ++kind)
            QTest::newRow(cases_[kind].name) << static_cast<int>(kind);
    }

    const std::vector<KindCase> cases_ = KindCases();

  private slots:
    /// The pictures are made by tests/java/run_generated.py with --picture.
    void DesignsLookLikeTheirPrograms_data() {
        QTest::addColumn<QString>("project");
        QTest::addColumn<QString>("picture");
        QTest::addColumn<int>("menuBarHeight");
        QTest::newRow("all kinds") << PIROL_TEST_DATA "/look/alle.prl"
                                   << "alle" << 2;
        QTest::newRow("sizes and long texts") << PIROL_TEST_DATA "/look/formen.prl"
                                              << "formen" << 2;
        QTest::newRow("an example") << PIROL_EXAMPLES "/Quiz.prl"
                                    << "Quiz" << 21;
    }

    void DesignsLookLikeTheirPrograms() {
        QFETCH(QString, project);
        QFETCH(QString, picture);
        QFETCH(int, menuBarHeight);
        const QImage expected =
            QImage(QStringLiteral(PIROL_TEST_DATA "/look/%1.png").arg(picture)).convertToFormat(QImage::Format_RGB32);
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
                if (DifferentPixels(painted, expected, area) > 0)
                    differences += QStringLiteral("something is painted outside the components\n");
            if (!differences.isEmpty())
                differences += SaveBeside(painted, expected, picture);
            QVERIFY2(differences.isEmpty(), qPrintable(differences));
        }
    }

    void NothingIsPaintedOutside_data() { AddKinds(); }

    void NothingIsPaintedOutside() {
        QFETCH(int, kind);
        const KindCase& kindCase = cases_[static_cast<std::size_t>(kind)];
        const std::unique_ptr<Control> control = kindCase.make(std::string(500, 'W'));
        const QSize sizes[] = {{120, 60}, {60, 120}, {40, 20}, {17, 17}, {5, 40}, {40, 5}, {2, 2}, {1, 1}};
        for (const QSize& size : sizes) {
            control->Width = static_cast<std::int16_t>(size.width());
            control->Height = static_cast<std::int16_t>(size.height());
            const QImage image = Painted(*control, {200, 200});
            QRegion outside(image.rect());
            outside -= BoxOf(*control);
            for (const QRect& area : outside)
                QCOMPARE(DifferentPixels(image, Canvas(image.size()), area), 0);
        }
    }

    void ImpossibleSizesPaintNothing_data() { AddKinds(); }

    void ImpossibleSizesPaintNothing() {
        QFETCH(int, kind);
        const std::unique_ptr<Control> control = cases_[static_cast<std::size_t>(kind)].make("Text");
        for (const auto& [width, height] :
             {std::pair<std::int16_t, std::int16_t>(0, 50), {50, 0}, {-50, 50}, {50, -1}, {-32768, -32768}}) {
            control->Width = width;
            control->Height = height;
            QCOMPARE(Painted(*control, {200, 200}), Canvas({200, 200}));
        }
    }

    /// The largest box there is, and text that no line and no screen holds.
    void LongTextCostsWhatIsSeenOfIt_data() { AddKinds(); }

    void LongTextCostsWhatIsSeenOfIt() {
        QFETCH(int, kind);
        const KindCase& kindCase = cases_[static_cast<std::size_t>(kind)];
        const auto time = [](const Control& control) {
            qint64 shortest = std::numeric_limits<qint64>::max();
            for (int repetition = 0; repetition < 5; ++repetition) {
                QElapsedTimer timer;
                timer.start();
                Painted(control, {200, 200});
                shortest = std::min(shortest, timer.nsecsElapsed());
            }
            return shortest;
        };
        const qint64 usual = time(*kindCase.make(std::string(500, 'x')));
        const qint64 endless = time(*kindCase.make(std::string(1'000'000, 'x')));
        QVERIFY2(endless < 10 * usual + 1'000'000, qPrintable(QStringLiteral("%1 ns, %2 ns").arg(usual).arg(endless)));

        const std::unique_ptr<Control> largest = kindCase.make(std::string(100'000, 'x'));
        largest->Width = largest->Height = 32767;
        Painted(*largest, {200, 200});
    }

    void TextOutsideTheFontIsPaintedToo() {
        for (const char* caption : {"漢字", "Ω", "🐦", "\xff\xfe", "a\tb", "\xf0\x9f"}) {
            dEtikett label;
            label.Width = 100;
            label.Height = 30;
            label.Caption = caption;
            QVERIFY2(Painted(label, {200, 200}) != Canvas({200, 200}), caption);
        }
    }

    void FontSizesChangeTheLettersHeight() {
        dEtikett label;
        label.Width = 200;
        label.Height = 100;
        label.Caption = "Höhe";
        int last = 0;
        for (const int size : {6, 9, 12, 24, 48}) {
            label.FontSize = static_cast<std::int16_t>(size);
            const int height = PaintedBox(Painted(label, {200, 100}), {0, 0, 200, 100}).height();
            QVERIFY2(height > last, qPrintable(QString::number(size)));
            last = height;
        }
        for (const int size : {0, -1, -32768}) {
            label.FontSize = static_cast<std::int16_t>(size);
            QCOMPARE(Painted(label, {200, 100}), Canvas({200, 100}));
        }
        label.FontSize = 32767;
        Painted(label, {200, 100});
    }

    void AlignmentMovesTheText_data() {
        QTest::addColumn<int>("kind");
        QTest::newRow("label") << 0;
        QTest::newRow("text field") << 1;
        QTest::newRow("password") << 2;
    }

    void AlignmentMovesTheText() {
        QFETCH(int, kind);
        static constexpr QRect inside(5, 3, 190, 20);
        const auto leftOf = [kind](std::int16_t align) {
            dEtikett label;
            dText field;
            dPassword password;
            label.Align = field.Align = password.Align = align;
            label.Caption = field.Caption = password.Caption = "Text";
            Control* const controls[] = {&label, &field, &password};
            Control& control = *controls[kind];
            control.Width = 200;
            control.Height = 25;
            return PaintedBox(Painted(control, {200, 25}), inside).left();
        };
        QVERIFY(leftOf(0) < 15);
        QVERIFY(leftOf(1) > 60 && leftOf(1) < 100);
        QVERIFY(leftOf(2) > 150);
        QCOMPARE(leftOf(7), leftOf(0));
        QCOMPARE(leftOf(-1), leftOf(0));
    }

    void MarksShowTheirState() {
        dSchalter box;
        box.Width = box.Height = 25;
        const QImage off = Painted(box, {25, 25});
        box.Checked = true;
        const QImage on = Painted(box, {25, 25});
        QVERIFY(qGray(off.pixel(8, 14)) > 160);
        QVERIFY(qGray(on.pixel(8, 14)) < 100);

        dOptionsgruppe group;
        group.Width = group.Height = 40;
        group.OptionButtons.resize(2);
        group.OptionButtons[1].Top = 20;
        group.OptionButtons[1].Selected = true;
        const QImage buttons = Painted(group, {40, 40});
        QVERIFY(qGray(buttons.pixel(10, 10)) > 160);
        QVERIFY(qGray(buttons.pixel(10, 30)) < 100);
    }

    void ProgressIsFilledFromTheLeft() {
        dFortschritt bar;
        bar.Width = 30;
        bar.Height = 100; // it lies although it is higher than wide
        bar.Value = 50;
        const QImage image = Painted(bar, {30, 100});
        for (const int y : {3, 50, 97}) {
            QVERIFY(image.pixel(13, y) != background);
            QCOMPARE(image.pixel(16, y), background);
        }
    }

    void PicturesShowTheirFile() {
        const QTemporaryDir folder;
        const QString file = folder.filePath("bild.bmp");
        QImage flag(4, 2, QImage::Format_RGB32);
        flag.fill(Qt::red);
        flag.setPixel(0, 0, qRgb(0, 0, 255));
        flag.setPixel(0, 1, qRgb(0, 0, 255));
        QVERIFY(flag.save(file));

        dBild picture;
        picture.File = file.toStdString();
        const QImage image = Painted(picture, {160, 120});
        QCOMPARE(image.pixel(2, 60), qRgb(0, 0, 255));
        QCOMPARE(image.pixel(157, 2), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(157, 117), qRgb(255, 0, 0));

        QImage changed(3, 3, QImage::Format_RGB32);
        changed.fill(Qt::green);
        QVERIFY(changed.save(file));
        QCOMPARE(Painted(picture, {160, 120}).pixel(2, 60), qRgb(0, 255, 0));
    }

    void FilesThatAreNoPictureShowTheSymbol_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("kein Bild");
        QTest::newRow("cut off") << QByteArray("BM\x46\0\0\0\0\0\0\0\x36\0\0\0", 14);
        QTest::newRow("huge") << QByteArray("P6 100000 100000 255 x");
    }

    void FilesThatAreNoPictureShowTheSymbol() {
        QFETCH(QByteArray, content);
        const QImage symbol = Painted(dBild(), {160, 120});
        QVERIFY(symbol != Canvas(symbol.size()));
        const QTemporaryDir folder;
        QFile file(folder.filePath("bild.jpg"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        dBild picture;
        for (const QString& path :
             {file.fileName(), folder.path(), folder.filePath("fehlt.jpg"), QString("/dev/zero")}) {
            picture.File = path.toStdString();
            QCOMPARE(Painted(picture, {160, 120}), symbol);
        }
    }

    void SelectionStaysInsideAndIsSeenOnAnyComponent() {
        for (const QRgb ground : {background, qRgb(0, 0, 0)}) {
            QImage image(60, 40, QImage::Format_RGB32);
            image.fill(ground);
            {
                QPainter painter(&image);
                PaintSelectionBorder(painter, {10, 10, 40, 20});
                PaintResizeHandle(painter, {33, 13, 17, 17});
            }
            int changed = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (image.pixel(x, y) != ground) {
                        QVERIFY(QRect(10, 10, 40, 20).contains(x, y));
                        ++changed;
                    }
            QVERIFY(changed > 100);
        }
    }

    /// On a screen with small pixels lines stay lines and letters get more pixels.
    void FinerScreensShowMore() {
        dSchalter box;
        box.Width = 120;
        box.Height = 25;
        box.Caption = "Schalter";
        QImage coarse = Painted(box, {120, 25});
        QImage fine(240, 50, QImage::Format_RGB32);
        fine.setDevicePixelRatio(2);
        fine.fill(background);
        {
            QPainter painter(&fine);
            PaintControl(painter, box);
        }
        QVERIFY(fine != coarse.scaled(240, 50));
        const QRgb outline = coarse.pixel(4, 12);
        for (const int x : {8, 9})
            QCOMPARE(fine.pixel(x, 24), outline);
        QVERIFY(fine.pixel(7, 24) != outline && fine.pixel(10, 24) != outline);
    }
};

} // namespace pirol

QTEST_MAIN(pirol::LookTest)
#include "look_test.moc"
