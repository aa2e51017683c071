#pragma once

#include <string>
#include <string_view>

namespace pirol {

/// The user's handbook, Markdown in UTF-8, as the program carries it.
std::string_view HandbookText();

/// A file that the handbook shows, by its path there ("screenshots/frmMain.png"); empty when there is none.
std::string_view HandbookPicture(std::string_view path);

/// The anchor under which links reach a chapter: its heading in lower case (Ä, Ö and Ü included), blanks become "-",
/// other signs than letters, digits and "-" are left out.
std::string ChapterAnchor(std::string_view heading);

/// The anchor of the chapter that explains a window, given by its name; that of the main window for an unknown one.
std::string_view ChapterOf(std::string_view window);

} // namespace pirol
