#include "views/timetable.h"

#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/schedule_walk.h"
#include "foundation/clock.h"
#include "foundation/numbers.h"
#include "views/repetitions.h"

#include <algorithm>
#include <utility>

namespace vantor {

namespace {

constexpr double hoursPerDay = 24.0;

// The airport's name up to its first comma.
std::string shortName(std::string_view code) {
    std::string name = airporttitle(code);
    name.resize(std::min(name.find(','), name.size()));
    return name;
}

// What stands behind the time of a row.
// Quirk: a departure has two blanks ahead of "AC:" and an arrival one.
std::string behindTime(const ScheduleRec& schedule, const LegRec& leg, bool departure) {
    const std::string flight(leg.flightnum.text());
    const std::string aircraft(trim(aircrafttitle(schedule.acnum.text())));
    return departure ? " >D> Flight " + flight + " to " + shortName(leg.toicao.text()) + "  AC: " + aircraft
                     : " <A< Flight " + flight + " from " + shortName(leg.fromicao.text()) + " AC: " + aircraft;
}

void addLeg(ListRows& rows, const ScheduleRec& schedule, const LegRec& leg, bool departure) {
    const double period = val(schedule.period.raw());
    const std::int32_t reps = toInt32(repetitionsPerDay(period));
    const DateTime clock = reps < 1 ? 0 : parseTime(departure ? leg.dep.raw() : leg.arr.raw());
    const std::string behind = reps < 1 ? std::string() : behindTime(schedule, leg, departure);
    for (std::int32_t n = 1; n <= reps; ++n) {
        if (rows.size() >= timetableLimit) {
            throw Error(ErrorCode::OutOfMemory);
        }
        const DateTime time = clock + repetitionShift(period, n) / hoursPerDay;
        rows.push_back({formatHHMM(applygmtoffset(time)) + behind, 0});
    }
}

// The order of a sorted list box. Capitals are made once a row and not once a comparison, and each sorted text is a new
// one behind its neighbour: a busy airport feels both, the second when its rows are shown and dropped.
void sortByTime(ListRows& rows) {
    std::string capitals;
    std::vector<std::size_t> ends;
    ends.reserve(rows.size());
    for (const ListRow& row : rows) {
        ends.push_back(capitals.append(upper(row.text)).size());
    }
    std::vector<std::pair<std::string_view, std::size_t>> keys;
    keys.reserve(rows.size());
    for (std::size_t begin = 0; const std::size_t end : ends) {
        // The number behind keeps equal rows in order of arrival.
        keys.emplace_back(std::string_view(capitals).substr(begin, end - begin), keys.size());
        begin = end;
    }
    std::ranges::sort(keys);
    ListRows sorted;
    sorted.reserve(rows.size() + 1);
    for (const auto& key : keys) {
        sorted.push_back(rows[key.second]);
    }
    rows = std::move(sorted);
}

} // namespace

ListRows timetableRows(const StandardTrap& trap, std::string_view code) {
    ListRows rows;
    walkLegs(trap, WalkDeleted::Skip, [&](const ScheduleRec& schedule, const LegRec& leg, std::int32_t) {
        if (schedule.weekly || rows.size() >= timetableLimit) {
            return;
        }
        // The departure is tested first: a leg from the airport to itself is a departure alone.
        const bool departure = leg.fromicao.text() == code;
        if (departure || leg.toicao.text() == code) {
            trap(addLeg, rows, schedule, leg, departure);
        }
    });
    trap(sortByTime, rows);
    rows.emplace_back(); // the closing row
    return rows;
}

SchedulePrintout schedulePrintout(std::string_view code, const ListRows& rows) {
    SchedulePrintout printout;
    printout.heading = "Schedule for " + airporttitle(code);
    printout.rows.reserve(rows.size());
    for (const ListRow& row : rows) {
        printout.rows.push_back(replaceAll(row.text, "\"", ""));
    }
    return printout;
}

} // namespace vantor
