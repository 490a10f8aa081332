// Bench: measurements, as ratios in one run, on traffic made for them.
// Rounds of measurements, each held against the floor run just before it, and the table of their medians.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vantor::bench {

using Work = std::function<void()>;

/// Wall time in seconds.
[[nodiscard]] double timeOf(const Work& work);
[[nodiscard]] double median(std::vector<double> values);

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
    [[nodiscard]] const std::vector<double>& timesOf(const std::string& name) const;

  private:
    struct Measured {
        Subject subject;
        std::vector<double> times;
        std::vector<double> ratios;
    };

    Subject m_floor;
    std::vector<double> m_floorTimes;
    std::vector<Measured> m_subjects;
};

/// One row of the table: a time in seconds (0: none), a figure of the named unit, its limit (0: none) and the verdict.
void printRow(const std::string& name, double seconds, double figure, const char* unit, double limit);
void printHeading(const std::string& text);

} // namespace vantor::bench
