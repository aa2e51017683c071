#include "project/Snapshot.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

#include <array>
#include <charconv>
#include <vector>

namespace pirol {
namespace {

// A snapshot is a row of fields, each with its length before it, so that a field can hold anything: "6:Button".

void AddField(std::string& out, std::string_view text) {
    Append(out, text.size(), ":", text);
}

void AddField(std::string& out, int number) {
    AddField(out, std::to_string(number));
}

class Fields {
  public:
    explicit Fields(std::string_view text) : rest_(text) {}

    bool AtEnd() const { return rest_.empty(); }

    std::string_view Next() {
        std::size_t length = 0;
        const char* const end = rest_.data() + rest_.size();
        const auto [colon, error] = std::from_chars(rest_.data(), end, length);
        if (error != std::errc() || colon == end || *colon != ':')
            throw RuntimeError(RuntimeError::TypeMismatch);
        rest_.remove_prefix(static_cast<std::size_t>(colon - rest_.data()) + 1);
        if (length > rest_.size())
            throw RuntimeError(RuntimeError::IndexOutOfRange);
        const std::string_view field = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return field;
    }

    template <class Number = int>
    Number NextNumber() {
        const std::string_view field = Next();
        Number number = 0;
        const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
        if (error != std::errc() || end != field.data() + field.size())
            throw RuntimeError(RuntimeError::TypeMismatch);
        return number;
    }

  private:
    std::string_view rest_;
};

void AddSql(std::string& out, const SQLSettings& sql) {
    for (const SQLField& field : sqlFields)
        AddField(out, sql.*field.text);
    for (const std::int16_t flag : sql.Flags)
        AddField(out, flag);
}

void ReadSql(Fields& fields, SQLSettings& sql) {
    for (const SQLField& field : sqlFields)
        sql.*field.text = fields.Next();
    for (std::int16_t& flag : sql.Flags)
        flag = fields.NextNumber<std::int16_t>();
}

/// Stands at the end of a list of menus where another one would begin.
constexpr std::string_view noMenu;
constexpr std::string_view oneMenu = "+";

void AddMenus(std::string& out, const std::list<cMenu>& menus) {
    for (const cMenu& menu : menus) {
        AddField(out, oneMenu);
        AddField(out, menu.EntryType);
        AddField(out, menu.Name);
        AddField(out, menu.Caption);
        AddMenus(out, menu.Children());
    }
    AddField(out, noMenu);
}

void ReadMenus(Fields& fields, MenuBar& bar) {
    std::vector<cMenu*> path; // from the top-level menu to the one whose children come next
    while (true) {
        if (fields.Next() == noMenu) {
            if (path.empty())
                return;
            path.pop_back();
            continue;
        }
        if (path.size() > static_cast<std::size_t>(MenuBarReader::maxDepth))
            throw RuntimeError(RuntimeError::IndexOutOfRange);
        cMenu* menu = path.empty() ? &bar.Append({}, {}) : path.back()->AddEntry({}, cMenu::Entry);
        menu->EntryType = fields.NextNumber<std::int32_t>();
        menu->Name = fields.Next();
        menu->Caption = fields.Next();
        path.push_back(menu);
    }
}

template <class Function>
void ForEachProperty(const Control& control, Function&& function) {
    for (const std::vector<PropertyRow>* rows : {&CommonRows(), &control.Table().Rows()})
        for (const PropertyRow& row : *rows)
            function(row);
}

void AddComponent(std::string& out, const ProjectModel& model, ComponentRef component) {
    const Control& control = model.Element(component);
    AddField(out, static_cast<int>(component.kind));
    AddField(out, control.Visible ? 1 : 0);
    AddField(out, model.PlacementNumber(component));
    ForEachProperty(control, [&](const PropertyRow& row) { AddField(out, row.get(control)); });
}

void ReadComponent(Fields& fields, ProjectModel& model) {
    const auto kind = KindByNumber(fields.NextNumber());
    if (!kind)
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    const ComponentRef component = model.AddElement(*kind);
    const bool visible = fields.NextNumber() != 0;
    model.SetPlacementNumber(component, fields.NextNumber());
    Control& control = model.EditElement(component);
    ForEachProperty(control, [&](const PropertyRow& row) { row.set(control, fields.Next()); });
    control.Visible = visible;
}

} // namespace

std::string SnapshotOf(const OpenDesign& design) {
    constexpr std::size_t usualLength = 144;
    const ProjectModel& model = design.model;
    std::string out;
    out.reserve(model.CreationOrder().size() * usualLength);
    AddField(out, design.filePath);
    AddField(out, model.WindowWidth());
    AddField(out, model.WindowHeight());
    AddField(out, model.Author());
    AddSql(out, model.Sql());
    AddMenus(out, model.Menus().Menus());
    for (const ComponentRef component : model.CreationOrder())
        AddComponent(out, model, component);
    return out;
}

OpenDesign DesignOfSnapshot(std::string_view snapshot) {
    Fields fields(snapshot);
    OpenDesign design;
    ProjectModel& model = design.model;
    design.filePath = fields.Next();
    const auto width = fields.NextNumber<std::int16_t>();
    model.SetWindowSize(width, fields.NextNumber<std::int16_t>());
    model.SetAuthor(fields.Next());
    ReadSql(fields, model.EditSql());
    ReadMenus(fields, model.EditMenus());
    while (!fields.AtEnd())
        ReadComponent(fields, model);
    return design;
}

} // namespace pirol
