#include "explorer/leg_values.h"

#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/clock.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <algorithm>

namespace vantor {

namespace {

constexpr std::array<std::string_view, legColumns> titles{"Aircraft",  "Call sign", "Flight", "From",  "To",
                                                          "Departure", "Arrival",   "Days",   "NM",    "Level",
                                                          "Repeat",    "Percent",   "Rules",  "Status"};

constexpr std::array<std::string_view, 6> stateWords{"deleted",          "schedule deleted", "missing aircraft",
                                                     "unknown aircraft", "unknown airport",  "touch and go"};

std::string timeText(const FixedText<12>& stored) {
    try {
        return formatHHMM(applygmtoffset(parseTime(stored.raw())));
    } catch (const Error&) {
        return std::string(stored.text());
    }
}

std::string dayText(const ScheduleRec& schedule, const LegRec& leg) {
    if (!schedule.weekly) {
        return {};
    }
    const bool named = leg.depday >= 0 && leg.depday <= 6;
    return named ? host().weekdayName(leg.depday + 1) : std::to_string(leg.depday);
}

unsigned airportStates(const LegRec& leg) {
    const bool known = airportKnown(leg.fromicao.text()) && airportKnown(leg.toicao.text());
    return known ? 0U : row_state::unknownAirport;
}

// Columns that a leg shares with its schedule.
std::string scheduleText(const ScheduleRec& schedule, LegColumn column) {
    const std::string_view code = schedule.acnum.text();
    switch (column) {
    case LegColumn::Aircraft:
        return aircraftrecord(code) == -1 ? std::string(code) : std::string(code) + " - " + aircrafttitle(code);
    case LegColumn::CallSign:
        return std::string(schedule.tailnumber.text());
    case LegColumn::Repeat:
        return std::string(schedule.period.text());
    case LegColumn::Percent:
        return std::string(schedule.percent.text());
    case LegColumn::Rules:
        return std::string(schedule.rules.text());
    default:
        return {};
    }
}

std::string legText(const ScheduleRec& schedule, const LegRec& leg, LegColumn column) {
    switch (column) {
    case LegColumn::Flight:
        return std::string(leg.flightnum.text());
    case LegColumn::From:
        return std::string(leg.fromicao.text());
    case LegColumn::To:
        return std::string(leg.toicao.text());
    case LegColumn::Departure:
        return timeText(leg.dep);
    case LegColumn::Arrival:
        return timeText(leg.arr);
    case LegColumn::Days:
        return dayText(schedule, leg);
    case LegColumn::Distance:
        return generalNumber(static_cast<double>(leg.distance));
    case LegColumn::Level:
        return std::to_string(leg.flightlevel);
    case LegColumn::Status:
        return statesText(recordStates(schedule, &leg) | aircraftStates(schedule.acnum.text()) | airportStates(leg));
    default:
        return scheduleText(schedule, column);
    }
}

std::string airportsText(const ScheduleRec& schedule) {
    std::string text;
    for (const LegRec& leg : numberedLegs(schedule)) {
        text.append(text.empty() ? "" : " ").append(leg.toicao.text());
    }
    return text;
}

std::string daysText(const ScheduleRec& schedule) {
    std::array<bool, 7> days{};
    for (const LegRec& leg : numberedLegs(schedule)) {
        if (schedule.weekly && leg.depday >= 0 && leg.depday <= 6) {
            days.at(static_cast<std::size_t>(leg.depday)) = true;
        }
    }
    std::string text;
    for (int day = 0; day < 7; ++day) {
        if (days.at(static_cast<std::size_t>(day))) {
            text.append(text.empty() ? "" : " ").append(host().weekdayName(day + 1).substr(0, 2));
        }
    }
    return text;
}

std::string foldedText(const ScheduleRec& schedule, LegColumn column) {
    if (column == LegColumn::Flight) {
        return std::to_string(schedule.legcount) + (schedule.legcount == 1 ? " leg" : " legs");
    }
    if (column == LegColumn::Status) {
        unsigned states = recordStates(schedule, nullptr) | aircraftStates(schedule.acnum.text());
        for (const LegRec& leg : numberedLegs(schedule)) {
            states |= airportStates(leg);
        }
        return statesText(states);
    }
    const std::span<const LegRec> legs = numberedLegs(schedule);
    if (legs.empty()) {
        return scheduleText(schedule, column);
    }
    switch (column) {
    case LegColumn::To:
        return airportsText(schedule);
    case LegColumn::Arrival:
        return timeText(legs.back().arr);
    case LegColumn::Days:
        return daysText(schedule);
    case LegColumn::Distance: {
        double sum = 0;
        for (const LegRec& leg : numberedLegs(schedule)) {
            sum += static_cast<double>(leg.distance);
        }
        return generalNumber(sum);
    }
    case LegColumn::Level:
        return std::to_string(std::ranges::max(legs, {}, &LegRec::flightlevel).flightlevel);
    default:
        return legText(schedule, legs.front(), column);
    }
}

} // namespace

std::string_view columnTitle(LegColumn column) noexcept {
    return titles[static_cast<std::size_t>(column)];
}

bool isNumeric(LegColumn column) noexcept {
    switch (column) {
    case LegColumn::Flight:
    case LegColumn::Departure:
    case LegColumn::Arrival:
    case LegColumn::Distance:
    case LegColumn::Level:
    case LegColumn::Repeat:
    case LegColumn::Percent:
        return true;
    default:
        return false;
    }
}

std::string cellText(LegNumber row, LegColumn column) {
    const ScheduleRec* const schedule = scheduleOf(row);
    if (schedule == nullptr) {
        return {};
    }
    if (legAt(row).leg == 0) {
        return foldedText(*schedule, column);
    }
    const LegRec* const leg = legOf(*schedule, row);
    return leg == nullptr ? std::string() : legText(*schedule, *leg, column);
}

std::string cellHint(LegNumber row, LegColumn column) {
    const ScheduleRec* const schedule = scheduleOf(row);
    const LegRec* const leg = schedule == nullptr ? nullptr : legOf(*schedule, row);
    if (schedule != nullptr && column == LegColumn::Aircraft) {
        return aircrafttitle(schedule->acnum.text());
    }
    if (leg != nullptr && column == LegColumn::From) {
        return airporttitle(leg->fromicao.text());
    }
    if (leg != nullptr && column == LegColumn::To) {
        return airporttitle(leg->toicao.text());
    }
    return cellText(row, column);
}

std::vector<std::string> termsOf(LegNumber row) {
    const ScheduleRec* const schedule = scheduleOf(row);
    if (schedule == nullptr) {
        return {};
    }
    std::vector<std::string> terms{"ac:" + std::string(schedule->acnum.text())};
    if (const std::string tail(schedule->tailnumber.text()); !tail.empty()) {
        terms.push_back(contains(tail, " ") ? "tail=\"" + tail + "\"" : "tail=" + tail);
    }
    if (const LegRec* const leg = legOf(*schedule, row)) {
        const std::string from(leg->fromicao.text());
        const std::string to(leg->toicao.text());
        terms.insert(terms.end(), {"at=" + from, "at=" + to, "from=" + from + " to=" + to});
    }
    return terms;
}

std::string statesText(unsigned states) {
    std::string text;
    for (std::size_t bit = 0; bit < stateWords.size(); ++bit) {
        if ((states >> bit & 1U) != 0) {
            text.append(text.empty() ? "" : ", ").append(stateWords[bit]);
        }
    }
    return text;
}

unsigned aircraftStates(std::string_view code) {
    const std::int32_t row = aircraftrecord(code);
    if (row == -1) {
        return row_state::unknownAircraft;
    }
    return aircraft[row].missing ? row_state::missing : 0U;
}

bool airportKnown(std::string_view code) {
    const AirportRec* const airport = airports.findInPlace(code);
    return airport != nullptr && airport->icao.text() != "-1";
}

int storedMinute(std::string_view text) noexcept {
    const auto digit = [&](std::size_t at) { return static_cast<unsigned>(text[at] - '0'); };
    // Nearly all are HH:MM:SS; the others go the long way.
    if (text.size() >= 8 && text[2] == ':' && text[5] == ':' && trim(text).size() == 8 && digit(0) <= 2 &&
        digit(1) <= 9 && digit(3) <= 5 && digit(4) <= 9 && digit(6) <= 5 && digit(7) <= 9) {
        const unsigned hour = digit(0) * 10 + digit(1);
        return hour > 23 ? -1 : static_cast<int>(hour * 60 + digit(3) * 10 + digit(4));
    }
    try {
        return secondsOfDay(parseTime(text)) / 60;
    } catch (const Error&) {
        return -1;
    }
}

double repeatHours(const ScheduleRec& schedule) noexcept {
    return schedule.weekly ? 168.0 : std::max(0.0, val(schedule.period.raw()));
}

ShownMinutes::ShownMinutes() {
    for (int minute = 0; minute < 1440; ++minute) {
        const int seconds = secondsOfDay(applygmtoffset(timeSerial(minute / 60, minute % 60, 0)));
        m_shown[static_cast<std::size_t>(minute)] = static_cast<std::int16_t>(seconds / 60);
    }
}

} // namespace vantor
