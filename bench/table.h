// Bench: measurements, as ratios in one run, on traffic made for them.
// What is measured, by Google Benchmark, and the table of the medians.
#pragma once

#include <functional>
#include <string>

namespace vantor::bench {

using Work = std::function<void()>;

/// Seconds that a work took: by the clock on the wall, and of the processors, those of ended child processes included.
struct Spent {
    double wall = 0;
    double processor = 0;
};

/// A work, and what must be done before it, outside the clock; that may be empty.
struct Prepared {
    Work work;
    Work prepare;
};
[[nodiscard]] Spent timeOf(const Prepared& prepared);

/// One row of the table. What is 0 is left empty.
struct Row {
    std::string name;
    std::string unit;     ///< of the figure
    double limit = 0;     ///< the most that the figure may be
    double seconds = 0;   ///< by the clock on the wall
    double figure = 0;    ///< what is held against the limit
    double processor = 0; ///< the figure, told from processor time
};

/// What one repetition of a measurement finds out; `ratio` is the figure, told from both times.
struct Finding {
    double seconds = 0;
    Spent ratio;
};

/// A machine that others use is slow for a while and fast for a while. Each run of the subject therefore follows a run
/// of the base of its own, and what counts is the median of their ratios.
[[nodiscard]] Finding holdAgainst(const Prepared& base, const Prepared& subject);

/// Registers a row whose seconds, figure and processor figure are the medians of some repetitions of `repetition`.
void addRow(const Row& row, const std::function<Finding()>& repetition);
/// Measures and prints all rows that were registered, in their order, and forgets them.
void measureRows();
void printRow(const Row& row);

} // namespace vantor::bench
