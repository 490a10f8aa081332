// Test support: what holds of the traffic's tables after any command, and a copy of them to compare with.
#pragma once

#include "core/aircraft_table.h"
#include "support/test.h"

namespace vantor::test {

/// All that commands change, by value.
struct Traffic {
    std::vector<AircraftRec> aircraft;
    std::vector<AirportRec> airports;
    std::vector<ScheduleRec> schedules; ///< slots 1 to schedulecount, blank ones too
    friend bool operator==(const Traffic&, const Traffic&) = default;
};

[[nodiscard]] inline Traffic trafficNow() {
    Traffic now;
    for (std::int32_t i = 1; i <= std::min(aircraftcount, aircraft.size()); ++i) {
        now.aircraft.push_back(aircraft[i]);
    }
    for (std::int32_t slot = 1; slot <= std::min(airportcount, airports.RecordCount()); ++slot) {
        now.airports.push_back(airports.peek(slot));
    }
    for (std::int32_t slot = 1; slot <= std::min(schedulecount, schedules.RecordCount()); ++slot) {
        now.schedules.push_back(schedules.peek(slot));
    }
    return now;
}

/// Gathers faults as lines of text.
class Faults {
  public:
    void expect(bool holds, const std::string& otherwise) {
        if (!holds && m_lines.size() < 20) {
            m_lines.push_back(otherwise);
        }
    }
    [[nodiscard]] const std::vector<std::string>& lines() const { return m_lines; }

  private:
    std::vector<std::string> m_lines;
};

/// A text that would part its line of the file, or end it.
[[nodiscard]] inline bool breaksLine(std::string_view field) {
    return field.find_first_of(",;\r\n") != std::string_view::npos || contains(field, "//");
}

inline void checkLeg(Faults& faults, const ScheduleRec& schedule, const LegRec& leg, const std::string& where) {
    const std::int32_t legnum = leg.hashindex % 1000;
    faults.expect(leg.hashindex == 0 || (legnum >= 1 && leg.hashindex / 1000 <= schedulecount), where + "hashindex");
    faults.expect(leg.depday >= (schedule.weekly ? 0 : -1) && leg.depday <= 6, where + "departure day");
    faults.expect(leg.arrday >= -1 && leg.arrday <= 6, where + "arrival day");
    faults.expect(std::isfinite(leg.distance) && leg.distance >= 0, where + "distance");
    faults.expect(std::isfinite(leg.flighthours) && leg.flighthours >= 0, where + "flight hours");
    faults.expect(!leg.dep.text().empty() && !leg.arr.text().empty(), where + "no time");
    for (const std::string_view field :
         {leg.dep.raw(), leg.arr.raw(), leg.legtype.raw(), leg.flightnum.raw(), leg.toicao.raw(), leg.fromicao.raw()}) {
        faults.expect(!breaksLine(field), where + "breaks its line: " + std::string(field));
    }
}

inline void checkSchedule(Faults& faults, const ScheduleRec& schedule, std::int32_t slot) {
    const std::string where = "schedule in slot " + std::to_string(slot) + ": ";
    const std::string key = std::to_string(schedule.recnum);
    faults.expect(schedule.recnum >= slot && schedule.recnum <= schedulecount, where + "numbered " + key);
    const bool blankElement = schedule.legcount == 0 && schedule.legs.size() == 1; // left by the last leg deleted
    faults.expect(schedule.legcount == schedule.legs.size() || blankElement, where + "legs and their count differ");
    faults.expect(schedule.legcount >= 0 && schedule.legcount < 1000, where + "number of legs");
    faults.expect(schedule.weekly == contains(schedule.period.raw(), "WEEK"), where + "weekly or not");
    for (const std::string_view field : {schedule.acnum.raw(), schedule.tailnumber.raw(), schedule.percent.raw(),
                                         schedule.period.raw(), schedule.rules.raw()}) {
        faults.expect(!breaksLine(field), where + "breaks its line: " + std::string(field));
    }
    const std::int32_t row = aircraftrecord(schedule.acnum.text());
    faults.expect(row == -1 || (row >= 1 && row <= aircraftcount), where + "aircraft out of range");
    for (std::int32_t leg = 1; leg <= std::min<std::int32_t>(schedule.legcount, schedule.legs.size()); ++leg) {
        checkLeg(faults, schedule, schedule.legs[leg], where + "leg " + std::to_string(leg) + ": ");
    }
}

inline void checkSchedules(Faults& faults) {
    faults.expect(schedulecount >= 0 && schedulecount <= schedules.RecordCount(), "schedules beyond the capacity");
    std::int32_t used = 0;
    while (used < schedules.RecordCount() && schedules.peek(used + 1).recnum != 0) {
        ++used;
        checkSchedule(faults, schedules.peek(used), used);
    }
    // Dropped lines count as well: the count may run ahead of the numbered slots but never fall behind.
    faults.expect(used <= schedulecount, "more schedules than counted");
    for (std::int32_t slot = 1; slot <= used && used == schedulecount; ++slot) {
        faults.expect(schedules.peek(slot).recnum == slot, "the number of slot " + std::to_string(slot) + " differs");
    }
    for (std::int32_t slot = used + 1; slot <= schedules.RecordCount(); ++slot) {
        // What marks all schedules as deleted marks the counted slots without one as well.
        const ScheduleRec& unused = schedules.peek(slot);
        if (unused.recnum != 0 || unused.legcount != 0 || (unused.deleted && slot > schedulecount)) {
            faults.expect(false, "slot " + std::to_string(slot) + " behind the last is not blank");
        }
    }
}

inline void checkAircraft(Faults& faults) {
    faults.expect(aircraftcount >= 0 && aircraftcount <= aircraft.size(), "aircraft beyond their table");
    for (std::int32_t i = 1; i <= std::min(aircraftcount, aircraft.size()); ++i) {
        const std::string_view code = aircraft[i].acnum.text();
        const std::int32_t number = trueacnum(code);
        const std::int32_t row = aircraftrecord(code);
        faults.expect(!code.empty(), "aircraft " + std::to_string(i) + " has no code");
        faults.expect(i == 1 || trueacnum(aircraft[i - 1].acnum.text()) <= number,
                      "aircraft " + std::string(code) + " stands out of order");
        faults.expect(row >= 1 && row <= aircraftcount && trueacnum(aircraft[row].acnum.text()) == number,
                      "aircraft " + std::string(code) + " not found");
        faults.expect(aircraft[i].title.raw().find_first_of("\r\n") == std::string_view::npos,
                      "aircraft " + std::string(code) + " has a title of two lines");
    }
    for (std::int32_t i = aircraftcount + 1; i <= aircraft.size(); ++i) {
        faults.expect(aircraft[i] == AircraftRec(), "an aircraft behind the last one");
    }
    faults.expect(fsaircraftcount == fsaircraft.size(), "simulator aircraft and their count differ");
}

/// What is wrong with the tables, a line for each fault; empty when they hold together. Not for the tables that a
/// failing load leaves behind.
[[nodiscard]] inline std::vector<std::string> tableFaults() {
    Faults faults;
    checkAircraft(faults);
    checkSchedules(faults);
    return faults.lines();
}

} // namespace vantor::test
