#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace pirol {

/// Values by name, in the order in which the names came. The names are views that must outlive it. A source holds them
/// by the ten thousand: here they lie side by side instead of in a piece of memory each, and cost a third of the time.
template <class Value>
class NameMap {
  public:
    struct Entry {
        std::string_view name;
        Value value;
    };

    /// Makes room for so many names.
    void Reserve(std::size_t count) {
        entries_.reserve(count);
        std::size_t slots = smallest;
        while (slots < 2 * count)
            slots *= 2;
        if (slots > slots_.size())
            Spread(slots);
    }

    /// The entry of a name, and whether it is new; one that was there keeps its value. Ends the life of pointers.
    std::pair<Entry*, bool> Add(std::string_view name, Value value) {
        if (2 * entries_.size() >= slots_.size())
            Reserve(2 * entries_.size() + 1);
        const auto hash = HashOf(name);
        Slot& slot = slots_[SlotOf(name, hash)];
        const bool isNew = slot.number == 0;
        if (isNew) {
            entries_.push_back({name, std::move(value)});
            slot = {hash, static_cast<std::uint32_t>(entries_.size())};
        }
        return {&entries_[slot.number - 1], isNew};
    }

    /// The value of a name, or null.
    const Value* Find(std::string_view name) const {
        const std::uint32_t number = NumberOf(name);
        return number == none ? nullptr : &entries_[number].value;
    }
    Value* Find(std::string_view name) { return const_cast<Value*>(std::as_const(*this).Find(name)); }
    bool Contains(std::string_view name) const { return Find(name) != nullptr; }

    /// Entries by their numbers: the first name that came has 0.
    static constexpr std::uint32_t none = static_cast<std::uint32_t>(-1);
    std::uint32_t NumberOf(std::string_view name) const {
        return slots_.empty() ? none : slots_[SlotOf(name, HashOf(name))].number - 1;
    }
    const Entry& operator[](std::uint32_t number) const { return entries_[number]; }
    Entry& operator[](std::uint32_t number) { return entries_[number]; }

    std::size_t Size() const { return entries_.size(); }
    bool Empty() const { return entries_.empty(); }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }
    auto begin() { return entries_.begin(); }
    auto end() { return entries_.end(); }

  private:
    static constexpr std::size_t smallest = 16;

    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = 0; ///< of the entry, from 1
    };

    static std::uint32_t HashOf(std::string_view name) {
        return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
    }

    /// The slot that holds the name, or the free one where it belongs.
    std::size_t SlotOf(std::string_view name, std::uint32_t hash) const {
        std::size_t place = hash & (slots_.size() - 1);
        while (slots_[place].number != 0 &&
               (slots_[place].hash != hash || entries_[slots_[place].number - 1].name != name))
            place = (place + 1) & (slots_.size() - 1);
        return place;
    }

    void Spread(std::size_t count) {
        std::vector<Slot> before(count);
        before.swap(slots_);
        for (const Slot& slot : before) {
            std::size_t place = slot.hash & (count - 1);
            while (slot.number != 0 && slots_[place].number != 0)
                place = (place + 1) & (count - 1);
            if (slot.number != 0)
                slots_[place] = slot;
        }
    }

    std::vector<Entry> entries_;
    std::vector<Slot> slots_; // their number is a power of two, at least twice that of the entries
};

} // namespace pirol
