#include "rounds.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <stdexcept>

namespace vantor::bench {

double timeOf(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

namespace {

double prepareAndTime(const Subject& subject) {
    if (subject.prepare) {
        subject.prepare();
    }
    return timeOf(subject.work);
}

} // namespace

void Rounds::run(int rounds) {
    for (int round = 0; round < rounds; ++round) {
        for (Measured& measured : m_subjects) {
            m_floorTimes.push_back(prepareAndTime(m_floor));
            measured.times.push_back(prepareAndTime(measured.subject));
            measured.ratios.push_back(measured.times.back() / m_floorTimes.back());
        }
        std::fprintf(stderr, "round %d of %d\n", round + 1, rounds);
    }
}

void Rounds::print() const {
    printRow(m_floor.name, median(m_floorTimes), 1, "x floor", 0);
    for (const Measured& measured : m_subjects) {
        printRow(measured.subject.name, median(measured.times), median(measured.ratios), "x floor",
                 measured.subject.limit);
    }
}

const std::vector<double>& Rounds::timesOf(const std::string& name) const {
    const auto found = std::ranges::find(m_subjects, name, [](const Measured& one) { return one.subject.name; });
    if (found == m_subjects.end()) {
        throw std::invalid_argument(name);
    }
    return found->times;
}

void printHeading(const std::string& text) {
    std::printf("\n%s\n", text.c_str());
}

void printRow(const std::string& name, double seconds, double figure, const char* unit, double limit) {
    std::array<char, 32> time{};
    if (seconds > 0) {
        std::snprintf(time.data(), time.size(), "%.1f ms", seconds * 1000);
    }
    std::printf("  %-52s%12s%9.3f %-10s", name.c_str(), time.data(), figure, unit);
    if (limit > 0) {
        std::printf("limit %6.2f   %s", limit, figure <= limit ? "ok" : "OVER");
    }
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace vantor::bench
