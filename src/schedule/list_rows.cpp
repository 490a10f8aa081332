#include "schedule/list_rows.h"

#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/clock.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "schedule/schedule_commands.h"

#include <unordered_set>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view deletedMark = "(DEL) ";

// The codes that a list of aircraft or airports has already. They are told apart by a search for "*{code}*" in the
// texts strung together; a set gives the same answer as long as no code holds the mark itself or is blank (a blank
// one is found where two others meet).
class SeenCodes {
  public:
    // False when the code was seen before.
    bool add(std::string_view code) {
        const std::string marked = "*" + std::string(code) + "*";
        m_plain = m_plain && code.find('*') == std::string_view::npos;
        const bool seen = m_plain && !code.empty() ? m_codes.contains(std::string(code)) : contains(m_text, marked);
        if (!seen) {
            m_codes.emplace(code);
            m_text += marked;
        }
        return !seen;
    }

  private:
    bool m_plain = true;
    std::unordered_set<std::string> m_codes;
    std::string m_text;
};

// One fill of the schedule list.
class ScheduleLister {
  public:
    ScheduleLister(std::string_view icao, std::string_view ac, bool unique, ListRows& rows)
        : m_icao(icao), m_ac(ac), m_unique(unique), m_rows(rows) {}

    void run() {
        for (m_schedule = 1; m_schedule <= schedulecount; ++m_schedule) {
            const ScheduleRec& schedule = schedules.peek(m_schedule);
            const std::string_view code = schedule.acnum.text();
            if (!m_ac.empty() && code != m_ac) {
                continue;
            }
            if (m_unique) {
                addVisits(schedule, code);
            } else {
                addSchedule(schedule);
            }
        }
        sortRows(m_airports);
        m_rows.insert(m_rows.end(), m_airports.begin(), m_airports.end());
        // Quirk: an empty row closes every fill.
        m_rows.emplace_back();
    }

    // Numbers of the two loops at this moment, as the message of a fault shows them.
    [[nodiscard]] std::int32_t legNumber() const noexcept { return m_leg; }
    [[nodiscard]] std::int32_t scheduleNumber() const noexcept { return m_schedule; }

  private:
    void addVisits(const ScheduleRec& schedule, std::string_view code) {
        for (m_leg = 1; m_leg <= schedule.legcount; ++m_leg) {
            const std::string_view destination = schedule.legs[m_leg].toicao.text();
            if (!m_icao.empty() && destination == m_icao) {
                if (m_seen.add(code)) {
                    m_rows.push_back({std::string(code) + " - " + aircrafttitle(code), 0});
                }
            } else if (!m_ac.empty() && code == m_ac && m_seen.add(destination)) {
                m_airports.push_back({std::string(destination) + " - " + airporttitle(destination), 0});
            }
        }
    }

    void addSchedule(const ScheduleRec& schedule) {
        bool found = false;
        for (m_leg = 1; m_leg <= schedule.legcount; ++m_leg) {
            found = found || m_icao.empty() || schedule.legs[m_leg].toicao.text() == m_icao;
        }
        if (m_rows.size() < scheduleRowLimit) {
            if (found) {
                m_rows.push_back({scheduleRow(schedule), m_schedule});
            }
        } else if (m_rows.size() == scheduleRowLimit) {
            // Quirk: also for a schedule that would not be listed.
            m_rows.push_back({"... Listbox limit reached", 0});
        }
    }

    std::string_view m_icao;
    std::string_view m_ac;
    bool m_unique;
    ListRows& m_rows;
    ListRows m_airports;
    SeenCodes m_seen;
    std::int32_t m_schedule = 0;
    std::int32_t m_leg = 0;
};

std::optional<std::string> schedulesCaption(std::string_view icao, std::string_view ac, bool unique) {
    if (unique) {
        if (!ac.empty()) {
            return "Airports visited by " + std::string(ac);
        }
        return icao.empty() ? std::nullopt : std::optional("Aircraft which visit " + std::string(icao));
    }
    if (!icao.empty()) {
        return "Showing all flights in or out of " + std::string(icao);
    }
    return ac.empty() ? "Listing all flights" : "Showing all flights by " + std::string(ac);
}

std::string departureText(const LegRec& leg) {
    DateTime departure = 0;
    try {
        departure = parseTime(leg.dep.raw());
    } catch (const Error&) {
        return std::string(leg.dep.raw());
    }
    return formatHHMMSS(applygmtoffset(departure));
}

std::string weekdayText(std::int16_t day) {
    if (day < 0 || day > 6) {
        throw Error(ErrorCode::InvalidCall);
    }
    return " " + host().weekdayName(day + 1) + "s";
}

// A fault leaves the rows so far.
void appendLegRows(const ScheduleRec& schedule, std::string_view icao, ListRows& rows) {
    for (std::int32_t i = 1; i <= schedule.legcount; ++i) {
        const LegRec& leg = schedule.legs[i];
        if (icao.empty() || leg.toicao.text() == icao || leg.fromicao.text() == icao) {
            rows.push_back({legRow(schedule, leg), leg.hashindex});
        }
    }
}

