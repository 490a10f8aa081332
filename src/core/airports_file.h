// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Readers of the airports file and of the simulator's names of airports. Neither is ever written.
#pragma once

#include "foundation/canvas.h"

#include <string_view>

namespace vantor {

/// Replaces the airport table from a file; `progress` may be null. Any fault is raised with
/// " in line {n} of airports.txt.  Error on: " behind its description, n being the line that faults among the
/// accepted ones (0 for a missing or empty file, which is error 23000).
void LoadAirports(std::string_view file, Canvas* progress);
/// Names the airports from fsicaofile; without that file each title is its code. `progress` is not used. Any fault is
/// raised with " in LoadAirportTitles" behind its description.
void LoadAirportTitles(Canvas* progress);

} // namespace vantor
