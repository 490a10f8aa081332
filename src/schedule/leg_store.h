// Schedule: looking at schedules and changing them one at a time.
// The one way of a leg from the editor's controls into the record, and how its arrival is worked out.
#pragma once

#include "core/records.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// The one message of the editor for every text that can't be converted.
inline constexpr std::string_view invalidTimeText =
    "Invalid time, please ensure you use the format HH:MM or HH:MM:SS.  E.g. 23:45";

/// What the controls of the schedule editor show while a leg is stored. Times are local.
struct LegControls {
    std::string aircraft;  ///< row of the aircraft box
    std::string repeat;    ///< "WEEK" makes the schedule a weekly one
    std::string time;      ///< departure
    std::string eta;       ///< arrival, read only with `fix`
    std::string altitude;  ///< flight level
    std::string flightnum; ///< cut to 12 characters
    int departureDay = 0;  ///< row of the day box: 0 for none, 1 for Sunday to 7
    int arrivalDay = 0;    ///< the same for the arrival, read only with `fix`
    bool fix = false;      ///< the arrival is the user's own
    bool touchAndGo = false;
    bool useRegistration = false;
};

/// What the form has to do after a store.
struct LegStored {
    bool moveDayToSunday = false; ///< the departure's day box goes to row 1
    bool invalidTime = false;     ///< a text could not be converted: raise invalidTimeError
    friend bool operator==(const LegStored&, const LegStored&) = default;
};

/// Stores what the controls show into leg `leg` (1 upward) of `sched`: day, level, distance, hours, arrival, departure,
/// number, type, touch and go, in this order. A text that can't be converted is told by `invalidTime`; any other fault
/// (an unknown aircraft, a level beyond 16 bits, a missing leg) ends the store and is not told. What was stored before
/// a fault stays.
[[nodiscard]] LegStored storeleg(ScheduleRec& sched, std::int16_t leg, const LegControls& controls);

/// The error that the editor raises for an invalid time: number 23000 with the words above.
[[nodiscard]] Error invalidTimeError();

} // namespace vantor
