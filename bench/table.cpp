#include "table.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <sys/resource.h>
#include <vector>

namespace vantor::bench {

namespace {

constexpr int repetitions = 5;

// The library's processor time leaves child processes out.
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

// Prints the medians that the library takes of each benchmark's times and counters.
class TableReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.aggregate_name == "median") {
                printRow({.name = run.run_name.function_name,
                          .unit = run.report_label,
                          .limit = run.counters.at("limit"),
                          .seconds = run.GetAdjustedRealTime(),
                          .figure = run.counters.at("figure"),
                          .processor = run.counters.at("processor")});
            }
        }
    }
};

} // namespace

Spent timeOf(const Prepared& prepared) {
    if (prepared.prepare) {
        prepared.prepare();
    }
    const double processor = processorSeconds();
    const auto start = std::chrono::steady_clock::now();
    prepared.work();
    const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return {wall, processorSeconds() - processor};
}

Finding holdAgainst(const Prepared& base, const Prepared& subject) {
    const Spent before = timeOf(base);
    const Spent spent = timeOf(subject);
    return {spent.wall, {spent.wall / before.wall, spent.processor / before.processor}};
}

void addRow(const Row& row, const std::function<Finding()>& repetition) {
    const auto measure = [=](benchmark::State& state) {
        for (auto _ : state) {
            const Finding finding = repetition();
            state.SetIterationTime(finding.seconds);
            state.counters = {
                {"figure", finding.ratio.wall}, {"processor", finding.ratio.processor}, {"limit", row.limit}};
        }
        state.SetLabel(row.unit);
    };
    benchmark::RegisterBenchmark(row.name.c_str(), measure)
        ->Iterations(1)
        ->Repetitions(repetitions)
        ->UseManualTime()
        ->Unit(benchmark::kSecond);
}

void measureRows() {
    TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();
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
                text("(processor %.3f)", row.processor).c_str());
    std::fflush(stdout);
}

} // namespace vantor::bench
