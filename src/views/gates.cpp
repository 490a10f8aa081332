#include "views/gates.h"

#include "core/codes.h"
#include "core/schedule_walk.h"
#include "foundation/clock.h"
#include "foundation/fixed_text.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "views/repetitions.h"

#include <algorithm>
#include <optional>
#include <string>

namespace vantor {

namespace {

constexpr double hoursPerDay = 24.0;

// How many repetitions of a period fall on each shift in whole hours. Thousands of repetitions of a period of
// seconds thus cost no more than a day's hours.
class ShiftCounts {
  public:
    explicit ShiftCounts(double period) {
        const std::int16_t reps = toInt16(repetitionsPerDay(period));
        for (std::int16_t n = 1; n <= reps; ++n) {
            const std::int32_t shift = repetitionShift(period, n);
            if (m_used > 0 && m_items[m_used - 1].hours == shift) {
                ++m_items[m_used - 1].count;
            } else if (m_used < m_items.size()) {
                m_items[m_used++] = {shift, 1};
            }
        }
    }

    struct Item {
        std::int32_t hours = 0;
        std::int16_t count = 0;
    };
    [[nodiscard]] auto begin() const { return m_items.begin(); }
    [[nodiscard]] auto end() const { return m_items.begin() + static_cast<std::ptrdiff_t>(m_used); }

  private:
    // Shifts grow from 0; the last is 24 at most, since the repetitions of a day end with it.
    std::array<Item, 32> m_items;
    std::size_t m_used = 0;
};

int shownHour(DateTime clock, std::int32_t shift) {
    return hourOf(applygmtoffset(clock + shift / hoursPerDay));
}

// Quirk: a stay over midnight, which leaves at an hour ahead of the landing, counts nothing.
// Adds a stay of `count` aircraft; a slot that would leave 16 bits stays at the most that they hold.
void addStay(const StandardTrap& trap, GateHours& hours, int landed, int off, std::int16_t count) {
    for (int h = landed; h <= off; ++h) {
        std::int16_t& slot = hours[static_cast<std::size_t>(h)];
        const int sum = slot + count;
        slot = static_cast<std::int16_t>(std::min(sum, 32767));
        if (sum > 32767) {
            trap(raiseError, Error(ErrorCode::Overflow));
        }
    }
}

void addLeg(const StandardTrap& trap, GateHours& hours, const ShiftCounts& shifts, const ScheduleRec& schedule,
            std::int32_t number) {
    const DateTime landed = parseTime(schedule.legs[number].arr.raw());
    // The leg after the last is the first. Its deleted mark is not looked at.
    const LegRec& next = schedule.legs[schedule.next(number)];
    const DateTime off = parseTime(next.dep.raw());
    for (const ShiftCounts::Item& shift : shifts) {
        addStay(trap, hours, shownHour(landed, shift.hours), shownHour(off, shift.hours), shift.count);
    }
}

} // namespace

GateHours gateHours(const StandardTrap& trap, std::string_view code) {
    GateHours hours{};
    FixedText<4> period;
    std::optional<ShiftCounts> shifts; // of `period`; schedules of one period stand together more often than not
    walkLegs(trap, WalkDeleted::Skip, [&](const ScheduleRec& schedule, const LegRec& leg, std::int32_t number) {
        if (schedule.weekly || leg.toicao.text() != code) {
            return;
        }
        trap([&] {
            if (!shifts || schedule.period != period) {
                shifts.reset();
                shifts.emplace(val(schedule.period.raw()));
                period = schedule.period;
            }
            addLeg(trap, hours, *shifts, schedule, number);
        });
    });
    return hours;
}

ListRows gateRows(const StandardTrap& trap, std::string_view code) {
    ListRows rows;
    trap([&] {
        const GateHours hours = gateHours(trap, code);
        const std::int16_t peak = std::ranges::max(hours);
        rows.push_back({"Gate requirements for " + std::string(code), 0});
        for (int day = 1; day <= 7; ++day) {
            rows.push_back({host().weekdayName(day % 7 + 1), 0}); // day 1 is a Monday, the system's a Sunday
            for (std::size_t h = 0; h < hours.size(); ++h) {
                rows.push_back({"\t" + std::to_string(h) + ":00 - " + std::to_string(hours[h]), 0});
            }
            rows.push_back({"Peak gates required - " + std::to_string(peak), 0});
        }
    });
    return rows;
}

} // namespace vantor
