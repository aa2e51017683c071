#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// A setup program as the version list describes it.
struct OfferedFile {
    std::string system; ///< "windows" or "debian"
    std::string name;   ///< a plain name, beside the list
    std::uint64_t size = 0;
    std::string hash; ///< SHA-256, 64 lower-case hexadecimal digits

    bool operator==(const OfferedFile&) const = default;
};

/// What the server offers: the file "pirol_version.ver".
struct VersionList {
    std::uint32_t serial = 0; ///< grows with every list
    std::string expires;      ///< the last day on which the list counts, "2027-11-21"
    std::string version;
    std::vector<std::string> notes; ///< what is new, UTF-8
    std::vector<OfferedFile> files;
};

constexpr std::string_view versionListName = "pirol_version.ver";
/// No list is longer, in bytes.
constexpr std::size_t longestList = 65536;

/// Reads a list and believes it only when one of the keys (32 bytes each) has signed it. Raises UpdateError: too long,
/// unreadable or not signed. Linear in the length.
VersionList ReadVersionList(std::string_view bytes, std::span<const std::string> keys);

/// Reads what the signature covers: a list without its last line. Raises UpdateError when it is unreadable.
VersionList ReadSignedPart(std::string_view text);

/// Compares versions ("1.10.0") by their numbers; a missing one counts as 0. What is no version is equivalent to
/// nothing, not even to itself.
std::partial_ordering CompareVersions(std::string_view a, std::string_view b);

/// The program that asks.
struct InstalledProgram {
    std::string version;
    std::string system;              ///< as in OfferedFile
    std::uint32_t highestSerial = 0; ///< of all lists that were ever accepted here
    std::time_t now = 0;
};

/// A newer version for this program.
struct Offer {
    std::string version;
    std::vector<std::string> notes;
    OfferedFile file;
};

/// What a list means for a program; nothing when it has the newest version. Raises UpdateError: expired, outdated, an
/// older version, or nothing for this system.
std::optional<Offer> OfferOf(const VersionList& list, const InstalledProgram& program);

} // namespace pirol
