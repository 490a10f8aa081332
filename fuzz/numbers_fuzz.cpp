// Number texts, codes and capitals: readers agree with each other and with what is printed.
#include "core/aircraft_table.h"
#include "core/codes.h"
#include "foundation/code_page.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "fuzz.h"

#include <cmath>
#include <cstring>

namespace vantor::fuzz {

namespace {

constexpr std::initializer_list<ErrorCode> refusals = {ErrorCode::Overflow, ErrorCode::TypeMismatch};

void checkReading(std::string_view text) {
    require(std::isfinite(val(text)), "the number at the front is one");
    double number = 0;
    float single = 0;
    if (errorOf(refusals, [&] { number = parseNumber(text); }) != 0) {
        return;
    }
    require(text.size() > 500 || val(text) == number, "a whole number text is the number at its front");
    require(std::fabs(parseNumber(generalNumber(number)) - number) <= std::fabs(number) * 1e-14,
            "fifteen digits come back");
    if (errorOf(refusals, [&] { single = parseSingle(text); }) == 0) {
        require(parseSingle(shortestSingle(single)) == single, "a printed float comes back");
    }
    std::int32_t whole = 0;
    if (errorOf(refusals, [&] { whole = toInt32(number); }) == 0) {
        require(std::fabs(whole - number) <= 0.5 && val(printNumber(whole)) == whole, "a printed number comes back");
        const bool narrow = whole >= -32768 && whole <= 32767;
        require((errorOf(refusals, [&] { static_cast<void>(parseInt16(text)); }) == 0) == narrow, "16 bits are 16");
    }
}

void checkBits(std::string_view bytes) {
    float single = 0;
    if (bytes.size() >= sizeof single) {
        std::memcpy(&single, bytes.data(), sizeof single);
        if (std::isfinite(single)) {
            require(parseSingle(shortestSingle(single)) == single, "a printed float comes back");
        }
    }
}

} // namespace

void check(std::string_view input) {
    checkReading(input);
    checkBits(input);
    require(fromUtf8(toUtf8(input)) == input, "every byte has its UTF-8 form");
    static_cast<void>(fromUtf8(input));
    require(upper(lower(upper(input))) == upper(input) && upper(upper(input)) == upper(input), "capitals stay");
    require(equalNoCase(input, lower(input)) && !lessNoCase(input, upper(input)), "case makes no order");
    static_cast<void>(trueacnum(input));
    require(extractcode(input) == upper(trim(extractcode(input))), "a code is trimmed and in capitals");
    static_cast<void>(extracttitle(input));
    require(extractaircraft(input).empty() == !contains(input, "AC#"), "an aircraft code is found");
}

} // namespace vantor::fuzz
