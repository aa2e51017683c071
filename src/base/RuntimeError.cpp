#include "base/RuntimeError.h"

#include <cerrno>

namespace pirol {
namespace {

struct ErrorRow {
    int number;
    std::string_view description;
};

constexpr ErrorRow errors[] = {
    {RuntimeError::InvalidCall, "Ungültiger Prozeduraufruf"},
    {RuntimeError::Overflow, "Überlauf"},
    {RuntimeError::OutOfMemory, "Nicht genügend Speicher"},
    {RuntimeError::IndexOutOfRange, "Index außerhalb des gültigen Bereichs"},
    {RuntimeError::TypeMismatch, "Typen unverträglich"},
    {RuntimeError::BadFileName, "Dateiname oder -nummer falsch"},
    {RuntimeError::FileNotFound, "Datei nicht gefunden"},
    {RuntimeError::DeviceError, "E/A-Gerätefehler"},
    {RuntimeError::DiskFull, "Datenträger voll"},
    {RuntimeError::TooManyFiles, "Zu viele Dateien"},
    {RuntimeError::PermissionDenied, "Zugriff verweigert"},
    {RuntimeError::PathAccess, "Fehler beim Zugriff auf Pfad/Datei"},
    {RuntimeError::PathNotFound, "Pfad nicht gefunden"},
};

std::string_view DescriptionOf(int number) {
    for (const ErrorRow& row : errors)
        if (row.number == number)
            return row.description;
    return "Unbekannter Fehler";
}

struct FileErrorRow {
    std::errc code;
    RuntimeError::Number number;
};

constexpr FileErrorRow fileErrors[] = {
    {std::errc::no_such_file_or_directory, RuntimeError::FileNotFound},
    {std::errc::not_a_directory, RuntimeError::PathNotFound},
    {std::errc::permission_denied, RuntimeError::PermissionDenied},
    {std::errc::operation_not_permitted, RuntimeError::PermissionDenied},
    {std::errc::read_only_file_system, RuntimeError::PermissionDenied},
    {std::errc::text_file_busy, RuntimeError::PermissionDenied},
    {std::errc::device_or_resource_busy, RuntimeError::PermissionDenied},
    {std::errc::no_space_on_device, RuntimeError::DiskFull},
    {std::errc::file_too_large, RuntimeError::DiskFull},
    {std::errc::too_many_files_open, RuntimeError::TooManyFiles},
    {std::errc::too_many_files_open_in_system, RuntimeError::TooManyFiles},
    {std::errc::filename_too_long, RuntimeError::BadFileName},
    {std::errc::invalid_argument, RuntimeError::BadFileName},
    {std::errc::is_a_directory, RuntimeError::PathAccess},
    {std::errc::no_such_device, RuntimeError::PathAccess},
    {std::errc::no_such_device_or_address, RuntimeError::PathAccess},
    {std::errc::too_many_symbolic_link_levels, RuntimeError::PathAccess},
    {std::errc::interrupted, RuntimeError::PathAccess},
    {std::errc::file_exists, RuntimeError::PathAccess},
    {std::errc::directory_not_empty, RuntimeError::PathAccess},
    {std::errc::not_enough_memory, RuntimeError::OutOfMemory},
};

#ifdef _WIN32
bool IsQuota(const std::error_code& code) {
    constexpr int quotaExceeded = 1295;
    return code.category() == std::system_category() && code.value() == quotaExceeded;
}

bool IsStale(const std::error_code&) {
    return false;
}
#else
// The standard library has no names for these.
bool IsQuota(const std::error_code& code) {
    return code.value() == EDQUOT;
}

bool IsStale(const std::error_code& code) {
    return code.value() == ESTALE;
}
#endif

} // namespace

RuntimeError::RuntimeError(Number number) : number_(number), description_(DescriptionOf(number)) {
    text_ = "Fehler " + std::to_string(number_) + ": " + description_;
}

RuntimeError RuntimeError::OfFile(const std::error_code& code) {
    for (const FileErrorRow& row : fileErrors)
        if (code == row.code)
            return RuntimeError(row.number);
    if (IsQuota(code))
        return RuntimeError(DiskFull);
    if (IsStale(code))
        return RuntimeError(PathAccess);
    return RuntimeError(DeviceError);
}

void RuntimeError::SetLabel(std::string_view label) {
    label_ = label;
    text_ = "Fehler " + std::to_string(number_) + ": " + description_ + " (" + label_ + ")";
}

} // namespace pirol
