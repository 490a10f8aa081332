// Views: read-only views of one airport's traffic, computed without a window.
// The walk over the legs of all schedules that the views share. It reads in place.
#pragma once

#include "core/tables.h"
#include "foundation/trap.h"

#include <cstdint>

namespace vantor {

/// Which schedules and legs a walk visits.
enum class WalkDeleted { Skip, Visit };

/// Calls visit(schedule, leg, leg number) for every leg of every schedule, in the order of the record numbers. Blank
/// records at the end of the table have no legs. A record or leg out of reach is a fault in the ring and left out.
template <class Visit>
void walkLegs(const StandardTrap& trap, WalkDeleted deleted, const Visit& visit) {
    const bool all = deleted == WalkDeleted::Visit;
    for (std::int32_t r = 1; r <= schedulecount; ++r) {
        trap([&] {
            const ScheduleRec& schedule = schedules.peek(r);
            if (schedule.deleted && !all) {
                return;
            }
            for (std::int32_t i = 1; i <= schedule.legcount; ++i) {
                const LegRec& leg = schedule.legs[i];
                if (all || !leg.deleted) {
                    visit(schedule, leg, i);
                }
            }
        });
    }
}

} // namespace vantor
