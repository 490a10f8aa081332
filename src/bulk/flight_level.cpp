#include "bulk/flight_level.h"

#include "core/schedule_walk.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

namespace vantor {

namespace {

// Compares without putting the field into capitals first: this runs for each of a million legs.
bool flies(const LegRec& leg, std::string_view first, std::string_view second) {
    return equalNoCase(leg.fromicao.text(), first) && equalNoCase(leg.toicao.text(), second);
}

} // namespace

BulkOutcome changeFlightLevel(const StandardTrap& trap, FlightLevelBoxes& boxes) {
    std::int32_t level = 0;
    trap.set(level, valInt32, boxes.newFL);
    if (level == 0) {
        return {.message = "Please enter a valid Flight Level first"};
    }
    boxes.icao1 = upper(trim(boxes.icao1));
    boxes.icao2 = upper(trim(boxes.icao2));
    const std::string_view first = boxes.icao1;
    const std::string_view second = boxes.icao2;
    const auto lowBits = static_cast<std::int16_t>(static_cast<std::uint16_t>(static_cast<std::uint32_t>(level)));
    std::int32_t count = 0;
    // Up to the capacity of the table and not schedulecount; the slots not in use have no legs.
    changeSchedules(
        trap, schedules.RecordCount(),
        [&](const ScheduleRec& schedule) {
            return anyLeg(schedule, [&](const LegRec& leg) { return flies(leg, first, second); });
        },
        [&](ScheduleRec& schedule) {
            for (LegRec& leg : schedule.flown()) {
                if (flies(leg, first, second)) {
                    leg.flightlevel = lowBits;
                    ++count;
                }
            }
        });
    BulkOutcome outcome{.message = {}, .setsUnsaved = true};
    outcome.message = count > 0 ? "Updated " + std::to_string(count) + " legs."
                                : "Couldn't find any legs from " + boxes.icao1 + " to " + boxes.icao2;
    return outcome;
}

} // namespace vantor
