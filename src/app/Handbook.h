#pragma once

#include <string>
#include <string_view>

namespace pirol {

struct HintRule;
struct KindRow;
struct PropertyKey;

/// The anchor under which links reach a chapter: its heading in lower case (Ä, Ö and Ü included), blanks become "-",
/// other signs than letters, digits and "-" are left out.
std::string ChapterAnchor(std::string_view heading);

/// Where the handbook explains a hint, a property or event, and a kind of component.
std::string AnchorOf(const HintRule& rule);
std::string AnchorOf(const PropertyKey& property);
std::string AnchorOf(const KindRow& kind);

/// The anchor of the chapter that explains a window, given by its name; that of the main window for an unknown one.
std::string_view ChapterOf(std::string_view window);

} // namespace pirol
