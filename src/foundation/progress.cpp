#include "foundation/progress.h"

#include "foundation/clock.h"
#include "foundation/error.h"
#include "foundation/host.h"
#include "foundation/numbers.h"
#include "foundation/trap.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace vantor {

namespace {

constexpr std::string_view progressModule = "modProgressIndicator";
constexpr float secondsPerDraw = 0.15F;
constexpr float secondsPerPump = 0.25F;

Error missingBox() {
    return {91, "Object variable or With block variable not set"};
}

} // namespace

void showprogressstring(Canvas* box, double value, double total, std::string_view text, Colour bar,
                        Colour back) noexcept {
    showprogress(box, value, total, text, text.empty(), false, bar, back);
}

void showprogress(Canvas* box, double value, double total, std::string_view text, bool percent, bool force, Colour bar,
                  Colour back) noexcept {
    const StandardTrap trap{"sub showprogress", progressModule};
    const bool captioned = !text.empty() || percent;
    const Colour barColour = captioned && bar == 0 ? defaultBarColour : bar;
    if (!force && timer() < pumpTimes().nextdraw && value != total) {
        return;
    }
    pumpTimes().nextdraw = timer() + secondsPerDraw;
    const double fraction = std::max(value / (total == 0 ? 1 : total), 0.0); // Quirk: above 1 it draws past the edge
    if (box == nullptr) {
        trap(raiseError, missingBox());
    } else {
        trap(&Canvas::useSystemColours, box);
        if (fraction != 0) {
            trap(&Canvas::fillBox, box, 0.0, 0.0, box->innerWidth() * fraction, box->innerHeight(), barColour);
        } else {
            trap(&Canvas::clear, box);
        }
        if (captioned) {
            std::string caption(text);
            if (percent) {
                caption = fixedNumber(roundHalfEven(fraction * 100), 0) + "%";
            }
            PrintCentered(box, caption, false, bar, back);
        }
    }
    trap(timedevents);
}

void PrintCentered(Canvas* box, std::string_view text, bool clear, Colour textColour, Colour back) noexcept {
    const StandardTrap trap{"sub printcentered", progressModule};
    if (box == nullptr) {
        trap(raiseError, missingBox());
        return;
    }
    if (clear) {
        trap(&Canvas::clear, box);
    }
    if (back != 0) {
        trap(&Canvas::setBackColour, box, back);
    }
    if (textColour != 0) {
        trap(&Canvas::setTextColour, box, textColour);
    }
    const double x = (box->innerWidth() - box->textWidth(text)) / 2;
    const double y = (box->innerHeight() - box->textHeight(text)) / 2;
    trap(&Canvas::drawText, box, x, y, text);
}

void timedevents() {
    // Quirk: past midnight the timer stands below the time noted, and nothing is pumped or drawn until it catches up.
    if (timer() > pumpTimes().nextevents) {
        host().pumpEvents(Pump::PaintAndTimers);
        pumpTimes().nextevents = timer() + secondsPerPump;
    }
}

void checkevents() {
    if (host().inputPending()) {
        host().pumpEvents(Pump::Everything);
    }
}

void pumpEverything() {
    host().pumpEvents(Pump::Everything);
    pumpTimes().nextevents = timer() + secondsPerPump;
}

void delay(float seconds) {
    if (!(seconds > 1)) { // Quirk: a whole second still sleeps in one piece
        sleepms(toInt32(double{seconds} * 1000));
        return;
    }
    const float whole = std::floor(seconds);
    for (std::int32_t step = toInt32(double{whole} * 2); step > 0; --step) {
        sleepms(500);
        checkevents();
    }
    if (seconds > whole) {
        sleepms(toInt32(double{seconds - whole} * 1000));
    }
}

void delayms(int milliseconds) {
    if (milliseconds <= 1000) {
        sleepms(milliseconds);
    } else {
        delay(static_cast<float>(milliseconds) / 1000);
    }
}

void sleepms(int milliseconds) {
    host().sleepFor(std::max(milliseconds, 0));
}

PumpTimes& pumpTimes() noexcept {
    static PumpTimes times;
    return times;
}

} // namespace vantor
