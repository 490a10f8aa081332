// Bench: measurements, as ratios in one run, on traffic made for them.
// The default load without its window, full listings, and a save, at three sizes and in the odd shapes of real files.
#include "core/flightplans_writer.h"
#include "core/load_pipeline.h"
#include "core/tables.h"
#include "foundation/native_path.h"
#include "foundation/settings_store.h"
#include "schedule/list_rows.h"
#include "simulator/fs_aircraft.h"
#include "simulator/missing_aircraft.h"
#include "world.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <string>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vantor::bench {
namespace {

class Steps final : public LoadSteps {
  public:
    Canvas* progress() override { return nullptr; }
    void loadSimulatorAircraft() override {}
    void listMissingAircraft() override { benchmark::DoNotOptimize(checkmissing()); }
    void fillAircraftList() override { benchmark::DoNotOptimize(aircraftRows(true)); }
    void fillAirportList() override { benchmark::DoNotOptimize(airportRows()); }
};

// A folder of generated traffic for as long as a measurement runs.
class World {
  public:
    explicit World(const WorldOptions& options)
        : m_folder(std::filesystem::temp_directory_path() / "vantor-bench"), m_bytes(0) {
        std::filesystem::create_directories(m_folder);
        m_bytes = writeWorld(m_folder, options);
        setProgramFile(m_folder / "Vantor");
        fsmode = 2;
        aircraftfile = programFolder() + "\\Aircraft.txt";
        airportsfile = programFolder() + "\\Airports.txt";
        flightplansfile = programFolder() + "\\Flightplans.txt";
        fsicaofile = programFolder() + "\\none.cfg";
    }
    ~World() {
        resetTables();
        std::filesystem::remove_all(m_folder);
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    [[nodiscard]] double bytes() const { return static_cast<double>(m_bytes); }

  private:
    std::filesystem::path m_folder;
    std::uintmax_t m_bytes;
};

void load() {
    Steps steps;
    loadAllTraffic(steps);
}

// A figure of /proc/self/status in bytes, 0 where there is none.
double statusBytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":")) {
            return std::stod(line.substr(name.size() + 1)) * 1024;
        }
    }
    return 0;
}

// Hands back what earlier measurements freed, so that a peak is that of the load alone.
void releaseFreeMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

void measureLoad(benchmark::State& state, WorldOptions options) {
    options.schedules = static_cast<int>(state.range(0));
    const World world(options);
    releaseFreeMemory();
    const double before = statusBytes("VmRSS");
    std::ofstream("/proc/self/clear_refs") << 5; // the peak starts anew
    for ([[maybe_unused]] auto turn : state) {
        load();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["peak_per_file_byte"] = (statusBytes("VmHWM") - before) / world.bytes();
}

void BM_Load(benchmark::State& state) {
    measureLoad(state, {});
}
void BM_LoadUnknownAircraft(benchmark::State& state) {
    measureLoad(state, {.unknownAircraft = true});
}
void BM_LoadMissingAirports(benchmark::State& state) {
    measureLoad(state, {.missingAirports = true});
}
void BM_LoadReversedAircraft(benchmark::State& state) {
    measureLoad(state, {.reversedAircraft = true});
}

void BM_ListAll(benchmark::State& state) {
    const World world({.schedules = static_cast<int>(state.range(0))});
    load();
    for ([[maybe_unused]] auto turn : state) {
        Listing listing;
        listSchedules("", "", false, listing);
        benchmark::DoNotOptimize(listing.rows.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_ListAirport(benchmark::State& state) {
    const World world({.schedules = static_cast<int>(state.range(0))});
    load();
    for ([[maybe_unused]] auto turn : state) {
        Listing listing;
        listSchedules("AABC", "", false, listing);
        benchmark::DoNotOptimize(listing.rows.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_Save(benchmark::State& state) {
    const World world({.schedules = static_cast<int>(state.range(0))});
    load();
    const std::string file = programFolder() + "\\saved.txt";
    for ([[maybe_unused]] auto turn : state) {
        savesc(file);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

const auto sizes = [](benchmark::internal::Benchmark* bench) {
    bench->Arg(10000)->Arg(50000)->Arg(150000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
};

BENCHMARK(BM_Load)->Apply(sizes);
BENCHMARK(BM_LoadUnknownAircraft)->Apply(sizes);
BENCHMARK(BM_LoadMissingAirports)->Apply(sizes);
BENCHMARK(BM_LoadReversedAircraft)->Apply(sizes);
BENCHMARK(BM_ListAll)->Apply(sizes);
BENCHMARK(BM_ListAirport)->Apply(sizes);
BENCHMARK(BM_Save)->Apply(sizes);

} // namespace
} // namespace vantor::bench
