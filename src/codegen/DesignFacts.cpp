#include "codegen/DesignFacts.h"

#include "base/Conversions.h"
#include "base/Text.h"

#include <algorithm>

namespace pirol {
namespace {

/// A text as one line; control characters as their codes.
std::string InLine(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string line;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < ' ')
            Append(line, "\\x", digits.substr(code / 16, 1), digits.substr(code % 16, 1));
        else
            line += character;
    }
    return line;
}

std::string Quoted(std::string_view text) {
    return Concatenate("»", InLine(text), "«");
}

/// The word of a choice's number; the number itself when it has none.
std::string ChoiceWord(std::string_view choices, const std::string& number) {
    const std::vector<std::string_view> pieces = Split(choices, '|');
    for (std::size_t at = 0; at + 1 < pieces.size(); at += 2)
        if (pieces[at] == number)
            return std::string(pieces[at + 1]);
    return number;
}

/// The columns of a list's rows: a descriptor has name, type and default of each behind the row's own name.
std::vector<std::string_view> ColumnsOf(std::string_view descriptor) {
    const std::vector<std::string_view> pieces = Split(descriptor, '|');
    std::vector<std::string_view> columns;
    for (std::size_t at = 1; at < pieces.size(); at += 3)
        columns.push_back(pieces[at]);
    return columns;
}

std::vector<std::string> ListLines(std::string_view descriptor, const std::string& list) {
    const std::vector<std::string_view> columns = ColumnsOf(descriptor);
    const std::vector<std::string> values = ListItems(list);
    std::vector<std::string> lines;
    lines.reserve(values.size() / columns.size());
    for (std::size_t begin = 0; begin + columns.size() <= values.size(); begin += columns.size()) {
        std::string line = columns.size() == 1 ? Quoted(values[begin]) : std::string();
        for (std::size_t column = 0; column < columns.size() && columns.size() > 1; ++column)
            Append(line, column == 0 ? "" : ", ", columns[column], " ", InLine(values[begin + column]));
        lines.push_back(std::move(line));
    }
    return lines;
}

std::string ValueText(const PropertyKey& key, const std::string& value) {
    switch (key.editor) {
    case EditorKind::Number:
        return value;
    case EditorKind::Flag:
        return ConvertToBoolean(value) ? "an" : "aus";
    case EditorKind::Choice:
        return ChoiceWord(key.detail, value);
    case EditorKind::Text:
    case EditorKind::Character:
    case EditorKind::File:
    case EditorKind::List:
        break;
    }
    return Quoted(value);
}

/// Lines and their levels tell the whole tree.
std::string MenuLine(const cMenu& line, int level) {
    constexpr std::string_view words[] = {"Menü", "Untermenü", "Menüzeile", "Trennlinie"};
    std::string text(words[std::clamp<std::int32_t>(line.EntryType, cMenu::Menu, cMenu::Separator)]);
    if (line.EntryType != cMenu::Separator)
        Append(text, " ", Quoted(line.Caption));
    if (!line.Name.empty())
        Append(text, ", Name ", InLine(line.Name));
    if (line.Parent() != nullptr)
        Append(text, " in ", Quoted(line.Parent()->Caption), ", Ebene ", level);
    return text;
}

void AddMenuLines(const std::list<cMenu>& menus, int level, std::vector<std::string>& lines) {
    for (const cMenu& menu : menus) {
        lines.push_back(MenuLine(menu, level));
        AddMenuLines(menu.Children(), level + 1, lines);
    }
}

void AppendFact(std::string& text, const DesignFact& fact) {
    if (fact.isList) {
        for (const std::string& item : fact.items)
            Append(text, "    ", fact.label, ": ", item, "\n");
        return;
    }
    Append(text, "    ", fact.label, ": ", fact.isSecret ? "(wird nicht gezeigt)" : fact.value, "\n");
}

void AppendPart(std::string& text, std::string_view heading, const std::vector<DesignFact>& facts) {
    Append(text, heading, "\n");
    for (const DesignFact& fact : facts)
        AppendFact(text, fact);
}

} // namespace

std::vector<DesignFact> WindowFacts(const ProjectModel& model) {
    return {{"Breite", std::to_string(model.WindowWidth())},
            {"Höhe", std::to_string(model.WindowHeight())},
            {"Autor", Quoted(model.Author())}};
}

DesignFact MenuFact(const MenuBar& menus) {
    DesignFact fact{"Menüleiste", {}, true};
    AddMenuLines(menus.Menus(), 0, fact.items);
    return fact;
}

std::vector<DesignFact> DatabaseFacts(const SQLSettings& sql) {
    std::vector<DesignFact> facts;
    for (const SQLField& field : sqlFields)
        facts.push_back({field.Name(), Quoted(sql.*field.text), false, field.unreadable && !(sql.*field.text).empty()});
    for (std::size_t i = 0; i < sqlFunctionCount; ++i)
        facts.push_back({SQLFunctions()[i].Name(), sql.HasFunction(i) ? "an" : "aus"});
    return facts;
}

DesignFact FactOf(const Control& control, const PropertyRow& row) {
    if (row.key->editor == EditorKind::List)
        return {row.key->label, {}, true, false, ListLines(row.key->detail, row.get(control))};
    return {row.key->label, ValueText(*row.key, row.get(control))};
}

std::string NameOf(const Control& control) {
    return Concatenate(RowOf(control.Kind()).javaClass, " ", InLine(control.ObjectName));
}

std::string DesignText(const ProjectModel& model) {
    std::string text;
    AppendPart(text, "Fenster", WindowFacts(model));
    model.ForEachVisible([&text](const Control& control) {
        Append(text, NameOf(control), "\n");
        for (const std::vector<PropertyRow>* rows : {&CommonRows(), &control.Table().Rows()})
            for (const PropertyRow& row : *rows)
                if (row.key != &keys::name)
                    AppendFact(text, FactOf(control, row));
    });
    AppendPart(text, "Menüs", {MenuFact(model.Menus())});
    AppendPart(text, "Datenbank", DatabaseFacts(model.Sql()));
    return text;
}

} // namespace pirol
