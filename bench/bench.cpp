// Bench: measurements, as ratios in one run, on traffic made for them.
// All that is measured and its limits, printed as one table. Call: vantor_bench [--benchmark_filter=ROWS].
#include "bulk/aircraft_swap.h"
#include "bulk/airport_split.h"
#include "bulk/atc_percentage.h"
#include "bulk/delete_by_airport.h"
#include "bulk/flight_level.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/tables.h"
#include "core/undo.h"
#include "explorer.h"
#include "floor.h"
#include "peer.h"
#include "platform/picture_box.h"
#include "routes.h"
#include "schedule/list_rows.h"
#include "simulator/traffic_tool.h"
#include "table.h"
#include "views/movement_chart.h"
#include "views/route_map.h"
#include "window.h"
#include "world.h"

#include <QTemporaryDir>

#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <numeric>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vantor::bench {
namespace {

constexpr std::array sizes = {10000, 50000, 150000};
// Each is a goal and a tenth of it, for machines that are not quiet.
constexpr double loadLimit = 0.55;
constexpr double peerLimit = 0.11;
constexpr double wholeLoadLimit = 0.605;
constexpr double saveLimit = 0.44;
constexpr double listLimit = 0.15;
constexpr double memoryLimit = 2.42;
constexpr double slopeLimit = 1.2;
constexpr double journalLimit = 1.3;
constexpr double undoLimit = 1.0;
constexpr const char* airport = "AABC";
constexpr const char* busiestAirport = "AAAA"; // of a world with one
constexpr StandardTrap caller{"bench", "bench"};
constexpr const char* plane = "AC#77";
constexpr auto listedSchedules = static_cast<std::int32_t>(scheduleRowLimit);

std::filesystem::path pathOf(const QTemporaryDir& folder) {
    if (!folder.isValid()) {
        throw std::runtime_error(folder.errorString().toStdString());
    }
    return folder.path().toStdString();
}

// Every load starts from empty tables, as after the start of the program.
void dropTraffic() {
    schedules = clsHashSC();
    schedulecount = 0;
}

// The most memory that the program held since the peak was last set back, in bytes.
double peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::stod(line.substr(6)) * 1024;
        }
    }
    return 0;
}

void resetPeakMemory() {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    std::ofstream("/proc/self/clear_refs") << 5;
}

