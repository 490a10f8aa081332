// Platform: the Qt side of the program.
// The choice of a printer, which holds for the rest of the run.
#pragma once

#include <string_view>

class QPrinter;
class QWidget;

namespace vantor {

/// Remembers the name of the default printer, once a run.
void storedefaultprinter() noexcept;

/// Shows the printer dialog ("printDialog" to tests). A cancelled dialog leaves the current printer as it was, and
/// so does a machine without a printer.
void chooseprinter(QWidget* owner, std::string_view title) noexcept;

/// The printer chosen last in this run, the default printer until then. It lives as long as the application. It may
/// be invalid where there is no printer; printing on it then prints nothing.
[[nodiscard]] QPrinter& currentPrinter();

} // namespace vantor
