#include "app/FileCommands.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "Cases.h"
#include "designer/DesignCanvas.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <tuple>

namespace pirol {
namespace {

constexpr int left = 40;
constexpr int top = 60;

class DesignCanvasTest : public ::testing::Test, private DocumentListener {
  protected:
    DesignCanvasTest() { document.AddListener(*this); }

    void DocumentChanged(const DocumentChange& change) override { loads += change.properties ? 1 : 0; }

    void Edit(const std::function<void(ProjectModel&)>& change) { document.Edit("", change); }
    void Drag(int fromX, int fromY, int toX, int toY) {
        canvas.Press(fromX, fromY, MouseButton::Left);
        canvas.Move(toX, toY);
        canvas.Release();
    }

    ComponentRef Add(ComponentKind kind, const Rectangle& box = {left, top, 100, 50}) {
        ComponentRef added{};
        Edit([&](ProjectModel& changed) { added = changed.PlaceComponent(kind, box); });
        return added;
    }

    Rectangle BoxOf(ComponentRef component) const { return model.VisibleBox(component); }

    /// Places components given as "kind left top width height", separated by commas.
    void AddAll(const std::string& components) {
        std::istringstream list(components);
        for (std::string component; std::getline(list, component, ',');) {
            std::istringstream words(component);
            std::string kind;
            Rectangle box;
            ASSERT_TRUE(words >> kind >> box.left >> box.top >> box.width >> box.height) << component;
            Add(KindByKey(kind).value(), box);
        }
    }

    /// One step of a gesture: a command and mostly two numbers.
    void Do(std::string_view step) {
        const std::map<std::string, std::function<void(int, int)>> commands = {
            {"press", [this](int x, int y) { canvas.Press(x, y, MouseButton::Left); }},
            {"control", [this](int x, int y) { canvas.Press(x, y, MouseButton::Left, {.control = true}); }},
            {"shift", [this](int x, int y) { canvas.Press(x, y, MouseButton::Left, {.shift = true}); }},
            {"other", [this](int x, int y) { canvas.Press(x, y, MouseButton::Other); }},
            {"move", [this](int x, int y) { canvas.Move(x, y); }},
            {"release", [this](int, int) { canvas.Release(); }},
            {"escape", [this](int, int) { canvas.Escape(); }},
            {"delete", [this](int, int) { canvas.DeleteSelected(); }},
            {"kind", [this](int number, int) { canvas.ChooseKind(number); }},
            {"grid", [this](int snaps, int) { canvas.SetSnapsToGrid(snaps == 1); }},
            {"next", [this](int, int) { isAtEnd = !canvas.SelectNext(true); }},
            {"previous", [this](int, int) { isAtEnd = !canvas.SelectNext(false); }},
            {"step", [this](int x, int y) { canvas.MoveSelected(x, y); }},
            {"pixel", [this](int x, int y) { canvas.MoveSelected(x, y, false, true); }},
            {"all", [this](int, int) { canvas.SelectAll(); }},
            {"toggle", [this](int, int) { canvas.ToggleReached(); }},
            {"grow", [this](int x, int y) { canvas.ResizeSelected(x, y); }},
            {"shrink", [this](int x, int y) { canvas.ResizeSelected(-x, -y, false, true); }},
            {"place", [this](int, int) { canvas.PlaceByKeyboard(); }},
            {"alt", [this](int x, int y) { canvas.Press(x, y, MouseButton::Left, {.alt = true}); }},
            {"guides", [this](int on, int) { canvas.SetAlignsToGuides(on == 1); }},
            {"suspend", [this](int on, int) { canvas.SuspendGuides(on == 1); }},
            {"handles", [this](int size, int) { canvas.SetHandleSize(size); }},
            {"show", [this](int x, int y) { canvas.ShowPlacement(canvas.CurrentKind(), x, y); }},
            {"hide", [this](int, int) { canvas.HidePlacement(); }},
            {"usual", [this](int x, int y) { canvas.PlaceUsual(canvas.CurrentKind(), x, y); }},
            {"leave", [this](int, int) { canvas.Leave(); }},
            {"cancel", [this](int, int) { document.CancelGesture(); }},
        };
        std::istringstream words{std::string(step)};
        std::string command;
        int x = 0;
        int y = 0;
        words >> command >> x >> y;
        commands.at(command)(x, y);
    }

