// Foundation: what the whole program stands on and that knows nothing of traffic.
// The progress bar drawn into a picture box, the throttled event pumps and the delays.
#pragma once

#include "foundation/canvas.h"

#include <string_view>

namespace vantor {

/// Colour of a bar that no colour is given for: a light green.
inline constexpr Colour defaultBarColour = 0x80FF80;

/// Shows `text` over the bar or, with an empty text, the percentage. Redrawn at most every 0.15 seconds but for the
/// final state (value equal to total). A null picture box is one fault in the ring.
void showprogressstring(Canvas* box, double value, double total, std::string_view text, Colour bar = 0,
                        Colour back = 0) noexcept;
/// Draws the bar for `value` out of `total`, in any unit; a total of 0 counts as 1. `percent` shows the percentage in
/// place of the text, `force` draws whatever the clock says. `bar` is the text's colour too. Faults go to the ring.
void showprogress(Canvas* box, double value, double total, std::string_view text, bool percent, bool force,
                  Colour bar = 0, Colour back = 0) noexcept;
/// Writes `text` centred in the box, which is wiped first with `clear`. A colour of 0 leaves the colour as it is.
/// Faults go to the ring.
void PrintCentered(Canvas* box, std::string_view text, bool clear, Colour textColour, Colour back) noexcept;

/// Lets the window repaint and timers run if 0.25 seconds have passed since the last time. Keys and clicks wait.
void timedevents();
/// Lets everything run, but only when input is pending.
void checkevents();
/// Lets everything run, and counts as a pump of timedevents.
void pumpEverything();
/// Waits; over one second in steps of half a second with a pump after each. Error 6 beyond 2^31 milliseconds.
void delay(float seconds); // no wait of the program needs it yet, nor the two below
/// As delay, in milliseconds.
void delayms(int milliseconds);
/// Puts the thread to sleep, without any pump; a negative number counts as 0.
void sleepms(int milliseconds);

/// When the next drawing and the next pump are due, in seconds since midnight.
struct PumpTimes {
    float nextdraw = 0;
    float nextevents = 0;
};
[[nodiscard]] PumpTimes& pumpTimes() noexcept;

} // namespace vantor
