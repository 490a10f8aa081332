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
/// Draws the bar. `percent` shows the percentage when there is no text, `force` draws whatever the clock says.
void showprogress(Canvas* box, double value, double total, std::string_view text, bool percent, bool force,
                  Colour bar = 0, Colour back = 0) noexcept;
/// Writes `text` centred in the box. A colour of 0 leaves the colour as it is.
void PrintCentered(Canvas* box, std::string_view text, bool clear, Colour textColour, Colour back) noexcept;

/// Lets the window repaint and timers run if 0.25 seconds have passed since the last time. Keys and clicks wait.
void timedevents();
/// Lets everything run, but only when input is pending.
void checkevents();
/// Lets everything run, and counts as a pump of timedevents.
void pumpEverything();
/// Waits, in steps of half a second with a pump between them when it is over one second.
void delay(float seconds);
void delayms(int milliseconds);
void sleepms(int milliseconds);

/// Forgets the clock values of the last drawing and pump. For tests.
void resetProgress();

} // namespace vantor
