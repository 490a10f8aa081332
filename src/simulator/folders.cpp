#include "simulator/folders.h"

#include "foundation/disk.h"
#include "foundation/progress.h"
#include "foundation/trap.h"

namespace vantor {

void fillfolders(std::string_view root, std::vector<std::string>& result, bool addcfg) noexcept {
    const StandardTrap trap{"sub fillfolders", "modFileCommands"};
    result.clear();
    listsubfolders(root, result);
    trap(timedevents);
    for (std::string& folder : result) {
        folder = std::string(root).append(folder).append(addcfg ? "aircraft.cfg" : "");
    }
}

} // namespace vantor
