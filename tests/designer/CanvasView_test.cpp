#include "designer/CanvasView.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol::test {
namespace {

CanvasView At(int percent) {
    CanvasView view;
    view.SetZoom(percent);
    return view;
}

/// Whatever the zoom: what is pressed is what is seen there, and what is painted covers what was asked for.
TEST(CanvasView, PixelsBelongTogether) {
    for (int percent = CanvasView::leastZoom; percent <= CanvasView::mostZoom; ++percent) {
        const CanvasView view = At(percent);
        for (const int design : {-7, -1, 0, 1, 2, 3, 5, 99, 640, 32767}) {
            if (percent >= CanvasView::usualZoom) {
                ASSERT_EQ(view.ToDesign(view.ToScreen(design)), design) << percent;
            }
            const Rectangle area = {design, design, 3, 2};
            const Rectangle covered = view.ToScreen(view.ToDesign(area));
            ASSERT_TRUE(covered.left <= area.left && covered.top <= area.top && covered.Right() >= area.Right() &&
                        covered.Bottom() >= area.Bottom())
                << percent << " " << design;
            // What was under the pointer stays there, as far as whole pixels can tell.
            const int scrolled = At(percent).ScrollFrom(CanvasView::usualZoom, design, 50);
            ASSERT_LE(std::abs(view.ToDesign(scrolled + 50) - (design + 50)), 100 / percent + 1) << percent;
        }
    }
    EXPECT_EQ(At(200).ToScreen(Rectangle{10, 20, 0, 5}), (Rectangle{0, 0, 0, 0}));
    EXPECT_EQ(At(200).ToScreen(Rectangle{10, 20, 5, 0}), (Rectangle{0, 0, 0, 0}));
    EXPECT_EQ(At(25).ToScreen(Rectangle{10, 20, 1, 1}), (Rectangle{3, 5, 1, 1})) << "never nothing";
    EXPECT_EQ(At(200).ToScreen(Rectangle{10, 20, 1, 1}), (Rectangle{20, 40, 2, 2}));
    EXPECT_EQ(At(24).Zoom() + At(401).Zoom() + CanvasView().Zoom(), 25 + 400 + 100);
    EXPECT_EQ(At(33).ToScreen(53), 17) << "17.49";
    EXPECT_EQ(At(25).ToScreen(2), 1) << "0.5";
    EXPECT_EQ(At(150).Factor(), 1.5);
}

TEST(CanvasView, StepsAndTypedZooms) {
    EXPECT_EQ(Deviations("zoom-steps",
                         [](const TableRow& row) {
                             const CanvasView view = At(row.Number(0));
                             return Answer(view.NextZoom(false), view.NextZoom(true));
                         }),
              "");
    EXPECT_EQ(Deviations("typed-zooms", [](const TableRow& row) { return Answer(ZoomFromText(row[0]).value_or(0)); }),
              "");
}

} // namespace
} // namespace pirol::test
