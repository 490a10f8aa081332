// Bench: measurements, as ratios in one run, on traffic made for them.
// The floor: the least work that reading flight plans can be, in plain code, for everything else to be held against.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

namespace vantor::bench {

struct PlainLeg {
    std::array<char, 12> dep;
    std::array<char, 12> arr;
    std::int16_t level;
    char type;
    std::array<char, 12> flight;
    std::array<char, 6> to;
    std::array<char, 6> from;
    float distance; // nautical miles
};

struct PlainSchedule {
    std::array<char, 10> aircraft;
    std::array<char, 12> tail;
    std::array<char, 4> percent;
    std::array<char, 4> period;
    std::array<char, 3> rules;
    std::vector<PlainLeg> legs;
};

struct PlainPosition {
    double latitude; // radians
    double longitude;
};

using PlainAirports = std::unordered_map<std::string, PlainPosition>;

/// The index of airports that the floor is given, made outside its time.
PlainAirports readPlainAirports(const std::filesystem::path& file);

/// Reads a flight plan file once, puts it into capitals, splits it, fills plain records and computes each leg's
/// great-circle distance. It looks for no comment, no fault and no day.
std::vector<PlainSchedule> runFloor(const std::filesystem::path& file, const PlainAirports& airports);

} // namespace vantor::bench
