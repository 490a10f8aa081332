// Views: read-only views of one airport's traffic, computed without a window.
// How often a schedule that is not weekly repeats in a day, and by how many hours each repetition is late.
#pragma once

#include "foundation/error.h"
#include "foundation/numbers.h"

#include <cstdint>

namespace vantor {

/// 24 hours by the period, to be rounded by the caller. A period of 0 is error 11.
[[nodiscard]] inline double repetitionsPerDay(double periodHours) {
    if (periodHours == 0) {
        throw Error(ErrorCode::DivisionByZero);
    }
    return 24.0 / periodHours;
}

/// Whole hours that repetition n (from 1) is behind the first, halves to even.
[[nodiscard]] inline std::int32_t repetitionShift(double periodHours, std::int32_t n) {
    return toInt32(periodHours * (n - 1));
}

} // namespace vantor
