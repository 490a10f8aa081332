// Update: asks the update server for newer versions and fetches the setup program.
// Ticks of one second, as a timer of the window gives them.
#pragma once

#include "foundation/clock.h"

namespace vantor {

/// Ticks when a second has passed since the last tick, and once only however late it is asked: a clock that is put
/// forward, or a machine that slept, makes one tick and no hour of them.
class SecondTicker {
  public:
    void restart() { m_last = now(); }
    [[nodiscard]] bool ticked() {
        constexpr double secondsPerDay = 86400;
        constexpr double precision = 1e-5; // of a date-time value, in seconds
        const DateTime time = now();
        const double passed = (time - m_last) * secondsPerDay;
        if (passed >= 0 && passed < 1 - precision) {
            return false;
        }
        m_last = time;
        return passed >= 0; // a clock that was put back begins a new second
    }

  private:
    DateTime m_last = 0;
};

} // namespace vantor
