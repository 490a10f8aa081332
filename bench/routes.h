// Bench: measurements, as ratios in one run, on traffic made for them.
// The map of the routes with as many airports and routes as it draws at most.
#pragma once

#include "window.h"

namespace vantor::bench {

/// Measures how long a frame takes while the map is dragged, and how long until all of it is painted after a zoom.
void measureRoutes(Window& window);

} // namespace vantor::bench
