#pragma once

#include "model/ProjectModel.h"

#include <string>

namespace pirol {

/// What the full reading of a source gave beyond the simple import, as the question whether to take it, German:
/// "... 3 Komponenten, 12 Ereignisse und 1 Menü mehr. Alles übernehmen?" Besides components, events and top-level menus
/// it counts further values: properties that differ in components of the same kind and name, the window's numbers, and
/// settings of the database. Empty when the full reading found nothing more. Linear in the size of the designs.
std::string QuestionForAll(const ProjectModel& simple, const ProjectModel& full);

} // namespace pirol
