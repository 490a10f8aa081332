#include "foundation/clock.h"

#include "foundation/error.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace vantor {

namespace {

constexpr double secondsPerDay = 86400.0;

// 30 December 1899, the day 0 of date-time values.
constexpr std::chrono::sys_days dayZero = std::chrono::year{1899} / std::chrono::December / 30;

class SystemClock final : public Clock {
  public:
    DateTime now() override { return localDateTime(std::chrono::system_clock::now()); }
};

Clock* clockInUse = nullptr;

// The system's, unless another was put in use.
Clock& currentClock() noexcept {
    static SystemClock system;
    return clockInUse != nullptr ? *clockInUse : system;
}

// Reads a field of a time text from `at` on: `least` digits to two. -1 when there are fewer; more are left standing.
int timeField(std::string_view text, std::size_t& at, std::size_t least) {
    const std::size_t start = at;
    int value = 0;
    while (at < text.size() && at < start + 2 && text[at] >= '0' && text[at] <= '9') {
        value = value * 10 + (text[at++] - '0');
    }
    return at - start < least ? -1 : value;
}

bool takeColon(std::string_view text, std::size_t& at) {
    const bool isColon = at < text.size() && text[at] == ':';
    at += isColon ? 1 : 0;
    return isColon;
}

} // namespace

DateTime localDateTime(std::chrono::system_clock::time_point time) noexcept {
    const auto second = std::chrono::floor<std::chrono::seconds>(time);
    const std::time_t whole = std::chrono::system_clock::to_time_t(second);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &whole);
#else
    localtime_r(&whole, &local);
#endif
    const double fraction = std::chrono::duration<double>(time - second).count();
    const Date date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
    const double seconds = (local.tm_hour * 60.0 + local.tm_min) * 60.0 + local.tm_sec + fraction;
    return dayNumber(date) + seconds / secondsPerDay;
}

void useClock(Clock* clock) noexcept {
    clockInUse = clock;
}

DateTime now() {
    return currentClock().now();
}

std::int32_t today() {
    return static_cast<std::int32_t>(std::floor(now()));
}

float timer() {
    const DateTime time = now();
    return static_cast<float>((time - std::floor(time)) * secondsPerDay);
}

DateTime parseTime(std::string_view text) {
    const std::string_view bare = trim(text);
    std::size_t at = 0;
    const int hours = timeField(bare, at, 1);
    const int minutes = takeColon(bare, at) ? timeField(bare, at, 2) : -1;
    const int seconds = takeColon(bare, at) ? timeField(bare, at, 2) : 0;
    if (at != bare.size() || hours < 0 || hours > 23 || minutes < 0 || minutes > 59 || seconds < 0 || seconds > 59) {
        throw Error(ErrorCode::TypeMismatch);
    }
    return timeSerial(hours, minutes, seconds);
}

DateTime timeSerial(int hours, int minutes, int seconds) noexcept {
    return ((hours * 60.0 + minutes) * 60.0 + seconds) / secondsPerDay;
}

int secondsOfDay(DateTime value) noexcept {
    const double magnitude = std::fabs(value);
    const double seconds = roundHalfEven((magnitude - std::floor(magnitude)) * secondsPerDay);
    return seconds >= secondsPerDay ? 0 : static_cast<int>(seconds);
}

DateTime timeOfDay(DateTime value) noexcept {
    return secondsOfDay(value) / secondsPerDay;
}

int hourOf(DateTime value) noexcept {
    return secondsOfDay(value) / 3600;
}

int minuteOf(DateTime value) noexcept {
    return secondsOfDay(value) / 60 % 60;
}

std::string formatHHMMSS(DateTime value) {
    return formatHHMM(value) + ":" + twoDigits(secondsOfDay(value) % 60);
}

std::string formatHHMM(DateTime value) {
    return twoDigits(hourOf(value)) + ":" + twoDigits(minuteOf(value));
}

std::string formatHMM(DateTime value) {
    return std::to_string(hourOf(value)) + ":" + twoDigits(minuteOf(value));
}

Date dateOf(DateTime value) noexcept {
    const auto days = dayZero + std::chrono::days{static_cast<int>(std::floor(value))};
    const std::chrono::year_month_day date{days};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

std::int32_t dayNumber(const Date& date) noexcept {
    const std::chrono::sys_days days = std::chrono::year{date.year} / date.month / date.day;
    return static_cast<std::int32_t>((days - dayZero).count());
}

} // namespace vantor
