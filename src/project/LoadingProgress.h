#pragma once

#include <string_view>

namespace pirol {

/// Who shows how far loading a project has come. Called once per line, so showing must be cheap.
class LoadingProgress {
  public:
    virtual ~LoadingProgress() = default;

    virtual void SetMaximum(int maximum) = 0;
    virtual void SetValue(int value) = 0;
    virtual void SetCaption(std::string_view caption) = 0;
};

} // namespace pirol
