// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// What outlives a command: the traffic and what the run works with. Both are as at the start of a run once an empty
// one is assigned to them.
#pragma once

#include "core/aircraft_table.h"
#include "core/hash_table.h"
#include "core/journal.h"
#include "core/records.h"

#include <cstdint>
#include <string>

namespace vantor {

/// The one owner of the tables and their counts.
struct Traffic {
    /// The loaded aircraft, sorted ascending by the number in acnum. Rows past aircraftcount may be blank.
    AircraftTable aircraft;
    std::int32_t aircraftcount = 0;
    /// The aircraft found in the simulator's own folders.
    OneBased<AircraftRec> fsaircraft;
    std::int32_t fsaircraftcount = 0;

    clsHashAP airports;
    std::int32_t airportcount = 0;

    clsHashSC schedules;
    /// Upper bound of the record numbers that commands walk. It counts LINES of the file, dropped ones too, and not
    /// records: a walk meets blank records at its end and must tolerate them.
    std::int32_t schedulecount = 0;

    /// Number in the aircraft code that was given out last in this run, also over reloads.
    std::int32_t lastacnum = 0;

    /// What the commands changed, for undo and redo.
    Journal journal;
};

/// Which simulator, files and time zone the run works with.
struct Session {
    std::int16_t fsmode = 0;    ///< 2 for FS2002, 4 for FS2004
    std::string fspath;         ///< folder of the simulator of the mode
    std::string fs2k2path;      ///< FS2002 folder, with its trailing backslash
    std::string fs2k4path;      ///< FS2004 folder, with its trailing backslash
    float gmtoffset = 0;        ///< display offset from GMT, a signed fraction of a day
    std::string fsicaofile;     ///< path of "icao name.cfg"
    std::string fsaircraftpath; ///< path of the simulator's aircraft folder
    std::string aircraftfile;   ///< the three traffic files in use
    std::string airportsfile;
    std::string flightplansfile;
    std::string plansuffix; ///< the file family that the simulator's tool works on
};

extern Traffic traffic;
extern Session session;

// The names by which everybody knows them.
inline AircraftTable& aircraft = traffic.aircraft;
inline std::int32_t& aircraftcount = traffic.aircraftcount;
inline OneBased<AircraftRec>& fsaircraft = traffic.fsaircraft;
inline std::int32_t& fsaircraftcount = traffic.fsaircraftcount;
inline clsHashAP& airports = traffic.airports;
inline std::int32_t& airportcount = traffic.airportcount;
inline clsHashSC& schedules = traffic.schedules;
inline std::int32_t& schedulecount = traffic.schedulecount;
inline std::int16_t& fsmode = session.fsmode;
inline std::string& fspath = session.fspath;
inline std::string& fs2k2path = session.fs2k2path;
inline std::string& fs2k4path = session.fs2k4path;
inline float& gmtoffset = session.gmtoffset;
inline std::string& fsicaofile = session.fsicaofile;
inline std::string& fsaircraftpath = session.fsaircraftpath;
inline std::string& aircraftfile = session.aircraftfile;
inline std::string& airportsfile = session.airportsfile;
inline std::string& flightplansfile = session.flightplansfile;
inline std::string& plansuffix = session.plansuffix;

} // namespace vantor
