#pragma once

#include <string>
#include <string_view>

namespace pirol {

/// The SHA-1 digest of the bytes as 40 upper-case hexadecimal digits. Texts are hashed as a project file holds them:
/// the caller encodes them as Windows-1252 first. Linear in the length; no memory beyond the result. The digest stores
/// only the lower 32 bits of the length in bits, so from 2^29 bytes on it is no longer SHA-1.
std::string HashFunction(std::string_view bytes);

} // namespace pirol
