#pragma once

#include "model/ProjectModel.h"

#include <string>
#include <vector>

namespace pirol {

/// A list longer than this helps nobody; the differences stop there.
constexpr std::size_t mostDifferences = 1000;

/// What leads from one design to the other, in German, a line each, at most mostDifferences: window, components kind by
/// kind, menu bar, database. Components of one kind belong together when they have the same name, or else the same
/// place and size; those were renamed. Long values are shown from shortly before where they differ; passwords never.
/// Empty when the designs hold the same. Time grows little faster than the size of the designs.
std::vector<std::string> CompareDesigns(const ProjectModel& before, const ProjectModel& after);

} // namespace pirol
