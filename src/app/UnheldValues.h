#pragma once

#include "designer/Document.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace pirol {

/// Knows which values of the present design are not known, because a project file does not hold them: those of the
/// components that came with another design and that the user has not set since. Undoing what he set makes them unknown
/// again.
class UnheldValues : private DocumentListener {
  public:
    explicit UnheldValues(Document& document);
    UnheldValues(const UnheldValues&) = delete;
    UnheldValues& operator=(const UnheldValues&) = delete;
    ~UnheldValues();

    /// Whether the value of a component's property is not known, as UpdateOptions asks. It speaks of the design as it
    /// is now, also when that changes later.
    std::function<bool(std::string_view component, std::string_view property)> Now() const;

  private:
    /// What is known of the one value of a component that a project file does not hold.
    struct Value {
        std::string last;           ///< when it was looked at last
        std::uint64_t knownSince{}; ///< a state of the document; unknown for none
    };
    static constexpr std::uint64_t always = 0;
    static constexpr std::uint64_t never = static_cast<std::uint64_t>(-1);

    void DocumentChanged(const DocumentChange& change) override;
    void ForgetStatesUndone();
    void Look(const Control& control, bool cameWithDesign);
    bool IsKnown(const Control& control) const;

    Document& document_;
    std::unordered_map<std::uint64_t, Value> values_; ///< by serial number
    std::uint64_t state_;                             ///< that was looked at last
    std::uint64_t newestState_;
};

} // namespace pirol
