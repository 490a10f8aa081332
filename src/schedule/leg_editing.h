// Schedule: looking at schedules and changing them one at a time.
// Changes to the legs of the schedule in the editor: the closed loop of airports, new legs, removed legs.
#pragma once

#include "core/records.h"
#include "foundation/list_row.h"
#include "foundation/trap.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// The editor's working copy: a schedule and the element 0 of its legs, blank unless an airport is picked while no leg
/// is current. The editor's offsets lead to it, so it is there to be shown and written.
struct ScheduleDraft {
    ScheduleRec sched;
    LegRec leg0;

    /// Leg 0 upward; error 9 outside the legs.
    [[nodiscard]] LegRec& leg(int number) { return number == 0 ? leg0 : sched.legs[number]; }
    [[nodiscard]] const LegRec& leg(int number) const { return number == 0 ? leg0 : sched.legs[number]; }
};

/// Which airport of a leg is meant, by the index of its box.
enum class LegEnd { Departure = 0, Destination = 1 };

/// Gives a leg another airport and its neighbour in the loop the same: the leg after it takes off, the leg before it
/// lands there. Does nothing to a schedule without legs. Faults go to the ring.
void changeairport(const StandardTrap& trap, ScheduleDraft& draft, std::int16_t leg, LegEnd end,
                   std::string_view code) noexcept;

/// Puts a new leg into the loop, at the end or in the place of the list's current row (-1 for none); `rows` is the
/// number of rows of that list, `tng` the state of the touch-and-go box. It runs from the end of the leg before to the
/// start of the leg after. Its hashindex is 0. Faults go to the ring.
void addlegtosched(const StandardTrap& trap, ScheduleDraft& draft, bool atend, int rows, int currentRow,
                   bool tng) noexcept;

/// Takes a leg (1 upward) out; its neighbours keep their airports, all legs their hashindex. Of a schedule
/// with one leg that leg goes, whatever `leg` says. Faults go to the ring.
void deleteleg(ScheduleRec& rec, std::int32_t leg) noexcept;

/// Gives legs that were never shown what every stored leg has: a departure time, and in a weekly schedule a departure
/// day. A line of the file without them could not be read again.
void completelegs(ScheduleRec& sched) noexcept;

/// The rows of the editor's list, item data the leg number.
[[nodiscard]] ListRows legrows(const ScheduleRec& sched);
/// The first row that starts with the code, without regard to case; -1 for none. A blank code is any row's start.
[[nodiscard]] int rowstartingwith(const ListRows& rows, std::string_view code);
/// The first row that holds the aircraft's code followed by a blank (so that AC#12 is not AC#123); -1 for none.
[[nodiscard]] int aircraftrow(const ListRows& rows, std::string_view acnum);
/// A stored time as the editor shows it: local, HH:MM:SS. Error 13 for a text that is no time.
[[nodiscard]] std::string localtimetext(std::string_view stored);
/// The distance as the editor shows it, as in "1234 NM".
[[nodiscard]] std::string distancetext(const LegRec& leg);
/// Whether the editor warns of a leg of 24 hours and more.
[[nodiscard]] bool isoveraday(const LegRec& leg) noexcept;

} // namespace vantor
