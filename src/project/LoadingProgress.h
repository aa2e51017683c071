#pragma once

#include <string_view>

namespace pirol {

/// Shows how far loading a project has come. It is called once per line, so it must be fast.
class LoadingProgress {
  public:
    virtual ~LoadingProgress() = default;

    virtual void SetMaximum(int maximum) = 0;
    virtual void SetValue(int value) = 0;
    virtual void SetCaption(std::string_view caption) = 0;
};

} // namespace pirol
