#pragma once

#include "model/ProjectModel.h"

#include <string>

namespace pirol {

/// What every design must be, whatever the user did to get there. The name of the first rule that the design breaks,
/// empty when it keeps them all.
std::string BrokenRule(const ProjectModel& model);

} // namespace pirol
