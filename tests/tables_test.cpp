#include "app/cCommonDialog.h"
#include "app/ErrorReport.h"
#include "app/Handbook.h"
#include "app/ProjectSettings.h"
#include "app/RegistryText.h"
#include "app/UpdateCommands.h"
#include "base/HashFunction.h"
#include "base/Windows1252.h"
#include "Cases.h"
#include "codegen/JavaImport.h"
#include "codegen/JavaSyntax.h"
#include "designer/ComponentLook.h"
#include "designer/Grid.h"
#include "designer/InPlaceText.h"
#include "designer/ListEditorModel.h"
#include "designer/MainLayout.h"
#include "menu/MenuEditor.h"
#include "model/ProjectModel.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol::test {
namespace {

std::string Joined(const auto& values, const char* between) {
    std::string text;
    for (const auto& value : values)
        text += (text.empty() ? "" : between) + FieldText(value);
    return text;
}

std::string Shown(const std::vector<FileFilter>& filters) {
    std::string text;
    for (const FileFilter& filter : filters)
        text += "<" + filter.text + "> " + Joined(filter.patterns, ",");
    return text;
}

std::string Shown(const RowDescriptor& row) {
    std::string text = row.label;
    for (const FieldDescriptor& field : row.fields)
        text += ", " + field.label + " " + std::to_string(static_cast<int>(field.type)) + " " + field.initialValue;
    return text;
}

/// A text in quotes, a number without, and a word for no value.
std::string Shown(const std::optional<RegistryValue>& value) {
    if (!value)
        return "none";
    const auto* text = std::get_if<std::string>(&*value);
    return text != nullptr ? "\"" + *text + "\"" : std::to_string(std::get<std::int32_t>(*value));
}

std::string WithRegistryN(const TableRow& row) {
    constexpr std::string_view key = "Software\\Pirol";
    const bool isText = row[1].starts_with('"');
    const RegistryValue value = isText ? RegistryValue(row[1].substr(1, row[1].size() - 2)) : row.Number(1);
    std::string after = WithRegistryValue(row[0], key, "N", value);
    EXPECT_EQ(FindRegistryValue(after, key, "N"), value) << after;
    EXPECT_EQ(WithRegistryValue(after, key, "N", value), after) << "writing again changes nothing";
    return after;
}

Fields WindowSizes(const TableRow& row) {
    ProjectSettings settings({row.Short(0), row.Short(1), ""});
    row[2] == "width" ? settings.ChangeWidth(row[3]) : settings.ChangeHeight(row[3]);
    return Answer(settings.WidthText(), settings.HeightText());
}

Fields Layout(const TableRow& row) {
    const MainLayout layout = LayOutMainWindow(row.Number(0), row.Number(1), row.Number(2), row.Number(3));
    const auto bar = [](const MainLayout::Bar& place) {
        return FieldText(place.box) + (place.enabled ? " to " : " disabled ") + std::to_string(place.maximum);
    };
    return Answer(layout.frame, layout.toolbar, layout.list, layout.headings, layout.status, layout.canvas,
                  bar(layout.vertical), bar(layout.horizontal));
}

/// Where the canvas begins and how far its bar goes, which is the same across and down.
Fields CanvasPlace(const TableRow& row) {
    const MainLayout across = LayOutMainWindow(row.Number(0) + 370, 400, row.Number(1), 10);
    const MainLayout down = LayOutMainWindow(800, row.Number(0) + 40, 10, row.Number(1));
    EXPECT_EQ(across.canvas.left, down.canvas.top) << row.line;
    EXPECT_EQ(across.horizontal.maximum, down.vertical.maximum) << row.line;
    EXPECT_EQ(across.horizontal.enabled, across.horizontal.maximum != 0) << row.line;
    EXPECT_EQ(down.vertical.enabled, across.horizontal.enabled) << row.line;
    EXPECT_FALSE(across.vertical.enabled || down.horizontal.enabled) << row.line;
    return Answer(across.canvas.left, across.horizontal.maximum);
}

Fields Slider(const TableRow& row) {
    dRegler slider;
    slider.Width = row.Short(1);
    slider.Height = row.Short(2);
    slider.Value = row.Short(3);
    slider.Min = row.Short(4);
    slider.Max = row.Short(5);
    const SliderLook look = LookOf(slider);
    return Answer(look.upright, look.track, look.filled, look.knob);
}

Fields ProgressBar(const TableRow& row) {
    dFortschritt bar;
    bar.Width = row.Short(0);
    bar.Value = row.Short(1);
    bar.Min = row.Short(2);
    bar.Max = row.Short(3);
    return Answer(FilledWidth(bar));
}

Fields ScrollBar(const TableRow& row) {
    const std::optional<Thumb> thumb = ScrollThumb(row.Number(0), row.Number(0), row.Number(1));
    return Answer(thumb ? std::to_string(thumb->begin) + " " + std::to_string(thumb->length) : "none");
}

std::u16string Wide(std::string_view text) {
    return {text.begin(), text.end()};
}

/// "i" is narrow, everything else 10 pixels wide.
int TestAdvance(char16_t point) {
    return point == u'i' ? 4 : 10;
}

std::string Fitted(const TableRow& row) {
    const std::u16string shown = FittedText(Wide(row[0]), row.Number(1), TestAdvance);
    return {shown.begin(), shown.end()};
}

/// The line of the project file and the statements of a component as the user has placed it.
Fields NewComponent(const TableRow& row) {
    ProjectModel model;
    const Control& placed = model.Element(model.PlaceComponent(KindByKey(row[0]).value(), {1, 2, 30, 40}));
    std::string line = placed.CreatePRLString(3, 4);
    std::replace(line.begin(), line.end(), fieldSeparator, ' ');
    std::replace(line.begin(), line.end(), itemSeparator, '/');
    return Answer(model.VisibleBox({placed.Kind(), 1}), model.PlacementNumber({placed.Kind(), 1}),
                  Trim(ReplaceAll(line, lineEnd, "")), Trim(ReplaceAll(placed.CreateInitText(5, 6), "\r\n", "")));
}

std::string ImportError(const std::string& java) {
    ProjectModel model;
    return ErrorOf([&] { AnalyseCode("good = new Etikett(1, 2, 3, 4, \"x\"); " + java, model); });
}

struct Rule {
    const char* table;
    Fields (*answer)(const TableRow& row);
};

const Rule rules[] = {
    // What knows no design
    {"windows-1252", [](auto& row) { return Answer(ToWindows1252(row[0])); }},
    {"numbers",
     [](auto& row) { return Answer(IsNumeric(row[0]), OutcomeOf([&] { return FieldText(ToInt16(row[0])); })); }},
    {"flags", [](auto& row) { return Answer(ConvertToBoolean(row[0])); }},
    {"pieces", [](auto& row) { return Answer(Joined(Split(row[0], ',', std::stoul(row[1])), "/")); }},
    {"hashes",
     [](auto& row) { return Answer(HashFunction(ReplaceAll(std::string(row.Number(1), 'x'), "x", row[0]))); }},
    // Menus, Java
    {"menu-names",
     [](auto& row) {
         return Answer(cMenu::CleanString(row[0]), MenuEditor::ProposeName(cMenu::Menu, row[0]).value_or("none"));
     }},
    {"java-names", [](auto& row) { return Answer(IsIdentifierPart(row[0]), IsJavaIdentifier(row[0])); }},
    {"java-literals",
     [](auto& row) {
         const LiteralText literal = ReadLiteral(row[0], '"');
         return Answer(literal.characters, literal.Compiles());
     }},
    {"method-bytes", [](auto& row) { return Answer(MethodBytes(row[0])); }},
    {"import-lines", [](auto& row) { return Answer(GetAllLines(row[0], "Knopf")); }},
    {"import-values", [](auto& row) { return Answer(GetValue(row[0], row[1], "f", "default")); }},
    {"new-components", NewComponent},
    {"import-errors", [](auto& row) { return Answer(ImportError(row[0])); }},
    // The look of components and windows
    {"snap-to-grid",
     [](auto& row) {
         const auto snapped = [&](bool on) { return FieldText(SnapToGrid(std::stod(row[0]), on)); };
         return Answer(OutcomeOf([&] { return snapped(true); }), OutcomeOf([&] { return snapped(false); }));
     }},
    {"slider-looks", Slider},
    {"progress-bars", ProgressBar},
    {"column-widths", [](auto& row) { return Answer(Joined(ColumnWidths(std::stoul(row[0]), row.Number(1)), " ")); }},
    {"scroll-thumbs", ScrollBar},
    {"fitted-texts", [](auto& row) { return Answer(Fitted(row)); }},
    {"wrapped-texts", [](auto& row) { return Answer(WrapPoint(Wide(row[0]), row.Number(1), TestAdvance)); }},
    {"main-layouts", Layout},
    {"canvas-places", CanvasPlace},
    {"panel-widths",
     [](auto& row) {
         const PanelWidths panels = PossibleWidths({row.Number(0), row.Number(1)}, row.Number(2));
         return Answer(panels.toolbar, panels.properties);
     }},
    {"scrolled-positions", [](auto& row) { return Answer(ScrolledPosition(row.Number(0))); }},
    {"baselines",
     [](auto& row) {
         ProjectModel model;
         const ComponentRef component = model.PlaceComponent(*KindByKey(row[0]), {0, row.Number(1), 90, row.Number(2)});
         if (!row[3].empty())
             static_cast<dEtikett&>(model.EditElement(component)).FontSize = row.Short(3);
         const std::optional<int> baseline = BaselineOf(model.Element(component));
         return Answer(baseline ? std::to_string(*baseline) : "none");
     }},
    {"in-place-texts",
     [](auto& row) {
         ProjectModel model;
         Control& control = model.EditElement(model.PlaceComponent(*KindByKey(row[0]), {0, 0, 90, 30}));
         if (!row[1].empty())
             FindRow(control, row[1])->set(control, row[2]);
         const std::optional<InPlaceText> text = InPlaceTextOf(control);
         const std::string shown =
             text ? (text->hasLines ? "lines of " : "") + std::string(text->key) + ":" + text->text : "none";
         return Answer(ReplaceAll(shown, "\n", "/"),
                       ReplaceAll(InPlaceValue(control, row[3]), std::string_view("\0", 1), "/"));
     }},
    {"bars-to-show",
     [](auto& row) { return Answer(BarValueToShow(row.Number(0), row.Number(1), 100, row.Number(2), 40)); }},
    {"window-presets",
     [](auto& row) {
         const std::optional<Rectangle> box = WindowPreset(row.Number(0), 1920, 1080);
         return Answer(box ? FieldText(*box) : "none");
     }},
    {"row-descriptors", [](auto& row) { return Answer(Shown(ParseRowDescriptor(row[0]))); }},
    // The program around it
    {"registry-values", [](auto& row) { return Answer(Shown(FindRegistryValue(row[0], "Software\\Pirol", "N"))); }},
    {"registry-changes", [](auto& row) { return Answer(WithRegistryN(row)); }},
    {"java-encodings", [](auto& row) { return Answer(static_cast<int>(EncodingOf(row[0]))); }},
    {"file-filters",
     [](auto& row) {
         const std::vector<FileFilter> filters = FileFilters(row[0]);
         return Answer(Shown(filters), filters.empty() ? "" : ExtensionOf(filters.front()));
     }},
    {"window-sizes", WindowSizes},
    {"error-reports", [](auto& row) { return Answer(ErrorReportText(row.Number(0), row[1], row[2])); }},
    {"error-advice", [](auto&) { return Answer(ErrorAdvice()); }},
    {"handbook-chapters", [](auto& row) { return Answer(ChapterOf(row[0])); }},
    {"chapter-anchors", [](auto& row) { return Answer(ChapterAnchor(row[0])); }},
};

class Tables : public testing::TestWithParam<Rule> {};

TEST_P(Tables, AreKept) {
    EXPECT_EQ(Deviations(GetParam().table, GetParam().answer), "");
}

INSTANTIATE_TEST_SUITE_P(, Tables, testing::ValuesIn(rules), [](const auto& rule) {
    return ReplaceAll(ReplaceAll(rule.param.table, "-", "_"), "1252", "western");
});

} // namespace
} // namespace pirol::test
