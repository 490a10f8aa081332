#include "foundation/trap.h"

#include "foundation/action_ring.h"
#include "foundation/error.h"

#include <string>

namespace vantor {

void StandardTrap::noteCurrent() const noexcept {
    try {
        const Error error = currentError();
        logaction(error.description() + "(" + std::to_string(error.number()) + ")", m_procedure, m_module);
    } catch (...) {
        // The ring is dumped to the log when it wraps, and the log may be out of reach. There is nowhere left to
        // tell it, and the program must go on.
    }
}

} // namespace vantor
