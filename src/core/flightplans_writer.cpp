#include "core/flightplans_writer.h"

#include "core/tables.h"
#include "foundation/numbers.h"
#include "foundation/replacing_file.h"
#include "foundation/trap.h"

#include <optional>
#include <string>

namespace vantor {

namespace {

// A time with its day. One that brings its own slash, as behind a day of two digits, gets no second one: two would be
// a comment mark, and the next load would drop the line.
void appendTime(std::string& line, bool weekly, std::int16_t day, std::string_view time) {
    if (weekly) {
        line.append(std::to_string(day));
        if (!time.starts_with('/')) {
            line.push_back('/');
        }
    }
    line.append(time).push_back(',');
}

void appendLeg(std::string& line, const LegRec& leg, bool weekly) {
    appendTime(line, weekly, leg.depday, leg.dep.text());
    if (leg.atflag) {
        line.push_back('@');
    }
    if (leg.tng) {
        line.append("TNG");
    }
    appendTime(line, weekly, leg.arrday, leg.arr.text());
    line.append(printNumber(leg.flightlevel)).push_back(',');
    line.append(leg.legtype.text()).push_back(',');
    line.append(leg.flightnum.text()).push_back(',');
    line.append(leg.toicao.text());
}

// The line of a schedule with its end; empty for one that is not written.
void formatSchedule(std::string& line, const ScheduleRec& schedule) {
    line.clear();
    if (schedule.deleted || schedule.legcount < 1) {
        return;
    }
    for (const std::string_view field : {schedule.acnum.text(), schedule.tailnumber.text(), schedule.percent.text(),
                                         schedule.period.text(), schedule.rules.text()}) {
        line.append(field).push_back(',');
    }
    std::int32_t written = 0;
    for (std::int32_t n = 1; n <= schedule.legcount; ++n) {
        const LegRec& leg = schedule.legs[n];
        if (leg.deleted) {
            continue;
        }
        ++written;
        appendLeg(line, leg, schedule.weekly);
        // Counted against all legs, deleted ones too, so a comma may stand behind the last one; it is meant.
        if (written < schedule.legcount) {
            line.push_back(',');
        }
    }
    line.append("\r\n");
}

} // namespace

void savesc(std::string_view file) noexcept {
    const StandardTrap trap{"sub savesc", "modSchedSave"};
    std::optional<ReplacingFile> out;
    trap([&] { out.emplace(file); });
    if (!out) {
        return;
    }
    std::string line;
    for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
        trap([&] {
            formatSchedule(line, schedules.peek(recnum));
            out->write(line);
        });
    }
    trap([&] { out->commit(); });
}

} // namespace vantor
