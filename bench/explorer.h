// Bench: measurements, as ratios in one run, on traffic made for them.
// What the explorer lets one wait for, and the rescue copy.
#pragma once

#include "table.h"
#include "window.h"

namespace vantor::bench {

/// Registers the rows of filters, sorts and checks, each held against `floor`; `load` fills the tables ahead of them.
void addExplorerRows(const Prepared& floor, const Work& load);

/// Measures the longest pause in the event loop while the rescue copy of so many schedules is written.
void measureRescue(Window& window, int count);

} // namespace vantor::bench
