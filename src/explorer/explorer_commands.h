// Explorer: all flights in one table, on a world map, and checked.
// What the explorer lets the user change: commands of the main window.
#pragma once

#include "core/records.h"

#include <functional>
#include <vector>

namespace vantor {

/// Each is called for the rows that are selected, in their order; a leg of 0 stands for the whole schedule. An empty
/// function disables its button.
struct ExplorerCommands {
    std::function<void(LegId)> edit;                       ///< opens the editor on it
    std::function<void(const std::vector<LegId>&)> remove; ///< deletes legs and schedules, or takes that back
    std::function<void(const std::vector<LegId>&)> swap;   ///< another aircraft for their schedules
    std::function<void(const std::vector<LegId>&)> copy;   ///< a copy of each of their schedules
};

} // namespace vantor
