#include "schedule/leg_editing.h"

#include "core/codes.h"
#include "foundation/clock.h"
#include "foundation/numbers.h"

#include <algorithm>

namespace vantor {

namespace {

constexpr float hoursOfDay = 24.0F;
constexpr std::string_view midnight = "00:00:00";

// Where a new leg goes and who stands beside it.
struct NewPlace {
    int at = 1;
    int previous = 0;
    int next = 1;
};

int placeOf(bool atend, int rows, int currentRow) {
    if (rows == 0) {
        return 1;
    }
    if (atend) {
        return rows + 1;
    }
    return currentRow < 0 ? rows : currentRow + 1;
}

// `last` is the number of legs with the new one.
NewPlace neighbours(int at, int last) {
    if (at == last) {
        return {at, at - 1, 1};
    }
    if (at == 1) {
        return {at, last, 2};
    }
    return {at, at - 1, at + 1};
}

} // namespace

void changeairport(const StandardTrap& trap, ScheduleDraft& draft, std::int16_t leg, LegEnd end,
                   std::string_view code) noexcept {
    if (draft.sched.legcount < 1) {
        return;
    }
    const auto set = [&](int number, auto LegRec::*airport) { draft.leg(number).*airport = code; };
    if (end == LegEnd::Destination) {
        trap(set, leg, &LegRec::toicao);
        trap(set, draft.sched.next(leg), &LegRec::fromicao);
    } else {
        trap(set, leg, &LegRec::fromicao);
        trap(set, draft.sched.previous(leg), &LegRec::toicao);
    }
}

void addlegtosched(const StandardTrap& trap, ScheduleDraft& draft, bool atend, int rows, int currentRow,
                   bool tng) noexcept {
    ScheduleRec& sched = draft.sched;
    const int at = placeOf(atend, rows, currentRow);
    const bool made = trap([&] {
        const std::int16_t count = toInt16(sched.legcount + 1);
        sched.legs.resize(sched.legcount); // a schedule that lost its only leg still holds its blank element
        sched.legs.insert(at, LegRec{});
        sched.legcount = count;
    });
    if (!made) {
        return; // the statements below would overwrite a leg that is not new
    }
    const NewPlace place = neighbours(at, sched.legcount);
    const auto take = [&](auto LegRec::*field, int from, auto LegRec::*source) {
        draft.leg(at).*field = draft.leg(from).*source;
    };
    const auto setArrival = [&] { draft.leg(at).arr = midnight; };
    const auto setTouchAndGo = [&] { draft.leg(at).tng = tng; };
    trap(take, &LegRec::toicao, place.next, &LegRec::fromicao);
    trap(take, &LegRec::fromicao, place.previous, &LegRec::toicao);
    trap(take, &LegRec::flightlevel, place.previous, &LegRec::flightlevel);
    trap(take, &LegRec::dep, place.previous, &LegRec::dep);
    // Quirk: the arrival of the leg before would be taken over with a fixed arrival, but it is the new leg's own mark
    // that decides, and a blank leg has none.
    trap(setArrival);
    trap(take, &LegRec::flightnum, place.previous, &LegRec::flightnum);
    trap(take, &LegRec::legtype, place.previous, &LegRec::legtype);
    trap(setTouchAndGo);
}

namespace {
void blankLeg(ScheduleRec& rec, std::int32_t leg) {
    rec.legs[leg] = LegRec{};
}
} // namespace

void deleteleg(ScheduleRec& rec, std::int32_t leg) noexcept {
    const StandardTrap trap{"sub deleteleg", "modLegDelete"};
    if (rec.legcount == 1) {
        rec.legcount = 0;
        trap(blankLeg, rec, 1);
    } else if (rec.legcount > 1) {
        trap([&] {
            rec.legs.erase(leg);
            --rec.legcount;
        });
    }
}

void completelegs(ScheduleRec& sched) noexcept {
    const std::int32_t count = std::min<std::int32_t>(sched.legcount, sched.legs.size());
    for (std::int32_t i = 1; i <= count; ++i) {
        LegRec& leg = sched.legs[i];
        if (leg.dep.text().empty()) {
            leg.dep = midnight;
        }
        if (sched.weekly && leg.depday < 0) {
            leg.depday = 0; // Sunday, as for a leg that is shown
        }
    }
}

ListRows legrows(const ScheduleRec& sched) {
    ListRows rows;
    const std::int32_t count = std::min<std::int32_t>(sched.legcount, sched.legs.size());
    for (std::int32_t i = 1; i <= count; ++i) {
        const LegRec& leg = sched.legs[i];
        std::string text = std::string(leg.fromicao.text()) + " - " + std::string(leg.toicao.text());
        if (leg.deleted) {
            text += " (DEL) ";
        }
        rows.push_back({std::move(text), i});
    }
    return rows;
}

int rowstartingwith(const ListRows& rows, std::string_view code) {
    const std::string_view start = trim(code);
    const auto found = std::ranges::find_if(rows, [&](const ListRow& row) {
        return equalNoCase(std::string_view(row.text).substr(0, start.size()), start);
    });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

int aircraftrow(const ListRows& rows, std::string_view acnum) {
    const std::string sought = std::string(trim(acnum)) + " ";
    const auto found = std::ranges::find_if(rows, [&](const ListRow& row) { return contains(row.text, sought); });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

std::string localtimetext(std::string_view stored) {
    return formatHHMMSS(applygmtoffset(parseTime(stored)));
}

std::string distancetext(const LegRec& leg) {
    return generalNumber(roundHalfEven(static_cast<double>(leg.distance))) + " NM";
}

bool isoveraday(const LegRec& leg) noexcept {
    return leg.flighthours >= hoursOfDay;
}

} // namespace vantor
