// Shell: the main window, its dialogs and the settings of the application.
// What a user may read: the manual, the licences and the log.
#pragma once

#include <QString>

#include <string>
#include <vector>

namespace vantor {

/// The manual as HTML, beside the program or where the system keeps documents; empty when it is in neither place.
[[nodiscard]] std::string manualFile();

/// Shows the log with all faults that are known, in the user's text viewer.
void showLog() noexcept;

/// A licence under which the program or a part of it is given.
struct Licence {
    QString name;
    QString text;
};
/// The program's own and that of its map data, which are always there; then those of the libraries in it, from the
/// folder beside the program, or from where Debian keeps them for the libraries that it uses there.
[[nodiscard]] std::vector<Licence> licences();

} // namespace vantor
