#include "simulator/missing_aircraft.h"

#include "core/tables.h"
#include "foundation/trap.h"

#include <string>
#include <string_view>
#include <unordered_set>

namespace vantor {

ListRows checkmissing() {
    const StandardTrap trap{"sub checkmissing", "modMissingAircraft"};
    std::unordered_set<std::string_view> titles;
    for (std::int32_t i = 1; i <= fsaircraftcount; ++i) {
        trap([&] { titles.insert(fsaircraft[i].title.raw()); });
    }
    ListRows rows;
    for (std::int32_t i = 1; i <= aircraftcount; ++i) {
        trap([&] {
            AircraftRec record = aircraft[i];
            if (!record.deleted && !titles.contains(record.title.raw())) {
                rows.push_back({std::string(record.acnum.text()) + " - " + std::string(record.title.text()), 0});
                if (!record.missing) {
                    record.missing = true;
                    aircraft.put(i, record);
                }
            }
        });
    }
    return rows;
}

} // namespace vantor
