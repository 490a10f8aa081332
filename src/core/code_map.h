// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// A value for each code that a walk meets.
#pragma once

#include "foundation/fixed_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
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
        const Key key = keyOf(code);
        Slot& slot = slotOf(m_slots, key);
        if (slot.key != key) {
            slot = {key, make()};
            ++m_used;
        }
        return slot.value;
    }

    /// Calls visit(code, value) for all, in no order.
    template <class Visit>
    void each(const Visit& visit) const {
        for (const Slot& slot : m_slots) {
            if (slot.key != Key()) {
                std::array<char, N> code{};
                std::memcpy(code.data(), slot.key.data(), N);
                visit(FixedText<N>(std::string_view(code.data(), N)), slot.value);
            }
        }
    }

  private:
    // The code in words, which are compared and mixed in a fourth of the time of its characters. The mark behind them
    // tells a code from a free slot.
    using Word = std::uint64_t;
    using Key = std::array<Word, (N + sizeof(Word) - 1) / sizeof(Word)>;
    static_assert(N % sizeof(Word) != 0, "there is room for the mark");

    struct Slot {
        Key key{};
        Value value{};
    };

    static Key keyOf(const FixedText<N>& code) {
        Key key{};
        std::memcpy(key.data(), code.raw().data(), N);
        key.back() |= Word{1} << 63U;
        return key;
    }

    static Slot& slotOf(std::vector<Slot>& slots, const Key& key) {
        Word hash = 0;
        for (const Word word : key) {
            hash = (hash ^ word) * 0x9E3779B97F4A7C15ULL; // 2^64 over the golden ratio: mixes upwards
            hash ^= hash >> 32U;
        }
        std::size_t at = hash & (slots.size() - 1);
        while (slots[at].key != Key() && slots[at].key != key) {
            at = (at + 1) & (slots.size() - 1);
        }
        return slots[at];
    }

    void grow() {
        std::vector<Slot> larger(m_slots.empty() ? 1024 : 2 * m_slots.size());
        for (Slot& slot : m_slots) {
            if (slot.key != Key()) {
                slotOf(larger, slot.key) = std::move(slot);
            }
        }
        m_slots = std::move(larger);
    }

    std::vector<Slot> m_slots; // a power of two, half of them free
    std::size_t m_used = 0;
};

} // namespace vantor
