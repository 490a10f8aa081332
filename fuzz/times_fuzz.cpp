// Time texts and date-time values: what is read is printed, and any value shows a time of day.
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/clock.h"
#include "fuzz.h"

#include <cmath>
#include <cstring>

namespace vantor::fuzz {

void check(std::string_view input) {
    DateTime time = 0;
    if (errorOf({ErrorCode::TypeMismatch}, [&] { time = parseTime(input); }) == 0) {
        require(time >= 0 && time < 1, "a time is within a day");
        require(parseTime(formatHHMMSS(time)) == time, "a printed time comes back");
        require(std::fabs(parseTime(formatHMM(time)) - time) * 86400 < 60, "without seconds it is the same minute");
    }
    double value = 0;
    if (input.size() < sizeof value) {
        return;
    }
    std::memcpy(&value, input.data(), sizeof value);
    if (std::isfinite(value)) {
        require(formatHHMMSS(value).size() == 8 && parseTime(formatHHMMSS(value)) < 1, "every value has a time of day");
        gmtoffset = static_cast<float>(std::fmod(value, 0.6));
        require(std::isfinite(applygmtoffset(std::fmod(value, 100000))), "an offset leaves a time");
        require(gmtstring().find("GMT") < 2, "an offset has a label");
    }
    if (std::fabs(value) < 3e6) {
        require(dayNumber(dateOf(value)) == std::floor(value), "a date is its day number");
    }
}

} // namespace vantor::fuzz
