#include "foundation/numbers.h"

#include "foundation/error.h"
#include "foundation/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>
#include <system_error>

namespace vantor {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Whole numbers of up to this many digits are exact in a double and need no conversion of the library.
constexpr std::size_t mostPlainDigits = 15;

// The value of a text of digits alone; nothing when it is longer or holds anything else.
std::optional<std::int64_t> plainNumber(std::string_view text) {
    if (text.empty() || text.size() > mostPlainDigits || !std::ranges::all_of(text, isDigit)) {
        return std::nullopt;
    }
    std::int64_t value = 0;
    for (const char c : text) {
        value = value * 10 + (c - '0');
    }
    return value;
}

bool isNumberSign(char c) {
    return c == '+' || c == '-' || c == '.' || c == 'E' || c == 'e';
}

// The number at the front of a text as val reads it, when it is digits and blanks alone; nothing for any other.
std::optional<double> plainFront(std::string_view text) {
    std::int64_t value = 0;
    std::size_t digits = 0;
    for (const char c : text) {
        if (isDigit(c) && ++digits <= mostPlainDigits) {
            value = value * 10 + (c - '0');
        } else if (isDigit(c) || isNumberSign(c)) {
            return std::nullopt;
        } else if (c != ' ') {
            break;
        }
    }
    return static_cast<double>(value);
}

// Walks over the longest number at the front of a text: [sign] digits [. digits] [E [sign] digits].
struct NumberScan {
    std::size_t length = 0; // characters that belong to the number, 0 when there is none
    bool plus = false;      // it starts with "+", which from_chars does not take
};

NumberScan scanNumber(std::string_view text) {
    NumberScan scan;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
        scan.plus = text[at] == '+';
        ++at;
    }
    std::size_t digits = 0;
    for (; at < text.size() && isDigit(text[at]); ++at) {
        ++digits;
    }
    if (at < text.size() && text[at] == '.') {
        ++at;
        for (; at < text.size() && isDigit(text[at]); ++at) {
            ++digits;
        }
    }
    if (digits == 0) {
        return scan;
    }
    scan.length = at;
    if (at < text.size() && (text[at] == 'E' || text[at] == 'e')) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) {
            ++exponent;
        }
        if (exponent < text.size() && isDigit(text[exponent])) {
            while (exponent < text.size() && isDigit(text[exponent])) {
                ++exponent;
            }
            scan.length = exponent;
        }
    }
    return scan;
}

// `text` is a number that scanNumber accepted whole. Out of range gives infinity or 0.
double convertScanned(std::string_view text, bool plus) {
    if (plus) {
        text.remove_prefix(1);
    }
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Not strtod, which looks for a comma where the locale of the C library has one.
        std::istringstream stream{std::string(text)};
        stream.imbue(std::locale::classic());
        if (!(stream >> value)) {
            value = std::copysign(std::numeric_limits<double>::infinity(), value);
        }
    }
    return value;
}

template <class Whole>
Whole toWhole(double value) {
    const double rounded = roundHalfEven(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<Whole>::max()))) {
        throw Error(ErrorCode::Overflow);
    }
    return static_cast<Whole>(rounded);
}

template <class Number>
std::string withExponentBeyond(Number value, int digits) {
    std::array<char, 64> buffer{};
    const Number size = std::fabs(value);
    const bool plain = size == 0 || (size >= static_cast<Number>(1e-4) && size < std::pow(Number{10}, Number(digits)));
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    std::string text(buffer.data(), end.ptr);
    upperInPlace(text);
    return text == "-0" ? "0" : text;
}

} // namespace

double val(std::string_view text) {
    if (const std::optional<double> plain = plainFront(text)) {
        return *plain;
    }
    std::string packed;
    for (const char c : text) {
        if (isDigit(c) || isNumberSign(c)) {
            packed.push_back(c);
        } else if (c != ' ') {
            break;
        }
    }
    const NumberScan scan = scanNumber(packed);
    if (scan.length == 0) {
        return 0;
    }
    const double value = convertScanned(std::string_view(packed).substr(0, scan.length), scan.plus);
    return std::isinf(value) ? std::copysign(std::numeric_limits<double>::max(), value) : value;
}

double parseNumber(std::string_view text) {
    const std::string_view bare = trim(text);
    if (const std::optional<std::int64_t> plain = plainNumber(bare)) {
        return static_cast<double>(*plain);
    }
    const NumberScan scan = scanNumber(bare);
    if (scan.length == 0 || scan.length != bare.size()) {
        throw Error(ErrorCode::TypeMismatch);
    }
    const double value = convertScanned(bare, scan.plus);
    if (std::isinf(value)) {
        throw Error(ErrorCode::Overflow);
    }
    return value;
}

float parseSingle(std::string_view text) {
    return toSingle(parseNumber(text));
}

std::int16_t parseInt16(std::string_view text) {
    const std::optional<std::int64_t> plain = plainNumber(trim(text));
    if (plain && *plain <= std::numeric_limits<std::int16_t>::max()) {
        return static_cast<std::int16_t>(*plain); // nearly all
    }
    return toInt16(parseNumber(text));
}

double roundHalfEven(double value) noexcept {
    return std::nearbyint(value); // the default rounding mode, which nothing in the program changes
}

std::int16_t toInt16(double value) {
    return toWhole<std::int16_t>(value);
}

std::int32_t toInt32(double value) {
    return toWhole<std::int32_t>(value);
}

std::int16_t valInt16(std::string_view text) {
    return toInt16(val(text));
}

std::int32_t valInt32(std::string_view text) {
    return toInt32(val(text));
}

float toSingle(double value) {
    // Half a step above the largest float: what lies below rounds to it, as its own shortest text does.
    constexpr double beyond = 0x1.ffffffp+127;
    if (!(std::fabs(value) < beyond)) {
        throw Error(ErrorCode::Overflow);
    }
    constexpr double largest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -largest, largest));
}

std::string printNumber(std::int32_t value) {
    return (value < 0 ? "" : " ") + std::to_string(value) + " ";
}

std::string shortestSingle(float value) {
    return withExponentBeyond(value, 7);
}

std::string generalNumber(double value) {
    std::array<char, 64> buffer{};
    // Fifteen digits first, so that sums of decimal fractions do not show their binary tail.
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, 14);
    double shown = value;
    std::from_chars(buffer.data(), end.ptr, shown);
    return withExponentBeyond(shown, 15);
}

std::string fixedNumber(double value, int places) {
    std::array<char, 400> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, places);
    return {buffer.data(), end.ptr};
}

std::string twoDigits(int value) {
    const std::string digits = std::to_string(value);
    return digits.size() < 2 ? "0" + digits : digits;
}

} // namespace vantor
