// Simulator: what the traffic needs of the simulator's own files.
// The subfolders of a folder, and the configuration file of each.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// Refills `result` with root + subfolder + "\" and, with `addcfg`, "aircraft.cfg" for each subfolder of `root`, then
/// lets the window repaint.
void fillfolders(std::string_view root, std::vector<std::string>& result, bool addcfg) noexcept;

} // namespace vantor
