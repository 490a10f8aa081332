// The flight plan file: every schedule is closed, is written, and comes back.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/airports_file.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/great_circle.h"
#include "core/tables.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "fuzz.h"

#include <algorithm>

namespace vantor::fuzz {

namespace {

constexpr std::initializer_list<ErrorCode> refusals = {ErrorCode::Overflow, ErrorCode::TypeMismatch, ErrorCode::Loader};

void loadWorld() {
    folder().put("Aircraft.txt", "AC#1,250,\"A\"\r\nAC#2,0,\"B\"\r\nAC#7,1e30,\"C\"\r\n");
    folder().put("Airports.txt", "KSEA,N47* 27.00',W122* 18.30',433\r\nYPPH,S31* 56.40',E115* 58.00',67\r\n"
                                 "FAR,N0* 0.00',E180* 0.00',0\r\nODD,N200* 0.00',E0* 0.00',0\r\n");
    LoadAircraft(folder().path("Aircraft.txt"), bar());
    SortAircraft();
    LoadAirports(folder().path("Airports.txt"), bar());
}

int load(const std::string& name) {
    return errorOf(refusals, [&] { LoadSched(bar(), folder().path(name)); });
}

std::string saved() {
    savesc(folder().path("saved.txt"));
    return folder().get("saved.txt");
}

bool oneDigit(std::int16_t day) {
    return day >= 0 && day <= 9;
}

// Whether the times of a schedule are such as a file can hold: no mark left in them, and where they have a day one of
// one digit, room for it and no slash of their own.
bool hasPlainTimes(const ScheduleRec& schedule) {
    return std::ranges::all_of(schedule.legs, [&](const LegRec& leg) {
        const bool plainDays = oneDigit(leg.depday) && oneDigit(leg.arrday) && leg.arr.text().size() < 11 &&
                               !leg.dep.text().starts_with('/') && !leg.arr.text().starts_with('/');
        return (plainDays || !schedule.weekly) && !contains(leg.arr.text(), "TNG");
    });
}

// Walks all records and returns how many there are.
std::int32_t countRecords() {
    std::int32_t records = 0;
    for (std::int32_t slot = 1; slot <= schedulecount; ++slot) {
        const ScheduleRec& schedule = schedules.peek(slot);
        if (schedule.legcount == 0) {
            continue;
        }
        require(schedule.recnum == slot && ++records == slot, "records stand in the order of their lines");
        require(schedule.legcount == schedule.legs.size(), "the legs are counted");
        for (std::int32_t n = 1; n <= schedule.legcount; ++n) {
            const LegRec& leg = schedule.legs[n];
            require(leg.fromicao == schedule.legs[n == 1 ? schedule.legcount : n - 1].toicao, "the loop is closed");
            const double distance = flightdistance(leg.fromicao.text(), leg.toicao.text());
            require(distance >= 0 && distance < 10801, "a distance is at most half the globe");
            require(leg.distance == static_cast<float>(roundHalfEven(distance)), "each leg has its own distance");
        }
    }
    return records;
}

} // namespace

void check(std::string_view input) {
    if (aircraftcount == 0) {
        loadWorld();
    }
    folder().put("plans.txt", input);
    if (load("plans.txt") != 0) {
        return;
    }
    const std::int32_t records = countRecords();
    bool plain = true;
    for (std::int32_t slot = 1; slot <= records; ++slot) {
        plain = plain && hasPlainTimes(schedules.peek(slot));
    }
    const std::string first = saved();
    require(static_cast<std::int32_t>(split(first, "\r\n").size()) == records + 1, "every schedule is a line");
    const int error = load("saved.txt");
    require(error == 0 || first.empty() || !plain, "what was saved loads again");
    if (error == 0) {
        require(schedulecount == records && countRecords() == records, "no schedule is lost");
        require(!plain || saved() == first, "saved lines stay as they are");
    }
}

} // namespace vantor::fuzz
