// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The global tables and values that every command works on.
#pragma once

#include "core/hash_table.h"
#include "core/records.h"

#include <cstdint>
#include <string>

namespace vantor {

/// The loaded aircraft, sorted ascending by the number in acnum. Rows past aircraftcount may be blank.
extern OneBased<AircraftRec> aircraft;
extern std::int32_t aircraftcount;
/// The aircraft found in the simulator's own folders.
extern OneBased<AircraftRec> fsaircraft;
extern std::int32_t fsaircraftcount;

extern clsHashAP airports;
extern std::int32_t airportcount;

extern clsHashSC schedules;
/// Upper bound of the record numbers that commands walk. It counts LINES of the file, dropped ones too, and not
/// records: a walk meets blank records at its end and must tolerate them.
extern std::int32_t schedulecount;

extern std::int16_t fsmode;        ///< 2 for FS2002, 4 for FS2004
extern std::string fspath;         ///< folder of the simulator of the mode
extern std::string fs2k2path;      ///< FS2002 folder, with its trailing backslash
extern std::string fs2k4path;      ///< FS2004 folder, with its trailing backslash
extern float gmtoffset;            ///< display offset from GMT, a signed fraction of a day
extern std::string fsicaofile;     ///< path of "icao name.cfg"
extern std::string fsaircraftpath; ///< path of the simulator's aircraft folder
extern std::string aircraftfile;   ///< the three traffic files in use
extern std::string airportsfile;
extern std::string flightplansfile;
extern std::string plansuffix; ///< the file family that the simulator's tool works on

/// Everything above as at the start of a run. For tests.
void resetTables();

} // namespace vantor
