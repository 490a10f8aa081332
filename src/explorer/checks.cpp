#include "explorer/checks.h"

#include "core/aircraft_table.h"
#include "core/tables.h"
#include "explorer/leg_values.h"
#include "foundation/code_page.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace vantor {

namespace {

constexpr std::int32_t day = 1440; // minutes
constexpr std::int32_t week = 7 * day;
constexpr double taxiMinutes = 16;      // as the editor adds them to a computed arrival
constexpr double plausibleFactor = 1.5; // detours and slow climbs
constexpr double plausibleMinutes = 60;
constexpr std::int16_t highestLevel = 600;
constexpr std::int32_t schedulesBetweenLooks = 64;

bool isDay(std::int16_t number) {
    return number >= 0 && number <= 6;
}

double flyingMinutes(const LegRec& leg, double speed) {
    return speed > 0 ? static_cast<double>(leg.distance) / speed * 60 : 0;
}

// The time of a leg. The day of an arrival that is not fixed follows from the flight, whatever the record says.
std::int32_t minutesOf(const ScheduleRec& schedule, const LegRec& leg, std::int32_t departure, std::int32_t arrival,
                       double speed) {
    if (schedule.weekly && leg.atflag && isDay(leg.depday) && isDay(leg.arrday)) {
        return ((leg.arrday - leg.depday) * day + arrival - departure + week) % week;
    }
    return (arrival - departure + day) % day + static_cast<std::int32_t>(flyingMinutes(leg, speed) / day) * day;
}

// Mixes a field into a hash, eight bytes at a time.
template <std::size_t N>
void mix(std::uint64_t& hash, const FixedText<N>& field) {
    for (std::size_t at = 0; at < N; at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, field.raw().data() + at, std::min<std::size_t>(8, N - at));
        hash = (hash ^ word) * 0x9E3779B97F4A7C15ULL;
        hash ^= hash >> 29U;
    }
}

void mix(std::uint64_t& hash, std::int64_t number) {
    hash = (hash ^ static_cast<std::uint64_t>(number)) * 0x9E3779B97F4A7C15ULL;
    hash ^= hash >> 29U;
}

void mix(std::uint64_t& hash, const LegText& field) {
    mix(hash, std::int64_t{field.number()});
}

std::uint64_t hashOf(const ScheduleRec& schedule) {
    std::uint64_t hash = 0;
    mix(hash, schedule.acnum);
    mix(hash, schedule.percent);
    mix(hash, schedule.period);
    mix(hash, schedule.rules);
    for (const LegRec& leg : numberedLegs(schedule)) {
        if (!leg.deleted) {
            mix(hash, leg.dep);
            mix(hash, leg.toicao);
            mix(hash, leg.flightnum);
            mix(hash, leg.depday);
        }
    }
    return hash;
}

bool sameLeg(const LegRec& a, const LegRec& b) {
    return a.dep == b.dep && a.arr == b.arr && a.atflag == b.atflag && a.tng == b.tng && a.depday == b.depday &&
           a.arrday == b.arrday && a.flightlevel == b.flightlevel && a.legtype == b.legtype &&
           a.flightnum == b.flightnum && a.toicao == b.toicao;
}

// Whether two schedules are one but for the call sign.
bool sameContent(const ScheduleRec& a, const ScheduleRec& b) {
    if (a.acnum != b.acnum || a.percent != b.percent || a.period != b.period || a.rules != b.rules) {
        return false;
    }
    const auto flown = [](const ScheduleRec& schedule) {
        std::vector<const LegRec*> legs;
        for (const LegRec& leg : numberedLegs(schedule)) {
            if (!leg.deleted) {
                legs.push_back(&leg);
            }
        }
        return legs;
    };
    return std::ranges::equal(flown(a), flown(b), [](const LegRec* x, const LegRec* y) { return sameLeg(*x, *y); });
}

FixedText<12> capitals(const FixedText<12>& field) {
    return FixedText<12>(upper(field.text()));
}

} // namespace

void Checks::start(const CheckOptions& options) {
    *this = Checks();
    m_options = options;
    m_done = false;
}

bool Checks::step(const std::function<bool()>& enough) {
    const std::int32_t last = std::min(schedulecount, mostSchedulesNumbered);
    while (!m_done) {
        const std::int32_t end = std::min(last, m_next + schedulesBetweenLooks - 1);
        for (; m_next <= end; ++m_next) {
            const ScheduleRec* const schedule = scheduleOf(legNumber({m_next, 0}));
            if (schedule == nullptr) {
                ++m_blank;
            } else if (!schedule->deleted) {
                lookAt(m_next, *schedule);
            }
        }
        if (m_next > last) {
            finish();
        }
        if (enough()) {
            break;
        }
    }
    return m_done;
}