std::string legsCaption(const ScheduleRec& schedule, std::int32_t recnum, std::string_view icao) {
    if (icao.empty()) {
        return "Legs in flight #" + std::to_string(recnum);
    }
    return "Flights to/from " + std::string(icao) + " by " + aircrafttitle(schedule.acnum.text());
}

// Adds one schedule to a leg listing. A fault ends it and is not told: what was set before stays, and the current
// row is not moved.
void addToListing(std::int32_t recnum, std::string_view icao, LegListing& listing) noexcept {
    listing.disableButtons = true;
    if (recnum == 0) {
        return;
    }
    try {
        const ScheduleRec& schedule = schedules.peek(recnum);
        listing.enabled = !schedule.deleted;
        listing.caption = legsCaption(schedule, recnum, icao);
        appendLegRows(schedule, icao, listing.rows);
    } catch (...) {
        return;
    }
    if (!listing.rows.empty() && !listing.selectFirst) {
        // Quirk: only the first move to row 0 is a click. The next schedule disables the buttons again, and moving to
        // a row that is current already enables nothing.
        listing.selectFirst = true;
        listing.disableButtons = false;
    }
}

} // namespace

std::string scheduleRow(const ScheduleRec& schedule) {
    const std::string_view code = schedule.acnum.text();
    std::string row(schedule.deleted ? deletedMark : std::string_view());
    row.append(code).append(" - ").append(aircrafttitle(code)).append(" ").append(schedule.tailnumber.text());
    // The rules keep their padding.
    row.append(" (").append(upper(schedule.rules.raw())).append(",");
    row.append(std::to_string(schedule.legcount)).append(" legs)");
    return row;
}

std::string legRow(const ScheduleRec& schedule, const LegRec& leg) {
    std::string row(leg.deleted ? deletedMark : std::string_view());
    row.append("FL#").append(leg.flightnum.text()).append(" - ").append(leg.fromicao.text());
    row.append(" to ").append(leg.toicao.text());
    row.append(" (").append(generalNumber(double{leg.distance})).append(" nm) dpt ").append(departureText(leg));
    if (schedule.weekly) {
        row.append(weekdayText(leg.depday));
    } else {
        row.append(" every ").append(schedule.period.text());
    }
    // Quirk: a blank ends the row.
    row.append(leg.tng ? " TNG " : "");
    return row;
}

void listSchedules(std::string_view icao, std::string_view ac, bool unique, Listing& listing) {
    listing.rows.clear();
    listing.caption = schedulesCaption(icao, ac, unique);
    ScheduleLister lister(icao, ac, unique, listing.rows);
    try {
        lister.run();
    } catch (...) {
        const Error error = currentError();
        throw ListingFault(error.number(), "Error '" + error.description() + "' showing leg " +
                                               std::to_string(lister.legNumber()) + " of schedule " +
                                               std::to_string(lister.scheduleNumber()));
    }
}

LegListing listLegs(std::int32_t recnum, std::string_view icao) noexcept {
    LegListing listing;
    addToListing(recnum, icao, listing);
    return listing;
}

namespace {
const ScheduleRec* scheduleAt(std::int32_t recnum) {
    return &schedules.peek(recnum);
}
} // namespace

LegListing listLegsOfAircraft(const StandardTrap& trap, std::string_view ac, std::string_view icao) noexcept {
    const ScheduleRec blank;
    const ScheduleRec* schedule = &blank;
    LegListing listing;
    for (std::int32_t r = 1; r <= schedulecount; ++r) {
        trap.set(schedule, scheduleAt, r);
        if (schedule->acnum.text() == ac) {
            addToListing(r, icao, listing);
        }
    }
    return listing;
}

ScheduleButtons scheduleButtons(const StandardTrap& trap, std::size_t selectedRows, std::int32_t itemData,
                                std::string_view rowText) noexcept {
    ScheduleButtons buttons;
    if (itemData == 0) {
        return buttons;
    }
    buttons.editSchedule = selectedRows < 2;
    buttons.copy = selectedRows < 2;
    buttons.deleteSchedule = true;
    // Quirk: the caption follows the current row alone, whatever else is selected.
    bool deleted = false;
    trap.set(deleted, scheduleDeleted, itemData);
    buttons.deleteCaption = deleted ? "Undelete" : "Delete";
    buttons.swapAircraft = !extractaircraft(rowText).empty();
    return buttons;
}

LegButtons legButtons(const StandardTrap& trap, std::int32_t itemData) noexcept {
    LegButtons buttons;
    if (itemData == 0) {
        return buttons;
    }
    buttons.enable = true;
    if (const std::optional<LegId> id = extractindexes(itemData); id && *id) {
        if (bool deleted = false; trap.set(deleted, legDeleted, *id)) {
            buttons.deleteCaption = deleted ? "Undelete" : "Delete";
        }
    }
    return buttons;
}

ScheduleListRow kindOfRow(std::int32_t itemData, std::string_view rowText) noexcept {
    if (itemData != 0) {
        return ScheduleListRow::schedule;
    }
    if (contains(rowText, "AC#")) {
        return ScheduleListRow::aircraftRow;
    }
    return rowText.empty() ? ScheduleListRow::nothing : ScheduleListRow::airportRow; // Quirk: the limit row as well.
}

} // namespace vantor
