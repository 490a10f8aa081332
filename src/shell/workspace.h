// Shell: the main window, its dialogs and the settings of the application.
// The workspace: what outlives a command and belongs to no control.
#pragma once

#include "foundation/file_stamps.h"

#include <cstdint>
#include <string>

namespace vantor {

/// What the groups of commands share.
struct Workspace {
    /// The files in use, as messages show them.
    std::string flightsname;
    std::string aircraftname;
    std::string airportsname;
    /// The traffic files as they were when they were loaded, or saved last.
    FileStamps stamps;

    /// The mode that the flight plans were loaded for: 2 or 4; 0 while none are loaded.
    std::int16_t loadedMode = 0;

    /// Filters (bare codes, empty for none) and kind of the listing shown: of schedules, or of aircraft or airports.
    std::string currenticao;
    std::string currentac;
    bool currentunique = false;

    /// Set by every command that changes traffic, cleared by a save of the flight plans alone.
    bool unsavedchanges = false;
    /// The state of the tables (see Journal) that was saved last, or loaded while nothing was unsaved; -1 for none.
    std::int64_t savedstate = -1;
};

} // namespace vantor
