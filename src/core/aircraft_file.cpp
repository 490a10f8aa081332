#include "core/aircraft_file.h"

#include "core/tables.h"
#include "foundation/numbers.h"
#include "foundation/progress.h"
#include "foundation/replacing_file.h"
#include "foundation/text.h"
#include "foundation/text_files.h"
#include "foundation/trap.h"

#include <optional>
#include <string>

namespace vantor {

namespace {

// Comments are recognised in the first column only, wherever in it the mark stands.
bool isComment(std::string_view column) {
    return contains(column, "//") || contains(column, ";");
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
    // LF as well, the pieces below at CR LF alone: there are never fewer lines.
    aircraft.resize(aircraftcount);
    std::string text;
    ReadWholeFile(file, text);
    const auto lines = split(text, "\r\n");
    std::int32_t count = 0;
    for (std::size_t piece = 0; piece < lines.size(); ++piece) {
        const auto columns = split(lines[piece], ",");
        if (columns.size() < 3 || isComment(columns[0])) {
            continue;
        }
        AircraftRec& row = aircraft[++count];
        row.acnum = columns[0];
        row.cruisespeed = parseSingle(columns[1]);
        row.title = columns[2];
        row.missing = false;
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

void saveaircraft() noexcept {
    const StandardTrap trap{"sub saveaircraft", "modAircraftSave"};
    std::optional<ReplacingFile> file;
    // The name is fixed and bare, whatever the configured file: it goes to the current folder, where the compiler of
    // the traffic reads. It is meant.
    trap([&] { file.emplace("Aircraft.txt"); });
    if (!file) {
        return;
    }
    for (std::int32_t i = 1; i <= aircraftcount; ++i) {
        trap([&] {
            const AircraftRec& row = aircraft[i];
            if (!row.deleted) {
                file->write(std::string(row.acnum.text()) + "," + shortestSingle(row.cruisespeed) + "," +
                            std::string(row.title.text()) + "\r\n");
            }
        });
    }
    trap([&] { file->commit(); });
}

} // namespace vantor
