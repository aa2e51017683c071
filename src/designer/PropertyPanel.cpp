#include "designer/PropertyPanel.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "controls/dOptionsgruppe.h"
#include "designer/Arranging.h"
#include "designer/ListEditorModel.h"

#include <algorithm>

namespace pirol {
namespace {

constexpr std::string_view loadLabel = "Main.File.Properties.LoadProperties";

PropertyPanelRow Category(std::string_view key, std::string_view caption) {
    return {key, caption, true, {}, {}, {}};
}

/// The method that an event calls; of a group, whose buttons each have their own, that of the first one.
std::string HandlerOf(const Control& control, const PropertyRow& row) {
    if (row.isOn == nullptr || !row.isOn(control))
        return {};
    if (control.Kind() != ComponentKind::OptionGroup)
        return Concatenate(control.ObjectName, row.handlerSuffix);
    const std::vector<cRadioButton>& buttons = static_cast<const dOptionsgruppe&>(control).OptionButtons;
    return buttons.empty() ? std::string() : Concatenate(buttons.front().Name, row.handlerSuffix);
}

PropertyPanelRow RowFor(const Control& control, const PropertyRow& row) {
    const PropertyKey& key = *row.key;
    std::string value = row.get(control);
    if (key.editor == EditorKind::Flag)
        value = LowerCase(value);
    return {.key = key.key,
            .caption = key.label,
            .value = std::move(value),
            .editor = key.editor,
            .detail = key.detail,
            .handler = HandlerOf(control, row)};
}

std::vector<PropertyPanelRow> RowsFor(const Control& control) {
    std::vector<PropertyPanelRow> rows;
    const auto add = [&](const PropertyRow& row) { rows.push_back(RowFor(control, row)); };

    rows.push_back(Category("general", "Allgemein"));
    const std::vector<PropertyRow>& common = CommonRows();
    add(common.front());
    rows.push_back(Category("position", "Position"));
    std::for_each(common.begin() + 1, common.end(), add);

    const std::vector<PropertyRow>& own = control.Table().Rows();
    const auto firstEvent =
        std::find_if(own.begin(), own.end(), [](const PropertyRow& row) { return row.isOn != nullptr; });
    rows.push_back(Category("specific", "Objektspezifisch"));
    std::for_each(own.begin(), firstEvent, add);
    if (firstEvent != own.end())
        rows.push_back(Category("events", "Ereignisse"));
    std::for_each(firstEvent, own.end(), add);
    return rows;
}

bool IsNameTaken(const ProjectModel& model, const Control& by, std::string_view name) {
    bool taken = false;
    model.ForEachVisible([&](const Control& other) { taken = taken || (&other != &by && other.ObjectName == name); });
    return taken;
}

std::size_t CharactersOf(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), BeginsCharacter));
}

/// Of a list each item counts by itself.
bool IsTooLong(std::string_view value) {
    if (value.size() <= mostTextCharacters)
        return false;
    const std::vector<std::string_view> items = Split(value, fieldSeparator);
    return std::any_of(items.begin(), items.end(),
                       [](std::string_view item) { return CharactersOf(item) > mostTextCharacters; });
}

std::string Refusal(const ProjectModel& model, const Control& control, std::string_view key, std::string_view value) {
    if (key == keys::name.key && Trim(value).empty())
        return "Der Name darf nicht leer sein.";
    if (key == keys::name.key && IsNameTaken(model, control, value))
        return "Dieser Name ist bereits vergeben.";
    if (key == keys::passchar.key && CharactersOf(value) != 1)
        return "Das Passwortzeichen muss genau ein Zeichen sein.";
    if (IsTooLong(value))
        return std::string(textTooLong);
    return {};
}

/// The text that the component gets: its own number changed by what follows "+=" or "-=".
std::string NewValue(const PropertyRow& row, const Control& control, const std::string& text) {
    const bool isStep = row.key->editor == EditorKind::Number && (text.starts_with("+=") || text.starts_with("-="));
    if (!isStep)
        return text;
    const int step = ToInt16(std::string_view(text).substr(2));
    return std::to_string(ToInt16(ToInt16(row.get(control)) + (text.front() == '+' ? step : -step)));
}

bool IsShared(const PropertyKey& key, const Selection& selected) {
    const bool isSize = key.key == keys::width.key || key.key == keys::height.key;
    return key.key != keys::name.key &&
           (!isSize || std::all_of(selected.begin(), selected.end(),
                                   [](ComponentRef component) { return CanBeSized(component.kind); }));
}

/// The rows that all the components have. Of each kind the rows are looked up once: the selection goes kind by kind.
class SharedRows {
  public:
    SharedRows(const ProjectModel& model, const Selection& selected) {
        for (const PropertyPanelRow& row : RowsFor(model.Element(*selected.Leader())))
            if (row.isCategory || IsShared({row.key, row.caption, {}, row.editor, row.detail}, selected)) {
                rows_.push_back({row, nullptr});
                rows_.back().shown.handler.clear(); // each has its own
            }
        std::optional<ComponentKind> kind;
        for (const ComponentRef component : selected) {
            const Control& control = model.Element(component);
            if (kind != component.kind)
                TurnTo(control);
            kind = component.kind;
            Compare(control);
        }
    }

