#include "designer/DesignCanvas.h"
#include "model/RuntimeError.h"

#include <gtest/gtest.h>

#include <tuple>

namespace pirol {
namespace {

constexpr int left = 40;
constexpr int top = 60;

class DesignCanvasTest : public ::testing::Test {
  protected:
    void Drag(int fromX, int fromY, int toX, int toY) {
        canvas.Press(fromX, fromY, MouseButton::Left);
        canvas.Move(toX, toY);
        canvas.Release();
    }

    ComponentRef Add(ComponentKind kind, const Rectangle& box = {left, top, 100, 50}) {
        return model.PlaceComponent(kind, box);
    }

    Rectangle BoxOf(ComponentRef component) const { return model.VisibleBox(component); }

    ProjectModel model;
    int loads = 0;
    DesignCanvas canvas{model, [this] { ++loads; }};
};

using enum ComponentKind;

TEST_F(DesignCanvasTest, PlacesTheKindOfTheNumberOnTheGrid) {
    // The two text areas are crossed.
    const ComponentKind kinds[] = {Label,    Button, TextField,   RowField, CharField, Password, CheckBox, OptionGroup,
                                   ComboBox, Slider, ProgressBar, Table,    Picture,   Sound,    Movie};
    int number = 0;
    for (const ComponentKind kind : kinds) {
        canvas.ChooseKind(++number);
        Drag(number * 200 + 3, 11, number * 200 + 102, 59);
        const ComponentRef expected{kind, 1};
        ASSERT_EQ(canvas.Selected(), expected) << number;
        EXPECT_EQ(BoxOf(expected).left, number * 200);
        EXPECT_EQ(BoxOf(expected).top, 10);
    }
    EXPECT_EQ(BoxOf({Movie, 1}).width, 160);
    EXPECT_EQ(BoxOf({Label, 1}).width, 100);
    for (const int noKind : {0, 16, -1}) {
        canvas.ChooseKind(noKind);
        Drag(10, 300, 110, 400);
        EXPECT_EQ(canvas.Frame().width, 1);
    }
    EXPECT_EQ(model.CreationOrder().size(), kindCount);
}

TEST_F(DesignCanvasTest, FrameFollowsThePointerInEveryDirection) {
    const std::tuple<int, int, Rectangle, const char*> cases[] = {
        {150, 130, {100, 100, 50, 30}, "B = 50 / H = 30"}, {150, 70, {100, 70, 50, 30}, "B = 50 / H = 30"},
        {50, 130, {50, 100, 50, 30}, "B = 50 / H = 30"},   {40, 30, {40, 30, 60, 70}, "B = 60 / H = 70"},
        {100, 130, {90, 100, 10, 10}, "B = 10 / H = 10"}, // in the start's column the frame stays as it was
        {150, 100, {90, 100, 10, 10}, "B = 10 / H = 10"},
    };
    for (const auto& [toX, toY, frame, status] : cases) {
        canvas.Press(100, 100, MouseButton::Left);
        EXPECT_EQ(canvas.Frame(), (Rectangle{100, 100, 1, 1}));
        EXPECT_FALSE(canvas.IsFrameVisible());
        canvas.Move(90, 120);
        canvas.Move(90, 110);
        EXPECT_EQ(canvas.StatusText(), "B = 10 / H = 10");
        canvas.Move(toX, toY);
        EXPECT_EQ(canvas.Frame(), frame);
        EXPECT_EQ(canvas.StatusText(), status);
        EXPECT_TRUE(canvas.IsFrameVisible() && canvas.IsDrawing());
        canvas.Escape();
        EXPECT_FALSE(canvas.IsFrameVisible() || canvas.IsDrawing());
        canvas.Release();
    }
    EXPECT_TRUE(model.CreationOrder().empty());
}

TEST_F(DesignCanvasTest, OnlyFramesLargerThan25BothWaysPlaceSomething) {
    const std::tuple<int, int, bool, std::optional<Rectangle>> cases[] = {
        {26, 26, true, Rectangle{100, 100, 30, 30}},
        {26, 26, false, Rectangle{103, 104, 26, 26}},
        {25, 100, true, {}},
        {100, 25, true, {}},
        {0, 0, true, {}},
    };
    for (const auto& [width, height, snap, placed] : cases) {
        canvas.SetSnapsToGrid(snap);
        canvas.Select(Add(Slider, {500, 500, 30, 30}));
        Drag(103, 104, 103 + width, 104 + height);
        const std::optional<ComponentRef> selected = canvas.Selected();
        ASSERT_EQ(selected.has_value(), placed.has_value()) << "the click on the empty canvas deselects";
        if (placed) {
            EXPECT_EQ(BoxOf(*selected), *placed);
            canvas.DeleteSelected();
        }
        EXPECT_EQ(model.ElementCount(Label), 1U) << width << ", " << height;
        EXPECT_EQ(canvas.StatusText(), "");
    }
}

TEST_F(DesignCanvasTest, OtherButtonsNeitherDrawNorMoveButReleaseEndsAnything) {
    const ComponentRef button = Add(Button, {43, 67, 100, 50});
    canvas.Press(300, 300, MouseButton::Other);
    canvas.Move(400, 400);
    EXPECT_EQ(canvas.StatusText(), "400 / 400");
    canvas.Release();
    EXPECT_EQ(model.CreationOrder().size(), 1U);

    canvas.Press(50, 80, MouseButton::Other);
    EXPECT_EQ(canvas.Selected(), button);
    canvas.Move(90, 90);
    EXPECT_EQ(BoxOf(button), (Rectangle{43, 67, 100, 50}));
    canvas.Release();
    EXPECT_EQ(BoxOf(button), (Rectangle{40, 70, 100, 50})) << "any release snaps";
}

TEST_F(DesignCanvasTest, MovesWithoutSnappingUntilReleasedAndWithoutLimits) {
    const ComponentRef button = Add(Button);
    canvas.Press(left + 5, top + 5, MouseButton::Left);
    EXPECT_EQ(canvas.Selected(), button);
    EXPECT_TRUE(canvas.IsMoving());
    const std::pair<int, int> path[] = {{1, 0}, {3, -2}, {3, 4}, {-100, -200}, {-47, 133}};
    for (const auto& [dx, dy] : path) {
        canvas.Move(left + 5 + dx, top + 5 + dy);
        EXPECT_EQ(BoxOf(button), (Rectangle{left + dx, top + dy, 100, 50}));
    }
    canvas.Release();
    EXPECT_EQ(BoxOf(button), (Rectangle{0, 190, 100, 50})) << "-7 and 193";
    EXPECT_FALSE(canvas.IsMoving());
    canvas.Move(300, 300);
    EXPECT_EQ(BoxOf(button).left, 0);
}

TEST_F(DesignCanvasTest, ConvertsTwipsOfAComponentToPixels) {
    const ComponentRef button = Add(Button);
    canvas.MouseDown(MouseButton::Left, 30, 45);
    canvas.MouseDown(MouseButton::Left, 0, 0); // not while moving already
    canvas.MouseMove(button, 30 + 2 * 15, 45 - 3 * 15);
    EXPECT_EQ(BoxOf(button), (Rectangle{left + 2, top - 3, 100, 50}));
    canvas.MouseMove(button, 30 + 7, 45 + 8);
    EXPECT_EQ(BoxOf(button), (Rectangle{left + 2, top - 2, 100, 50})) << "7 twips round to 0, 8 to 1 pixel";
    canvas.MouseUp(button);
    EXPECT_EQ(BoxOf(button), (Rectangle{left, top, 100, 50}));
}

TEST_F(DesignCanvasTest, ResizesWhereTheHandleGoesButNoSmallerThan20Pixels) {
    const std::tuple<int, int, Rectangle, const char*, Rectangle> cases[] = {
        {13, 8, {left, top, 113, 58}, "B = 113 / H = 58", {left, top, 110, 60}},
        // The same step once more would be too far: nothing is told.
        {-79, -29, {left, top, 21, 21}, "", {left, top, 20, 20}},
        // Too narrow, yet the height follows.
        {-80, 17, {left, top, 100, 67}, "B = 100 / H = 67", {left, top, 100, 70}},
        {17, -30, {left, top, 117, 50}, "B = 117 / H = 50", {left, top, 120, 50}},
        {-80, -30, {left, top, 100, 50}, "", {left, top, 100, 50}},
        {0, 0, {left, top, 100, 50}, "B = 100 / H = 50", {left, top, 100, 50}},
    };
    const ComponentRef button = Add(Button);
    for (const auto& [dx, dy, moved, status, released] : cases) {
        model.EditElement(button).Width = 100;
        model.EditElement(button).Height = 50;
        const int x = left + 100 - 17;
        const int y = top + 50 - 17;
        canvas.Press(x, y, MouseButton::Left);
        EXPECT_TRUE(canvas.IsResizing());
        canvas.Move(x + dx, y + dy);
        EXPECT_EQ(BoxOf(button), moved);
        EXPECT_EQ(canvas.StatusText(), status);
        const int loadsBefore = loads;
        canvas.Release();
        EXPECT_EQ(loads, loadsBefore + 1);
        EXPECT_EQ(BoxOf(button), released);
        EXPECT_EQ(canvas.StatusText(), "");
        EXPECT_FALSE(canvas.IsResizing());
    }
}

TEST_F(DesignCanvasTest, FindsTheTopmostComponentAndItsParts) {
    const ComponentRef below = Add(Table, {0, 0, 200, 200});
    const ComponentRef above = Add(Label, {100, 100, 200, 200});
    const ComponentRef picture = Add(Picture, {400, 0, 0, 0});
    using enum CanvasHit::Area;
    const std::tuple<int, int, CanvasHit::Area, ComponentRef> cases[] = {
        {0, 0, Border, below},  {150, 150, Border, above},   {199, 99, Border, below},   {190, 190, Border, above},
        {200, 99, Canvas, {}},  {283, 283, Resizer, above},  {299, 299, Resizer, above}, {282, 290, Border, above},
        {300, 299, Canvas, {}}, {559, 119, Border, picture}, {-1, 0, Canvas, {}},
    };
    for (const auto& [x, y, area, component] : cases) {
        const CanvasHit hit = canvas.HitTest(x, y);
        EXPECT_EQ(hit.area, area) << x << ", " << y;
        if (area != Canvas) {
            EXPECT_EQ(hit.component, component) << x << ", " << y;
        }
    }
    canvas.Select(above);
    canvas.DeleteSelected();
    EXPECT_EQ(canvas.HitTest(190, 190).area, Resizer);
    const ComponentRef again = Add(Label, {150, 150, 20, 20});
    EXPECT_EQ(again, above);
    EXPECT_EQ(canvas.HitTest(151, 151).component, again);
}

TEST_F(DesignCanvasTest, FindsWhatLinearSearchFinds) {
    const Rectangle sizes[] = {{0, 0, 30, 20}, {0, 0, 0, 10}, {0, 0, 400, 9}, {0, 0, 2000, 3000}, {0, 0, 64, 64}};
    std::uint32_t random = 7;
    const auto next = [&random](int limit) {
        random = random * 1664525 + 1013904223;
        return static_cast<int>((random >> 8) % static_cast<std::uint32_t>(limit));
    };
    for (int i = 0; i < 200; ++i) {
        const Rectangle& size = sizes[next(5)];
        Add(next(2) != 0 ? Button : Label, {next(3000) - 1000, next(3000) - 1000, size.width, size.height});
    }
    canvas.HitTest(0, 0); // so that what follows changes an index that is there
    for (int i = 0; i < 300; ++i) {
        const ComponentRef component = model.CreationOrder()[static_cast<std::size_t>(next(200))];
        Control& control = model.EditElement(component);
        control.Left = static_cast<std::int16_t>(next(3000) - 1000);
        control.Width = static_cast<std::int16_t>(control.Width + 5);
        if (i % 10 == 0) {
            canvas.Select(component);
            canvas.DeleteSelected();
        }
        const Rectangle area = {next(3000) - 1000, next(3000) - 1000, 1 + next(500), 1 + next(500)};
        const Rectangle areas[] = {area, {area.left + 100, area.top - 50, 300, 70}};
        std::vector<ComponentRef> expected;
        for (const ComponentRef candidate : model.CreationOrder()) {
            const Rectangle box = model.VisibleBox(candidate);
            if (box.Intersects(areas[0]) || box.Intersects(areas[1]))
                expected.push_back(candidate);
        }
        EXPECT_EQ(canvas.Intersecting(areas), expected);
        const Rectangle pixel[] = {{area.left, area.top, 1, 1}};
        const std::vector<ComponentRef> at = canvas.Intersecting(pixel);
        const CanvasHit hit = canvas.HitTest(area.left, area.top);
        EXPECT_EQ(hit.area == CanvasHit::Area::Canvas, at.empty());
        if (!at.empty()) {
            EXPECT_EQ(hit.component, at.back());
        }
    }
}

TEST_F(DesignCanvasTest, DeletingHidesTheSelectedComponent) {
    const ComponentRef labels[] = {Add(Label), Add(Label)};
    canvas.Select(labels[1]);
    int loadsBefore = loads;
    canvas.DeleteSelected();
    EXPECT_EQ(loads, loadsBefore + 1);
    EXPECT_EQ(canvas.Selected(), std::nullopt);
    EXPECT_FALSE(model.Element(labels[1]).Visible);
    EXPECT_TRUE(model.Element(labels[0]).Visible);
    loadsBefore = loads;
    canvas.DeleteSelected();
    EXPECT_EQ(loads, loadsBefore) << "nothing is selected, nothing happens";
}

TEST_F(DesignCanvasTest, KeyboardWalksTheComponentsInCreationOrder) {
    EXPECT_FALSE(canvas.SelectNext(true));
    const ComponentRef order[] = {Add(Table), Add(Label), Add(Button), Add(Label)};
    canvas.Select(order[1]);
    canvas.DeleteSelected();
    const ComponentRef visible[] = {order[0], order[2], order[3]};
    for (const ComponentRef component : visible) {
        EXPECT_TRUE(canvas.SelectNext(true));
        EXPECT_EQ(canvas.Selected(), component);
    }
    EXPECT_FALSE(canvas.SelectNext(true));
    EXPECT_EQ(canvas.Selected(), order[3]);
    EXPECT_TRUE(canvas.SelectNext(false) && canvas.SelectNext(false));
    EXPECT_EQ(canvas.Selected(), order[0]);
    EXPECT_FALSE(canvas.SelectNext(false));
    canvas.Escape();
    EXPECT_EQ(canvas.Selected(), std::nullopt);
    EXPECT_TRUE(canvas.SelectNext(false));
    EXPECT_EQ(canvas.Selected(), order[3]);
}

TEST_F(DesignCanvasTest, KeyboardMovesAndResizesByStep) {
    const std::tuple<bool, bool, int, int, Rectangle, Rectangle> cases[] = {
        {false, false, 1, 0, {13, 7, 50, 50}, {14, 7, 50, 50}},
        {false, false, 0, -1, {13, 0, 50, 50}, {13, -1, 50, 50}},
        {true, false, 1, 0, {13, 7, 50, 50}, {20, 7, 50, 50}}, // only the direction of the arrow snaps
        {true, false, 0, -1, {13, 0, 50, 50}, {13, -10, 50, 50}},
        {true, true, 1, 0, {0, 0, 44, 50}, {0, 0, 50, 50}},
        {true, true, 0, -1, {0, 0, 50, 40}, {0, 0, 50, 30}},
        {true, true, 0, -1, {0, 0, 50, 30}, {0, 0, 50, 30}}, // 20 is too small
        {false, true, -1, 0, {0, 0, 21, 30}, {0, 0, 21, 30}},
        {false, true, 1, 0, {0, 0, 3, 30}, {0, 0, 4, 30}}, // growing always goes
    };
    for (const auto& [snap, resize, dx, dy, before, after] : cases) {
        const ComponentRef button = Add(Button, before);
        canvas.Select(button);
        canvas.SetSnapsToGrid(snap);
        resize ? canvas.ResizeSelected(dx, dy) : canvas.MoveSelected(dx, dy);
        EXPECT_EQ(BoxOf(button), after);
    }
    const ComponentRef sound = Add(Sound);
    canvas.Select(sound);
    canvas.ResizeSelected(1, 1);
    EXPECT_EQ(BoxOf(sound).width, 32) << "multimedia is not resized on the canvas";
}

TEST_F(DesignCanvasTest, KeyboardPlacesWithoutCoveringTheLastOne) {
    canvas.ChooseKind(2);
    canvas.PlaceByKeyboard();
    const ComponentRef first = *canvas.Selected();
    canvas.PlaceByKeyboard();
    EXPECT_NE(BoxOf(first).left, BoxOf(*canvas.Selected()).left);
    canvas.ChooseKind(0);
    canvas.PlaceByKeyboard();
    EXPECT_EQ(model.CreationOrder().size(), 2U);
}

TEST_F(DesignCanvasTest, OverflowEndsTheGestureAndLosesNothing) {
    const ComponentRef button = Add(Button, {32700, 0, 60, 30});
    const ProjectModel before = model;
    canvas.Press(32705, 5, MouseButton::Left);
    EXPECT_THROW(canvas.Move(32800, 5), RuntimeError);
    EXPECT_FALSE(canvas.IsMoving());
    canvas.Move(32600, 5);
    canvas.Release();
    EXPECT_EQ(model, before);

    canvas.Press(32759, 29, MouseButton::Left);
    EXPECT_THROW(canvas.Move(70000, 29), RuntimeError);
    EXPECT_FALSE(canvas.IsResizing());

    model.EditElement(button).Left = 32766;
    canvas.Select(button);
    EXPECT_THROW(canvas.MoveSelected(1, 0), RuntimeError);
    EXPECT_EQ(BoxOf(button).left, 32766);

    canvas.Press(32600, 100, MouseButton::Left);
    canvas.Move(70000, 200);
    EXPECT_THROW(canvas.Release(), RuntimeError);
    EXPECT_FALSE(canvas.IsDrawing() || canvas.IsFrameVisible());
    canvas.Press(0, 0, MouseButton::Other);
    canvas.Release();
    EXPECT_EQ(model.CreationOrder().size(), 1U) << "nothing of the failed frame is left";
}

TEST_F(DesignCanvasTest, ANewDesignEndsSelectionAndGesture) {
    canvas.Select(Add(Button));
    canvas.Press(left + 1, top + 1, MouseButton::Left);
    model.Reset();
    EXPECT_EQ(canvas.Selected(), std::nullopt);
    canvas.Move(left + 50, top + 1);
    canvas.Release();
    EXPECT_EQ(model, ProjectModel());
}

TEST_F(DesignCanvasTest, PassesOnWhatChanged) {
    EXPECT_EQ(canvas.TakeChanges().front().what, Change::What::Everything) << "a new view paints all";
    Add(Button);
    canvas.TakeChanges();
    canvas.Press(left + 1, top + 1, MouseButton::Left);
    EXPECT_TRUE(canvas.TakeChanges().empty());
    canvas.Move(left + 4, top + 1);
    const std::vector<Change> changes = canvas.TakeChanges();
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].before, (Rectangle{left, top, 100, 50}));
    for (int i = 0; i < 100; ++i)
        canvas.Move(left + 5 + i, top + 1);
    EXPECT_EQ(canvas.TakeChanges().size(), 1U) << "too many to list";
}

} // namespace
} // namespace pirol
