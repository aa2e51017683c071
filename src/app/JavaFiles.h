#pragma once

#include "codegen/JavaUpdate.h"
#include "model/ProjectModel.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// The Java files that designs were written to or read from while the program runs, and the names that the components
/// had then. A design is known again by its components' serial numbers, so that undo and redo need no help.
class JavaFiles {
  public:
    /// The file at the path, UTF-8, holds this design now. Linear in the number of components.
    void Remember(const std::string& path, const ProjectModel& model);

    /// The file that this design was written to or read from last; empty when there is none.
    std::string LastOf(const ProjectModel& model) const;

    /// The components and radio buttons whose names in the file are other ones than in the design.
    std::vector<NameChange> RenamesIn(const std::string& path, const ProjectModel& model) const;

  private:
    struct Names {
        std::string component;
        std::vector<std::string> radioButtons;
    };
    using NamesBySerial = std::map<std::uint64_t, Names>;
    struct File {
        std::string path;
        NamesBySerial names;
    };

    static Names NamesOf(const Control& control);
    std::vector<File>::const_iterator Find(std::string_view path) const;

    std::vector<File> files_; ///< the last one was used last
};

} // namespace pirol
