#pragma once

#include "base/Colour.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace pirol {

/// A stretch of coloured text. Positions count UTF-16 units from 0, as text boxes do.
struct ColourSpan {
    std::size_t begin;
    std::size_t length;
    Colour colour;

    bool operator==(const ColourSpan&) const = default;
};

/// The colours of generated Java in the code viewer: ascending spans that do not overlap; what lies between them keeps
/// the box's own colour. Lines end in CR LF or, as text boxes hold them, in LF alone. Takes any text, in linear time.
///
/// The colouring is coarse on purpose, as the viewer is only a display aid: keywords are found inside longer words too
/// and colour everything up to the next blank, "(" or ".", even in another line; comments are found in strings. A
/// keyword without its delimiter and a quote without its partner colour nothing.
/// The misspelled name is the operation's own.
std::vector<ColourSpan> HightlightSyntax(std::u16string_view text);

} // namespace pirol
