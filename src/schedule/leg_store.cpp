#include "schedule/leg_store.h"

#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/great_circle.h"
#include "core/tables.h"
#include "foundation/clock.h"
#include "foundation/numbers.h"

#include <cmath>

namespace vantor {

namespace {

constexpr double defaultSpeed = 250.0; // knots, for an aircraft without a speed
constexpr int taxiMinutes = 16;        // ground and climb, added to every computed flight whatever its length
constexpr std::int16_t lastDay = 6;    // Saturday

bool isWeekly(const LegControls& controls) {
    return controls.repeat == "WEEK";
}

std::int16_t dayOfRow(int row) {
    return toInt16(row - 1);
}

float toSingle(double value) {
    const auto single = static_cast<float>(value);
    if (!std::isfinite(single)) {
        throw Error(ErrorCode::Overflow);
    }
    return single;
}

// Knots of the aircraft on screen, not of the one in the record.
double speedOf(const LegControls& controls) {
    const auto speed = static_cast<double>(aircraft[aircraftrecord(extractcode(controls.aircraft))].cruisespeed);
    return speed == 0 ? defaultSpeed : speed;
}

// The computed arrival as a fraction of a day, with every sum held in 32 bits.
// Quirk: the arrival day starts from what the leg held and not from the departure day: each store of a leg across
// midnight moves it on by a day.
float computedArrival(LegRec& leg, const LegControls& controls, double speed, double distance, float dep) {
    auto eta = static_cast<float>(gettimeinhours(static_cast<float>(speed), distance));
    eta = eta + dep;
    eta = static_cast<float>(static_cast<double>(eta) + timeSerial(0, taxiMinutes, 0));
    while (eta >= 1.0F) {
        eta = eta - 1.0F;
        if (isWeekly(controls)) {
            leg.arrday = toInt16(leg.arrday + 1);
            if (leg.arrday > lastDay) {
                leg.arrday = 0;
            }
        }
    }
    return eta;
}

// Local time to the stored text; seconds are dropped.
// Quirk: it is no true inverse of applygmtoffset. The sign of the offset is lost, and the absolute value stands where a
// wrap would be.
std::string storedTime(float local) {
    const DateTime offset = parseTime(formatHHMM(static_cast<DateTime>(gmtoffset)));
    const DateTime time = parseTime(formatHHMM(static_cast<DateTime>(local)));
    return formatHHMMSS(static_cast<DateTime>(static_cast<float>(std::fabs(time - offset))));
}

// The steps in their order; a fault leaves everything before it stored.
void storeSteps(ScheduleRec& sched, std::int16_t number, const LegControls& controls, LegStored& stored) {
    if (isWeekly(controls)) {
        LegRec& guarded = sched.legs[number];
        stored.moveDayToSunday = controls.departureDay == 0;
        guarded.depday = stored.moveDayToSunday ? std::int16_t{0} : dayOfRow(controls.departureDay);
    }
    const auto dep = static_cast<float>(parseTime(controls.time));
    LegRec& leg = sched.legs[number];
    const double distance = flightdistance(leg.fromicao.text(), leg.toicao.text());
    const double speed = speedOf(controls);
    leg.flightlevel = parseInt16(controls.altitude);
    leg.depday = stored.moveDayToSunday ? std::int16_t{0} : dayOfRow(controls.departureDay);
    leg.distance = static_cast<float>(roundHalfEven(distance));
    leg.flighthours = toSingle(distance / speed);
    float eta = 0;
    if (controls.fix) {
        leg.atflag = true;
        eta = static_cast<float>(parseTime(controls.eta));
        leg.arrday = dayOfRow(controls.arrivalDay); // Quirk: -1 for "N/A", in a weekly schedule too.
    } else {
        leg.atflag = false;
        eta = computedArrival(leg, controls, speed, distance, dep);
    }
    leg.dep = storedTime(dep);
    leg.arr = storedTime(eta);
    leg.flightnum = controls.flightnum;
    leg.legtype = controls.useRegistration ? "R" : "F";
    leg.tng = controls.touchAndGo;
}

} // namespace

LegStored storeleg(ScheduleRec& sched, std::int16_t leg, const LegControls& controls) {
    LegStored stored;
    try {
        storeSteps(sched, leg, controls, stored);
    } catch (...) {
        stored.invalidTime = currentError().is(ErrorCode::TypeMismatch);
    }
    return stored;
}

Error invalidTimeError() {
    return {ErrorCode::Loader, std::string(invalidTimeText)};
}

} // namespace vantor
