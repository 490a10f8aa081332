#include "core/aircraft_table.h"

#include "core/tables.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vantor {

namespace {
constexpr std::string_view module = "modAircraftTitle";
} // namespace

std::int32_t trueacnum(std::string_view code) noexcept {
    const StandardTrap trap{"function trueacnum", "modSubs"};
    std::int32_t number = 0;
    trap([&] { number = code.size() < 4 ? 0 : toInt32(val(code.substr(3))); });
    return number;
}

void SortAircraft() {
    // A stable sort: what exchanging neighbours until nothing is left to swap arrives at, for a table in any order.
    std::vector<std::pair<std::int32_t, std::int32_t>> order; // number and row
    order.reserve(static_cast<std::size_t>(aircraftcount));
    for (std::int32_t row = 1; row <= aircraftcount; ++row) {
        order.emplace_back(trueacnum(aircraft[row].acnum.raw()), row);
    }
    if (std::ranges::is_sorted(order)) {
        return;
    }
    std::ranges::sort(order); // the row behind keeps equal numbers in their order
    OneBased<AircraftRec> sorted = aircraft.rows();
    for (std::int32_t row = 0; const auto& [number, from] : order) {
        sorted[++row] = aircraft[from];
    }
    aircraft.replace(std::move(sorted));
}

std::int32_t aircraftrecord(std::string_view code) noexcept {
    const StandardTrap trap{"function aircraftrecord", module};
    std::int32_t found = -1;
    trap([&] {
        const std::int32_t target = trueacnum(code);
        std::int32_t low = 1;
        std::int32_t high = aircraftcount;
        while (low <= high && found == -1) {
            const std::int32_t middle = (low + high) / 2;
            const std::int32_t number = trueacnum(aircraft[middle].acnum.raw());
            if (target == number) {
                found = middle;
            } else if (target < number) {
                high = middle - 1;
            } else {
                low = middle + 1;
            }
        }
    });
    return found;
}

std::string aircrafttitle(std::string_view code) {
    const std::int32_t row = aircraftrecord(code);
    return std::string(row == -1 ? code : aircraft[row].title.text());
}

} // namespace vantor
