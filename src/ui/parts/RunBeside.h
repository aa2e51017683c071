#pragma once

#include <functional>

namespace pirol {

/// Runs work that can take long, or can wait for a disk, beside the window's thread and returns when it is done.
/// Meanwhile the windows are painted and take no input; what is typed comes behind it. What the work raises passes
/// through. The work must not touch windows.
void RunBeside(const std::function<void()>& work);

} // namespace pirol
