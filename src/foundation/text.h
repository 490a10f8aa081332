// Foundation: what the whole program stands on and that knows nothing of traffic.
// Texts are 8-bit bytes of the system's code page; capitals and case-blind comparison follow that code page.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace vantor {

/// The capital of one byte of the code page (the ANSI code page on Windows, Windows-1252 elsewhere).
[[nodiscard]] char upperChar(char c) noexcept;
/// The small letter of one byte of the code page.
[[nodiscard]] char lowerChar(char c) noexcept;
/// `text` in capitals.
[[nodiscard]] std::string upper(std::string_view text);
/// `text` in small letters.
[[nodiscard]] std::string lower(std::string_view text);
/// Puts `text` into capitals in place.
void upperInPlace(std::string& text) noexcept;

/// `text` without blanks (32) at both ends; no other white space is taken off.
[[nodiscard]] constexpr std::string_view trim(std::string_view text) noexcept {
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    return text;
}

/// Equality without regard to case.
[[nodiscard]] bool equalNoCase(std::string_view a, std::string_view b) noexcept;
/// The order of sorted lists: capitals compared byte by byte.
[[nodiscard]] bool lessNoCase(std::string_view a, std::string_view b) noexcept;
/// Whether `text` holds `part`, both put into capitals. An empty part is held by every text.
[[nodiscard]] bool containsNoCase(std::string_view text, std::string_view part) noexcept;
/// Whether `text` holds `part` exactly.
[[nodiscard]] constexpr bool contains(std::string_view text, std::string_view part) noexcept {
    return text.find(part) != std::string_view::npos;
}

/// Calls take(position) for each `wanted` in `text`, in order. It looks at eight bytes at a time, which for fields of a
/// few characters takes a third of the time of as many searches.
template <class Take>
void forEachPosition(std::string_view text, char wanted, const Take& take) {
    static_assert(std::endian::native == std::endian::little, "the first byte of a word is its lowest");
    constexpr std::uint64_t low7 = 0x7F7F7F7F7F7F7F7FULL;
    const std::uint64_t pattern = 0x0101010101010101ULL * static_cast<unsigned char>(wanted);
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof(word) <= text.size(); at += sizeof(word)) {
        std::memcpy(&word, text.data() + at, sizeof(word));
        word ^= pattern; // the wanted ones become zero bytes, and the line below marks just these by their top bits
        for (std::uint64_t hits = ~(((word & low7) + low7) | word | low7); hits != 0; hits &= hits - 1) {
            take(at + static_cast<std::size_t>(std::countr_zero(hits)) / 8);
        }
    }
    for (; at < text.size(); ++at) {
        if (text[at] == wanted) {
            take(at);
        }
    }
}

/// Every `from` in `text` replaced by `to`, left to right, what was put in not looked at again.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);
/// The pieces of `text` between each `separator`; one empty piece for an empty text.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, std::string_view separator);
/// The lines of a whole file. They end at CR LF alone when there is one, and else, as other systems' editors save, at
/// each lone LF or CR. What follows the last end is a line too, empty or not.
[[nodiscard]] std::vector<std::string_view> splitLines(std::string_view text);

/// The UTF-8 form of a text of the code page, and back ('?' for what the code page lacks).
[[nodiscard]] std::string toUtf8(std::string_view text);
[[nodiscard]] std::string fromUtf8(std::string_view utf8);

/// A field of exactly N characters: a longer value is cut without a word, a shorter one padded with blanks.
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
