// Update: asks the update server for newer versions and fetches the setup program.
// A text in the status bar, on as many lines as it takes.
#pragma once

#include "foundation/canvas.h"

#include <string_view>

namespace vantor {

/// Clears the box to the system's colours and writes a text centred into it. One that is too wide is broken at its
/// blanks, and a word that is too wide anywhere.
void printStatusText(Canvas& box, std::string_view text);

} // namespace vantor
