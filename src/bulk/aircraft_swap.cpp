#include "bulk/aircraft_swap.h"

#include "core/codes.h"
#include "core/tables.h"

#include <string>
#include <utility>

namespace vantor {

void swapAircraft(const StandardTrap& trap, const std::vector<std::int32_t>& recnums,
                  std::string_view substituteRow) noexcept {
    const std::string code = extractcode(substituteRow);
    for (const std::int32_t recnum : recnums) {
        trap([&] { // one trap for all steps: a schedule that can't be read must not be overwritten
            ScheduleRec schedule = schedules.HashGetSlot(recnum);
            schedule.acnum = code;
            schedules.HashPutSlot(recnum, std::move(schedule));
        });
    }
}

} // namespace vantor
