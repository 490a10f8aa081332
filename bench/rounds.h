// Bench: measurements, as ratios in one run, on traffic made for them.
// Rounds of measurements, each held against the floor run just before it, and the table of their medians.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vantor::bench {

using Work = std::function<void()>;

/// Seconds that a work took: by the clock on the wall, and of the processors, those of ended child processes included.
struct Spent {
    double wall = 0;
    double processor = 0;
};

[[nodiscard]] Spent timeOf(const Work& work);

/// The median of one of the two times, or of the quotients of that time in two series.
[[nodiscard]] double median(const std::vector<Spent>& times, double Spent::*which);
[[nodiscard]] double medianRatio(const std::vector<Spent>& times, const std::vector<Spent>& base, double Spent::*which);

/// What is measured. Its limit is a share of the floor's time.
struct Subject {
    std::string name;
    double limit = 0; ///< 0: none
    Work work;
    Work prepare; ///< outside the clock; may be empty
};

/// A machine that others use is slow for a while and fast for a while. Each subject therefore follows a run of the
/// floor of its own, and what counts is the median of their ratios.
class Rounds {
  public:
    explicit Rounds(Subject floor) : m_floor(std::move(floor)) {}
    void add(Subject subject) { m_subjects.push_back({std::move(subject), {}, {}}); }
    void run(int rounds);
    void print() const;
    /// The times of a subject, one for each round.
    [[nodiscard]] const std::vector<Spent>& timesOf(const std::string& name) const;

  private:
    struct Measured {
        Subject subject;
        std::vector<Spent> times;
        std::vector<Spent> floors; // just before each
    };

    Subject m_floor;
    std::vector<Measured> m_subjects;
};

/// One row of the table. What is 0 is left empty.
struct Row {
    std::string name;
    double seconds = 0;        ///< by the clock on the wall
    double figure = 0;         ///< what is held against the limit
    std::string unit;          ///< of the figure
    double limit = 0;          ///< the most that the figure may be
    double processorRatio = 0; ///< the figure, told from processor time
};
void printRow(const Row& row);
void printHeading(const std::string& text);

} // namespace vantor::bench
