// The simulator's names of airports: each name reaches its airport, and nothing else changes.
#include "core/airports_file.h"
#include "core/tables.h"
#include "foundation/fixed_text.h"
#include "foundation/text.h"
#include "fuzz.h"

#include <algorithm>
#include <array>

namespace vantor::fuzz {

namespace {

constexpr std::array<std::string_view, 4> codes = {"KSEA", "K1", "\xC4\xD6", "A B"};

void loadAirports() {
    std::string lines;
    for (const std::string_view code : codes) {
        lines.append(code).append(",N47* 27.00',W122* 18.30',433\r\n");
    }
    folder().put("Airports.txt", lines);
    LoadAirports(folder().path("Airports.txt"), bar());
    fsicaofile = folder().path("icao name.cfg");
}

// The name of the last line of a code, cut as the record cuts it.
FixedText<60> nameOf(std::string_view code, std::string_view text) {
    FixedText<60> name;
    std::string lines(text);
    std::ranges::replace(lines, '\r', '\n'); // a lone one ends a line too
    for (const std::string_view line : split(lines, "\n")) {
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && upper(trim(line.substr(0, equals))) == code) {
            name = line.substr(equals + 1);
        }
    }
    return name;
}

} // namespace

void check(std::string_view input) {
    if (airportcount == 0) {
        loadAirports();
    }
    for (std::int32_t slot = 1; slot <= airportcount; ++slot) {
        AirportRec airport = airports.HashGetSlot(slot);
        airport.title = "";
        airports.HashPutSlot(slot, airport);
    }
    folder().put("icao name.cfg", input);
    LoadAirportTitles(bar());
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const AirportRec& airport = airports.peek(static_cast<std::int32_t>(i) + 1);
        require(airport.icao.text() == codes[i] && airport.altitude == 433, "only titles change");
        require(airport.title == nameOf(codes[i], input), "an airport has the name of its last line");
    }
}

} // namespace vantor::fuzz
