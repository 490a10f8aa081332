#include "simulator/fs_aircraft.h"

#include "core/tables.h"
#include "foundation/channels.h"
#include "foundation/code_page.h"
#include "foundation/disk.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/numbers.h"
#include "foundation/progress.h"
#include "foundation/text.h"
#include "simulator/folders.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

namespace {

// Knots of an aircraft whose file tells no speed.
constexpr float defaultSpeed = 250;

// One title of the simulator and the speed of the file it stands in.
struct SimulatorTitle {
    std::string title;
    float speed = 0;
};

// Whether a line starts with `key` (capitals), without regard to blanks and case.
bool startsWithKey(std::string_view line, std::string_view key) noexcept {
    std::size_t matched = 0;
    for (const char c : line) {
        if (c == ' ') {
            continue;
        }
        if (upperChar(c) != key[matched]) {
            return false;
        }
        if (++matched == key.size()) {
            return true;
        }
    }
    return false;
}

// What stands behind the first "=" of a line that has one.
std::string_view valueOf(std::string_view line) noexcept {
    return trim(line.substr(line.find('=') + 1));
}

// Runs one pass over a file. When the file can't be opened or read that is logged and the work goes on after the
// pass; a single broken file must not stop the scan.
template <class Pass>
void tolerant(const std::string& file, Pass&& pass) {
    try {
        pass();
    } catch (const Error& error) {
        if (!error.is(ErrorCode::PathFileAccess) && !error.is(ErrorCode::BadFileName)) {
            throw;
        }
        logit("Error " + std::to_string(error.number()) + " in LoadFSAircraft, item " + file);
    }
}

// The first speed of a file.
void readSpeed(const std::string& file, float& speed) {
    constexpr std::string_view key = "CRUISE_SPEED=";
    InputFile input(file);
    std::string_view line;
    while (input.readLine(line)) {
        if (line.size() > key.size() && startsWithKey(line, key)) {
            const std::string_view value = valueOf(line);
            speed = toSingle(val(value.substr(std::min(value.find_first_not_of(" \t"), value.size()))));
            return;
        }
    }
}

// All titles of a file, each in double quotes as in the traffic's own file.
void readTitles(const std::string& file, float speed, std::vector<SimulatorTitle>& titles) {
    constexpr std::string_view key = "TITLE=";
    InputFile input(file);
    std::string_view line;
    while (input.readLine(line)) {
        if (line.size() <= key.size() || !startsWithKey(line, key)) {
            continue;
        }
        const std::string_view title = valueOf(line);
        if (!title.starts_with('~')) {
            titles.push_back({"\"" + std::string(title) + "\"", speed});
        }
    }
}

void scanFolders(Canvas* progress, std::string& item) {
    if (!FolderExists(fsaircraftpath)) {
        throw Error(ErrorCode::PathNotFound);
    }
    std::vector<std::string> files;
    fillfolders(fsaircraftpath, files, true);
    std::vector<SimulatorTitle> titles;
    for (std::size_t i = 0; i < files.size(); ++i) {
        item = files[i];
        if (progress != nullptr) {
            showprogressstring(progress, static_cast<double>(i + 1), static_cast<double>(files.size()),
                               "Loading FS Aircraft");
        }
        if (!FileExists(item)) {
            continue;
        }
        float speed = defaultSpeed;
        tolerant(item, [&] { readSpeed(item, speed); });
        tolerant(item, [&] { readTitles(item, speed, titles); });
    }
    fsaircraft.reserve(static_cast<std::int32_t>(titles.size()));
    for (const SimulatorTitle& found : titles) {
        AircraftRec record;
        record.title = found.title;
        record.cruisespeed = found.speed;
        fsaircraft.append(record);
    }
    fsaircraftcount = fsaircraft.size();
}

} // namespace

void LoadFSAircraft(Canvas* progress) {
    std::string item = "FS aircraft";
    fsaircraft.clear();
    fsaircraftcount = 0;
    try {
        scanFolders(progress, item);
    } catch (...) {
        const Error error = currentError();
        if (!error.is(ErrorCode::PathNotFound)) {
            throw Error(error.number(), error.description() + " in LoadFSAircraft, while attempting to load " + item);
        }
        logit("FS Aircraft not found");
        host().message("Cannot find Flight Sim aircraft folder.  If you've moved Flight Sim, please delete Vantor.ini "
                       "and run this program again.");
    }
}

} // namespace vantor
