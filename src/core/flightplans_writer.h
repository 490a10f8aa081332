// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Writer of the flight plan file.
#pragma once

#include "core/records.h"
#include "foundation/canvas.h"
#include "foundation/error.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// Appends the line of a schedule with its end; nothing for one that is not written.
void appendSchedule(std::string& text, const ScheduleRec& schedule);
/// Writes the schedules that are not deleted, without their deleted legs. The tables stay as they are. Faults go to the
/// ring; the one that left the old file as it was is given back, nothing when the file is saved. `progress` may be
/// null.
std::optional<Error> savesc(std::string_view file, Canvas* progress = nullptr) noexcept;

} // namespace vantor
