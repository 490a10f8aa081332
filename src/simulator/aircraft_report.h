// Simulator: what the traffic needs of the simulator's own files.
// The report on aircraft folders whose aircraft.cfg, texture folders and flight models don't fit together.
#pragma once

#include "foundation/canvas.h"

namespace vantor {

/// Checks every aircraft folder of fsaircraftpath and writes one line per problem into ACLOG.TXT in the program's
/// folder, replacing an old one. Any fault closes all open files and ends the report: the lines so far stay, nothing is
/// recorded and nothing shown. The loaded traffic plays no part. `progress`
/// may be null.
void modACReport(Canvas* progress = nullptr) noexcept;

} // namespace vantor
