#include "views/movements.h"

#include "core/codes.h"
#include "core/schedule_walk.h"
#include "foundation/clock.h"
#include "foundation/numbers.h"

#include <string>

namespace vantor {

namespace {

constexpr StandardTrap trap{"sub countflights", "modCountFlights"};

void countOne(MovementHours& hours, int hour) {
    trap([&] {
        std::int16_t& count = hours[static_cast<std::size_t>(hour)];
        count = toInt16(count + 1.0);
    });
}

// A leg of a repeating schedule. Nothing wraps around midnight: it counts at its hour and at the repetitions that
// are left of the day.
void countRepeating(MovementHours& hours, int hour, std::string_view period) {
    countOne(hours, hour);
    const std::int32_t step = toInt32(val(period));
    if (step <= 0) {
        throw Error(ErrorCode::InvalidCall); // the next repetition would never come
    }
    for (std::int32_t h = hour; step < 24 - h;) {
        h += step;
        countOne(hours, h);
    }
}

} // namespace

void countflights(MovementHours& departures, MovementHours& arrivals, std::string_view icao,
                  std::int16_t day) noexcept {
    const std::string code = extractcode(icao);
    walkLegs(trap, WalkDeleted::Skip, [&](const ScheduleRec& schedule, const LegRec& leg, std::int32_t) {
        // The departure is tested first: a leg from the airport to itself is a departure alone.
        const bool departure = leg.fromicao.text() == code;
        if (!departure && leg.toicao.text() != code) {
            return;
        }
        // The views are disjoint: a weekly leg has a day, a repeating one counts in the daily view alone.
        if (schedule.weekly ? (departure ? leg.depday : leg.arrday) != day : day != dailyView) {
            return;
        }
        trap([&] {
            const int hour = hourOf(parseTime(departure ? leg.dep.raw() : leg.arr.raw()));
            MovementHours& hours = departure ? departures : arrivals;
            if (schedule.weekly) {
                countOne(hours, hour);
            } else {
                countRepeating(hours, hour, schedule.period.raw());
            }
        });
    });
}

} // namespace vantor
