#include "simulator/traffic_tool.h"

#include "core/schedule_walk.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "foundation/path_text.h"
#include "foundation/process.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <cstdint>
#include <unordered_set>

namespace vantor {

namespace {

// Quirk: a miss of the table reads -1 in place of the code, and so does an airport of the file with such a code.
bool readsAsMiss(std::string_view icao) {
    if (!icao.starts_with('-')) {
        return false;
    }
    try {
        return parseNumber(icao) == -1;
    } catch (const Error&) {
        return false;
    }
}

// A code as a number, which is quicker to look for than a text. Codes have at most six characters, and the mark ahead
// of them tells their length.
std::uint64_t keyOf(std::string_view code) {
    std::uint64_t key = 1;
    for (const char c : code) {
        key = key << 8U | static_cast<unsigned char>(c);
    }
    return key;
}

bool isUnknown(std::string_view code) {
    const AirportRec* const found = airports.findInPlace(code);
    return found == nullptr || readsAsMiss(found->icao.text());
}

// Gathers the codes that the table of airports doesn't hold. Each code is looked up once, however many legs it has.
class MissingAirports {
  public:
    explicit MissingAirports(std::string& list) : m_list(list) {}

    void look(const ScheduleRec& schedule) {
        if (schedule.deleted) {
            return;
        }
        // Origins alone are tested: on a closed loop each destination is the next leg's origin.
        for (const LegRec& leg : schedule.flown()) {
            if (!leg.deleted) {
                lookUp(leg.fromicao.text());
            }
        }
    }

    [[nodiscard]] bool any() const noexcept { return m_any; }

  private:
    void lookUp(std::string_view code) {
        if (!m_seen.insert(keyOf(code)).second || !isUnknown(code)) {
            return;
        }
        if (!m_any) {
            normalmouse();
        }
        m_any = true;
        // Quirk: a plain search inside the list. ABC counts as there after XABC.
        const std::string entry = std::string(code) + " ";
        if (!contains(m_list, entry)) {
            m_list += entry;
        }
    }

    std::string& m_list;
    std::unordered_set<std::uint64_t> m_seen;
    bool m_any = false;
};

std::string toolCommand(std::string_view tool, std::string_view switchName) {
    return std::string(tool).append(" /").append(switchName).append(fileonly(plansuffix));
}

} // namespace

bool airportsmissing(std::string& list) noexcept {
    const StandardTrap trap{"function airportsmissing", "modExec"};
    trap(busymouse);
    MissingAirports missing(list);
    walkSchedules(trap, schedulecount, [&](const ScheduleRec& schedule) { missing.look(schedule); });
    trap(normalmouse);
    return missing.any();
}

std::string compileCommand(std::string_view tool) {
    // Quirk: no quotes around the path, even with blanks in it.
    return toolCommand(tool, "co") + " /t" + std::to_string(fsmode);
}

std::string decompileCommand(std::string_view tool) {
    // Quirk: unlike the compile it has no switch for the simulator.
    return toolCommand(tool, "de");
}

std::uint32_t ExecCmd(const std::string& command, const std::function<void()>& meanwhile) {
    return runToEnd(command, meanwhile);
}

} // namespace vantor
