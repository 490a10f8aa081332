// Shell: the main window, its dialogs and the settings of the application.
// The settings file, the values that the program takes from it, and the GMT offset as the user types it.
#pragma once

#include "core/load_pipeline.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// Paths of the outside tool, once for compiling and once for decompiling. Set by readsettings.
extern std::string compiletool;
extern std::string decompiletool;

/// The program's version as its windows show it, "V:{major}.{minor}.{revision}".
[[nodiscard]] std::string appversion();

/// Path of the settings file, "Vantor2.ini" in the program's folder.
[[nodiscard]] std::string settingsFile();

/// The traffic files of a mode in the program's folder: the FS2002 names for 2, the 030528 names for any other value.
[[nodiscard]] TrafficFiles defaultFiles(int mode);
/// The same for fsmode as it stands.
[[nodiscard]] TrafficFiles defaultFiles();

/// Whether the store holds a simulator mode that can be used: absent, 0 or no number at all is none.
[[nodiscard]] bool modeChosen() noexcept;

/// Turns the store into gmtoffset, the simulator's paths, fsmode and the tool paths, and logs the paths. The store must
/// have been loaded and is not written. A value of the wrong form leaves its global as it was, with a fault in the
/// ring.
void readsettings() noexcept;

/// The GMT offset as the two text boxes show it.
struct GmtBoxes {
    std::string hour;   ///< hours, with a sign when the offset lies behind GMT
    std::string minute; ///< minutes, without a sign
};

/// The boxes of an offset (a signed fraction of a day): both parts from its magnitude, in at least two digits.
[[nodiscard]] GmtBoxes gmtBoxes(float offset);
/// Fills an empty box with "00" and puts a "0" ahead of a single character.
void completeGmtBoxes(GmtBoxes& boxes);
/// What is wrong with the boxes: the message for the user, and which of the two it is about.
struct GmtFault {
    std::string_view message;
    bool inMinutes = false;
};
/// The first fault of the boxes; none when they can be used.
[[nodiscard]] std::optional<GmtFault> gmtFault(const GmtBoxes& boxes) noexcept;
/// The offset of the boxes as a signed fraction of a day: (hours + minutes / 60) / 24.
[[nodiscard]] float gmtOffsetOf(const GmtBoxes& boxes) noexcept;

} // namespace vantor
