#include "base/UserFolder.h"

#include "base/RuntimeError.h"

#include <cstdlib>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace pirol {
namespace {

namespace fs = std::filesystem;

fs::path FolderFrom(const char* variable) {
    const fs::path folder = PathOfVariable(variable);
    return folder.is_absolute() ? folder : fs::path();
}

/// Windows keeps the user's folders from all others.
bool IsOursAndOpenToOthers([[maybe_unused]] const fs::path& folder) {
#ifdef _WIN32
    return false;
#else
    struct stat status = {};
    return stat(folder.c_str(), &status) == 0 && status.st_uid == geteuid() &&
           (status.st_mode & (S_IRWXG | S_IRWXO)) != 0;
#endif
}

} // namespace

fs::path PathOfVariable(const char* variable) {
#ifdef _WIN32
    const std::wstring name(variable, variable + std::char_traits<char>::length(variable));
    const wchar_t* value = _wgetenv(name.c_str());
#else
    const char* value = std::getenv(variable);
#endif
    return value == nullptr ? fs::path() : fs::path(value);
}

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

fs::path StateFolder() {
#ifdef _WIN32
    const fs::path folder = UserFolder("LOCALAPPDATA", "AppData/Local");
    return folder.empty() ? folder : folder / "Pirol";
#else
    const fs::path folder = UserFolder("XDG_STATE_HOME", ".local/state");
    return folder.empty() ? folder : folder / "pirol";
#endif
}

void MakePrivateFolder(const fs::path& folder) {
    std::error_code error;
    if (!folder.is_absolute())
        throw RuntimeError(RuntimeError::PathNotFound);
    if (fs::create_directories(folder, error) || IsOursAndOpenToOthers(folder))
        fs::permissions(folder, fs::perms::owner_all, error);
    if (error)
        throw RuntimeError::OfFile(error);
}

bool IsPrivateFolder(const fs::path& folder) {
#ifdef _WIN32
    std::error_code error;
    return fs::is_directory(fs::symlink_status(folder, error));
#else
    struct stat status = {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
#endif
}

} // namespace pirol
