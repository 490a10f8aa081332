// Test support: traffic built straight in the global tables, without a file, and the text of what stands there.
#pragma once

#include "core/codes.h"
#include "core/tables.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vantor::test {

/// Adds an aircraft behind the others; codes must come in ascending order, as after the sort. Gives its row.
inline std::int32_t addAircraft(std::string_view acnum, std::string_view title, float cruisespeed = 250) {
    AircraftRec record;
    record.acnum = acnum;
    record.title = title;
    record.cruisespeed = cruisespeed;
    OneBased<AircraftRec> rows = aircraft.rows();
    rows.append(record);
    aircraft.replace(std::move(rows));
    aircraftcount = aircraft.size();
    return aircraftcount;
}

/// Adds an aircraft to those of the simulator; its title is taken as it stands, quotes and all.
inline void addSimulatorAircraft(std::string_view title, float cruisespeed = 250) {
    AircraftRec record;
    record.title = title;
    record.cruisespeed = cruisespeed;
    fsaircraft.append(record);
    fsaircraftcount = fsaircraft.size();
}

/// Adds an airport; positions are in degrees, south and west negative.
inline void addAirport(std::string_view icao, std::string_view title, float latdeg = 0, float longdeg = 0) {
    AirportRec record;
    record.icao = icao;
    record.title = title;
    record.latdeg = latdeg;
    record.longdeg = longdeg;
    airports.HashAdd(record);
    ++airportcount;
}

/// A leg from airport to airport. Number and origin's chain are the test's own.
inline LegRec makeLeg(std::string_view fromicao, std::string_view toicao, std::string_view dep = "12:00:00",
                      std::string_view flightnum = "1", float distance = 100) {
    LegRec leg;
    leg.fromicao = fromicao;
    leg.toicao = toicao;
    leg.dep = dep;
    leg.arr = dep;
    leg.depday = -1;
    leg.flightlevel = 200;
    leg.legtype = "F";
    leg.flightnum = flightnum;
    leg.distance = distance;
    return leg;
}

/// A leg of a weekly schedule; day 0 is Sunday.
inline LegRec makeWeeklyLeg(std::int16_t depday, std::string_view fromicao, std::string_view toicao,
                            std::string_view dep = "12:00:00") {
    LegRec leg = makeLeg(fromicao, toicao, dep);
    leg.depday = depday;
    leg.arrday = depday;
    return leg;
}

/// The legs of a closed loop over the airports in their order.
inline std::vector<LegRec> loopOver(std::initializer_list<std::string_view> icaos) {
    std::vector<LegRec> legs;
    std::string_view from = *(icaos.end() - 1);
    for (const std::string_view to : icaos) {
        legs.push_back(makeLeg(from, to));
        from = to;
    }
    return legs;
}

/// Adds a schedule of the first five columns of its line, as in "AC#1,N1,100%,24HR,IFR", and its legs, which get the
/// numbers that the reader would give them. Gives its record number.
inline std::int32_t addSchedule(std::string_view columns, const std::vector<LegRec>& legs) {
    const std::vector<std::string_view> fields = split(columns, ",");
    ScheduleRec record;
    record.recnum = ++schedulecount;
    record.acnum = fields.at(0);
    record.tailnumber = fields.at(1);
    record.percent = fields.at(2);
    record.period = fields.at(3);
    record.weekly = contains(upper(record.period.raw()), "WEEK");
    record.rules = fields.at(4);
    record.legcount = static_cast<std::int16_t>(legs.size());
    for (LegRec leg : legs) {
        leg.hashindex = hashindex(record.recnum, static_cast<std::int16_t>(record.legs.size() + 1));
        record.legs.append(leg);
    }
    schedules.HashAdd(record);
    return record.recnum;
}

/// Adds a plain schedule of these legs: of AC#1, daily.
inline std::int32_t addLegs(const std::vector<LegRec>& legs) {
    return addSchedule("AC#1,N1,100%,24HR,IFR", legs);
}

