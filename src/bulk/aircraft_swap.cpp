#include "bulk/aircraft_swap.h"

#include "core/codes.h"
#include "core/tables.h"
#include "foundation/trap.h"

#include <string>
#include <utility>

namespace vantor {

void swapAircraft(const std::vector<std::int32_t>& recnums, std::string_view substituteRow) noexcept {
    const StandardTrap trap{"sub cmdswapac_click", "frmMain"};
    std::string code;
    if (!trap([&] { code = extractcode(substituteRow); })) {
        return;
    }
    for (const std::int32_t recnum : recnums) {
        trap([&] {
            ScheduleRec schedule = schedules.HashGetSlot(recnum);
            schedule.acnum = code;
            schedules.HashPutSlot(recnum, std::move(schedule));
        });
    }
}

} // namespace vantor
