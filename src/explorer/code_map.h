// Explorer: all flights in one table, on a world map, and checked.
// A value for each code that a walk meets.
#pragma once

#include "foundation/fixed_text.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor {

/// Remembers a value for each code, in one array that is searched from the code's own place on: a walk over a million
/// legs asks twice for each.
template <std::size_t N, class Value>
class CodeMap {
  public:
    /// The value of a code, made by make() when the code is met first. It holds until the next call.
    template <class Make>
    [[nodiscard]] Value& get(const FixedText<N>& code, const Make& make) {
        if (m_slots.size() < 2 * (m_used + 1)) {
            grow();
        }
        Slot& slot = slotOf(m_slots, code);
        if (!slot.used) {
            slot = {true, code, make()};
            ++m_used;
        }
        return slot.value;
    }

    /// Calls visit(code, value) for all, in no order.
    template <class Visit>
    void each(const Visit& visit) const {
        for (const Slot& slot : m_slots) {
            if (slot.used) {
                visit(slot.code, slot.value);
            }
        }
    }

  private:
    struct Slot {
        bool used = false;
        FixedText<N> code;
        Value value{};
    };

    static Slot& slotOf(std::vector<Slot>& slots, const FixedText<N>& code) {
        std::uint64_t hash = 14695981039346656037ULL; // FNV-1a
        for (const char c : code.raw()) {
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
        }
        std::size_t at = (hash ^ hash >> 32U) & (slots.size() - 1);
        while (slots[at].used && slots[at].code != code) {
            at = (at + 1) & (slots.size() - 1);
        }
        return slots[at];
    }

    void grow() {
        std::vector<Slot> larger(m_slots.empty() ? 1024 : 2 * m_slots.size());
        for (Slot& slot : m_slots) {
            if (slot.used) {
                slotOf(larger, slot.code) = std::move(slot);
            }
        }
        m_slots = std::move(larger);
    }

    std::vector<Slot> m_slots; // a power of two, half of them free
    std::size_t m_used = 0;
};

} // namespace vantor
