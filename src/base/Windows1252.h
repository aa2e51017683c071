#pragma once

#include <string>
#include <string_view>

namespace pirol {

/// Text as files hold it: one byte per character in Windows-1252. In memory all text is UTF-8.
/// The five codes that Windows-1252 leaves undefined stand for the control characters of the same number, so that any
/// file survives reading and writing byte for byte.

/// Decodes Windows-1252 bytes to UTF-8. Linear in the length.
std::string FromWindows1252(std::string_view bytes);

/// Encodes UTF-8 as Windows-1252. A character that Windows-1252 lacks becomes "?", and so does every byte that is not
/// part of well-formed UTF-8. Linear in the length; a text that is moved in is encoded in place.
std::string ToWindows1252(std::string utf8);

/// Whether the bytes are well-formed UTF-8, as plain ASCII is. Linear in the length.
bool IsUtf8(std::string_view bytes);

} // namespace pirol