double Checks::progress() const noexcept {
    return m_done ? 1.0 : static_cast<double>(m_next - 1) / std::max(1, schedulecount);
}

std::size_t Checks::count() const noexcept {
    std::size_t sum = 0;
    for (const Findings& findings : m_found) {
        sum += findings.size();
    }
    return sum;
}

void Checks::finish() {
    if (m_blank > 0) {
        add(CheckKind::NoLegs, {}, m_blank);
    }
    lookForEquals();
    m_contents = {};
    m_done = true;
}

void Checks::add(CheckKind kind, LegId where, std::int32_t detail) {
    where.leg = std::min(where.leg, mostLegsNumbered);
    m_found[static_cast<std::size_t>(kind)].push_back({legNumber(where), detail});
}

void Checks::lookAt(std::int32_t recnum, const ScheduleRec& schedule) {
    lookAtHeader(recnum, schedule);
    if (numberedLegs(schedule).empty()) {
        add(CheckKind::NoLegs, {recnum, 0});
        return;
    }
    lookAtLegs(recnum, schedule);
    if (m_flown.empty()) {
        add(CheckKind::AllLegsDeleted, {recnum, 0});
        return;
    }
    m_contents.emplace_back(hashOf(schedule), recnum);
    lookAtLoop(recnum);
    lookAtTimes(recnum, schedule);
}

void Checks::lookAtHeader(std::int32_t recnum, const ScheduleRec& schedule) {
    const LegId own{recnum, 0};
    const double percent = val(schedule.percent.raw());
    if (percent < 1 || percent > 100) {
        add(CheckKind::PercentRange, own);
    }
    if (!equalNoCase(schedule.rules.text(), "IFR") && !equalNoCase(schedule.rules.text(), "VFR")) {
        add(CheckKind::RulesUnknown, own);
    }
    if (schedule.tailnumber.text().empty()) {
        return;
    }
    const std::int32_t first = m_callSigns.get(capitals(schedule.tailnumber), [&] { return recnum; });
    if (first != recnum) {
        add(CheckKind::SameCallSign, own, first);
    }
}

void Checks::lookAtLegs(std::int32_t recnum, const ScheduleRec& schedule) {
    const AircraftFacts facts = m_aircraft.get(schedule.acnum, [&] {
        const std::int32_t row = aircraftrecord(schedule.acnum.text());
        return AircraftFacts{aircraftStates(schedule.acnum.text()),
                             row == -1 ? 0.0 : static_cast<double>(aircraft[row].cruisespeed)};
    });
    if ((facts.states & row_state::unknownAircraft) != 0) {
        add(CheckKind::UnknownAircraft, {recnum, 0});
    } else if ((facts.states & row_state::missing) != 0) {
        add(CheckKind::MissingAircraft, {recnum, 0});
    }
    m_flown.clear();
    std::int32_t number = 0;
    for (const LegRec& leg : numberedLegs(schedule)) {
        ++number;
        if (leg.deleted) {
            continue;
        }
        Flown flown{number, &leg, storedMinute(leg.dep.raw()), 0, false};
        const int arrival = storedMinute(leg.arr.raw());
        flown.timed = flown.departure >= 0 && arrival >= 0;
        flown.minutes = flown.timed ? minutesOf(schedule, leg, flown.departure, arrival, facts.speed) : 0;
        flown.departure += schedule.weekly ? leg.depday * day : 0;
        lookAtLeg(recnum, schedule, flown, facts.speed);
        m_flown.push_back(flown);
    }
}

void Checks::lookAtLeg(std::int32_t recnum, const ScheduleRec& schedule, const Flown& flown, double speed) {
    const LegRec& leg = *flown.leg;
    const LegId where{recnum, flown.number};
    if (!m_airports.get(leg.toicao, [&] { return airportKnown(leg.toicao.text()); })) {
        add(CheckKind::UnknownAirport, where);
    }
    if (!flown.timed) {
        add(CheckKind::NoTime, where);
    }
    const double flying = flyingMinutes(leg, speed) + taxiMinutes;
    const bool slow = flown.minutes > plausibleFactor * flying + plausibleMinutes;
    if (flying > day || flown.minutes > day || (slow && speed > 0 && leg.distance > 0)) {
        add(CheckKind::LongLeg, where, std::max(flown.minutes, static_cast<std::int32_t>(flying)));
    }
    if (leg.flightlevel < 1 || leg.flightlevel > highestLevel) {
        add(CheckKind::LevelRange, where);
    }
    if (schedule.weekly && (!isDay(leg.depday) || (leg.atflag && !isDay(leg.arrday)))) {
        add(CheckKind::DayRange, where);
    }
}

