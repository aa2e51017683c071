#pragma once

#include <string>

namespace pirol {

/// Starts other programs, so that tests can see what would be started.
class ProgramStarter {
  public:
    enum class Window { Normal, Minimised };

    virtual ~ProgramStarter() = default;

    /// Starts the program and does not wait for it; its window gets the focus. All texts are UTF-8. An empty folder
    /// means a start without arguments. Raises RuntimeError when the system refuses.
    virtual void Start(const std::string& program, const std::string& folder, Window window) = 0;

    /// Opens a file with the program that the system has for such files. False when it has none, or that one fails
    /// within a few seconds.
    virtual bool Open(const std::string& file) = 0;
};

/// The command line of such a start: the program's path as it is, and the folder between double quotes behind one
/// blank. So folders may hold blanks.
std::string CommandLine(const std::string& program, const std::string& folder);

} // namespace pirol
