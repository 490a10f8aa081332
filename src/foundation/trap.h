// Foundation: what the whole program stands on and that knows nothing of traffic.
// The standard trap: a fault is noted in the ring of recent actions and the next statement runs.
#pragma once

#include <string_view>
#include <utility>

namespace vantor {

/// The trap that nearly every procedure carries. Hand it one statement at a time: a fault inside it is put into the
/// ring as "{description}({number}) in {procedure} of module {module}", and the caller goes on with the next
/// statement. What the failed statement would have set keeps its value. Nothing escapes a trap.
class StandardTrap {
  public:
    /// Both names must outlive the trap (they are literals everywhere).
    constexpr StandardTrap(std::string_view procedure, std::string_view module) noexcept
        : m_procedure(procedure), m_module(module) {}

    /// Runs `statement`; false when it failed.
    template <class Statement>
    bool operator()(Statement&& statement) const noexcept {
        try {
            std::forward<Statement>(statement)();
            return true;
        } catch (...) {
            recordCurrent();
            return false;
        }
    }

  private:
    void recordCurrent() const noexcept;

    std::string_view m_procedure;
    std::string_view m_module;
};

} // namespace vantor
