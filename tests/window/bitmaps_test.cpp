#include "designer/view/Bitmaps.h"

#include <QTest>

namespace pirol {
namespace {

/// How many pixels of the picture are not background.
int Painted(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0;
    return count;
}

} // namespace

class BitmapsTest : public QObject {
    Q_OBJECT

  private slots:
    /// The components' pieces by their known names; a slice that is stretched is one pixel long.
    void PiecesHaveTheirSizes_data() {
        QTest::addColumn<QSize>("size");
        const std::pair<const char*, QSize> pieces[] = {
            {"BUTTON_OL", {2, 2}},
            {"BUTTON_OR", {2, 2}},
            {"BUTTON_UL", {2, 2}},
            {"BUTTON_UR", {2, 2}},
            {"BUTTON_L", {1, 1}},
            {"BUTTON_R", {1, 1}},
            {"BUTTON_O", {1, 1}},
            {"BUTTON_U", {1, 1}},
            {"SCROLL_UP", {15, 16}},
            {"SCROLL_DOWN", {15, 16}},
            {"SCROLL_LEFT", {16, 15}},
            {"SCROLL_RIGHT", {16, 15}},
            {"SCROLL_BAR_V", {15, 1}},
            {"SCROLL_BAR_H", {1, 15}},
            {"CHECKBOX_CHECKED", {13, 13}},
            {"CHECKBOX_UNCHECKED", {13, 13}},
            {"option_active", {12, 12}},
            {"option_inactive", {12, 12}},
            {"SLIDER_H_LEFT", {1, 6}},
            {"SLIDER_H_RIGHT", {1, 6}},
            {"SLIDER_H_BAR", {1, 6}},
            {"SLIDER_H", {15, 16}},
            {"SLIDER_V_TOP", {6, 1}},
            {"SLIDER_V_BOTTOM", {6, 1}},
            {"SLIDER_V_BAR", {6, 1}},
            {"SLIDER_V", {16, 15}},
            {"PROGRESS_CORNER_LT", {1, 1}},
            {"PROGRESS_CORNER_LB", {1, 1}},
            {"PROGRESS_CORNER_RT", {1, 1}},
            {"PROGRESS_CORNER_RB", {1, 1}},
            {"PROGRESS_BORDER_LEFT", {1, 1}},
            {"PROGRESS_BORDER_RIGHT", {1, 1}},
            {"PROGRESS_FILLED_TOP", {1, 2}},
            {"PROGRESS_FILLED_BOTTOM", {1, 2}},
            {"PROGRESS_UNFILLED_TOP", {1, 2}},
            {"PROGRESS_UNFILLED_BOTTOM", {1, 2}},
            {"TABLE_HEADER", {1, 20}},
            {"TABLE_SEPERATOR", {1, 20}},
            {"MENU", {20, 20}},
        };
        for (const auto& [name, size] : pieces)
            QTest::newRow(name) << size;
    }

    void PiecesHaveTheirSizes() {
        QFETCH(QSize, size);
        const QImage& image = Bitmap(QTest::currentDataTag());
        QCOMPARE(image.size(), size);
        QVERIFY(Painted(image) > 0);
    }

    void UnknownNamesGiveNothing_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("unknown") << "NO_SUCH_BITMAP";
        QTest::newRow("empty") << "";
        QTest::newRow("other case") << "table_seperator";
        QTest::newRow("spelled right") << "TABLE_SEPARATOR";
        QTest::newRow("with its ending") << "TABLE_SEPERATOR.bmp";
    }

    void UnknownNamesGiveNothing() {
        QFETCH(QString, name);
        QVERIFY(Bitmap(name.toStdString()).isNull());
        QVERIFY(CommandIcon(name.toStdString()).isNull());
    }

    /// The toolbar's pictures stand on its own background and are told apart at a glance.
    void EveryKindHasItsOwnIcon() {
        QList<QImage> seen;
        for (const KindRow& row : KindRows()) {
            const QIcon icon = KindIcon(row.kind);
            for (const int size : {16, 24, 32, 48}) {
                const QImage image = icon.pixmap(size, size).toImage();
                QCOMPARE(image.size(), QSize(size, size));
                QVERIFY2(Painted(image) < size * size, row.key.data());
            }
            const QImage small = icon.pixmap(16, 16).toImage();
            QVERIFY2(!seen.contains(small), row.key.data());
            seen.append(small);
        }
    }
};

} // namespace pirol

QTEST_MAIN(pirol::BitmapsTest)
#include "bitmaps_test.moc"
