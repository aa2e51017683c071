#include "app/UpdateRecord.h"

#include "app/Registry.h"

#include <algorithm>

namespace pirol::updaterecord {
namespace {

constexpr std::string_view key = "Software\\Pirol";
constexpr std::string_view serialName = "UpdateSerial";
constexpr std::string_view lookName = "UpdateLook"; // in days, which fit into the store's numbers
constexpr std::time_t secondsPerDay = 86400;
constexpr std::time_t daysBetweenLooks = 7;

} // namespace

std::uint32_t HighestSerial() {
    return static_cast<std::uint32_t>(std::max(registry::ReadNumber(key, serialName), 0));
}

void AddSerial(std::uint32_t serial) {
    if (serial > HighestSerial())
        registry::WriteNumber(key, serialName, static_cast<std::int32_t>(serial));
}

bool IsLookDue(std::time_t now) {
    const std::time_t today = now / secondsPerDay;
    const std::time_t last = registry::ReadNumber(key, lookName);
    return today < last || today - last >= daysBetweenLooks;
}

void AddLook(std::time_t now) {
    registry::WriteNumber(key, lookName, static_cast<std::int32_t>(now / secondsPerDay));
}

} // namespace pirol::updaterecord
