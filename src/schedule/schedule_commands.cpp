#include "schedule/schedule_commands.h"

#include "core/codes.h"
#include "core/schedule_walk.h"
#include "foundation/text.h"
#include "foundation/trap.h"

namespace vantor {

namespace {
constexpr std::string_view deleteModule = "modSchedDeleteByAC";
} // namespace

ScheduleRec defaultschedule(std::string_view acrow) {
    ScheduleRec schedule;
    schedule.recnum = schedulecount + 1;
    schedule.acnum = extractcode(acrow);
    schedule.tailnumber = "X";
    schedule.percent = "50%";
    schedule.period = "6h";
    schedule.weekly = false;
    schedule.rules = "IFR";
    schedule.legcount = 2;

    LegRec leg;
    leg.hashindex = hashindex(schedulecount, 1); // Quirk: the number of the schedule before.
    leg.fromicao = "YPPH";
    leg.toicao = "YPEA";
    leg.dep = "12:00:00";
    leg.arr = "00:00:00";
    leg.depday = 1;
    leg.flightlevel = 150;
    leg.flightnum = "123";
    leg.legtype = "F";
    schedule.legs.append(leg);
    // Quirk: the second leg repeats the first one's airports instead of flying back. The user is expected to change
    // them.
    leg.hashindex = hashindex(schedulecount, 2);
    leg.dep = "12:30:00";
    leg.arr = "00:00:00";
    schedule.legs.append(leg);
    return schedule;
}

void addschedule(const StandardTrap& trap, const ScheduleRec& schedule) noexcept {
    trap(&clsHashSC::HashAdd, schedules, schedule);
    ++schedulecount;
    trap(&clsHashSC::Cover, schedules, schedulecount);
}

void copyschedule(const StandardTrap& trap, std::int32_t recnum) noexcept {
    ScheduleRec schedule;
    if (!trap.set(schedule, &clsHashSC::HashGetSlot, schedules, recnum)) {
        return; // a row that leads nowhere must not become a blank schedule
    }
    // Quirk: the legs keep the hashindex of their source.
    schedule.recnum = schedulecount + 1;
    addschedule(trap, schedule);
}

bool scheduleDeleted(std::int32_t recnum) {
    return schedules.peek(recnum).deleted;
}

bool legDeleted(LegId id) {
    return schedules.peek(id.recnum).legs[id.leg].deleted;
}

std::optional<bool> deleteschedbyrecnum(std::int32_t recnum) noexcept {
    const StandardTrap trap{"sub deleteschedbyrecnum", deleteModule};
    std::optional<bool> deleted;
    trap([&] {
        ScheduleRec schedule = schedules.HashGetSlot(recnum);
        const bool goes = !schedule.deleted;
        schedule.deleted = goes;
        schedules.HashPutSlot(recnum, std::move(schedule));
        deleted = goes;
    });
    return deleted;
}

void deleteschedbyac(std::string_view acnum) noexcept {
    const StandardTrap trap{"sub deleteschedbyac", deleteModule};
    const std::string code = upper(trim(extractcode(acnum)));
    changeSchedules(
        trap, schedulecount, [&](const ScheduleRec& schedule) { return upper(schedule.acnum.text()) == code; },
        [](ScheduleRec& schedule) { schedule.deleted = true; });
}

std::optional<bool> toggleleg(const StandardTrap& trap, LegId id, ScheduleRec& touched) noexcept {
    std::optional<bool> deleted;
    trap([&] { // one trap for all steps: what could not be read must not be written
        touched = schedules.HashGetSlot(id.recnum);
        const bool goes = !touched.legs[id.leg].deleted;
        touched.legs[id.leg].deleted = goes;
        schedules.HashPutSlot(id.recnum, touched);
        deleted = goes;
    });
    return deleted;
}

} // namespace vantor
