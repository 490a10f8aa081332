#include "core/aircraft_table.h"
#include "core/tables.h"
#include "explorer/checks.h"
#include "explorer/leg_values.h"
#include "foundation/numbers.h"
#include "foundation/text.h"

#include <utility>

namespace vantor {

namespace {

constexpr std::array<std::string_view, checkKinds> titles{"Aircraft not in the table",
                                                          "Aircraft missing from the simulator",
                                                          "Airport not in the table",
                                                          "Loop that does not close",
                                                          "Leg from an airport to itself",
                                                          "Time that can't be read",
                                                          "Leg that takes too long",
                                                          "Departure ahead of the arrival",
                                                          "Short turn-around",
                                                          "Repeat too short",
                                                          "Call sign in two schedules",
                                                          "Equal but for the call sign",
                                                          "Percent out of range",
                                                          "Level out of range",
                                                          "Rules unknown",
                                                          "Day out of range",
                                                          "Schedule without legs",
                                                          "All legs deleted"};

std::string hoursText(std::int32_t minutes) {
    return std::to_string(minutes / 60) + ":" + twoDigits(minutes % 60);
}

std::string text(std::string_view value) {
    return value.empty() ? "(blank)" : std::string(value);
}

std::string inSchedule(std::int32_t recnum) {
    return "schedule " + std::to_string(recnum) + " (" + findingSchedule(legNumber({recnum, 0})) + ")";
}

std::string longLegReason(const ScheduleRec& schedule, const LegRec& leg, std::int32_t minutes) {
    const std::int32_t row = aircraftrecord(schedule.acnum.text());
    std::string reason = "Takes " + hoursText(minutes) + " for ";
    reason += generalNumber(static_cast<double>(leg.distance)) + " nm";
    if (row != -1 && aircraft[row].cruisespeed > 0) {
        reason += " at " + shortestSingle(aircraft[row].cruisespeed) + " knots";
    }
    return reason;
}

std::string legReason(CheckKind kind, const ScheduleRec& schedule, const LegRec& leg, std::int32_t detail) {
    switch (kind) {
    case CheckKind::UnknownAirport:
        return text(leg.toicao.text()) + " is not in the airport table";
    case CheckKind::OpenLoop:
        return "Departs from " + text(leg.fromicao.text()) + ", where the leg before does not arrive";
    case CheckKind::SameAirport:
        return "From " + text(leg.fromicao.text()) + " to itself without a touch and go";
    case CheckKind::NoTime:
        return "Departure " + text(leg.dep.text()) + ", arrival " + text(leg.arr.text());
    case CheckKind::LongLeg:
        return longLegReason(schedule, leg, detail);
    case CheckKind::EarlyDeparture:
        return "Departs " + hoursText(detail) + " ahead of the arrival before it";
    case CheckKind::ShortTurnaround:
        return std::to_string(detail) + " minutes on the ground";
    case CheckKind::LevelRange:
        return "Flight level " + std::to_string(leg.flightlevel);
    default:
        return "Departure on day " + std::to_string(leg.depday) + ", arrival on day " + std::to_string(leg.arrday);
    }
}

std::string scheduleReason(CheckKind kind, const ScheduleRec& schedule, std::int32_t detail) {
    const std::string code = text(schedule.acnum.text());
    switch (kind) {
    case CheckKind::UnknownAircraft:
        return code + " is not in the aircraft table";
    case CheckKind::MissingAircraft:
        return "The simulator has no " + aircrafttitle(schedule.acnum.text());
    case CheckKind::ShortRepeat:
        return detail == 0 ? "Repeat " + text(schedule.period.text()) + " is no number of hours"
                           : "The legs take " + hoursText(detail) + ", the repeat is " + text(schedule.period.text());
    case CheckKind::SameCallSign:
        return text(schedule.tailnumber.text()) + " is also that of " + inSchedule(detail);
    case CheckKind::EqualSchedules:
        return "Flies the same as " + inSchedule(detail);
    case CheckKind::PercentRange:
        return "Percent " + text(schedule.percent.text());
    case CheckKind::RulesUnknown:
        return "Rules " + text(schedule.rules.text());
    case CheckKind::NoLegs:
        return "It has no legs";
    default:
        return "All of its legs are deleted";
    }
}

} // namespace

std::string_view checkTitle(CheckKind kind) noexcept {
    return titles[static_cast<std::size_t>(kind)];
}

std::string findingSchedule(LegNumber where) {
    const ScheduleRec* const schedule = scheduleOf(where);
    if (schedule == nullptr) {
        return {};
    }
    return std::string(schedule->acnum.text()) + " " + std::string(schedule->tailnumber.text());
}

std::string findingLeg(LegNumber where) {
    const ScheduleRec* const schedule = scheduleOf(where);
    const LegRec* const leg = schedule == nullptr ? nullptr : legOf(*schedule, where);
    if (leg == nullptr) {
        return {};
    }
    std::string words = std::to_string(legAt(where).leg) + ": " + std::string(leg->flightnum.text()) + " ";
    words.append(leg->fromicao.text()).append("-").append(leg->toicao.text()).append(" ");
    return words + cellText(where, LegColumn::Departure);
}

std::string checkReason(CheckKind kind, const CheckFinding& finding) {
    const ScheduleRec* const schedule = scheduleOf(finding.where);
    if (schedule == nullptr) {
        return finding.where != 0 ? std::string()
                                  : "Lines of the file without a leg, not loaded: " + std::to_string(finding.detail);
    }
    const LegRec* const leg = legOf(*schedule, finding.where);
    return leg == nullptr ? scheduleReason(kind, *schedule, finding.detail)
                          : legReason(kind, *schedule, *leg, finding.detail);
}

std::string checksReport(const Checks& checks) {
    std::string report = "Checks: " + std::to_string(checks.count()) + " findings\r\n";
    for (std::size_t i = 0; i < checkKinds; ++i) {
        const auto kind = static_cast<CheckKind>(i);
        if (checks.of(kind).empty()) {
            continue;
        }
        report += "\r\n" + std::string(checkTitle(kind)) + " (" + std::to_string(checks.of(kind).size()) + ")\r\n";
        for (const CheckFinding& finding : checks.of(kind)) {
            report += "  ";
            if (finding.where != 0) {
                report += std::to_string(legAt(finding.where).recnum) + "  " + findingSchedule(finding.where) + "  ";
                const std::string leg = findingLeg(finding.where);
                report += leg.empty() ? "" : "leg " + leg + "  ";
            }
            report += checkReason(kind, finding) + "\r\n";
        }
    }
    return report;
}

} // namespace vantor
