#include "simulator/missing_aircraft.h"

#include "core/tables.h"
#include "foundation/trap.h"

#include <string>
#include <string_view>
#include <unordered_set>

namespace vantor {

namespace {

// The rows of the missing aircraft; `visit` is called with the table's row of each.
template <class Visit>
ListRows listMissing(const Visit& visit) {
    const StandardTrap trap{"sub checkmissing", "modMissingAircraft"};
    std::unordered_set<std::string_view> titles;
    for (std::int32_t i = 1; i <= fsaircraftcount; ++i) {
        trap([&] { titles.insert(fsaircraft[i].title.raw()); });
    }
    ListRows rows;
    for (std::int32_t i = 1; i <= aircraftcount; ++i) {
        trap([&] {
            const AircraftRec& record = aircraft[i];
            if (!record.deleted && !titles.contains(record.title.raw())) {
                rows.push_back({std::string(record.acnum.text()) + " - " + std::string(record.title.text()), 0});
                visit(i);
            }
        });
    }
    return rows;
}

} // namespace

ListRows checkmissing() {
    return listMissing([](std::int32_t row) {
        if (AircraftRec record = aircraft[row]; !record.missing) {
            record.missing = true;
            aircraft.put(row, record);
        }
    });
}

ListRows missingRows() {
    return listMissing([](std::int32_t) {});
}

} // namespace vantor
