#include "foundation/action_ring.h"

#include "foundation/clock.h"

#include <algorithm>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view debugMark = "DBG: ";

std::string described(std::string_view text, std::string_view procedure, std::string_view module) {
    std::string result(text);
    if (!procedure.empty()) {
        result.append(" in ").append(procedure);
    }
    if (!module.empty()) {
        result.append(" of module ").append(module);
    }
    return result;
}

} // namespace

void ActionRing::put(std::string text, bool dump) {
    if (++m_newest > recentActions) {
        // The ring turns even when the log is out of reach, so that the newest faults are the ones it holds.
        try {
            if (dump && m_whenFull != nullptr) {
                m_whenFull();
            }
        } catch (...) {
            m_newest = 1;
            store(std::move(text));
            throw;
        }
        m_newest = 1;
    }
    store(std::move(text));
}

void ActionRing::store(std::string text) {
    ++m_count;
    m_actions.at(static_cast<std::size_t>(m_newest - 1)) = {std::move(text), formatHHMMSS(now())};
}

ActionRing& actionRing() noexcept {
    static ActionRing ring;
    return ring;
}

void logaction(std::string_view text, std::string_view procedure, std::string_view module) {
    actionRing().put(described(text, procedure, module), true);
}

void logdebug(std::string_view text, std::string_view procedure, std::string_view module) {
    actionRing().put(described(std::string(debugMark).append(text), procedure, module), false);
}

std::int64_t actionCount() {
    return actionRing().count();
}

std::string faultSince(std::int64_t count) {
    const ActionRing& ring = actionRing();
    int place = ring.newest();
    for (std::int64_t behind = std::min<std::int64_t>(ring.count() - count, recentActions); behind > 0; --behind) {
        if (const std::string& text = ring.at(place).text; !text.starts_with(debugMark)) {
            return text;
        }
        place = place == 1 ? recentActions : place - 1;
    }
    return {};
}

} // namespace vantor
