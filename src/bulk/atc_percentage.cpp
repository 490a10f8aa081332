#include "bulk/atc_percentage.h"

#include "core/schedule_walk.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

namespace vantor {

BulkOutcome updateAtcPercentage(const StandardTrap& trap, std::string_view percentText, std::string_view aircraftText) {
    std::int32_t percent = 0;
    trap.set(percent, valInt32, percentText);
    if (percent < 1 || percent > 100) {
        return {.message = "Please enter a percentage from 1 to 100"};
    }
    // Quirk: the flag is set before the aircraft is looked at.
    BulkOutcome outcome{.message = {}, .setsUnsaved = true};
    const std::string code{trim(upper(aircraftText))};
    if (!contains(code, "AC#")) {
        outcome.message = "Please specify the full aircraft code, including AC#.  E.g. AC#100";
        return outcome;
    }
    const std::string stored = std::to_string(percent) + "%";
    std::int32_t count = 0;
    changeSchedules(
        trap, schedulecount, [&](const ScheduleRec& schedule) { return schedule.acnum.text() == code; },
        [&](ScheduleRec& schedule) {
            schedule.percent = stored;
            ++count;
        });
    outcome.message = count > 0 ? "Updated " + std::to_string(count) + " flights containing aircraft " + code
                                : "Couldn't find any flights by aircraft " + code;
    return outcome;
}

} // namespace vantor
