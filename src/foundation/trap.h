// Foundation: what the whole program stands on and that knows nothing of traffic.
// The standard trap: a fault is noted in the ring of recent actions and the next statement runs.
#pragma once

#include <functional>
#include <string_view>
#include <utility>

namespace vantor {

/// The name under which a procedure's faults stand in the ring. Both texts must outlive it: they are literals.
struct Procedure {
    std::string_view name;
    std::string_view module;
};

/// What every trap can do; `Note` puts the exception that is being handled down, by its `noteCurrent`.
template <class Note>
class Trap {
  public:
    /// Calls `step` with its arguments; false when it failed. A member function takes its object as first argument. The
    /// arguments are worked out ahead of the call, where nothing guards them.
    template <class Step, class... Arguments>
    bool operator()(Step&& step, Arguments&&... arguments) const noexcept {
        try {
            static_cast<void>(std::invoke(std::forward<Step>(step), std::forward<Arguments>(arguments)...));
            return true;
        } catch (...) {
            static_cast<const Note&>(*this).noteCurrent();
            return false;
        }
    }

    /// Sets `target` to what a step gives back; it keeps its value when the step fails, and false is the result.
    template <class Target, class Step, class... Arguments>
    bool set(Target& target, Step&& step, Arguments&&... arguments) const noexcept {
        return (*this)([&] { target = std::invoke(std::forward<Step>(step), std::forward<Arguments>(arguments)...); });
    }
};

/// The trap that nearly every procedure carries. Hand it one step at a time: a fault inside it is put into the ring as
/// "{description}({number}) in {procedure} of module {module}", and the caller goes on with the next step. What the
/// failed step would have set keeps its value. Nothing escapes a trap.
class StandardTrap : public Trap<StandardTrap> {
  public:
    explicit constexpr StandardTrap(Procedure procedure) noexcept : StandardTrap(procedure.name, procedure.module) {}
    /// Both names must outlive the trap (they are literals everywhere).
    constexpr StandardTrap(std::string_view procedure, std::string_view module) noexcept
        : m_procedure(procedure), m_module(module) {}

    /// The trap of another procedure of the same module.
    [[nodiscard]] constexpr StandardTrap of(std::string_view procedure) const noexcept { return {procedure, m_module}; }

    /// Puts the exception that is being handled into the ring.
    void noteCurrent() const noexcept;

  private:
    std::string_view m_procedure;
    std::string_view m_module;
};

} // namespace vantor
