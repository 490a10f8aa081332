// An aircraft.cfg: the scan for titles and the report on textures and models.
#include "core/tables.h"
#include "foundation/channels.h"
#include "foundation/text.h"
#include "foundation/text_files.h"
#include "fuzz.h"
#include "simulator/aircraft_report.h"
#include "simulator/fs_aircraft.h"

#include <algorithm>
#include <cmath>

namespace vantor::fuzz {

void check(std::string_view input) {
    if (fsaircraftpath.empty()) {
        folder().makeFolder("fs/plane/texture.red");
        fsaircraftpath = folder().path("fs\\");
    }
    folder().put("fs/plane/aircraft.cfg", input);
    errorOf({ErrorCode::Overflow}, [] { LoadFSAircraft(bar()); });
    require(fsaircraftcount <= LinesInFile(fsaircraftpath + "plane\\aircraft.cfg"), "a title is a line");
    for (const AircraftRec& found : fsaircraft) {
        require(found.title.raw().front() == '"' && found.title.raw()[1] != '~', "a title is quoted");
        require(std::isfinite(found.cruisespeed) && found.cruisespeed == fsaircraft[1].cruisespeed,
                "one file has one speed");
    }

    modACReport();
    const std::string report = folder().get("ACLOG.TXT");
    const std::string plane = fsaircraftpath + "plane\\";
    std::string ends(input);
    std::ranges::replace(ends, '\r', '\n');
    const auto lines = split(report, "\r\n");
    require(lines.size() <= 2 * split(ends, "\n").size() + 3, "a line has two faults at most");
    for (const std::string_view line : lines) {
        require(line.empty() || line.starts_with(plane), "a line of the report begins with the folder");
    }
    require(InputFile(plane + "aircraft.cfg").number() == 1, "no channel stays open");
}

} // namespace vantor::fuzz