void Checks::lookAtLoop(std::int32_t recnum) {
    const LegRec* before = m_flown.back().leg;
    for (const Flown& flown : m_flown) {
        if (flown.leg->fromicao != before->toicao) {
            add(CheckKind::OpenLoop, {recnum, flown.number});
        }
        // Behind a touch and go it is the landing that ends the circuits.
        if (flown.leg->fromicao == flown.leg->toicao && !flown.leg->tng && !before->tng) {
            add(CheckKind::SameAirport, {recnum, flown.number});
        }
        before = flown.leg;
    }
}

void Checks::lookAtTimes(std::int32_t recnum, const ScheduleRec& schedule) {
    if (!std::ranges::all_of(m_flown, [&](const Flown& flown) {
            return flown.timed && (!schedule.weekly || isDay(flown.leg->depday));
        })) {
        return; // told already, and nothing can be said of their order
    }
    const auto cycle = static_cast<std::int32_t>(std::min(repeatHours(schedule), 9999.0) * 60);
    std::int32_t flying = 0;
    for (const Flown& flown : m_flown) {
        flying += flown.minutes;
    }
    if (cycle == 0 || flying > cycle) {
        add(CheckKind::ShortRepeat, {recnum, 0}, cycle == 0 ? 0 : flying);
    } else if (schedule.weekly) {
        lookAtWeek(recnum);
    } else {
        lookAtRepeats(recnum, cycle);
    }
}

// The week may begin at any leg: one step back in time is the week's end, the others are mistakes.
void Checks::lookAtWeek(std::int32_t recnum) {
    const std::size_t count = m_flown.size();
    const auto next = [&](std::size_t at) -> const Flown& { return m_flown[(at + 1) % count]; };
    const auto goesBack = [&](std::size_t at) { return next(at).departure <= m_flown[at].departure; };
    std::size_t weekEnd = count - 1;
    for (std::size_t at = 0; at < count && !goesBack(weekEnd); ++at) {
        weekEnd = goesBack(at) ? at : weekEnd;
    }
    for (std::size_t at = 0; at < count; ++at) {
        const std::int32_t gap = next(at).departure - m_flown[at].departure + (at == weekEnd ? week : 0);
        lookAtGround(recnum, m_flown[at], next(at), gap - m_flown[at].minutes);
    }
}

// Times of day, one behind the other. With repeats above a day an early departure may be that of the next day.
void Checks::lookAtRepeats(std::int32_t recnum, std::int32_t cycle) {
    std::int32_t passed = 0;
    for (std::size_t at = 0; at + 1 < m_flown.size(); ++at) {
        const Flown& flown = m_flown[at];
        const Flown& next = m_flown[at + 1];
        std::int32_t gap = (next.departure - flown.departure + day) % day;
        while (gap < flown.minutes && cycle > day) {
            gap += day;
        }
        lookAtGround(recnum, flown, next, gap - flown.minutes);
        passed += gap;
    }
    lookAtGround(recnum, m_flown.back(), m_flown.front(), cycle - passed - m_flown.back().minutes);
}

void Checks::lookAtGround(std::int32_t recnum, const Flown& arrived, const Flown& next, std::int32_t minutes) {
    if (minutes < 0) {
        add(CheckKind::EarlyDeparture, {recnum, next.number}, -minutes);
    } else if (minutes < m_options.turnaroundMinutes && !arrived.leg->tng) {
        add(CheckKind::ShortTurnaround, {recnum, next.number}, minutes);
    }
}

void Checks::lookForEquals() {
    std::ranges::sort(m_contents);
    for (std::size_t first = 0; first < m_contents.size();) {
        std::size_t at = first + 1;
        for (; at < m_contents.size() && m_contents[at].first == m_contents[first].first; ++at) {
            const std::int32_t recnum = m_contents[at].second;
            if (sameContent(schedules.peek(m_contents[first].second), schedules.peek(recnum))) {
                add(CheckKind::EqualSchedules, {recnum, 0}, m_contents[first].second);
            }
        }
        first = at;
    }
    std::ranges::sort(m_found[static_cast<std::size_t>(CheckKind::EqualSchedules)], {}, &CheckFinding::where);
}

} // namespace vantor