    static std::string Text(const Rectangle& box) {
        return Concatenate(box.left, " ", box.top, " ", box.width, " ", box.height);
    }

    /// The boxes of the visible components, the leader of the selection behind a star and its others behind a plus.
    std::string Boxes() {
        std::string boxes;
        for (const ComponentRef component : model.CreationOrder())
            if (model.Element(component).Visible)
                boxes += std::string(boxes.empty() ? "" : ", ") +
                         (canvas.Selected() == component             ? "*"
                          : canvas.AllSelected().Contains(component) ? "+"
                                                                     : "") +
                         Text(BoxOf(component));
        return boxes;
    }

    /// All that the view paints beside the components, and what it asks.
    std::string Seen() {
        std::string seen = canvas.StatusText();
        if (canvas.IsFrameVisible())
            Append(seen, " frame ", Text(canvas.Frame()));
        if (canvas.DraggedX() != 0 || canvas.DraggedY() != 0)
            Append(seen, " dragged ", canvas.DraggedX(), " ", canvas.DraggedY(), " to ",
                   Text(canvas.ShownBox(*canvas.Selected())));
        for (const GuideLine& line : canvas.GuideLines())
            Append(seen, line.isUpright ? " x" : " y", line.position, "(", line.begin, "..", line.end, ")");
        if (const auto reached = canvas.Reached(); reached && reached != canvas.Selected())
            Append(seen, " reached ", Text(canvas.ShownBox(*reached)));
        Append(seen, canvas.IsJustPlaced() ? " placed" : "", canvas.IsInGesture() ? " in gesture" : "",
               canvas.IsPressed() ? " pressed" : "", document.IsInGesture() ? " one step" : "");
        return std::string(Trim(seen));
    }

    std::string Gesture() {
        if (canvas.IsDrawing())
            return canvas.IsFrameVisible() ? "draws " + Text(canvas.Frame()) : "draws";
        EXPECT_FALSE(canvas.IsFrameVisible());
        return canvas.IsMoving() ? "moves" : canvas.IsResizing() ? "resizes" : isAtEnd ? "no further one" : "";
    }

