// Shell: the main window, its dialogs and the settings of the application.
// The printing of a schedule through the system's printers.
#pragma once

#include "views/timetable.h"

class QPrinter;

namespace vantor {

/// Prints the heading, an empty line and the rows, one a line, on as many portrait pages as they need. A row wider
/// than the page is set narrower, so that none of it is lost. Raises an error ("Printer error") when there is no
/// printer or the job is refused.
void printSchedule(QPrinter& printer, const SchedulePrintout& printout);

} // namespace vantor
