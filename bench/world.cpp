#include "world.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <string>

namespace vantor::bench {

namespace {

// A linear congruential generator (constants of Knuth's MMIX): the same numbers everywhere.
class Numbers {
  public:
    explicit Numbers(std::uint64_t seed) : m_state(seed) {}
    int below(int bound) {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((m_state >> 33U) % static_cast<std::uint64_t>(bound));
    }

  private:
    std::uint64_t m_state;
};

template <class... Values>
std::string print(const char* format, Values... values) {
    std::array<char, 256> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), format, values...);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

std::string airportCode(int number) {
    std::string code(4, 'A');
    for (std::size_t at = 4; at-- > 0; number /= 26) {
        code[at] = static_cast<char>('A' + number % 26);
    }
    return code;
}

std::string clockText(int minutes) {
    return print("%02d:%02d:00", minutes / 60 % 24, minutes % 60);
}

constexpr int aircraftTypes = 60;

std::string titleOf(int number) {
    return print("Type %d Livery %d", number % aircraftTypes, number);
}

std::string aircraftFile(const WorldOptions& options) {
    std::string text;
    for (int i = 1; i <= options.aircraft; ++i) {
        const int number = options.reversedAircraft ? options.aircraft + 1 - i : i;
        text += print("AC#%d,%d,\"%s\"\r\n", number, 90 + number % 420, titleOf(number).c_str());
    }
    return text;
}

std::string airportsFile(const WorldOptions& options, Numbers& numbers) {
    std::string text;
    for (int i = 0; i < options.airports; ++i) {
        text += print("%s,%c%d* %02d.%02d',%c%d* %02d.%02d',%d\r\n", airportCode(i).c_str(),
                      numbers.below(3) == 0 ? 'S' : 'N', numbers.below(70), numbers.below(60), numbers.below(60),
                      numbers.below(2) == 0 ? 'E' : 'W', numbers.below(180), numbers.below(60), numbers.below(60),
                      numbers.below(5000));
    }
    return text;
}

// Names for three airports of four; the others show none.
std::string namesFile(const WorldOptions& options) {
    std::string text = "[ICAO names]\r\n";
    for (int i = 0; i < options.airports; ++i) {
        text += i % 4 == 3 ? std::string() : print("%s=Airport %d, Somewhere\r\n", airportCode(i).c_str(), i);
    }
    return text;
}

// The legs of a busy airport fly there and away in turn.
int nextAirport(int leg, const WorldOptions& options, Numbers& numbers) {
    if (options.busyAirport && leg % 2 == 1) {
        return 0;
    }
    return numbers.below(options.airports) + (options.missingAirports ? 100000 : 0);
}

int appendSchedule(std::string& text, int number, const WorldOptions& options, Numbers& numbers) {
    const bool weekly = numbers.below(2) == 0;
    text += print("AC#%d,N%dV,%d%%,%s,%s", numbers.below(options.aircraft) + 1 + (options.unknownAircraft ? 500000 : 0),
                  number, 5 * numbers.below(20) + 5, weekly ? "WEEK" : "24Hr", numbers.below(8) == 0 ? "VFR" : "IFR");
    const int legs = 2 + numbers.below(13);
    int minutes = numbers.below(600);
    for (int leg = 0; leg < legs; ++leg) {
        const int flight = 40 + numbers.below(300);
        const int day = minutes / 1440 % 7;
        const int arrivalDay = (minutes + flight) / 1440 % 7;
        const int airport = nextAirport(leg, options, numbers);
        const char* const touchAndGo = numbers.below(16) == 0 ? "TNG" : "";
        text += weekly ? print(",%d/%s,%s%s%d/%s", day, clockText(minutes).c_str(), numbers.below(2) == 0 ? "@" : "",
                               touchAndGo, arrivalDay, clockText(minutes + flight).c_str())
                       : print(",%s,%s%s", clockText(minutes).c_str(), touchAndGo, clockText(minutes + flight).c_str());
        text += print(", %d ,%c,%d,%s", 10 * (8 + numbers.below(33)), numbers.below(5) == 0 ? 'R' : 'F',
                      numbers.below(9000) + 1, airportCode(airport).c_str());
        minutes += flight + 45;
    }
    text += "\r\n";
    return legs;
}

std::uintmax_t write(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return text.size();
}

// One folder for each type, with the liveries of even numbers.
void writeSimulator(const std::filesystem::path& folder, const WorldOptions& options) {
    for (int type = 0; type < aircraftTypes; ++type) {
        std::string text = print("[General]\r\ncruise_speed=%d\r\n", 100 + type);
        for (int number = type; number <= options.aircraft; number += aircraftTypes) {
            if (number % 2 == 0) {
                text += print("[fltsim.%d]\r\ntitle=%s\r\n", number / aircraftTypes, titleOf(number).c_str());
            }
        }
        write(folder / "aircraft" / print("Type %d", type) / "aircraft.cfg", text);
    }
    write(folder / "weather" / "icao name.cfg", namesFile(options));
}

} // namespace

WorldSize writeWorld(const std::filesystem::path& folder, const WorldOptions& options) {
    Numbers numbers(options.seed);
    WorldSize size;
    size.bytes = write(folder / "Aircraft.txt", aircraftFile(options));
    size.bytes += write(folder / "Airports.txt", airportsFile(options, numbers));
    std::string plans = "// generated\r\n";
    for (int i = 1; i <= options.schedules; ++i) {
        size.legs += appendSchedule(plans, i, options, numbers);
    }
    size.bytes += write(folder / "Flightplans.txt", plans);
    writeSimulator(folder / "FS", options);
    return size;
}

} // namespace vantor::bench
