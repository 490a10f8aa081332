#include "foundation/log.h"

#include "foundation/clock.h"
#include "foundation/files.h"
#include "foundation/host.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"

#include <array>
#include <optional>

namespace vantor {

namespace {

constexpr std::size_t zoneWidth = 14; // characters of a print zone

struct Action {
    std::string text; // empty: never written
    std::string time; // HH:MM:SS
};

struct LogState {
    std::string logfile;
    int actionindex = 0;          // the newest entry, 1 to 40; 0 at the start
    std::int64_t actioncount = 0; // entries stored so far
    std::array<Action, recentActions> actions;

    Action& at(int index) { return actions.at(static_cast<std::size_t>(index - 1)); }
};

LogState& state() {
    static LogState log;
    return log;
}

std::string zone(std::string text) {
    if (text.size() < zoneWidth) {
        text.resize(zoneWidth, ' ');
    }
    return text;
}

std::string described(std::string_view text, std::string_view procedure, std::string_view module) {
    std::string result(text);
    if (!procedure.empty()) {
        result.append(" in ").append(procedure);
    }
    if (!module.empty()) {
        result.append(" of module ").append(module);
    }
    return result;
}

void store(std::string text) {
    ++state().actioncount;
    Action& newest = state().at(state().actionindex);
    newest.text = std::move(text);
    newest.time = formatHHMMSS(now());
}

std::string nameOf(const SystemVersion& version) {
    if (version.platform == 2) {
        if (version.major > 6) {
            return "WINNT6+";
        }
        if (version.major == 5) {
            return version.minor == 0 ? "Win2K" : "WinXP";
        }
        // Major version 6 itself has no name: that is meant.
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

} // namespace

void setlogfile() {
    state().logfile = programFolder() + "\\log.txt";
}

void logit(std::string_view text, bool create) {
    if (state().logfile.empty()) {
        setlogfile();
    }
    writelogline(state().logfile, text, create);
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

void logaction(std::string_view text, std::string_view procedure, std::string_view module) {
    LogState& log = state();
    std::string entry = described(text, procedure, module);
    if (++log.actionindex > recentActions) {
        // The ring turns even when the log is out of reach, so that the newest faults are the ones it holds.
        try {
            dumpactions();
        } catch (...) {
            log.actionindex = 1;
            store(std::move(entry));
            throw;
        }
        log.actionindex = 1;
    }
    store(std::move(entry));
}

void logdebug(std::string_view text, std::string_view procedure, std::string_view module) {
    LogState& log = state();
    if (++log.actionindex > recentActions) {
        log.actionindex = 1; // debugging entries overwrite the ring without a dump
    }
    store(described(std::string("DBG: ").append(text), procedure, module));
}

void dumpactions() {
    LogState& log = state();
    logit("Listing last " + std::to_string(recentActions) + " actions: ");
    const int start = log.actionindex + 1 > recentActions ? 1 : log.actionindex + 1;
    int number = 0;
    for (int step = 0; step < recentActions; ++step) {
        const Action& action = log.at((start - 1 + step) % recentActions + 1);
        if (!action.text.empty()) {
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

std::string newestAction() {
    return actionText(state().actionindex);
}

std::string actionText(int index) {
    return index >= 1 && index <= recentActions ? state().at(index).text : std::string();
}

std::int64_t actionCount() {
    return state().actioncount;
}

void resetLogging() {
    state() = LogState();
}

} // namespace vantor
