#include "core/combo_rows.h"

#include "core/aircraft_table.h"
#include "core/tables.h"
#include "foundation/trap.h"

#include <cstdint>
#include <string>

namespace vantor {

ListRows aircraftRows(bool includeMissing) noexcept {
    const StandardTrap trap{"sub fillaccombo", "modAircraftFillList"};
    ListRows rows;
    for (std::int32_t i = 1; i <= aircraftcount; ++i) {
        trap([&] {
            const AircraftRec& record = aircraft[i];
            if (!record.deleted && (includeMissing || !record.missing)) {
                rows.push_back({std::string(record.acnum.text()) + " - " + std::string(record.title.text()), i});
            }
        });
    }
    return rows;
}

ListRows airportRows() noexcept {
    const StandardTrap trap{"sub fillapcombo", "modAirportFillList"};
    ListRows rows;
    for (std::int32_t i = 1; i <= airportcount; ++i) {
        trap([&] {
            const AirportRec& record = airports.peek(i);
            rows.push_back({std::string(record.icao.text()) + " - " + std::string(record.title.text()), i});
        });
    }
    return rows;
}

} // namespace vantor
