#include "core/aircraft_file.h"

#include "core/save_file.h"
#include "core/table_text.h"
#include "core/tables.h"
#include "foundation/numbers.h"
#include "foundation/progress.h"
#include "foundation/replacing_file.h"
#include "foundation/text.h"
#include "foundation/text_files.h"
#include "foundation/trap.h"

#include <string>

namespace vantor {

namespace {

OneBased<AircraftRec> blankRows(std::int32_t count) {
    OneBased<AircraftRec> rows;
    rows.resize(count);
    return rows;
}

void readAircraft(std::string_view file, Canvas* progress) {
    aircraft.clear();
    aircraftcount = 0; // also when the file can't be counted
    aircraftcount = LinesInFile(file);
    if (aircraftcount == 0) {
        throw Error(ErrorCode::Loader, std::string(file) + " missing or empty.   Please run this program in the "
                                                           "TrafficTools path AFTER you have decompiled Traffic.BGL");
    }
    // Ahead of the reading, so that every row that counts is there when it fails. The lines counted end at a lone CR or
    // LF as well: there are never fewer of them than lines below.
    aircraft.replace(blankRows(aircraftcount));
    std::string text;
    ReadWholeFile(file, text);
    const auto lines = splitLines(text);
    std::int32_t count = 0;
    for (std::size_t piece = 0; piece < lines.size(); ++piece) {
        const auto columns = split(lines[piece], ",");
        if (columns.size() < 3 || isComment(columns[0])) {
            continue;
        }
        AircraftRec row;
        row.acnum = columns[0];
        aircraft.put(++count, row); // a speed that is no number leaves the code in its row
        row.cruisespeed = parseSingle(columns[1]);
        row.title = columns[2];
        aircraft.put(count, row);
        showprogressstring(progress, static_cast<double>(piece), static_cast<double>(lines.size() - 1),
                           "Loading Data: Aircraft");
    }
    aircraftcount = count;
}

} // namespace

void LoadAircraft(std::string_view file, Canvas* progress) {
    try {
        readAircraft(file, progress);
    } catch (...) {
        const Error error = currentError();
        if (error.is(ErrorCode::Loader)) {
            throw;
        }
        throw Error(error.number(), error.description() + " in LoadAircraft");
    }
}

void appendAircraft(std::string& text, const AircraftRec& row) {
    if (row.deleted) {
        return;
    }
    text.append(row.acnum.text()).append(",").append(shortestSingle(row.cruisespeed)).append(",");
    text.append(row.title.text()).append("\r\n");
}

std::optional<Error> saveaircraft(Canvas* progress) noexcept {
    const StandardTrap trap{"sub saveaircraft", "modAircraftSave"};
    // Quirk: the name is fixed and bare, whatever the configured file. It goes to the current folder, where the
    // compiler of the traffic reads.
    return saveFile(trap, savedAircraftFile, [&](const auto& put) {
        std::string line;
        for (std::int32_t i = 1; i <= aircraftcount; ++i) {
            trap([&] {
                line.clear();
                appendAircraft(line, aircraft[i]);
                put(line);
            });
            if (progress != nullptr) {
                showprogressstring(progress, i, aircraftcount, "");
            }
        }
    });
}

} // namespace vantor
