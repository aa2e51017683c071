#pragma once

#include "model/ProjectModel.h"

#include <string>
#include <string_view>

namespace pirol {

/// A design that was open, with the project file that it belongs to (UTF-8, empty for none).
struct OpenDesign {
    ProjectModel model;
    std::string filePath;
};

/// An open design as one text that holds all of it, byte for byte: what the project file leaves out (hidden components,
/// numbers of placement, the password's initial text and others), characters and line ends that it cannot hold, and the
/// project's path. Only for the same version of the program; a project file is what users keep. Linear in the design.
std::string SnapshotOf(const OpenDesign& design);

/// The design of a snapshot, equal to the one it was taken of.
/// Raises RuntimeError for a text that is no snapshot: IndexOutOfRange, TypeMismatch, Overflow.
OpenDesign DesignOfSnapshot(std::string_view snapshot);

} // namespace pirol
