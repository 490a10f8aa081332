// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Reader and writer of the aircraft file.
#pragma once

#include "core/records.h"
#include "foundation/canvas.h"
#include "foundation/error.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// Replaces the aircraft table from a file; `progress` may be null. Raises 23000 for a missing or empty file and
/// any other fault with " in LoadAircraft" behind its description.
void LoadAircraft(std::string_view file, Canvas* progress);
/// Appends the line of an aircraft with its end; nothing for a deleted one.
void appendAircraft(std::string& text, const AircraftRec& row);
/// The file that saveaircraft writes.
inline constexpr std::string_view savedAircraftFile = "Aircraft.txt";
/// Writes the aircraft that are not deleted to "Aircraft.txt" in the current folder, whatever file they came from.
/// Faults go to the ring; the one that left the old file as it was is given back, nothing when the file is saved.
/// `progress` may be null.
std::optional<Error> saveaircraft(Canvas* progress = nullptr) noexcept;

} // namespace vantor
