#include "core/load_pipeline.h"

#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/airports_file.h"
#include "core/flightplans_reader.h"
#include "core/settings_keys.h"
#include "core/tables.h"
#include "foundation/log.h"
#include "foundation/path_text.h"
#include "foundation/progress.h"
#include "foundation/text.h"

namespace vantor {

namespace {

constexpr double whole = 100;

void bar(LoadSteps& steps, std::string_view text) {
    showprogressstring(steps.progress(), whole, whole, text);
}

void loadAircraftAndAirports(LoadSteps& steps) {
    logit("Loading " + aircraftfile);
    LoadAircraft(aircraftfile, steps.progress());
    logit("Sorting Aircraft");
    bar(steps, "Sorting Aircraft");
    SortAircraft(); // ahead of the flight plans, each line of which searches them for a speed
    logit("Loading " + airportsfile);
    LoadAirports(airportsfile, steps.progress());
    logit("Loading FS ICAO names");
    LoadAirportTitles(steps.progress());
}

void scanSimulator(LoadSteps& steps) {
    logit("Loading FS aircraft");
    bar(steps, "Loading FS Aircraft");
    steps.loadSimulatorAircraft();
}

void listMissing(LoadSteps& steps) {
    logit("Scanning FS aircraft");
    bar(steps, "Listing missing aircraft");
    steps.listMissingAircraft();
    bar(steps, "Finished");
}

void fillLists(LoadSteps& steps) {
    logit("Filling aircraft list");
    bar(steps, "Filling Aircraft list");
    steps.fillAircraftList();
    logit("Filling airport list");
    bar(steps, "Filling Airport list");
    steps.fillAirportList();
}

} // namespace

std::string GetSuffix(std::string_view file) {
    return replaceAll(upper(fileroot(file)), "FLIGHTPLANS", "");
}

TrafficFiles configuredFiles(const TrafficFiles& defaults) {
    return {sget(keys::forMode(keys::aircraftTxt, fsmode), defaults.aircraft).text(),
            sget(keys::forMode(keys::airportsTxt, fsmode), defaults.airports).text(),
            sget(keys::forMode(keys::flightplansTxt, fsmode), defaults.flightplans).text()};
}

void loadAllTraffic(LoadSteps& steps) {
    loadAircraftAndAirports(steps);
    logit("Loading " + flightplansfile);
    LoadSched(steps.progress(), flightplansfile);
    scanSimulator(steps);
    listMissing(steps);
    fillLists(steps);
}

void loadAssociatedFiles(LoadSteps& steps) {
    loadAircraftAndAirports(steps);
    scanSimulator(steps);
    fillLists(steps);
}

void loadChosenFlightPlans(LoadSteps& steps, std::string_view file) {
    logit("Loading " + std::string(file));
    LoadSched(steps.progress(), file);
    listMissing(steps);
}

} // namespace vantor
