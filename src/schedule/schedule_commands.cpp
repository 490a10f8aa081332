#include "schedule/schedule_commands.h"

#include "core/codes.h"
#include "core/tables.h"
#include "foundation/text.h"
#include "foundation/trap.h"

namespace vantor {

namespace {
constexpr std::string_view mainModule = "frmMain";
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
    leg.hashindex = hashindex(schedulecount, 1); // the number of the schedule before: it is meant
    leg.fromicao = "YPPH";
    leg.toicao = "YPEA";
    leg.dep = "12:00:00";
    leg.arr = "00:00:00";
    leg.depday = 1;
    leg.flightlevel = 150;
    leg.flightnum = "123";
    leg.legtype = "F";
    schedule.legs.append(leg);
    // The second leg repeats the first one's airports instead of flying back: the user is expected to change them.
    leg.hashindex = hashindex(schedulecount, 2);
    leg.dep = "12:30:00";
    leg.arr = "00:00:00";
    schedule.legs.append(leg);
    return schedule;
}

void addschedule(const ScheduleRec& schedule, std::string_view procedure) noexcept {
    const StandardTrap trap{procedure, mainModule};
    trap([&] { schedules.HashAdd(schedule); });
    ++schedulecount;
    trap([] { schedules.Cover(schedulecount); });
}

void copyschedule(std::int32_t recnum) noexcept {
    const StandardTrap trap{"sub cmdcopy_click", mainModule};
    ScheduleRec schedule;
    if (!trap([&] { schedule = schedules.HashGetSlot(recnum); })) {
        return; // a row that leads nowhere must not become a blank schedule
    }
    ++schedulecount;
    schedule.recnum = schedulecount;
    trap([&] { schedules.HashAdd(schedule); });
    trap([] { schedules.Cover(schedulecount); });
}

void deleteschedbyrecnum(std::int32_t recnum) noexcept {
    const StandardTrap trap{"sub deleteschedbyrecnum", deleteModule};
    trap([&] {
        ScheduleRec schedule = schedules.HashGetSlot(recnum);
        schedule.deleted = !schedule.deleted;
        schedules.HashPutSlot(recnum, std::move(schedule));
    });
}

void deleteschedbyac(std::string_view acnum) noexcept {
    const StandardTrap trap{"sub deleteschedbyac", deleteModule};
    std::string code;
    trap([&] { code = upper(trim(extractcode(acnum))); });
    for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
        trap([&] {
            if (upper(schedules.peek(recnum).acnum.text()) == code) {
                ScheduleRec schedule = schedules.HashGetSlot(recnum);
                schedule.deleted = true;
                schedules.HashPutSlot(recnum, std::move(schedule));
            }
        });
    }
}

void toggleleg(std::int32_t recnum, std::int32_t leg, ScheduleRec& touched) noexcept {
    const StandardTrap trap{"sub cmddeleteleg_click", mainModule};
    trap([&] {
        touched = schedules.HashGetSlot(recnum);
        touched.legs[leg].deleted = !touched.legs[leg].deleted;
        schedules.HashPutSlot(recnum, touched);
    });
}

} // namespace vantor
