// Bulk: changes applied to many legs or schedules at once.
// The walk that all changes share, and what a change tells the panel that asked for it.
#pragma once

#include "core/tables.h"
#include "foundation/trap.h"

#include <cstdint>
#include <string>
#include <utility>

namespace vantor {

/// What a bulk change tells the panel that asked for it.
struct BulkOutcome {
    std::string message;      ///< for a message box
    bool setsUnsaved = false; ///< the unsaved-changes flag is set, whether or not anything matched
    bool clearsLists = false; ///< both lists are emptied, behind the message

    friend bool operator==(const BulkOutcome&, const BulkOutcome&) = default;
};

/// Walks the schedules 1 to `last`. `touches` looks at each in place; those that it picks are copied, handed to
/// `change` and written back. A fault leaves its schedule as it was and the walk goes on.
template <class Touches, class Change>
void changeSchedules(const StandardTrap& trap, std::int32_t last, Touches&& touches, Change&& change) noexcept {
    for (std::int32_t recnum = 1; recnum <= last; ++recnum) {
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
[[nodiscard]] bool anyLeg(const ScheduleRec& schedule, Condition&& condition) {
    for (std::int32_t leg = 1; leg <= schedule.legcount; ++leg) {
        if (condition(schedule.legs[leg])) {
            return true;
        }
    }
    return false;
}

} // namespace vantor
