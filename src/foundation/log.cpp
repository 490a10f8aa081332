#include "foundation/log.h"

#include "foundation/channels.h"
#include "foundation/clock.h"
#include "foundation/disk.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"

#include <optional>

namespace vantor {

namespace {

constexpr std::size_t zoneWidth = 14; // characters of a print zone

std::string zone(std::string text) {
    if (text.size() < zoneWidth) {
        text.resize(zoneWidth, ' ');
    }
    return text;
}

std::string nameOf(const SystemVersion& version) {
    if (version.platform == 2) {
        if (version.major > 6) {
            return "WINNT6+";
        }
        if (version.major == 5) {
            return version.minor == 0 ? "Win2K" : "WinXP";
        }
        // Quirk: major version 6 itself has no name.
        return version.major <= 4 ? "WinNT" : "";
    }
    if (version.platform == 1) {
        switch (version.minor) {
        case 10:
            return "Win98";
        case 0:
            return "Win95";
        case 90:
            return "WinME";
        default:
            return "WIN32";
        }
    }
    return "";
}

void putLine(std::string_view text, bool create) {
    if (logFile().empty()) {
        setlogfile();
    }
    writelogline(logFile(), text, create);
}

} // namespace

std::string& logFile() noexcept {
    static std::string path;
    return path;
}

void setlogfile() {
    logFile() = programFolder() + "\\log.txt";
}

void logit(std::string_view text) {
    putLine(text, false);
}

void beginLog(std::string_view text) {
    putLine(text, true);
}

void writelogline(std::string_view path, std::string_view text, bool create) {
    const DateTime moment = now();
    if (create) {
        EraseFile(path);
        create = !FileExists(path); // a log that can't be erased is appended to
    }
    OutputFile log(path, create ? OutputFile::Open::Replace : OutputFile::Open::Append);
    const auto line = [&, time = zone(formatHHMMSS(moment)),
                       channel = zone(" " + std::to_string(log.number()) + " ")](std::string_view column) {
        log.write(std::string(time).append(channel).append(column).append("\r\n"));
    };
    if (create) {
        line("Log file created " + host().generalDateTime(moment));
        line("Operating System: " + fosname());
        line("App: " + programName());
        line("Version: " + AppVersion());
    }
    line(text);
    log.close();
}

void dumpactions() {
    const ActionRing& ring = actionRing();
    logit("Listing last " + std::to_string(recentActions) + " actions: ");
    int place = ring.newest();
    int number = 0;
    for (int step = 0; step < recentActions; ++step) {
        place = place >= recentActions ? 1 : place + 1;
        if (const ActionRing::Action& action = ring.at(place); !action.text.empty()) {
            ++number;
            logit(" >> " + std::to_string(number) + ": " + action.text + " - " + action.time);
        }
    }
    logit("End of actions list");
}

std::string fosname() {
    const StandardTrap trap{"function fosname", "mSHAREDOSINFO"};
    std::string name;
    trap([&] {
        if (const std::optional<SystemVersion> version = host().systemVersion()) {
            name = nameOf(*version);
        }
    });
    return name;
}

std::string AppVersion() {
    return VANTOR_VERSION;
}

} // namespace vantor
