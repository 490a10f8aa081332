#include "core/tables.h"

namespace vantor {

OneBased<AircraftRec> aircraft;
std::int32_t aircraftcount = 0;
OneBased<AircraftRec> fsaircraft;
std::int32_t fsaircraftcount = 0;
clsHashAP airports;
std::int32_t airportcount = 0;
clsHashSC schedules;
std::int32_t schedulecount = 0;

std::int16_t fsmode = 0;
std::string fspath;
std::string fs2k2path;
std::string fs2k4path;
float gmtoffset = 0;
std::string fsicaofile;
std::string fsaircraftpath;
std::string aircraftfile;
std::string airportsfile;
std::string flightplansfile;
std::string plansuffix;

void resetTables() {
    aircraft.clear();
    aircraftcount = 0;
    fsaircraft.clear();
    fsaircraftcount = 0;
    airports = clsHashAP();
    airportcount = 0;
    schedules = clsHashSC();
    schedulecount = 0;
    fsmode = 0;
    gmtoffset = 0;
    for (std::string* text : {&fspath, &fs2k2path, &fs2k4path, &fsicaofile, &fsaircraftpath, &aircraftfile,
                              &airportsfile, &flightplansfile, &plansuffix}) {
        text->clear();
    }
}

} // namespace vantor
