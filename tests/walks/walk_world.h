// Random walks: the traffic that is walked through.
// A small world of weekly and repeating schedules with the oddities of real files, drawn from a seed.
#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>

namespace vantor::test {

class WalkWorld {
  public:
    explicit WalkWorld(unsigned seed) : m_random(seed) {}

    [[nodiscard]] static std::string aircraft() {
        std::string text = ";AC#0,1,comment\r\n";
        for (int number = 12; number >= 1; --number) {
            text += "AC#" + std::to_string(number) + "," + std::to_string(number % 5 * 90) + ",\"Model " +
                    std::to_string(number) + "\"\r\n";
        }
        return text;
    }

    [[nodiscard]] static std::string airports() {
        std::string text;
        for (const std::string_view code : codes) {
            const std::string degrees = std::to_string(20 + static_cast<int>(code[1] - 'A') * 2);
            text += std::string(code) + (code[0] < 'K' ? ",N" : ",S") + degrees + "* 28.39',W" + degrees +
                    "* 27.41',80\r\n";
        }
        return text + "EGLL,N1* 0.0',E1* 0.0',1\r\nshort,line\r\n"; // a second one of a code, and one that is dropped
    }

    [[nodiscard]] std::string flightplans() {
        std::string text = "// comment\r\nAC#1,DROPPED,100%\r\n";
        for (int line = 0; line < 40; ++line) {
            text += schedule(line);
        }
        return text;
    }

    /// An aircraft.cfg with the titles of some aircraft of the traffic, and new ones.
    [[nodiscard]] static std::string simulatorAircraft(int folder) {
        std::string text = "[fltsim.0]\r\ntexture=gone\r\nsim=none\r\n";
        for (int number = folder; number <= 12; number += 4) {
            text += "title=Model " + std::to_string(number) + "\r\n";
        }
        return text + "title=New, with a comma " + std::to_string(folder) + "\r\ncruise_speed = 300.5\r\n";
    }

    static constexpr std::array<std::string_view, 9> codes = {"EGLL", "LFPG", "EGKK", "EGSS", "KSEA",
                                                              "KPDX", "KJFK", "YPPH", "YPEA"};

  private:
    // One draw to a statement: the order of draws must not hang on the compiler.
    std::string schedule(int line) {
        const bool weekly = below(2) == 0;
        const int legs = 1 + below(5);
        std::string text = "AC#" + std::to_string(1 + below(13)); // number 13 is unknown
        text += ",G-" + std::to_string(100 + line);
        text += "," + std::to_string(1 + below(100)) + "%,";
        text += weekly ? "WEEK" : oneOf(repeats);
        text += below(2) == 0 ? ",IFR" : ",vfr";
        for (int leg = 1; leg <= legs; ++leg) {
            text += "," + time(weekly) + ",";
            text += below(4) == 0 ? "@" : "";
            text += below(6) == 0 ? "TNG" : "";
            text += time(weekly);
            text += ", " + std::to_string(below(400)) + " ,F";
            text += "," + std::to_string(100 + below(900)) + ",";
            text += below(20) == 0 ? "ZZZZ" : oneOf(codes);
        }
        return text + "\r\n";
    }

    std::string time(bool weekly) {
        std::string text = weekly ? std::to_string(below(7)) + "/" : "";
        text += below(2) == 0 ? "1" : "0";
        text += std::to_string(below(10)) + ":";
        text += std::to_string(10 + below(50));
        return text + ":00";
    }
    template <class List>
    std::string oneOf(const List& list) {
        return std::string(list[m_random() % list.size()]);
    }
    int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    static constexpr std::array<std::string_view, 5> repeats = {"6h", "24HR", "12Hr", "1h", "8h"};

    std::mt19937 m_random;
};

} // namespace vantor::test
