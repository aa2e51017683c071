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
    void PiecesHaveTheirSizes() {
        const std::pair<const char*, QSize> pieces[] = {
            {"BUTTON_OL BUTTON_OR BUTTON_UL BUTTON_UR", {2, 2}},
            {"BUTTON_L BUTTON_R BUTTON_O BUTTON_U", {1, 1}},
            {"SCROLL_UP SCROLL_DOWN", {15, 16}},
            {"SCROLL_LEFT SCROLL_RIGHT", {16, 15}},
            {"SCROLL_BAR_V", {15, 1}},
            {"SCROLL_BAR_H", {1, 15}},
            {"CHECKBOX_CHECKED CHECKBOX_UNCHECKED", {13, 13}},
            {"option_active option_inactive", {12, 12}},
            {"SLIDER_H_LEFT SLIDER_H_RIGHT SLIDER_H_BAR", {1, 6}},
            {"SLIDER_H", {15, 16}},
            {"SLIDER_V_TOP SLIDER_V_BOTTOM SLIDER_V_BAR", {6, 1}},
            {"SLIDER_V", {16, 15}},
            {"PROGRESS_CORNER_LT PROGRESS_CORNER_LB PROGRESS_CORNER_RT PROGRESS_CORNER_RB", {1, 1}},
            {"PROGRESS_BORDER_LEFT PROGRESS_BORDER_RIGHT", {1, 1}},
            {"PROGRESS_FILLED_TOP PROGRESS_FILLED_BOTTOM PROGRESS_UNFILLED_TOP PROGRESS_UNFILLED_BOTTOM", {1, 2}},
            {"TABLE_HEADER TABLE_SEPERATOR", {1, 20}},
            {"MENU", {20, 20}},
        };
        for (const auto& [names, size] : pieces)
            for (const QString& name : QString(names).split(' ')) {
                const QImage& image = Bitmap(name.toStdString());
                QVERIFY2(image.size() == size && Painted(image) > 0, qPrintable(name));
            }
    }

    void UnknownNamesGiveNothing() {
        for (const char* name : {"NO_SUCH_BITMAP", "", "table_seperator", "TABLE_SEPARATOR", "TABLE_SEPERATOR.bmp"})
            QVERIFY2(Bitmap(name).isNull() && CommandIcon(name).isNull(), name);
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
