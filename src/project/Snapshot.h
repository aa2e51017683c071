#pragma once

#include "model/ProjectModel.h"

#include <string>
#include <string_view>

namespace pirol {

/// A design as one text that holds all of it, byte for byte: what the project file leaves out (hidden components,
/// numbers of placement, the password's initial text and others), characters and line ends that it cannot hold, and the
/// project's path. Only for the same version of the program; a project file is what users keep. Linear in the design.
std::string SnapshotOf(const ProjectModel& model);

/// The design of a snapshot, equal to the one it was taken of. It counts as changed: nobody has saved it.
/// Raises RuntimeError for a text that is no snapshot: IndexOutOfRange, TypeMismatch, Overflow.
ProjectModel DesignOfSnapshot(std::string_view snapshot);

} // namespace pirol
