// Explorer: all flights in one table, on a world map, and checked.
// A leg, or a schedule, as one number of 32 bits: an index over a million of them stays small.
#pragma once

#include "core/records.h"
#include "core/tables.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace vantor {

/// The record number in the upper 22 bits, the leg's number in the lower 10; leg 0 stands for the schedule itself.
using LegNumber = std::uint32_t;

/// What a row of the list stands for.
enum class RowKind { Legs, Schedules };

/// Legs and schedules beyond these have no number. The reader takes at most 166 legs of a line.
inline constexpr std::int32_t mostLegsNumbered = 1023;
inline constexpr std::int32_t mostSchedulesNumbered = (1 << 22) - 1;

[[nodiscard]] constexpr LegNumber legNumber(LegId id) noexcept {
    return static_cast<LegNumber>(id.recnum) << 10U | static_cast<LegNumber>(id.leg);
}
[[nodiscard]] constexpr LegId legAt(LegNumber number) noexcept {
    return {static_cast<std::int32_t>(number >> 10U), static_cast<std::int32_t>(number & 1023U)};
}

/// The schedule of a number in place, null when the tables have none (any more). It holds until the tables change.
[[nodiscard]] inline const ScheduleRec* scheduleOf(LegNumber number) {
    const std::int32_t recnum = legAt(number).recnum;
    if (recnum < 1 || recnum > schedulecount || recnum > schedules.RecordCount()) {
        return nullptr;
    }
    const ScheduleRec& schedule = schedules.peek(recnum);
    return schedule.recnum != 0 ? &schedule : nullptr; // lines that the reader dropped leave blank records
}

/// The legs that have a number. Blank ones that stand behind those that count are not among them.
[[nodiscard]] inline std::span<const LegRec> numberedLegs(const ScheduleRec& schedule) {
    return schedule.legs.first(std::min({std::int32_t{schedule.legcount}, schedule.legs.size(), mostLegsNumbered}));
}

/// The leg of a number in place, null when the tables have none (any more), and for a schedule.
[[nodiscard]] inline const LegRec* legOf(const ScheduleRec& schedule, LegNumber number) {
    const std::int32_t leg = legAt(number).leg;
    return leg >= 1 && leg <= schedule.legcount && schedule.legs.has(leg) ? &schedule.legs[leg] : nullptr;
}

} // namespace vantor
