#pragma once

#include <future>

namespace pirol {

/// Has the system read its rules for fonts beside the rest of a start, of which they take a quarter. To be waited for
/// before the first letter: two readings at once would be twice the work. Nothing to do where fonts are found
/// otherwise.
std::future<void> BeginFontSearch();

} // namespace pirol
