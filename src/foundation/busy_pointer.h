// Foundation: what the whole program stands on and that knows nothing of traffic.
// The busy pointer for a stretch of a procedure.
#pragma once

#include "foundation/host.h"
#include "foundation/trap.h"

namespace vantor {

/// Shows the busy pointer while it lives and puts the normal one back at its end. Both are steps of the procedure.
class BusyPointer {
  public:
    /// The trap must outlive the pointer.
    explicit BusyPointer(const StandardTrap& trap) noexcept : m_trap(trap) { m_trap(busymouse); }
    ~BusyPointer() { m_trap(normalmouse); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    const StandardTrap& m_trap;
};

} // namespace vantor
