// Random designs as a user could draw them obey the rules of every design, and importing their Java finds every
// component of the imported classes.

#include "base/Conversions.h"
#include "base/Windows1252.h"
#include "codegen/JavaGenerator.h"
#include "codegen/JavaImport.h"
#include "fuzz/Fuzz.h"
#include "gestures/DesignRules.h"

#include <algorithm>
#include <fuzzer/FuzzedDataProvider.h>
#include <limits>

using namespace pirol;

namespace {

std::int16_t Number(FuzzedDataProvider& input) {
    return input.ConsumeIntegral<std::int16_t>();
}

/// Text of any characters that a file can hold, but for those that divide it.
std::string Text(FuzzedDataProvider& input) {
    std::string bytes = input.ConsumeRandomLengthString(12);
    std::erase_if(bytes, [](char byte) { return byte == fieldSeparator || byte == itemSeparator || byte == '\r'; });
    return FromWindows1252(bytes);
}

std::string List(FuzzedDataProvider& input, bool radioButtons) {
    std::vector<std::string> values(input.ConsumeIntegralInRange<std::size_t>(0, 3));
    std::vector<cRadioButton> buttons(values.size());
    for (std::string& value : values)
        value = Text(input);
    for (cRadioButton& button : buttons)
        button = {Text(input),   Text(input),   Number(input),      Number(input),
                  Number(input), Number(input), input.ConsumeBool()};
    return radioButtons ? JoinRadioButtons(buttons) : JoinList(values);
}

/// A value for what a project file holds of a property.
std::string Value(FuzzedDataProvider& input, const PropertyRow& row) {
    switch (row.key->editor) {
    case EditorKind::Number:
    case EditorKind::Choice:
        return std::to_string(Number(input));
    case EditorKind::Flag:
        return std::string(FlagText(input.ConsumeBool()));
    case EditorKind::List:
        return List(input, row.key->key == keys::optionbuttons.key);
    default:
        return Text(input);
    }
}

void AddComponent(FuzzedDataProvider& input, ProjectModel& model) {
    const ComponentKind kind = KindRows()[input.ConsumeIntegralInRange<std::size_t>(0, kindCount - 1)].kind;
    const ComponentRef component =
        model.PlaceComponent(kind, {Number(input), Number(input), Number(input), Number(input)});
    Control& element = model.EditElement(component);
    if (input.ConsumeBool())
        element.ObjectName = Text(input);
    for (const PropertyRow* row : element.Table().StoredRows())
        row->set(element, Value(input, *row));
    if (input.ConsumeProbability<float>() > 0.9F)
        model.DeleteComponent(component);
}

void AddMenu(FuzzedDataProvider& input, ProjectModel& model) {
    cMenu* node = &model.EditMenus().Append(Text(input), Text(input));
    for (auto entries = input.ConsumeIntegralInRange(0, 5); entries > 0; --entries) {
        const auto type = input.ConsumeIntegralInRange<std::int32_t>(cMenu::SubMenu, cMenu::Separator);
        cMenu* child = node->AddEntry(Text(input), type);
        if (type == cMenu::SubMenu)
            node = child;
    }
}

ProjectModel Design(FuzzedDataProvider& input) {
    ProjectModel model;
    model.SetWindowSize(Number(input), Number(input));
    model.SetAuthor(Text(input));
    SQLSettings& sql = model.EditSql();
    for (const auto text : {&SQLSettings::Server, &SQLSettings::User, &SQLSettings::Password, &SQLSettings::Database,
                            &SQLSettings::TableName})
        sql.*text = Text(input);
    for (std::int16_t& flag : sql.Flags)
        flag = Number(input);
    for (auto menus = input.ConsumeIntegralInRange(0, 2); menus > 0; --menus)
        AddMenu(input, model);
    while (input.remaining_bytes() > 0)
        AddComponent(input, model);
    return model;
}

std::size_t Occurrences(std::string_view text, std::string_view what) {
    std::size_t count = 0;
    for (std::size_t hit = text.find(what); hit != std::string_view::npos; hit = text.find(what, hit + 1))
        ++count;
    return count;
}

/// Every creation statement of an imported class becomes a component; texts that look like one count, too.
void RequireComponentsFound(const ProjectModel& model) {
    std::string source;
    ProjectModel imported;
    if (!fuzz::Succeeds([&] { source = GenerateCode(model, {.menu = true, .database = true}); }) ||
        !fuzz::Succeeds([&] { AnalyseCode(source, imported); }))
        return;
    for (const KindRow& row : KindRows()) {
        const bool isImported = row.kind != ComponentKind::ComboBox && row.kind != ComponentKind::Slider &&
                                row.kind != ComponentKind::ProgressBar;
        const std::size_t statements = Occurrences(source, "= new " + std::string(row.javaClass) + "(");
        fuzz::Require(imported.ElementCount(row.kind) - 1 == (isImported ? statements : 0),
                      "every creation statement is imported");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const ProjectModel model = Design(input);
    const std::string broken = BrokenRule(model);
    fuzz::Require(broken.empty(), broken);
    RequireComponentsFound(model);
    return 0;
}
