#pragma once

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "codegen/JavaGenerator.h"
#include "project/ProjectFile.h"

#include <algorithm>
#include <set>
#include <string>

namespace pirol::rules {

inline bool TemplatesAreHidden(const ProjectModel& model) {
    return std::none_of(KindRows().begin(), KindRows().end(), [&](const KindRow& row) {
        return model.Element({row.kind, 0}).Visible;
    });
}

inline bool EachElementIsInTheOrderOnce(const ProjectModel& model) {
    const PagedArray<ComponentRef>& order = model.CreationOrder();
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
inline std::string JavaOf(const ProjectModel& model) {
    try {
        return ToWindows1252(GenerateCode(model, {.menu = true, .database = true}));
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.ErrorNumber());
    }
}

/// The design without what a project file cannot hold.
inline ProjectModel Storable(ProjectModel model) {
    ProjectModel fresh;
    const PagedArray<ComponentRef> order = model.CreationOrder();
    for (const ComponentRef component : order) {
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

inline bool SavingKeepsTheProgram(const ProjectModel& model) {
    // Each reading crosses the text areas, so that the second one brings them back.
    ProjectModel once;
    ProjectModel twice;
    const std::string written = GeneratePRLCode(model);
    return ReadPRLBytes(written, once) == ReadResult::Loaded &&
           ReadPRLBytes(GeneratePRLCode(once), twice) == ReadResult::Loaded && GeneratePRLCode(twice) == written &&
           JavaOf(twice) == JavaOf(Storable(model));
}

} // namespace pirol::rules

namespace pirol {

/// What every design must be, whatever the user did to get there. The first rule that the design breaks, empty when it
/// keeps them all.
inline std::string BrokenRule(const ProjectModel& model) {
    if (!rules::TemplatesAreHidden(model))
        return "templates are hidden";
    if (!rules::EachElementIsInTheOrderOnce(model))
        return "each element is in the order of creation once";
    if (!rules::SavingKeepsTheProgram(model))
        return "saving and loading keeps the file and the generated program";
    return {};
}

} // namespace pirol
