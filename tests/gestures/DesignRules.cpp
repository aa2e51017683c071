#include "gestures/DesignRules.h"

#include "codegen/JavaGenerator.h"
#include "model/Conversions.h"
#include "model/RuntimeError.h"
#include "model/Windows1252.h"
#include "project/ProjectFile.h"

#include <algorithm>
#include <set>

namespace pirol {
namespace {

bool TemplatesAreHidden(const ProjectModel& model) {
    return std::none_of(KindRows().begin(), KindRows().end(), [&](const KindRow& row) {
        return model.Element({row.kind, 0}).Visible;
    });
}

bool EachElementIsInTheOrderOnce(const ProjectModel& model) {
    const std::vector<ComponentRef>& order = model.CreationOrder();
    std::size_t elements = 0;
    for (const KindRow& row : KindRows())
        elements += model.ElementCount(row.kind) - 1;
    const auto exists = [&](ComponentRef component) {
        return component.index > 0 && component.index < model.ElementCount(component.kind);
    };
    return order.size() == elements && std::set(order.begin(), order.end()).size() == elements &&
           std::all_of(order.begin(), order.end(), exists);
}

/// The source as the file would hold it, or the error that came instead.
std::string JavaOf(const ProjectModel& model) {
    try {
        return ToWindows1252(GenerateCode(model, {.menu = true, .database = true}));
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.ErrorNumber());
    }
}

/// The design without what a project file cannot hold.
ProjectModel Storable(ProjectModel model) {
    ProjectModel fresh;
    for (const ComponentRef component : std::vector(model.CreationOrder())) {
        Control& control = model.EditElement(component);
        const Control& untouched = fresh.Element(fresh.AddElement(component.kind));
        for (const PropertyRow& row : control.Table().Rows()) {
            if (row.fileField == notStored)
                row.set(control, row.get(untouched));
            // A list of one empty item is written as an empty list.
            else if (row.key->editor == EditorKind::List && row.key != &keys::optionbuttons &&
                     ListItems(row.get(control)) == std::vector<std::string>{""})
                row.set(control, JoinList({}));
        }
    }
    return model;
}

bool SavingKeepsTheProgram(const ProjectModel& model) {
    // Each reading crosses the text areas, so that the second one brings them back.
    ProjectModel once;
    ProjectModel twice;
    return ReadPRLBytes(GeneratePRLCode(model), once) == ReadResult::Loaded &&
           ReadPRLBytes(GeneratePRLCode(once), twice) == ReadResult::Loaded && JavaOf(twice) == JavaOf(Storable(model));
}

} // namespace

std::string BrokenRule(const ProjectModel& model) {
    const struct {
        const char* name;
        bool (*holds)(const ProjectModel&);
    } rules[] = {
        {"templates are hidden", TemplatesAreHidden},
        {"each element is in the order of creation once", EachElementIsInTheOrderOnce},
        {"saving and loading keeps the generated program", SavingKeepsTheProgram},
    };
    for (const auto& rule : rules)
        if (!rule.holds(model))
            return rule.name;
    return {};
}

} // namespace pirol
