#include "app/UpdateSource.h"

#include "base/Conversions.h"
#include "base/Signature.h"

#include <algorithm>

namespace pirol {
namespace {

bool IsWebAddress(std::string_view address) {
    return (address.starts_with("https://") || address.starts_with("http://")) &&
           std::all_of(address.begin(), address.end(), [](char sign) { return sign > ' ' && sign < '\x7F'; });
}

} // namespace

#ifdef _WIN32
const std::string_view updateSystem = "windows";
#else
const std::string_view updateSystem = "debian";
#endif

UpdateSource ReadUpdateSource(std::string_view address, std::string_view keys, std::string_view authority) {
    UpdateSource source;
    const std::optional<std::string> certificate = FromBase64(authority);
    if (!IsWebAddress(address) || !certificate)
        return {};
    for (const std::string_view text : Split(keys, ' ')) {
        const std::optional<std::string> key = FromBase64(text);
        if (!key || key->size() != publicKeySize)
            return {};
        source.keys.push_back(*key);
    }
    source.address = address;
    if (!address.ends_with('/'))
        source.address += '/';
    source.authority = *certificate;
    return source;
}

} // namespace pirol
