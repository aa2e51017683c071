#pragma once

#include "codegen/NameMap.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace pirol {

/// Texts that a source is likely to hold, each alone in its lines and mostly in their order. Each is found once.
class KnownTexts {
  public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    KnownTexts() = default;
    /// None of the texts may be empty; they must outlive it.
    explicit KnownTexts(std::vector<std::string_view> texts) : texts_(std::move(texts)), found_(texts_.size(), false) {}

    std::string_view operator[](std::size_t number) const { return texts_[number]; }

    /// The number of a text that stands at the position and ends with its line, or none. A few texts are compared that
    /// follow the last one found; only where many in turn are not there all are looked through.
    std::size_t Find(std::string_view source, std::size_t begin);

  private:
    bool StandsAt(std::size_t number, std::string_view source, std::size_t begin) const;
    std::size_t FindAnywhere(std::string_view source, std::size_t begin);

    std::vector<std::string_view> texts_;
    std::vector<bool> found_;
    std::size_t next_ = 0;
    std::size_t missed_ = 0;               ///< since the last one found
    NameMap<std::uint32_t> byFirstLine_; ///< when first needed
};

} // namespace pirol
