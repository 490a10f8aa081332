// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Reader of the flight plan file.
#pragma once

#include "foundation/canvas.h"

#include <string_view>

namespace vantor {

/// Replaces the schedules from a file; `progress` may be null. The aircraft must be sorted and the airports loaded.
/// Raises 23000 for an empty file, 13 with a message that names the flight plan and leg for a line that can't be
/// read, and any other fault with " in LoadSched" behind its description. In each case the records added so far stay
/// and schedulecount keeps its former value.
void LoadSched(Canvas* progress, std::string_view file);

} // namespace vantor
