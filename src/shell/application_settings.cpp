#include "shell/application_settings.h"

#include "core/settings_keys.h"
#include "core/tables.h"
#include "foundation/clock.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "foundation/trap.h"

namespace vantor {

std::string compiletool;
std::string decompiletool;

namespace {

constexpr double hoursPerDay = 24;
constexpr double minutesPerHour = 60;

std::string inProgramFolder(std::string_view name) {
    return programFolder() + "\\" + std::string(name);
}

void completeGmtBox(std::string& box) {
    if (trim(box).empty()) {
        box = "00";
    } else if (box.size() == 1) {
        box.insert(box.begin(), '0');
    }
}

} // namespace

std::string appversion() {
    return "V:" + AppVersion();
}

std::string settingsFile() {
    return inProgramFolder("Vantor2.ini");
}

TrafficFiles defaultFiles(int mode) {
    if (mode == 2) {
        return {inProgramFolder("Aircraft.txt"), inProgramFolder("Airports.txt"), inProgramFolder("Flightplans.txt")};
    }
    return {inProgramFolder("Aircraft030528.txt"), inProgramFolder("Airports030528.txt"),
            inProgramFolder("Flightplans030528.txt")};
}

TrafficFiles defaultFiles() {
    return defaultFiles(fsmode);
}

bool modeChosen() noexcept {
    try {
        return sget(keys::fsMode, std::int16_t{0}).int16() != 0;
    } catch (...) {
        return false;
    }
}

void readsettings() noexcept {
    const StandardTrap trap{"sub readsettings", "modSettingsLoadAndSave"};
    trap.set(gmtoffset, setting<float>, keys::gmtOffset);
    fs2k2path = sget(keys::fs2k2Path).text();
    fs2k4path = sget(keys::fs2k4Path).text();
    trap(logit, "Flight Sim 2002 path set to " + fs2k2path);
    trap(logit, "Flight Sim 2004 path set to " + fs2k4path);
    if (std::int16_t mode = 0; trap.set(mode, setting<std::int16_t>, keys::fsMode)) {
        fsmode = mode == 0 ? keys::fsMode.fallback : mode; // 0 stands for a mode not chosen yet
    }
    fspath = fsmode == 2 ? fs2k2path : fs2k4path;
    // A path without its trailing backslash runs together with what follows: none is added.
    fsicaofile = fspath + "weather\\icao name.cfg";
    fsaircraftpath = fspath + "aircraft\\";
    compiletool = inProgramFolder("TTools.exe");
    decompiletool = inProgramFolder("TTools.exe");
    trap(logit, "FS mode: " + std::to_string(fsmode));
    trap(logit, "FS Path: " + fspath);
    trap(logit, "FS ICAO File: " + fsicaofile);
    trap(logit, "FS Aircraft Path: " + fsaircraftpath);
}

GmtBoxes gmtBoxes(float offset) {
    GmtBoxes boxes{twoDigits(hourOf(double{offset})), twoDigits(minuteOf(double{offset}))};
    if (offset < 0) {
        boxes.hour.insert(boxes.hour.begin(), '-');
    }
    return boxes;
}

void completeGmtBoxes(GmtBoxes& boxes) {
    completeGmtBox(boxes.hour);
    completeGmtBox(boxes.minute);
}

std::optional<GmtFault> gmtFault(const GmtBoxes& boxes) noexcept {
    const double hours = val(boxes.hour);
    if (hours < -12 || hours > 12) {
        return GmtFault{"Hour offset can be -12 to +12 only", false};
    }
    const double minutes = val(boxes.minute);
    if (minutes < 0 || minutes >= minutesPerHour) {
        return GmtFault{"Minute offset can be 0 to 59 only", true};
    }
    return std::nullopt;
}

float gmtOffsetOf(const GmtBoxes& boxes) noexcept {
    // Quirk: the minutes are added to negative hours too, so that -05 and 30 is -4:30.
    return static_cast<float>((val(boxes.hour) + val(boxes.minute) / minutesPerHour) / hoursPerDay);
}

} // namespace vantor
