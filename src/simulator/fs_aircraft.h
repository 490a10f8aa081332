// Simulator: what the traffic needs of the simulator's own files.
// The scan of the simulator's aircraft folder into the table of its aircraft.
#pragma once

#include "foundation/canvas.h"

namespace vantor {

/// Replaces fsaircraft from the aircraft.cfg of each folder in fsaircraftpath; `progress` may be null. A file that
/// can't be opened or read (75, 52) is logged and passed over. A missing folder (76) is logged and told in a message
/// box, with no aircraft found. Any other fault is raised with " in LoadFSAircraft, while attempting to load {file}"
/// behind its description.
void LoadFSAircraft(Canvas* progress);

} // namespace vantor