// Reads all of a file and writes it to another by the simplest means.
void copyPlainly(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::ifstream in(from, std::ios::binary);
    std::string bytes(std::filesystem::file_size(from), '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    std::ofstream(to, std::ios::binary) << bytes;
}

// Registers a row of the main table.
using Add = std::function<void(const std::string& name, double limit, const Prepared& subject)>;

void addLists(const Add& add, Window& window) {
    const auto list = [&](const char* name, const char* icao, const char* ac, bool unique) {
        add(name, listLimit, {[=, &window] { window.form().lists().displaylist(icao, ac, unique, 0); }, {}});
    };
    list("displaylist: all flights", "", "", false);
    list("displaylist: flights of an airport", airport, "", false);
    list("displaylist: flights of an aircraft", "", plane, false);
    list("displaylist: aircraft of an airport", airport, "", true);
    list("displaylist: airports of an aircraft", "", plane, true);
    add("fillsecondlist", listLimit, {[&] { window.form().lists().fillsecondlist(plane, ""); }, {}});
}

using NamedWork = std::pair<std::string, Work>;

std::vector<NamedWork> viewsOf(Window& window, PictureBox& box, const char* icao) {
    return {{"timetable", [=, &window] { window.form().views().displaytimetable(icao); }},
            {"gates", [=, &window] { window.form().views().displaymaxgates(icao); }},
            {"counts and chart", [=, &box] { drawMovementChart(box, icao, -1); }},
            {"map", [=, &box] { drawRouteMap(caller, box, icao); }}};
}

// Each finds the tables as a load leaves them, not as the change above it does.
void addChanges(const Add& add, const Work& load) {
    const auto change = [&](const char* name, const Work& work) { add(name, listLimit, {work, load}); };
    change("airportsmissing", [] {
        std::string list;
        static_cast<void>(airportsmissing(list));
    });
    change("change: flight level between two airports", [] {
        FlightLevelBoxes boxes{"310", airport, "AABD"};
        static_cast<void>(changeFlightLevel(caller, boxes));
    });
    change("change: ATC percentage of an aircraft",
           [] { static_cast<void>(updateAtcPercentage(caller, "50", plane)); });
    change("change: airport of an aircraft", [] { static_cast<void>(replaceicaobyac(caller, "AABD", "AABE", plane)); });
    change("change: split of an airport", [] { static_cast<void>(replaceicao(caller, "AABF", "AABG", "AABH", 50)); });
    change("change: aircraft of all listed flights", [] {
        std::vector<std::int32_t> recnums(listedSchedules);
        std::iota(recnums.begin(), recnums.end(), 1);
        swapAircraft(caller, recnums, "AC#7 - x");
    });
    change("change: delete by airport", [] { deleteByAirport(caller, airport); });
    change("change: delete by the front of a code", [] { deleteByAirport(caller, "AA*"); });
    change("change: delete all", [] { deleteByAirport(caller, "*"); });
}

// What the journal costs the changes that touch most, and how long taking them back takes.
void addJournal(const Work& load) {
    const auto against = [](const std::string& name, const char* unit, double limit, const Prepared& base,
                            const Prepared& subject) {
        addRow({.name = name, .unit = unit, .limit = limit}, [=] { return holdAgainst(base, subject); });
    };
    for (const char* const pattern : {"AA*", "*"}) {
        const Work change = [=] { deleteByAirport(caller, pattern); };
        const Work step = [=] {
            const Step named("change");
            change();
        };
        const Work loadAndStep = [=] {
            load();
            step();
        };
        const std::string name = std::string("delete by ") + pattern;
        against(name + ": with the journal", "x without it", journalLimit, {change, load}, {step, load});
        against(name + ": undo", "x change", undoLimit, {step, load}, {[] { undo(); }, loadAndStep});
    }
}

// The main table, over the largest mixed world.
void measureAgainstFloor(Window& window) {
    const QTemporaryDir temporary;
    const std::filesystem::path folder = pathOf(temporary);
    const WorldSize size = writeWorld(folder, {.schedules = sizes.back()});
    writeLegsForPeer(folder);
    window.moveTo(folder);
    PictureBox box;
    box.resize(800, 600);

    resetPeakMemory();
    window.form().files().loaddata();
    const double peak = peakMemory();

    const PlainAirports plainAirports = readPlainAirports(folder / "Airports.txt");
    std::vector<PlainSchedule> plain;
    const Prepared floor{[&] { plain = runFloor(folder / "Flightplans.txt", plainAirports); }, [&] { plain = {}; }};
    const Prepared peer{[&] { importByPeer(folder); }, [&] { removePeerDatabase(folder); }};
    const Prepared load{[&] { LoadSched(&box, flightplansfile); }, dropTraffic};
    const Add add = [&](const std::string& name, double limit, const Prepared& subject) {
        addRow({.name = name, .unit = "x floor", .limit = limit}, [&, subject] { return holdAgainst(floor, subject); });
    };
    add("the floor", 0, floor);
    add("sqlite3, .import of the legs into a database file", 0, peer);
    add("LoadSched", loadLimit, load);
    addRow({.name = "LoadSched against sqlite3", .unit = "x sqlite3", .limit = peerLimit},
           [&] { return holdAgainst(peer, load); });
    addRow({.name = "LoadSched against a plain copy of the file", .unit = "x copy"}, [&] {
        const Prepared copy{[&] { copyPlainly(folder / "Flightplans.txt", folder / "copy.txt"); },
                            [&] { std::filesystem::remove(folder / "copy.txt"); }};
        return holdAgainst(copy, load);
    });
    add("default load, all readers and lists", wholeLoadLimit,
        {[&] { window.form().files().loaddata(); }, dropTraffic});
    add("savesc", saveLimit, {[&] { savesc(flightplansfile + ".saved"); }, {}});
    addLists(add, window);
    for (const auto& [name, view] : viewsOf(window, box, airport)) {
        add(name + " of an airport", listLimit, {view, {}});
    }
    addChanges(add, [&] {
        load.work();
        floor.prepare();
        floor.work(); // the caches are cold then, as they are for the other rows
    });
    addJournal(load.work);
    addExplorerRows(floor, load.work);

    std::printf("%d schedules, %lld legs, %.1f MB of text; medians, each time held against a run of the floor (or "
                "sqlite3) just before it\n\n",
                sizes.back(), static_cast<long long>(size.legs), static_cast<double>(size.bytes) / 1e6);
    measureRows();
    printRow({.name = "peak memory of the whole program",
              .unit = "x files",
              .limit = memoryLimit,
              .figure = peak / static_cast<double>(size.bytes)});
}

// Time is a fixed part and a part for each schedule; whether the latter stays the same shows where the sizes' times
// stand on one line: the slope of the upper stretch over that of the lower one.
double slopeRatio(const std::array<Spent, sizes.size()>& times, double Spent::*which) {
    const auto slope = [&](std::size_t from) {
        return (times[from + 1].*which - times[from].*which) / (sizes[from + 1] - sizes[from]);
    };
    return slope(1) / slope(0);
}

// Each measured in the window of a world of each size, from the smallest to the largest.
void measureLinearity(Window& window, WorldOptions options,
                      const std::vector<std::pair<std::string, Prepared>>& subjects) {
    const QTemporaryDir temporary;
    const std::filesystem::path folder = pathOf(temporary);
    for (const int size : sizes) {
        options.schedules = size;
        const std::filesystem::path world = folder / std::to_string(size);
        std::filesystem::create_directory(world);
        writeWorld(world, options);
    }
    for (const auto& [name, subject] : subjects) {
        addRow({.name = name, .unit = "slopes", .limit = slopeLimit}, [&, subject = subject] {
            std::array<Spent, sizes.size()> times;
            for (std::size_t i = 0; i < sizes.size(); ++i) {
                window.moveTo(folder / std::to_string(sizes[i]));
                times[i] = timeOf(subject);
            }
            return Finding{times.back().wall, {slopeRatio(times, &Spent::wall), slopeRatio(times, &Spent::processor)}};
        });
    }
    measureRows();
}

void measureAllLinearity(Window& window) {
    std::printf("\nTime of a further schedule between 50,000 and 150,000, over that between 10,000 and 50,000\n\n");
    const Prepared load{[&] { window.form().files().loaddata(); }, dropTraffic};
    measureLinearity(window, {}, {{"default load, mixed", load}});
    measureLinearity(window, {.missingAirports = true}, {{"default load, all airports missing", load}});
    measureLinearity(window, {.unknownAircraft = true}, {{"default load, all aircraft unknown", load}});
    measureLinearity(window, {.reversedAircraft = true}, {{"default load, aircraft in reverse order", load}});
    PictureBox box;
    box.resize(800, 600);
    std::vector<std::pair<std::string, Prepared>> busy{{"default load, one airport busy with every leg", load}};
    const auto views = viewsOf(window, box, busiestAirport);
    for (const auto& [name, view] : views) {
        busy.push_back({name + " of that airport", {view, load.work}});
    }
    // A view begins by emptying the list. Sorted rows whose texts lie all over memory are dear to free, and the dearer
    // the more there are.
    const auto showTimetable = [&] {
        load.work();
        views[0].second();
    };
    busy.push_back({"gates of that airport in place of the timetable", {views[1].second, showTimetable}});
    measureLinearity(window, {.busyAirport = true}, busy);
}

int run(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // NOLINT(concurrency-mt-unsafe): there is one thread
    benchmark::Initialize(&argc, argv);
    Window window(argc, argv);
    measureAgainstFloor(window);
    measureRescue(window, sizes.back());
    measureRoutes(window);
    measureAllLinearity(window);
    return 0;
}

} // namespace
} // namespace vantor::bench

int main(int argc, char** argv) {
    return vantor::bench::run(argc, argv);
}
