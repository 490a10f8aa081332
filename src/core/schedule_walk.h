// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The walks over all schedules and their legs that the rooms above share.
#pragma once

#include "core/tables.h"
#include "foundation/trap.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace vantor {

/// Calls visit(schedule) for the schedules 1 to `last`, in place: nothing may change the table meanwhile. Blank records
/// are visited as well. A record out of reach and whatever `visit` raises is a fault in the ring, and the walk goes on
/// with the next schedule.
template <class Visit>
void walkSchedules(const StandardTrap& trap, std::int32_t last, const Visit& visit) noexcept {
    for (std::int32_t recnum = 1; recnum <= last; ++recnum) {
        trap([&] { visit(schedules.peek(recnum)); });
    }
}

/// Which schedules and legs a walk visits.
enum class WalkDeleted { Skip, Visit };

/// Calls visit(schedule, leg, leg number) for every leg of every schedule, in the order of the record numbers. A fault
/// goes to the ring and leaves out what is behind it in its schedule.
template <class Visit>
void walkLegs(const StandardTrap& trap, WalkDeleted deleted, const Visit& visit) noexcept {
    const bool all = deleted == WalkDeleted::Visit;
    walkSchedules(trap, schedulecount, [&](const ScheduleRec& schedule) {
        if (schedule.deleted && !all) {
            return;
        }
        for (std::int32_t number = 0; const LegRec& leg : schedule.flown()) {
            ++number;
            if (all || !leg.deleted) {
                visit(schedule, leg, number);
            }
        }
    });
}

/// Walks the schedules 1 to `last`. `touches` looks at each in place; those that it picks are copied, handed to
/// `change` and written back. A fault leaves its schedule as it was and the walk goes on.
template <class Touches, class Change>
void changeSchedules(const StandardTrap& trap, std::int32_t last, const Touches& touches,
                     const Change& change) noexcept {
    for (std::int32_t recnum = 1; recnum <= last; ++recnum) {
        // One trap for all steps: a schedule that was not read or not changed must not be written.
        trap([&] {
            const ScheduleRec& stored = schedules.peek(recnum);
            if (touches(stored)) {
                ScheduleRec schedule = stored;
                change(schedule);
                schedules.HashPutSlot(recnum, std::move(schedule));
            }
        });
    }
}

/// Whether any of the legs 1 to legcount meets `condition`.
template <class Condition>
[[nodiscard]] bool anyLeg(const ScheduleRec& schedule, const Condition& condition) {
    return std::ranges::any_of(schedule.flown(), condition);
}

} // namespace vantor
