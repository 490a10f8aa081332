#include "bulk/delete_by_airport.h"

#include "core/schedule_walk.h"
#include "foundation/text.h"

#include <algorithm>

namespace vantor {

namespace {

enum class Match { None, Destination, Origin };

Match matchOf(const LegRec& leg, std::string_view pattern) {
    const std::string_view to = leg.toicao.text();
    // Quirk: where the destination is shorter than the pattern, the origin is not looked at.
    if (pattern.size() > to.size()) {
        return Match::None;
    }
    if (to.starts_with(pattern)) {
        return Match::Destination;
    }
    return leg.fromicao.text().starts_with(pattern) ? Match::Origin : Match::None;
}

// Marks the legs that match, counts them, and repairs their neighbours. The repair of leg 1 changes the last leg before
// its turn.
std::int32_t deleteMatchingLegs(ScheduleRec& schedule, std::string_view pattern) {
    std::int32_t matched = 0;
    for (std::int32_t i = 1; i <= schedule.legcount; ++i) {
        LegRec& leg = schedule.legs[i];
        const Match match = matchOf(leg, pattern);
        if (match == Match::None) {
            continue;
        }
        ++matched;
        leg.deleted = true;
        if (match == Match::Destination && schedule.legcount > 2) {
            schedule.legs[schedule.previous(i)].toicao = leg.fromicao.raw();
        }
    }
    return matched;
}

// Legs that the repair turned into a flight from a place to itself go as well.
void deleteStandingLegs(ScheduleRec& schedule) {
    for (LegRec& leg : schedule.flown()) {
        if (leg.toicao.text() == leg.fromicao.text()) {
            leg.deleted = true;
        }
    }
}

std::int32_t deletedLegs(const ScheduleRec& schedule) {
    return static_cast<std::int32_t>(
        std::ranges::count_if(schedule.flown(), [](const LegRec& leg) { return static_cast<bool>(leg.deleted); }));
}

} // namespace

AirportDeletion prepareAirportDeletion(std::string& icao) {
    icao = upper(trim(icao));
    if (icao.empty()) {
        return {.valid = false, .message = "Please enter an ICAO"};
    }
    return {.valid = true, .message = "About to delete all flights matching '" + icao + "'.  Are you sure?"};
}

AirportDeletionCounts deleteByAirport(const StandardTrap& trap, std::string_view icao) noexcept {
    AirportDeletionCounts counts;
    // Every match is one of the first characters: the star is only taken off.
    const std::string_view pattern = icao.ends_with('*') ? icao.substr(0, icao.size() - 1) : icao;
    if (pattern.empty()) {
        changeSchedules(
            trap, schedulecount, [](const ScheduleRec&) { return true; },
            [&](ScheduleRec& schedule) {
                counts.schedules += schedule.recnum != 0 && !schedule.deleted ? 1 : 0;
                schedule.deleted = true;
            });
        return counts;
    }
    changeSchedules(
        trap, schedulecount,
        [&](const ScheduleRec& schedule) {
            return anyLeg(schedule, [&](const LegRec& leg) { return matchOf(leg, pattern) != Match::None; });
        },
        [&](ScheduleRec& schedule) {
            const std::int32_t goneBefore = deletedLegs(schedule);
            if (deleteMatchingLegs(schedule, pattern) == schedule.legcount) {
                counts.schedules += schedule.deleted ? 0 : 1;
                schedule.deleted = true;
            } else {
                deleteStandingLegs(schedule);
                counts.legs += deletedLegs(schedule) - goneBefore;
            }
        });
    return counts;
}

} // namespace vantor
