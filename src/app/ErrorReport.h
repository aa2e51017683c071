#pragma once

#include "base/RuntimeError.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pirol {

/// Runs an operation and gives the error in which it ended; nothing when it succeeded. What the operation did before
/// it failed stays done. Running out of memory counts as RuntimeError::OutOfMemory, any other exception as
/// RuntimeError::InvalidCall, both without a label.
std::optional<RuntimeError> ErrorOf(const std::function<void()>& operation);

/// The text of the error report, UTF-8, lines separated by CR LF. An empty label is shown as "|Keine Angaben|"; the
/// mark "#func" within a description gives way to the label as well.
std::string ErrorReportText(int number, std::string_view description, std::string_view label);

/// What the user can do about an error: four paragraphs, UTF-8, separated by an empty line (CR LF CR LF).
std::string ErrorAdvice();

} // namespace pirol
