#include "core/airports_file.h"

#include "core/great_circle.h"
#include "core/table_text.h"
#include "core/tables.h"
#include "foundation/channels.h"
#include "foundation/disk.h"
#include "foundation/numbers.h"
#include "foundation/progress.h"
#include "foundation/text.h"
#include "foundation/text_files.h"

#include <string>

namespace vantor {

namespace {

// `accepted` counts the lines taken so far; it is raised before the record is filled, so it counts the one that faults.
void readAirports(std::string_view file, Canvas* progress, std::int32_t& accepted) {
    airports.Init();
    airportcount = LinesInFile(file);
    if (airportcount == 0) {
        throw Error(ErrorCode::Loader, std::string(file) + " missing or empty.  Please run this program in the "
                                                           "TrafficTools path AFTER you have decompiled Traffic.BGL");
    }
    std::string text;
    ReadWholeFile(file, text);
    const auto lines = splitLines(text);
    AirportRec record;
    for (std::size_t piece = 0; piece < lines.size(); ++piece) {
        const auto columns = split(lines[piece], ",");
        if (columns.size() < 4 || isComment(columns[0])) {
            continue;
        }
        ++accepted;
        record.icao = columns[0];
        record.lattext = columns[1];
        record.latdeg = static_cast<float>(convertlatlongtodegrees(columns[1]));
        record.longtext = columns[2];
        record.longdeg = static_cast<float>(convertlatlongtodegrees(columns[2]));
        record.altitude = parseInt16(columns[3]);
        airports.HashAdd(record);
        showprogressstring(progress, static_cast<double>(piece), static_cast<double>(lines.size() - 1),
                           "Loading Data: Airports");
    }
    airportcount = accepted;
}

void nameAirport(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return;
    }
    AirportRec record = airports.HashFind(upper(trim(line.substr(0, equals))));
    if (record.known()) {
        record.title = line.substr(equals + 1);
        const std::int32_t slot = record.slot;
        airports.HashPutSlot(slot, record);
    }
}

} // namespace

void LoadAirports(std::string_view file, Canvas* progress) {
    std::int32_t accepted = 0;
    try {
        readAirports(file, progress, accepted);
    } catch (...) {
        const Error error = currentError();
        airports.Cover(airportcount); // all lines count when the reading fails, and the boxes read up to the count
        // Quirk: every fault gets this wrapping, the missing file too, and nothing follows its last blank.
        throw Error(error.number(),
                    error.description() + " in line " + std::to_string(accepted) + " of airports.txt.  Error on: ");
    }
}

void LoadAirportTitles(Canvas* /*progress*/) {
    try {
        if (FileExists(fsicaofile)) {
            InputFile file(fsicaofile);
            for (std::string_view line; file.readLine(line);) {
                nameAirport(line);
            }
            return;
        }
        for (std::int32_t slot = 1; slot <= airports.RecordCount(); ++slot) {
            AirportRec record = airports.HashGetSlot(slot);
            record.title = record.icao.text();
            airports.HashPutSlot(slot, record);
        }
    } catch (...) {
        const Error error = currentError();
        throw Error(error.number(), error.description() + " in LoadAirportTitles");
    }
}

} // namespace vantor
