#include "core/flightplans_writer.h"

#include "core/save_file.h"
#include "core/schedule_walk.h"
#include "foundation/numbers.h"
#include "foundation/progress.h"

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

} // namespace

void appendSchedule(std::string& text, const ScheduleRec& schedule) {
    if (schedule.deleted || schedule.legcount < 1) {
        return;
    }
    for (const std::string_view field : {schedule.acnum.text(), schedule.tailnumber.text(), schedule.percent.text(),
                                         schedule.period.text(), schedule.rules.text()}) {
        text.append(field).push_back(',');
    }
    std::int32_t written = 0;
    for (const LegRec& leg : schedule.flown()) {
        if (leg.deleted) {
            continue;
        }
        ++written;
        appendLeg(text, leg, schedule.weekly);
        // Quirk: counted against all legs, deleted ones too, so a comma may stand behind the last one.
        if (written < schedule.legcount) {
            text.push_back(',');
        }
    }
    text.append("\r\n");
}

std::optional<Error> savesc(std::string_view file, Canvas* progress) noexcept {
    const StandardTrap trap{"sub savesc", "modSchedSave"};
    return saveFile(trap, file, [&](const auto& put) {
        std::string line;
        std::int32_t walked = 0;
        walkSchedules(trap, schedulecount, [&](const ScheduleRec& schedule) {
            line.clear();
            appendSchedule(line, schedule);
            put(line);
            if (progress != nullptr) {
                showprogressstring(progress, ++walked, schedulecount, "");
            }
        });
    });
}

} // namespace vantor
