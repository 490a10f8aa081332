// Shell: the main window, its dialogs and the settings of the application.
// The boxes of the main window, each of which is a form of its own.
#pragma once

#include "ui_aircraft_box.h"
#include "ui_airport_box.h"
#include "ui_compile_box.h"
#include "ui_legs_box.h"
#include "ui_missing_aircraft_box.h"
#include "ui_mode_box.h"
#include "ui_schedules_box.h"
#include "ui_traffic_box.h"
#include "ui_utilities_box.h"

namespace vantor {

/// The controls by boxes. A group of commands is given the boxes, or single controls, that it needs.
struct WindowBoxes {
    Ui::TrafficBox traffic;
    Ui::ModeBox mode;
    Ui::CompileBox compile;
    Ui::SchedulesBox schedules;
    Ui::LegsBox legs;
    Ui::AircraftBox aircraft;
    Ui::AirportBox airport;
    Ui::MissingAircraftBox missing;
    Ui::UtilitiesBox utilities;
};

} // namespace vantor
