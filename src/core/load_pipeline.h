// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The order of the steps in which traffic is loaded.
#pragma once

#include "foundation/canvas.h"

#include <string>
#include <string_view>

namespace vantor {

/// What a load asks of the rooms above and of the window.
class LoadSteps {
  public:
    LoadSteps() = default;
    LoadSteps(const LoadSteps&) = delete;
    LoadSteps& operator=(const LoadSteps&) = delete;
    virtual ~LoadSteps() = default;

    /// Where the splash draws its bar; null when there is none.
    [[nodiscard]] virtual Canvas* progress() = 0;
    /// The steps that need more than the traffic's own files; what they raise ends the load.
    virtual void loadSimulatorAircraft() = 0;
    virtual void listMissingAircraft() = 0;
    virtual void fillAircraftList() = 0;
    virtual void fillAirportList() = 0;
};

/// Names of the three traffic files.
struct TrafficFiles {
    std::string aircraft;
    std::string airports;
    std::string flightplans;
};

/// What is left of a flight plan file's name without extension, in capitals, when every "FLIGHTPLANS" is taken out of
/// it. A folder in the name stays ahead of the rest.
[[nodiscard]] std::string GetSuffix(std::string_view file);

/// The file names of the current mode: from the settings, else the defaults of the mode. The keys are those of
/// fsmode as it stands.
[[nodiscard]] TrafficFiles configuredFiles(const TrafficFiles& defaults);

/// Aircraft, airports, their names, flight plans, the simulator's aircraft, the missing ones and the two combo boxes,
/// in this order, each with its log line and its bar. Reads aircraftfile, airportsfile and flightplansfile. What a
/// reader raises passes through.
void loadAllTraffic(LoadSteps& steps);
/// The same without flight plans and missing aircraft, for the files that go with a chosen flight plan.
void loadAssociatedFiles(LoadSteps& steps);
/// The flight plans of `file`, then the missing aircraft.
void loadChosenFlightPlans(LoadSteps& steps, std::string_view file);

} // namespace vantor
