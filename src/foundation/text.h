// Foundation: what the whole program stands on and that knows nothing of traffic.
// Texts are 8-bit bytes of the system's code page; capitals and case-blind comparison follow that code page.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
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

/// Every `from` in `text` replaced by `to`, left to right, what was put in not looked at again.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);
/// The pieces of `text` between each `separator`; one empty piece for an empty text.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, std::string_view separator);

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
        const std::size_t length = std::min(value.size(), N);
        std::copy_n(value.data(), length, m_chars.data());
        std::fill(m_chars.begin() + static_cast<std::ptrdiff_t>(length), m_chars.end(), ' ');
    }

    std::array<char, N> m_chars;
};

} // namespace vantor
