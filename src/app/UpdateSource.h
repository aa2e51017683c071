#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// Where new versions come from. It is settled when Pirol is built; nothing that the program reads can change it.
struct UpdateSource {
    std::string address;           ///< of the folder on the web server, with "/" at its end; empty when there is none
    std::vector<std::string> keys; ///< of whom lists are believed, 32 bytes each
    std::string authority;         ///< the only one that vouches for the server, DER; empty for those of the system

    bool IsThere() const { return !address.empty() && !keys.empty(); }
    std::string UrlOf(std::string_view name) const { return address + std::string(name); }
};

/// The source of the build's settings: an http or https address, keys in base64 with blanks between them, and the
/// authority's certificate in base64. There is no source when one of them is not right.
UpdateSource ReadUpdateSource(std::string_view address, std::string_view keys, std::string_view authority);

/// The name by which lists call the system that this program is built for.
extern const std::string_view updateSystem;

} // namespace pirol
