#include "rounds.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <sys/resource.h>

namespace vantor::bench {

namespace {

double processorSeconds() {
    double seconds = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        getrusage(who, &usage);
        for (const timeval& part : {usage.ru_utime, usage.ru_stime}) {
            seconds += static_cast<double>(part.tv_sec) + static_cast<double>(part.tv_usec) / 1e6;
        }
    }
    return seconds;
}

double medianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

Spent prepareAndTime(const Subject& subject) {
    if (subject.prepare) {
        subject.prepare();
    }
    return timeOf(subject.work);
}

} // namespace

Spent timeOf(const Work& work) {
    const double processor = processorSeconds();
    const auto start = std::chrono::steady_clock::now();
    work();
    const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return {wall, processorSeconds() - processor};
}

double median(const std::vector<Spent>& times, double Spent::*which) {
    std::vector<double> values;
    std::ranges::transform(times, std::back_inserter(values), [=](const Spent& spent) { return spent.*which; });
    return medianOf(std::move(values));
}

double medianRatio(const std::vector<Spent>& times, const std::vector<Spent>& base, double Spent::*which) {
    std::vector<double> values;
    std::ranges::transform(times, base, std::back_inserter(values),
                           [=](const Spent& spent, const Spent& other) { return spent.*which / other.*which; });
    return medianOf(std::move(values));
}

void Rounds::run(int rounds) {
    for (int round = 0; round < rounds; ++round) {
        for (Measured& measured : m_subjects) {
            measured.floors.push_back(prepareAndTime(m_floor));
            measured.times.push_back(prepareAndTime(measured.subject));
        }
        std::fprintf(stderr, "round %d of %d\n", round + 1, rounds);
    }
}

void Rounds::print() const {
    std::vector<Spent> floors;
    for (const Measured& measured : m_subjects) {
        floors.insert(floors.end(), measured.floors.begin(), measured.floors.end());
    }
    printRow({.name = m_floor.name, .seconds = median(floors, &Spent::wall), .figure = 1, .unit = "x floor"});
    for (const Measured& measured : m_subjects) {
        printRow({measured.subject.name, median(measured.times, &Spent::wall),
                  medianRatio(measured.times, measured.floors, &Spent::wall), "x floor", measured.subject.limit,
                  medianRatio(measured.times, measured.floors, &Spent::processor)});
    }
}

const std::vector<Spent>& Rounds::timesOf(const std::string& name) const {
    const auto found = std::ranges::find(m_subjects, name, [](const Measured& one) { return one.subject.name; });
    if (found == m_subjects.end()) {
        throw std::invalid_argument(name);
    }
    return found->times;
}

void printHeading(const std::string& text) {
    std::printf("\n%s\n\n", text.c_str());
}

void printRow(const Row& row) {
    const auto text = [](const char* format, double value) {
        std::array<char, 32> buffer{};
        std::snprintf(buffer.data(), buffer.size(), format, value);
        return value > 0 ? std::string(buffer.data()) : std::string();
    };
    const char* const verdict = row.limit == 0 ? "" : row.figure <= row.limit ? "ok" : "OVER";
    std::printf("  %-50s%11s%8.3f %-9s %-10s %-4s %s\n", row.name.c_str(), text("%.1f ms", row.seconds * 1000).c_str(),
                row.figure, row.unit.c_str(), text("limit %.2f", row.limit).c_str(), verdict,
                text("(processor %.3f)", row.processorRatio).c_str());
    std::fflush(stdout);
}

} // namespace vantor::bench