/// Adds a schedule of AC#1 and gives its number. A leg is told as "A-B 3/09:00 4/10:00 7": its ends, departure and
/// arrival with their days (12:00:00 and the departure if missing), flight number; an "x" ahead marks it as deleted.
/// One ahead of the period marks the schedule.
inline std::int32_t addPlan(std::string_view period, std::string_view legs) {
    std::vector<LegRec> made;
    const bool gone = period.starts_with('x');
    period.remove_prefix(gone ? 1 : 0);
    for (std::string_view text : split(legs, ", ")) {
        const bool deleted = text.starts_with('x');
        const std::vector<std::string_view> parts = split(text.substr(deleted ? 1 : 0), " ");
        const std::vector<std::string_view> ends = split(parts.at(0), "-");
        const std::string_view dep = parts.size() > 1 ? parts[1] : "12:00:00";
        const std::string_view arr = parts.size() > 2 ? parts[2] : dep;
        const auto hasDay = [](std::string_view time) { return time.substr(1).starts_with('/'); };
        LegRec leg =
            makeLeg(ends.at(0), ends.at(1), hasDay(dep) ? dep.substr(2) : dep, parts.size() > 3 ? parts[3] : "1");
        leg.arr = hasDay(arr) ? arr.substr(2) : arr;
        leg.depday = hasDay(dep) ? toInt16(val(dep.substr(0, 1))) : std::int16_t{-1};
        leg.arrday = hasDay(arr) ? toInt16(val(arr.substr(0, 1))) : leg.depday;
        leg.deleted = deleted;
        made.push_back(leg);
    }
    const std::int32_t recnum = addSchedule("AC#1,N1,100%," + std::string(period) + ",IFR", made);
    if (gone) {
        ScheduleRec record = schedules.HashGetSlot(recnum);
        record.deleted = true;
        schedules.HashPutSlot(recnum, record);
    }
    return recnum;
}

/// All that stands in a leg, as in "KSEA-KPDX 1/12:00:00 @TNG2/13:00:00 200 F1 603nm 2.41h 1001": days, times, marks,
/// level, kind and flight number, distance, hours and number; an "x" ahead when it is deleted.
inline std::string textOf(const LegRec& leg) {
    std::string text = leg.deleted ? "x" : "";
    text.append(leg.fromicao.text()).append("-").append(leg.toicao.text()).append(" ");
    text.append(std::to_string(leg.depday)).append("/").append(leg.dep.text()).append(leg.atflag ? " @" : " ");
    text.append(leg.tng ? "TNG" : "").append(std::to_string(leg.arrday)).append("/").append(leg.arr.text());
    text.append(" ").append(std::to_string(leg.flightlevel)).append(" ").append(leg.legtype.text());
    text.append(leg.flightnum.text()).append(" ").append(shortestSingle(leg.distance)).append("nm ");
    return text + fixedNumber(static_cast<double>(leg.flighthours), 2) + "h " + std::to_string(leg.hashindex);
}

/// All that stands in a schedule: number and first five columns, and its legs behind bars.
inline std::string textOf(const ScheduleRec& schedule) {
    std::string text = (schedule.deleted ? "x" : "") + std::to_string(schedule.recnum);
    for (const std::string_view column : {schedule.acnum.text(), schedule.tailnumber.text(), schedule.percent.text(),
                                          schedule.period.text(), schedule.rules.text()}) {
        text.append(" ").append(column);
    }
    text += schedule.weekly ? " weekly" : "";
    for (const LegRec& leg : schedule.legs) {
        text += " | " + textOf(leg);
    }
    EXPECT_EQ(schedule.legcount, schedule.legs.size());
    return text;
}

/// The hours of a day that count anything, as "hour:count ".
template <class Hours>
std::string countedHours(const Hours& hours) {
    std::string result;
    for (std::size_t h = 0; h < hours.size(); ++h) {
        if (hours[h] != 0) {
            result += std::to_string(h) + ":" + std::to_string(hours[h]) + " ";
        }
    }
    return result;
}

/// Changes a stored schedule: `change` gets a copy, which is written back.
template <class Change>
void changeSchedule(std::int32_t recnum, Change&& change) {
    ScheduleRec record = schedules.HashGetSlot(recnum);
    change(record);
    schedules.HashPutSlot(recnum, record);
}

/// Changes a row of the aircraft: `change` gets a copy, which is written back.
template <class Change>
void changeAircraft(std::int32_t row, Change&& change) {
    AircraftRec record = aircraft[row];
    change(record);
    aircraft.put(row, record);
}

/// Marks a row of the aircraft as deleted.
inline void markDeleted(std::int32_t row) {
    changeAircraft(row, [](AircraftRec& record) { record.deleted = true; });
}

/// The last line that was dropped by the reader: it counts and has no record.
inline void countDroppedLine() {
    ++schedulecount;
}

} // namespace vantor::test
