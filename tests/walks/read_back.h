// Random walks: what a save and a load make of the tables.
// Told from the file's format and the derived fields alone, without the writer and the reader.
#pragma once

#include "core/aircraft_table.h"
#include "core/codes.h"
#include "core/great_circle.h"
#include "core/tables.h"
#include "foundation/clock.h"
#include "foundation/fixed_text.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "support/table_invariants.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantor::test {

/// A field that was written trimmed and read in capitals.
template <std::size_t N>
FixedText<N> readBack(const FixedText<N>& field) {
    return FixedText<N>(upper(field.text()));
}

/// The arrival of a weekly leg. The day in the file survives only in a fixed arrival, and of a day with a sign the
/// stroke stays in the time, since a prefix has two characters.
inline void readBackArrival(LegRec& leg, const LegRec& stored, std::int16_t hours) {
    if (stored.atflag) {
        leg.arrday = stored.arrday;
        leg.arr = stored.arrday < 0 ? "/" + std::string(leg.arr.text()) : std::string(leg.arr.text());
    } else if (hours + parseTime(leg.dep.text()) > 1) {
        leg.arrday = static_cast<std::int16_t>(stored.depday == 6 ? 0 : stored.depday + 1);
    } else {
        leg.arrday = stored.depday;
    }
}

/// A schedule with the legs that are written, as number `recnum`; `speed` is that of the aircraft above, and its own
/// afterwards.
inline ScheduleRec readBack(const ScheduleRec& stored, std::int32_t recnum, float& speed) {
    ScheduleRec read;
    read.recnum = recnum;
    read.acnum = readBack(stored.acnum);
    read.tailnumber = readBack(stored.tailnumber);
    read.percent = readBack(stored.percent);
    read.period = readBack(stored.period);
    read.weekly = stored.weekly;
    read.rules = readBack(stored.rules);
    const std::int32_t row = aircraftrecord(read.acnum.text());
    speed = row == -1 ? speed : aircraft[row].cruisespeed;
    speed = speed <= 0 ? 250 : speed;
    std::vector<const LegRec*> written;
    for (std::int32_t i = 1; i <= stored.legcount; ++i) {
        if (!stored.legs[i].deleted) {
            written.push_back(&stored.legs[i]);
        }
    }
    std::string_view from = written.empty() ? std::string_view() : written.back()->toicao.text();
    for (const LegRec* const source : written) {
        LegRec leg;
        leg.hashindex = recnum * 1000 + ++read.legcount;
        leg.dep = readBack(source->dep);
        leg.arr = readBack(source->arr);
        leg.atflag = source->atflag;
        leg.tng = source->tng;
        leg.depday = stored.weekly ? source->depday : std::int16_t{-1};
        leg.flightlevel = source->flightlevel;
        leg.legtype = readBack(source->legtype);
        leg.flightnum = readBack(source->flightnum);
        leg.toicao = readBack(source->toicao);
        leg.fromicao = upper(from);
        from = source->toicao.text();
        const double distance = flightdistance(leg.fromicao.text(), leg.toicao.text());
        const std::int16_t hours = toInt16(distance / static_cast<double>(speed));
        leg.distance = static_cast<float>(roundHalfEven(distance));
        leg.flighthours = hours;
        if (stored.weekly) {
            readBackArrival(leg, *source, hours);
        }
        read.legs.append(leg);
    }
    return read;
}

/// The schedules as a load finds them behind a save. A schedule without legs that are written leaves a line that is
/// counted and not read, so blank slots stand at the end.
inline std::vector<ScheduleRec> readBack(const std::vector<ScheduleRec>& stored) {
    std::vector<ScheduleRec> read;
    std::size_t lines = 0;
    float speed = 0;
    for (const ScheduleRec& schedule : stored) {
        if (schedule.deleted || schedule.legcount == 0) {
            continue;
        }
        ++lines;
        float speedBehind = speed;
        ScheduleRec record = readBack(schedule, static_cast<std::int32_t>(read.size()) + 1, speedBehind);
        if (record.legcount > 0) {
            speed = speedBehind;
            read.push_back(record);
        }
    }
    read.resize(lines);
    return read;
}

/// The aircraft as a load finds them behind a save: a title holds no comma.
inline std::vector<AircraftRec> readBack(const std::vector<AircraftRec>& stored) {
    std::vector<AircraftRec> read;
    for (const AircraftRec& row : stored) {
        if (!row.deleted) {
            AircraftRec kept;
            kept.acnum = row.acnum.text();
            kept.cruisespeed = row.cruisespeed;
            kept.title = row.title.text().substr(0, row.title.text().find(','));
            read.push_back(kept);
        }
    }
    return read;
}

} // namespace vantor::test
