// Simulator: what the traffic needs of the simulator's own files.
// The list of the traffic's aircraft that the simulator lacks.
#pragma once

#include "foundation/list_row.h"

namespace vantor {

/// Rows "{acnum} - {title}" of the aircraft that are not deleted and whose title no aircraft of the simulator has, and
/// their missing flag set. Titles are compared as they stand, case and quotes included. A flag that was set earlier
/// is never taken back.
[[nodiscard]] ListRows checkmissing();

/// The same rows, with the flags left as they are.
[[nodiscard]] ListRows missingRows();

} // namespace vantor
