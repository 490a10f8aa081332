// Views: read-only views of one airport's traffic, computed without a window.
// The bar chart of an airport's movements for each hour, as drawing calls.
#pragma once

#include "foundation/canvas.h"

#include <cstdint>
#include <string_view>

namespace vantor {

/// Draws the chart of an airport (a row or a bare code) for a day code (see dailyView): a red bar of departures and a
/// blue bar of arrivals for each hour, the hours below, the counts on the left as far as they don't overlap.
void drawMovementChart(Canvas& canvas, std::string_view icao, std::int16_t day);

} // namespace vantor
