#include "simulator/aircraft_changes.h"

#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <unordered_set>
#include <utility>

namespace vantor {

namespace {

// Marks in the code field of a simulator aircraft while new ones are sought.
constexpr std::string_view knownMark = "0";
constexpr std::string_view newMark = "-1";

using CodeSet = std::unordered_set<std::string>;

CodeSet codesOf(const OneBased<AircraftRec>& table) {
    CodeSet codes;
    codes.reserve(static_cast<std::size_t>(table.size()));
    for (const AircraftRec& row : table) {
        codes.emplace(row.acnum.text());
    }
    return codes;
}

// A free code: the first from the one after that given out last in this run, also over reloads. The number is a 16-bit
// sum: past its end the search ends with error 6 in place of going round.
std::string nextacnum(const CodeSet& codes) {
    std::int32_t number = traffic.lastacnum;
    std::string code;
    do {
        number = toInt16(static_cast<double>(number) + 1);
        code = "AC#" + std::to_string(number);
    } while (codes.contains(code));
    traffic.lastacnum = number;
    return code;
}

// Marks the simulator aircraft whose title the table lacks, and counts them.
std::int32_t markNewAircraft() {
    std::unordered_set<std::string_view> titles;
    for (std::int32_t i = 1; i <= aircraftcount; ++i) {
        titles.insert(aircraft[i].title.raw());
    }
    std::int32_t newcount = 0;
    for (std::int32_t i = 1; i <= fsaircraftcount; ++i) {
        const bool known = titles.contains(fsaircraft[i].title.raw());
        fsaircraft[i].acnum = known ? knownMark : newMark;
        newcount += known ? 0 : 1;
    }
    return newcount;
}

// Gives codes to the new aircraft and adds them; how many it added.
std::int32_t appendNewAircraft(const StandardTrap& trap, std::int32_t newcount) {
    const std::int32_t before = aircraftcount;
    OneBased<AircraftRec> table = aircraft.rows();
    table.resize(before); // blank rows behind the last go
    CodeSet codes = codesOf(table);
    for (AircraftRec added : fsaircraft) {
        if (added.acnum.text() != newMark) {
            continue;
        }
        // One trap for all steps: an aircraft without a code is not added.
        const bool numbered = trap([&] {
            static_cast<void>(toInt16(before + newcount)); // the search counts rows in 16 bits as well
            std::string code = nextacnum(codes);
            added.acnum = code;
            codes.insert(std::move(code));
            table.append(added);
        });
        if (!numbered) {
            break; // none of those behind would find a code either
        }
    }
    const std::int32_t count = table.size();
    aircraft.replace(std::move(table));
    aircraftcount = count;
    return count - before;
}

} // namespace

void deleteaircraft(std::string_view text) noexcept {
    const StandardTrap trap{"sub deleteaircraft", "modAircraftDelete"};
    trap([&] {
        const std::int32_t row = aircraftrecord(extractcode(text));
        if (row != -1) {
            AircraftRec record = aircraft[row];
            record.deleted = true;
            aircraft.put(row, record);
        }
    });
}

NewAircraft addnewfsaircraft() noexcept {
    const StandardTrap trap{"sub addnewfsaircraft", "modAddNewFSAircraft"};
    NewAircraft result;
    trap([&] { // one trap for both steps: nothing is added before all is marked
        result.found = markNewAircraft();
        if (result.found == 0) {
            result.message = "No new aircraft found";
        } else {
            result.added = appendNewAircraft(trap, result.found);
        }
    });
    return result;
}

ListRows filterAircraftRows(const ListRows& all, std::string_view filter) {
    ListRows rows;
    if (filter.empty()) {
        rows.reserve(all.size() + 1);
    }
    for (const ListRow& row : all) {
        if (filter.empty() || containsNoCase(row.text, filter)) {
            rows.push_back({row.text, 0});
        }
    }
    if (filter.empty()) {
        // Quirk: one empty row closes them.
        rows.push_back({});
    }
    return rows;
}

std::string substituteText(std::string_view current, std::string_view row) {
    return extractcode(current) + " - " + extracttitle(row);
}

bool substituteAircraft(const StandardTrap& trap, std::string_view substitutetext) noexcept {
    bool found = false;
    trap([&] {
        const std::int32_t row = aircraftrecord(extractcode(substitutetext));
        if (row != -1) {
            // Quirk: the missing flag stays set until the next load.
            AircraftRec record = aircraft[row];
            record.title = extracttitle(substitutetext);
            aircraft.put(row, record);
            found = true;
        }
    });
    return found;
}

} // namespace vantor
