// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Times and flight numbers of a million legs, a few thousand different ones.
#pragma once

#include "foundation/fixed_text.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace vantor {

/// The minute of the day of a text of eight characters HH:MM:SS with no seconds; -1 for any other. It looks at all
/// eight at once, which takes a third of the time of a walk over them.
[[nodiscard]] inline int plainMinute(const char* text) noexcept {
    static_assert(std::endian::native == std::endian::little, "the first byte of a word is its lowest");
    std::uint64_t digits = 0;
    std::memcpy(&digits, text, sizeof(digits));
    digits ^= 0x30303A30303A3030ULL; // digits become their values, the colons in their places 0
    constexpr std::uint64_t mostDigits = 0x0F0F000F0F000F0FULL;
    if ((digits & ~mostDigits) != 0 || ((digits + 0x0606060606060606ULL) & 0xF0F0F0F0F0F0F0F0ULL) != 0) {
        return -1;
    }
    const std::uint64_t pairs = digits * 10 + (digits >> 8U); // of two digits in the bytes 0, 3 and 6
    const auto hours = static_cast<int>(pairs & 0xFFU);
    const auto minutes = static_cast<int>(pairs >> 24U & 0xFFU);
    const auto seconds = static_cast<int>(pairs >> 48U & 0xFFU);
    return hours < 24 && minutes < 60 && seconds == 0 ? hours * 60 + minutes : -1;
}

/// A field of exactly twelve characters like FixedText<12>, of four bytes: each different text is kept once, for the
/// run of the program. The plain ones, times HH:MM:00 and numbers below 10,000, are known ahead; others are searched.
class LegText {
  public:
    using Text = FixedText<12>;

    constexpr LegText() noexcept = default;
    LegText(std::string_view value) : m_number(numberOf(value)) {}
    LegText& operator=(std::string_view value) {
        m_number = numberOf(value);
        return *this;
    }

    /// The text in full. It stands for the run of the program.
    operator const Text&() const noexcept { return texts[m_number / pieceSize][m_number % pieceSize]; }
    /// All characters, padding included.
    [[nodiscard]] std::string_view raw() const noexcept { return static_cast<const Text&>(*this).raw(); }
    /// The value without blanks at both ends.
    [[nodiscard]] std::string_view text() const noexcept { return static_cast<const Text&>(*this).text(); }
    /// The same for equal texts as long as the program runs, and for no others.
    [[nodiscard]] std::uint32_t number() const noexcept { return m_number; }
    /// The minute of the day of a text HH:MM:00, -1 for any other.
    [[nodiscard]] int minute() const noexcept {
        return m_number >= firstTime && m_number < firstPlain ? static_cast<int>(m_number - firstTime) : -1;
    }

    friend bool operator==(const LegText&, const LegText&) noexcept = default;

  private:
    static constexpr std::uint32_t blank = 0;
    static constexpr std::uint32_t firstTime = 1;
    static constexpr std::uint32_t firstPlain = firstTime + 24 * 60; // the number 0
    static constexpr std::uint32_t plainNumbers = 10000;
    static constexpr std::uint32_t firstOther = firstPlain + plainNumbers;
    static constexpr std::uint32_t pieceSize = 16384; // texts that stay in their place together

    static std::uint32_t numberOf(std::string_view value) {
        if (value.size() == 8) {
            if (const int minute = plainMinute(value.data()); minute >= 0) {
                return firstTime + static_cast<std::uint32_t>(minute);
            }
        } else if (value.size() <= 4 && !value.empty() && (value.front() != '0' || value.size() == 1)) {
            std::uint32_t number = 0;
            bool digits = true;
            for (const char c : value) {
                digits = digits && c >= '0' && c <= '9';
                number = number * 10 + static_cast<unsigned char>(c) - '0';
            }
            if (digits) {
                return firstPlain + number;
            }
        }
        return search(value);
    }
    static std::uint32_t search(std::string_view value);
    static std::vector<Text*> makeTexts();

    static std::vector<Text*> texts; // in pieces

    std::uint32_t m_number = blank;
};

} // namespace vantor
