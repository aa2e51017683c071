#include "base/UserFolder.h"

#include <cstdlib>

namespace pirol {
namespace {

namespace fs = std::filesystem;

fs::path FolderFrom(const char* variable) {
#ifdef _WIN32
    const std::wstring name(variable, variable + std::char_traits<char>::length(variable));
    const wchar_t* value = _wgetenv(name.c_str());
#else
    const char* value = std::getenv(variable);
#endif
    const fs::path folder = value == nullptr ? fs::path() : fs::path(value);
    return folder.is_absolute() ? folder : fs::path();
}

} // namespace

fs::path UserFolder(const char* variable, std::string_view belowHome) {
    if (fs::path folder = FolderFrom(variable); !folder.empty())
        return folder;
#ifdef _WIN32
    const fs::path home = FolderFrom("USERPROFILE");
#else
    const fs::path home = FolderFrom("HOME");
#endif
    return home.empty() ? home : home / belowHome;
}

} // namespace pirol
