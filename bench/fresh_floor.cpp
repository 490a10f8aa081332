// Bench: measurements, as ratios in one run, on traffic made for them.
// The floor as a process of its own. Call: vantor_floor write FOLDER SCHEDULES, then vantor_floor read FOLDER.
#include "floor.h"
#include "world.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string_view>

int main(int argc, char** argv) {
    using namespace vantor::bench;
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    const std::string_view command = argc > 2 ? arguments[1] : "";
    if (command == "write" && argc == 4) {
        const WorldSize size = writeWorld(arguments[2], {.schedules = std::atoi(arguments[3])});
        std::printf("%llu\n", static_cast<unsigned long long>(size.bytes));
        return 0;
    }
    if (command == "read" && argc == 3) {
        const std::filesystem::path folder = arguments[2];
        const auto schedules = runFloor(folder / "Flightplans.txt", readPlainAirports(folder / "Airports.txt"));
        std::printf("%zu\n", schedules.size());
        return 0;
    }
    return 2;
}
