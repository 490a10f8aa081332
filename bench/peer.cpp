#include "peer.h"

#include "foundation/text.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

namespace vantor::bench {

void writeLegsForPeer(const std::filesystem::path& folder) {
    std::ifstream plans(folder / "Flightplans.txt", std::ios::binary);
    std::ofstream legs(folder / "legs.csv", std::ios::binary);
    legs << "schedule,leg,departure,arrival,level,type,flight,destination\n";
    int schedule = 0;
    for (std::string line; std::getline(plans, line);) {
        line.pop_back(); // the CR
        const auto fields = split(line, ",");
        if (fields.size() < 11) {
            continue;
        }
        ++schedule;
        for (std::size_t at = 5, leg = 1; at + 6 <= fields.size(); at += 6, ++leg) {
            legs << schedule << ',' << leg;
            for (std::size_t column = at; column < at + 6; ++column) {
                legs << ',' << trim(fields[column]);
            }
            legs << '\n';
        }
    }
}

void importByPeer(const std::filesystem::path& folder) {
    const std::string command =
        "cd '" + folder.string() + "' && exec sqlite3 legs.db '.import --csv legs.csv legs' 2>&1";
    if (std::system(command.c_str()) != 0) { // NOLINT(concurrency-mt-unsafe): there is one thread
        throw std::runtime_error("sqlite3 failed");
    }
}

void removePeerDatabase(const std::filesystem::path& folder) {
    std::filesystem::remove(folder / "legs.db");
}

} // namespace vantor::bench
