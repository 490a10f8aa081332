// Schedule: looking at schedules and changing them one at a time.
// What the schedule and leg buttons of the main window do to the tables. Nothing is ever removed: deleting is a mark.
#pragma once

#include "core/records.h"
#include "foundation/trap.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vantor {

/// The schedule that a new one starts as, for the aircraft of a row or code. Its number is one above schedulecount; its
/// two legs carry the number of the schedule before it and repeat one route.
[[nodiscard]] ScheduleRec defaultschedule(std::string_view acrow);

/// Adds a schedule to the table and counts it.
void addschedule(const StandardTrap& trap, const ScheduleRec& schedule) noexcept;
/// Adds a copy of schedule `recnum` under the next number. Its legs keep the hashindex of the source.
void copyschedule(const StandardTrap& trap, std::int32_t recnum) noexcept;

/// Whether a schedule, or one leg, is marked as deleted. Error 9 for one that does not exist.
[[nodiscard]] bool scheduleDeleted(std::int32_t recnum);
[[nodiscard]] bool legDeleted(LegId id);

/// Deletes or undeletes a schedule. Whether it is deleted now; nothing after a fault.
std::optional<bool> deleteschedbyrecnum(std::int32_t recnum) noexcept;
/// Marks all schedules of an aircraft (a row or code) as deleted; it sets and does not toggle.
void deleteschedbyac(std::string_view acnum) noexcept;

/// Deletes or undeletes one leg. `touched` becomes the schedule it belongs to. Whether the leg is deleted now; nothing,
/// and a fault in the ring, for a leg that does not exist.
std::optional<bool> toggleleg(const StandardTrap& trap, LegId id, ScheduleRec& touched) noexcept;

} // namespace vantor
