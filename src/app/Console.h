#pragma once

#include <string>
#include <vector>

namespace pirol {

/// The words of the program's call without its own name, in UTF-8, from what main was given.
std::vector<std::string> CallWords(int argumentCount, char** arguments);

/// While it lives, standard output and standard error go out byte for byte, and a Windows console shows them as UTF-8.
class PlainOutput {
  public:
    PlainOutput();
    PlainOutput(const PlainOutput&) = delete;
    PlainOutput& operator=(const PlainOutput&) = delete;
    ~PlainOutput(); // NOLINT(performance-trivially-destructible): on Windows there is something to undo

  private:
    [[maybe_unused]] unsigned codePageBefore_ = 0; // only a Windows console has one
};

} // namespace pirol