    Document document;
    const ProjectModel& model = document.Model();
    int loads = 0;        ///< how often the property list was to follow
    bool isAtEnd = false; ///< whether the last selection by keyboard found no further component
    DesignCanvas canvas{document};
};

using enum ComponentKind;

TEST_F(DesignCanvasTest, Gestures) {
    for (const test::TableRow& row : test::Table("canvas-gestures")) {
        SCOPED_TRACE(row.line);
        NewProject(document);
        canvas.SetSnapsToGrid(true);
        canvas.ChooseKind(1);
        isAtEnd = false;
        AddAll(row[0]);
        int loadsBefore = 0;
        for (const std::string_view step : Split(row[1], ';')) {
            loadsBefore = loads;
            Do(step);
        }
        EXPECT_EQ(Boxes(), row[2]);
        EXPECT_EQ(canvas.StatusText(), row[3]);
        EXPECT_EQ(Gesture(), row[4]);
        EXPECT_EQ(loads > loadsBefore ? "yes" : "no", row[5]);
    }
}

/// And undoing and redoing the last step lead to the same selection.
TEST_F(DesignCanvasTest, SeveralComponents) {
    for (const test::TableRow& row : test::Table("canvas-several")) {
        SCOPED_TRACE(row.line);
        NewProject(document);
        canvas.SetSnapsToGrid(true);
        canvas.ChooseKind(1);
        AddAll(row[0]);
        const std::string before = document.UndoLabel();
        std::string outcome;
        for (const std::string_view step : Split(row[1], ';')) {
            const int error = test::ErrorNumberOf([&] { Do(step); });
            outcome = error == 0 ? "" : Concatenate("error ", error, ", ");
        }
        const std::string boxes = Boxes();
        EXPECT_EQ(outcome + boxes, row[2]);
        EXPECT_EQ(document.UndoLabel() == before ? "" : document.UndoLabel(), row[3]);
        EXPECT_FALSE(outcome.empty() && (canvas.IsPressed() || document.IsInGesture()));
        if (row[3].empty())
            continue;
        document.Undo();
        EXPECT_NE(Boxes(), boxes);
        document.Redo();
        EXPECT_EQ(Boxes(), boxes);
    }
}

TEST_F(DesignCanvasTest, BeginsWithALabelAndTheGrid) {
    EXPECT_EQ(canvas.CurrentKind(), 1);
    EXPECT_TRUE(canvas.SnapsToGrid() && canvas.ShowsGrid());
    EXPECT_FALSE(canvas.AlignsToGuides() || canvas.IsFrameVisible());
    canvas.SetShowsGrid(false);
    EXPECT_FALSE(canvas.ShowsGrid());
}

TEST_F(DesignCanvasTest, WhatIsSeen) {
    EXPECT_EQ(test::Deviations("canvas-seen",
                               [this](const test::TableRow& row) {
                                   NewProject(document);
                                   canvas.SetSnapsToGrid(false);
                                   canvas.SetAlignsToGuides(false);
                                   canvas.SuspendGuides(false);
                                   canvas.SetHandleSize(8);
                                   canvas.ChooseKind(1);
                                   AddAll(row[0]);
                                   int error = 0;
                                   for (const std::string_view step : Split(row[1], ';'))
                                       error += test::ErrorNumberOf([&] { Do(step); });
                                   const test::Fields answer = {Boxes(), Seen() + (error == 6 ? "overflow" : "")};
                                   canvas.Escape();
                                   canvas.Release();
                                   canvas.HidePlacement();
                                   return answer;
                               }),
              "");
}

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
    document.Select(above);
    canvas.DeleteSelected();
    EXPECT_EQ(canvas.HitTest(190, 190).area, Resizer);
    const ComponentRef again = Add(Label, {150, 150, 20, 20});
    EXPECT_EQ(again, above);
    EXPECT_EQ(canvas.HitTest(151, 151).component, again);
    document.Undo();
    document.Undo();
    EXPECT_EQ(canvas.HitTest(190, 190).component, above) << "where it was, and above the other one";
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
        Edit([&](ProjectModel& changed) {
            Control& control = changed.EditElement(component);
            control.Left = static_cast<std::int16_t>(next(3000) - 1000);
            control.Width = static_cast<std::int16_t>(control.Width + 5);
        });
        if (i % 10 == 0) {
            document.Select(component);
            canvas.DeleteSelected();
        }
        if (i % 7 == 0)
            document.Undo();
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

/// Of so many not all are looked up at the first question, but all are found.
TEST_F(DesignCanvasTest, FindsWhatItHasNotTakenInYet) {
    Edit([](ProjectModel& changed) {
        for (int i = 0; i < 10'005; ++i)
            changed.PlaceComponent(Button, {i, 10, 20, i == 10'002 ? 0 : 10});
    });
    EXPECT_EQ(canvas.HitTest(10'021, 12).component, (ComponentRef{Button, 10'005}));
    NewProject(document);
    Edit([](ProjectModel& changed) {
        for (int i = 0; i < 10'005; ++i)
            changed.PlaceComponent(Button, {i % 100 * 300, i / 100 * 300, 20, 10});
        changed.DeleteComponent({Button, 10'004});
    });
    const Rectangle areas[] = {{-5, 30'000, 910, 10}, {600, 29'000, 10, 1200}, {0, 0, 0, 5}};
    const std::vector<ComponentRef> expected = {{Button, 9'703},  {Button, 9'803},  {Button, 9'903},
                                                {Button, 10'001}, {Button, 10'002}, {Button, 10'003}};
    for (int question = 0; question < 2; ++question)
        EXPECT_EQ(canvas.Intersecting(areas), expected) << question;
    EXPECT_EQ(canvas.HitTest(1205, 30'005).component, (ComponentRef{Button, 10'005}));
    EXPECT_EQ(canvas.HitTest(905, 30'005).area, CanvasHit::Area::Canvas) << "deleted";
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

    Edit([&](ProjectModel& changed) { changed.EditElement(button).Left = 32766; });
    document.Select(button);
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
    document.Select(Add(Button));
    canvas.Press(left + 1, top + 1, MouseButton::Left);
    NewProject(document);
    EXPECT_EQ(canvas.Selected(), std::nullopt);
    canvas.Move(left + 50, top + 1);
    canvas.Release();
    EXPECT_EQ(model, ProjectModel());
}

TEST_F(DesignCanvasTest, EscapePutsBackWhatIsDragged) {
    const ComponentRef button = Add(Button);
    document.MarkSaved("a.prl");
    const ProjectModel before = model;
    const std::string label = document.UndoLabel();
    for (const char* press : {"press 41 61", "press 157 128", "press 300 300"}) {
        Do(press);
        canvas.Move(400, 300);
        canvas.Escape();
        EXPECT_EQ(model, before) << press;
        EXPECT_FALSE(canvas.IsPressed() || canvas.IsFrameVisible() || document.IsInGesture()) << press;
        canvas.Move(420, 320);
        canvas.Release();
        EXPECT_EQ(model, before) << press << ", the mouse goes on";
        EXPECT_FALSE(document.CanRedo() || document.IsChanged()) << press;
        EXPECT_EQ(document.UndoLabel(), label) << press;
        EXPECT_EQ(document.Selected(), button) << press;
    }
}

TEST_F(DesignCanvasTest, TheKeyboardBeginsAtTheUpperLeftOfANewDesign) {
    for (int design = 0; design < 2; ++design) {
        canvas.PlaceByKeyboard();
        EXPECT_EQ(BoxOf(document.Selected().value()).left, 20);
        canvas.PlaceByKeyboard();
        EXPECT_EQ(BoxOf(document.Selected().value()).left, 30);
        NewProject(document);
    }
}

TEST_F(DesignCanvasTest, AfterAHundredPlacesOneLiesUponAnother) {
    for (int i = 0; i < 102; ++i)
        canvas.PlaceUsual(2, 300, 200);
    EXPECT_EQ(BoxOf(*canvas.Selected()).left, 240 + 100 * 10);
}

TEST_F(DesignCanvasTest, AGestureIsOneStep) {
    canvas.SetSnapsToGrid(false);
    const ComponentRef button = Add(Button);
    const std::string steps[] = {"press 41 61;move 50 70;move 60 81;release", "press 157 128;move 170 140;release",
                                 "step 1 0", "delete", "press 300 300;move 400 400;release"};
    const std::string labels[] = {"Knopf verschieben", "Größe von Knopf ändern", "Knopf verschieben", "Knopf löschen",
                                  "Etikett einfügen"};
    std::vector<ProjectModel> states = {model};
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        for (const std::string_view step : Split(steps[i], ';')) {
            Do(step);
            EXPECT_EQ(document.CanUndo(), !canvas.IsPressed()) << "nothing is undone below the hand";
        }
        EXPECT_EQ(document.UndoLabel(), labels[i]);
        states.push_back(model);
    }
    for (std::size_t i = std::size(steps); i-- > 0;) {
        document.Undo();
        EXPECT_EQ(model, states[i]) << labels[i];
    }
    EXPECT_EQ(BoxOf(button), (Rectangle{left, top, 100, 50}));
    // One held key is one step, each press of its own another.
    document.Select(button);
    canvas.MoveSelected(1, 0);
    canvas.MoveSelected(1, 0, true);
    canvas.MoveSelected(1, 0, true);
    canvas.MoveSelected(1, 0);
    document.Undo();
    EXPECT_EQ(BoxOf(button).left, left + 3);
    document.Undo();
    EXPECT_EQ(BoxOf(button).left, left);
    // What comes back to where it was is no step.
    const std::string before = document.UndoLabel();
    for (const char* step : {"press 41 61", "move 70 70", "move 41 61", "release"})
        Do(step);
    EXPECT_EQ(document.UndoLabel(), before);
}

} // namespace
} // namespace pirol
