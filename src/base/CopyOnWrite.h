#pragma once

#include <atomic>
#include <cstddef>
#include <utility>

namespace pirol {

/// A value that its copies share until one of them changes. Copying costs a counter, whatever the size; the first
/// change after it copies the value. Several threads may hold copies; each single copy belongs to one thread at a time.
template <class Value>
class CopyOnWrite {
  public:
    CopyOnWrite() : shared_(new Shared) {}
    CopyOnWrite(const CopyOnWrite& other) noexcept : shared_(other.shared_) {
        shared_->owners.fetch_add(1, std::memory_order_relaxed);
    }
    /// Moving shares as well: there is no state without a value.
    CopyOnWrite(CopyOnWrite&& other) noexcept : CopyOnWrite(std::as_const(other)) {}
    CopyOnWrite& operator=(const CopyOnWrite& other) noexcept {
        CopyOnWrite copy(other);
        std::swap(shared_, copy.shared_);
        return *this;
    }
    CopyOnWrite& operator=(CopyOnWrite&& other) noexcept { return *this = std::as_const(other); }
    ~CopyOnWrite() {
        if (shared_->owners.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete shared_;
    }

    const Value& operator*() const { return shared_->value; }
    const Value* operator->() const { return &shared_->value; }

    /// The value to be changed, no longer shared. Raises std::bad_alloc, and the value is as it was, when there is no
    /// memory for the copy.
    Value& Edit() {
        // What other threads read of the value comes before what is written to it now.
        if (shared_->owners.load(std::memory_order_acquire) != 1) {
            CopyOnWrite own(shared_->value);
            std::swap(shared_, own.shared_);
        }
        return shared_->value;
    }

    /// Whether both are the same value in memory; then they are equal, too.
    bool SharesWith(const CopyOnWrite& other) const { return shared_ == other.shared_; }

    bool operator==(const CopyOnWrite& other) const {
        return SharesWith(other) || shared_->value == other.shared_->value;
    }

  private:
    struct Shared {
        Value value{};
        std::atomic<std::size_t> owners = 1;
    };

    explicit CopyOnWrite(const Value& value) : shared_(new Shared{value}) {}

    Shared* shared_;
};

} // namespace pirol
