// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Reader and writer of the aircraft file.
#pragma once

#include "foundation/canvas.h"

#include <string_view>

namespace vantor {

/// Replaces the aircraft table from a file; `progress` may be null. Raises 23000 for a missing or empty file and
/// any other fault with " in LoadAircraft" behind its description.
void LoadAircraft(std::string_view file, Canvas* progress);
/// Writes the aircraft that are not deleted to "Aircraft.txt" in the current folder, whatever file they came from; it
/// is meant. Faults go to the ring.
void saveaircraft() noexcept;

} // namespace vantor
