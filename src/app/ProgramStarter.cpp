#include "app/ProgramStarter.h"

namespace pirol {

std::string CommandLine(const std::string& program, const std::string& folder) {
    return folder.empty() ? program : program + " \"" + folder + "\"";
}

} // namespace pirol