    std::vector<PropertyPanelRow> Rows() && {
        std::vector<PropertyPanelRow> rows;
        for (Row& row : rows_) {
            if (row.shown.isCategory && !rows.empty() && rows.back().isCategory)
                rows.pop_back();
            rows.push_back(std::move(row.shown));
        }
        if (!rows.empty() && rows.back().isCategory)
            rows.pop_back();
        return rows;
    }

  private:
    struct Row {
        PropertyPanelRow shown;
        const PropertyRow* own; ///< of the kind at hand
    };

    void TurnTo(const Control& control) {
        std::erase_if(rows_, [&control](Row& row) {
            if (row.shown.isCategory)
                return false;
            row.own = FindRow(control, row.shown.key);
            return row.own == nullptr || row.own->key->label != row.shown.caption ||
                   row.own->key->editor != row.shown.editor || row.own->key->detail != row.shown.detail;
        });
    }

    void Compare(const Control& control) {
        for (auto& [shown, own] : rows_) {
            if (shown.isCategory || shown.differs || RowFor(control, *own).value == shown.value)
                continue;
            shown.differs = true;
            shown.value.clear();
        }
    }

    std::vector<Row> rows_;
};

/// The captions of a list's rows, or what its first field holds when the rows have none.
std::string ListSummary(const PropertyPanelRow& row, std::size_t mostBytes) {
    if (row.value.empty())
        return "(leer)";
    const std::vector<FieldDescriptor> fields = ParseRowDescriptor(row.detail).fields;
    const auto caption = std::find_if(fields.begin(), fields.end(),
                                      [](const FieldDescriptor& field) { return field.label == keys::value.label; });
    const auto column = static_cast<std::size_t>(caption == fields.end() ? 0 : caption - fields.begin());
    // Every row shown takes a byte at least, so more rows than bytes are never needed.
    const std::vector<std::string_view> values = Split(row.value, fieldSeparator, (mostBytes + 1) * fields.size());
    std::string summary;
    for (std::size_t value = column; value < values.size() && summary.size() <= mostBytes; value += fields.size())
        summary.append(value == column ? "" : ", ").append(values[value]);
    return summary;
}

} // namespace

std::string OnOneLine(EditorKind editor, std::string_view text) {
    if (editor != EditorKind::List)
        return SingleLine(text);
    std::vector<std::string> items = ListItems(text);
    std::transform(items.begin(), items.end(), items.begin(), [](const std::string& item) { return SingleLine(item); });
    return JoinList(items);
}

std::vector<PropertyPanelRow> LoadProperties(const ProjectModel& model, const Selection& selected) {
    return UnderLabel(loadLabel, [&] {
        if (selected.IsEmpty())
            return std::vector{Category("noobject", "Kein Objekt gewählt")};
        if (selected.IsSeveral())
            return SharedRows(model, selected).Rows();
        return RowsFor(model.Element(*selected.Leader()));
    });
}

std::string PropertyChanged(Document& document, std::string_view key, std::string_view value) {
    return UnderLabel(propertyChangedLabel, [&]() -> std::string {
        const Selection selected = document.AllSelected();
        const PropertyRow* first = nullptr;
        for (const ComponentRef component : selected) {
            const PropertyRow* row = FindRow(document.Model().Element(component), key);
            if (row == nullptr || (selected.IsSeveral() && !IsShared(*row->key, selected)))
                return {};
            first = row;
        }
        if (first == nullptr)
            return {};
        const std::string text = OnOneLine(first->key->editor, value);
        const auto change = [&](ProjectModel& model) {
            for (const ComponentRef component : selected) {
                Control& control = model.EditElement(component);
                const PropertyRow& row = *FindRow(control, key);
                row.set(control, NewValue(row, control, text));
            }
        };
        // Tried on a copy: a value that the components hold already is not refused, and a bad one is no step.
        ProjectModel trial = document.Model();
        change(trial);
        if (trial == document.Model())
            return {};
        std::string refusal = Refusal(document.Model(), document.Model().Element(*selected.Leader()), key, text);
        if (refusal.empty())
            document.Edit(Concatenate(first->key->label, " ändern"), change,
                          Concatenate("property ", key, " ", static_cast<int>(selected.Leader()->kind), " ",
                                      selected.Leader()->index));
        return refusal;
    });
}

std::vector<std::pair<std::string_view, std::string_view>> Choices(std::string_view detail) {
    std::vector<std::pair<std::string_view, std::string_view>> choices;
    const std::vector<std::string_view> parts = Split(detail, '|');
    for (std::size_t part = 0; part + 1 < parts.size(); part += 2)
        choices.emplace_back(parts[part], parts[part + 1]);
    return choices;
}

std::string ShownText(const PropertyPanelRow& row, std::size_t mostBytes) {
    if (row.differs)
        return "(verschieden)";
    if (row.editor == EditorKind::Choice)
        for (const auto& [value, label] : Choices(row.detail))
            if (value == row.value)
                return std::string(label);
    if (row.editor == EditorKind::List)
        return Shortened(ListSummary(row, mostBytes), mostBytes);
    return Shortened(row.value, mostBytes);
}

} // namespace pirol
