#include "codegen/ImportComparison.h"

#include "base/Text.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pirol {
namespace {

/// What the question counts.
struct Counts {
    std::size_t components = 0;
    std::size_t events = 0;
    std::size_t menus = 0;
    std::size_t values = 0;
};

struct CountRow {
    std::size_t Counts::*count;
    std::string_view one;
    std::string_view several;
};

/// In the order of the question.
constexpr CountRow countRows[] = {
    {&Counts::components, "Komponente", "Komponenten"},
    {&Counts::events, "Ereignis", "Ereignisse"},
    {&Counts::menus, "Menü", "Menüs"},
    {&Counts::values, "Angabe", "Angaben"},
};

std::size_t CountEvents(const Control& control) {
    std::size_t count = 0;
    for (const PropertyRow& row : control.Table().Rows())
        count += row.isOn != nullptr && row.isOn(control) ? 1 : 0;
    return count;
}

Counts CountsOf(const ProjectModel& model) {
    Counts counts;
    model.ForEachVisible([&counts](const Control& control) {
        ++counts.components;
        counts.events += CountEvents(control);
    });
    counts.menus = model.Menus().Menus().size();
    return counts;
}

std::size_t DifferentValues(const Control& simple, const Control& full) {
    std::size_t count = 0;
    for (const std::vector<PropertyRow>* rows : {&CommonRows(), &full.Table().Rows()})
        for (const PropertyRow& row : *rows)
            count += row.isOn == nullptr && row.get(simple) != row.get(full) ? 1 : 0;
    return count;
}

std::size_t DifferentComponentValues(const ProjectModel& simple, const ProjectModel& full) {
    std::array<std::unordered_map<std::string_view, const Control*>, kindCount> byName;
    simple.ForEachVisible([&byName](const Control& control) {
        byName[Position(control.Kind())].try_emplace(control.ObjectName, &control);
    });
    std::size_t count = 0;
    full.ForEachVisible([&](const Control& control) {
        const auto& names = byName[Position(control.Kind())];
        if (const auto found = names.find(control.ObjectName); found != names.end())
            count += DifferentValues(*found->second, control);
    });
    return count;
}

/// Settings that only the full reading has.
std::size_t FurtherSettings(const ProjectModel& simple, const ProjectModel& full) {
    std::size_t count = full.WindowWidth() != simple.WindowWidth() ? 1 : 0;
    count += full.WindowHeight() != simple.WindowHeight() ? 1 : 0;
    const SQLSettings& sql = full.Sql();
    for (const SQLField& field : sqlFields)
        count += !(sql.*field.text).empty() && sql.*field.text != simple.Sql().*field.text ? 1 : 0;
    for (std::size_t index = 0; index < sqlFunctionCount; ++index)
        count += sql.HasFunction(index) && !simple.Sql().HasFunction(index) ? 1 : 0;
    return count;
}

} // namespace

std::string QuestionForAll(const ProjectModel& simple, const ProjectModel& full) {
    const Counts less = CountsOf(simple);
    Counts more = CountsOf(full);
    more.values = DifferentComponentValues(simple, full) + FurtherSettings(simple, full);
    std::vector<std::string> parts;
    for (const CountRow& row : countRows)
        if (more.*row.count > less.*row.count) {
            const std::size_t count = more.*row.count - less.*row.count;
            parts.push_back(Concatenate(count, " ", count == 1 ? row.one : row.several));
        }
    if (parts.empty())
        return {};
    std::string question = "Die vollständige Auswertung findet " + parts.front();
    for (std::size_t index = 1; index < parts.size(); ++index)
        question += (index + 1 == parts.size() ? " und " : ", ") + parts[index];
    return question + " mehr. Alles übernehmen?";
}

} // namespace pirol
