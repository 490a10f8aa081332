// Foundation: what the whole program stands on and that knows nothing of traffic.
// Fields of a fixed width, as the files have them.
#pragma once

#include "foundation/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace vantor {

/// A field of exactly N characters: a longer value is cut, a shorter one is padded with blanks; neither is an error.
/// That silent cut enforces the widths of the files.
template <std::size_t N>
class FixedText {
  public:
    constexpr FixedText() noexcept { m_chars.fill(' '); }
    constexpr FixedText(std::string_view value) noexcept { assign(value); }
    constexpr FixedText& operator=(std::string_view value) noexcept {
        assign(value);
        return *this;
    }

    /// All N characters, padding included.
    [[nodiscard]] constexpr std::string_view raw() const noexcept { return {m_chars.data(), N}; }
    /// The value without blanks at both ends.
    [[nodiscard]] constexpr std::string_view text() const noexcept { return trim(raw()); }

    friend constexpr bool operator==(const FixedText&, const FixedText&) noexcept = default;

  private:
    constexpr void assign(std::string_view value) noexcept {
        value = value.substr(0, N);
        if (N > 16 || std::is_constant_evaluated()) {
            std::copy_n(value.data(), value.size(), m_chars.data());
            std::fill(m_chars.begin() + static_cast<std::ptrdiff_t>(value.size()), m_chars.end(), ' ');
        } else {
            assignShort(value);
        }
    }

    // Fields of a few characters are filled by the million, and calls of the library's copy and fill cost more than
    // their bytes do: two copies of a fixed length, which may overlap, do without them.
    void assignShort(std::string_view value) noexcept {
        if (value.size() >= 8) {
            assignEnds<std::uint64_t>(value);
        } else if (value.size() >= 4) {
            assignEnds<std::uint32_t>(value);
        } else if (value.size() >= 2) {
            assignEnds<std::uint16_t>(value);
        } else {
            const char only = value.empty() ? ' ' : value.front();
            m_chars.fill(' ');
            m_chars.front() = only;
        }
    }

    // The value may be a piece of this very field: it is read before anything is written.
    template <class Word>
    void assignEnds(std::string_view value) noexcept {
        Word first;
        Word last;
        const std::size_t behind = value.size() - sizeof(Word);
        std::memcpy(&first, value.data(), sizeof(Word));
        std::memcpy(&last, value.data() + behind, sizeof(Word));
        m_chars.fill(' ');
        std::memcpy(m_chars.data(), &first, sizeof(Word));
        std::memcpy(m_chars.data() + behind, &last, sizeof(Word));
    }

    std::array<char, N> m_chars;
};

} // namespace vantor
