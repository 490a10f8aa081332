// Foundation: what the whole program stands on and that knows nothing of traffic.
// Date-time values, time texts and the clock, which tests replace.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// A date-time value: whole days since 30 December 1899 and a fraction of a day.
using DateTime = double;

/// A calendar date.
struct Date {
    int year = 0;
    int month = 0; ///< 1 to 12
    int day = 0;   ///< 1 to 31
    friend bool operator==(const Date&, const Date&) = default;
};

/// Where the program takes the time from.
class Clock {
  public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;
    /// Local date and time.
    [[nodiscard]] virtual DateTime now() = 0;
};

/// A point in time as local date and time.
[[nodiscard]] DateTime localDateTime(std::chrono::system_clock::time_point time) noexcept;

/// Puts another clock in use; nullptr brings the system's back. The clock must outlive its use.
void useClock(Clock* clock) noexcept;

/// Local date and time by the clock in use.
[[nodiscard]] DateTime now();
/// Today as a whole day number.
[[nodiscard]] std::int32_t today();
/// Seconds since midnight as a 32-bit float, the timer that progress and pumps look at.
[[nodiscard]] float timer();

/// Reads H:MM, HH:MM, H:MM:SS or HH:MM:SS, blanks around, hours 0 to 23, minutes and seconds 0 to 59 in two digits,
/// as a fraction of a day. Anything else is error 13 (Type mismatch).
[[nodiscard]] DateTime parseTime(std::string_view text);
/// Hours, minutes and seconds as a fraction of a day.
[[nodiscard]] DateTime timeSerial(int hours, int minutes, int seconds) noexcept;

/// The seconds of the time of day, 0 to 86399, of a value rounded to the second first. A negative value shows the
/// time of its magnitude.
[[nodiscard]] int secondsOfDay(DateTime value) noexcept;
/// The time of day as a fraction, to the whole second.
[[nodiscard]] DateTime timeOfDay(DateTime value) noexcept;
/// Hour (0 to 23) and minute (0 to 59) of the time of day, rounded to the second first.
[[nodiscard]] int hourOf(DateTime value) noexcept;
[[nodiscard]] int minuteOf(DateTime value) noexcept;

/// The time of day in the patterns "HH:MM:SS", "HH:MM" and "H:MM"; rounded to the second first.
[[nodiscard]] std::string formatHHMMSS(DateTime value);
[[nodiscard]] std::string formatHHMM(DateTime value);
[[nodiscard]] std::string formatHMM(DateTime value);

/// The calendar date of a value, and the day number of a date.
[[nodiscard]] Date dateOf(DateTime value) noexcept;
[[nodiscard]] std::int32_t dayNumber(const Date& date) noexcept;

} // namespace vantor
