#include "app/SetupStart.h"

#include "base/FileAccess.h"
#include "base/RuntimeError.h"

namespace pirol {

#ifdef _WIN32

void StartSetup(const std::filesystem::path& setup, const std::string& project, ProgramStarter& starter) {
    starter.Start("\"" + TextOf(setup) + "\"", "/UPDATE=" + project, ProgramStarter::Window::Normal);
}

#else

void StartSetup(const std::filesystem::path& setup, const std::string& /*project*/, ProgramStarter& starter) {
    if (!starter.Open(TextOf(setup)))
        throw RuntimeError(RuntimeError::PathAccess);
}

#endif

} // namespace pirol
