// Bulk: changes applied to many legs or schedules at once.
// Another aircraft for the selected schedules.
#pragma once

#include "foundation/trap.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace vantor {

/// Gives the schedules of these record numbers the aircraft of `substituteRow` (a row or code), deleted ones as well.
/// Legs stay as they are: neither distances nor times follow the new aircraft's speed.
void swapAircraft(const StandardTrap& trap, const std::vector<std::int32_t>& recnums,
                  std::string_view substituteRow) noexcept;

} // namespace vantor
