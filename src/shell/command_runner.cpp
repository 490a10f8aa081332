#include "shell/command_runner.h"

#include "foundation/action_ring.h"

#include <utility>

namespace vantor {

CommandRunner::Running::~Running() {
    if (--m_runner.m_running == 0 && std::exchange(m_runner.m_closeWaits, false)) {
        QMetaObject::invokeMethod(&m_runner.m_window, &QWidget::close, Qt::QueuedConnection);
    }
}

bool CommandRunner::holdsClose() noexcept {
    m_closeWaits = m_closeWaits || busy();
    return busy();
}

bool CommandRunner::run(Procedure procedure, const Command& command) {
    // A click can slip in where a dialog has closed and its command has not gone on yet, or where a wait lets
    // everything through.
    if (busy()) {
        return false;
    }
    const Running running(*this);
    ++m_begun;
    const StandardTrap trap{procedure};
    const std::int64_t actions = actionCount();
    std::string did;
    trap.set(did, command, trap);
    if (ended) {
        trap([&] { ended(did, faultSince(actions)); });
    }
    return true;
}

} // namespace vantor
