// Foundation: what the whole program stands on and that knows nothing of traffic.
// Reading and printing of numbers, the same under every locale of the C library.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// The number at the front of a text: blanks are ignored wherever they stand, then sign, digits, one point and an E
/// exponent are taken as far as they go. No number gives 0. Any text is taken; a number beyond a double gives the
/// largest.
[[nodiscard]] double val(std::string_view text);

/// The whole text as a number: blanks around it, sign, digits, one point, E exponent. Anything else is error 13
/// (Type mismatch), a number beyond the type is error 6 (Overflow).
[[nodiscard]] double parseNumber(std::string_view text);
[[nodiscard]] float parseSingle(std::string_view text);
/// As parseNumber, then rounded to a whole number, halves to even.
[[nodiscard]] std::int16_t parseInt16(std::string_view text);

/// Rounded to a whole number, halves to even; outside the type (or not a number) is error 6 (Overflow).
[[nodiscard]] std::int16_t toInt16(double value);
[[nodiscard]] std::int32_t toInt32(double value);
/// `val` of a text as a whole number: raises as those two do.
[[nodiscard]] std::int16_t valInt16(std::string_view text);
[[nodiscard]] std::int32_t valInt32(std::string_view text);
/// The nearest 32-bit float; beyond the type is error 6 (Overflow).
[[nodiscard]] float toSingle(double value);
/// Rounded to a whole number, halves to even.
[[nodiscard]] double roundHalfEven(double value) noexcept;

/// A number as a print statement puts it into a file: a blank or minus sign, the digits, a blank behind.
[[nodiscard]] std::string printNumber(std::int32_t value);
/// The shortest text that reads back as the same 32-bit float: 250, 212.5, 1E+20.
[[nodiscard]] std::string shortestSingle(float value);
/// The shortest general text of a double of up to 15 digits; whole numbers show no point.
[[nodiscard]] std::string generalNumber(double value);
/// A number with a fixed count of decimal places, halves to even on the exact value.
[[nodiscard]] std::string fixedNumber(double value, int places);
/// A whole number of at least two digits with leading zeros, as in 07.
[[nodiscard]] std::string twoDigits(int value);

} // namespace vantor
