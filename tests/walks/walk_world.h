// Random walks: the traffic that is walked through.
// A small world of weekly and repeating schedules with the oddities of real files, drawn from a seed.
#pragma once

#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace vantor::test {

/// The flight plans of a world. One draw to a statement: the order of draws must not hang on the compiler.
class WalkPlans {
  public:
    explicit WalkPlans(unsigned seed) : m_random(seed) {}

    static inline const std::vector<std::string> codes = {"EGLL", "LFPG", "EGKK", "EGSS", "KSEA",
                                                          "KPDX", "KJFK", "YPPH", "YPEA"};

    [[nodiscard]] std::string text() {
        std::string text = "// comment\r\nAC#1,DROPPED,100%\r\n";
        for (int line = 0; line < 40; ++line) {
            const bool weekly = below(2) == 0;
            text += "AC#" + std::to_string(1 + below(13)); // number 13 is unknown
            text += ",G-" + std::to_string(100 + line);
            text += "," + std::to_string(1 + below(100)) + "%,";
            text += weekly ? "WEEK" : oneOf({"6h", "24HR", "12Hr", "1h", "8h"});
            text += below(2) == 0 ? ",IFR" : ",vfr";
            for (int leg = 1 + below(5); leg > 0; --leg) {
                text += "," + time(weekly) + ",";
                text += below(4) == 0 ? "@" : "";
                text += below(6) == 0 ? "TNG" : "";
                text += time(weekly);
                text += ", " + std::to_string(below(400)) + " ,F";
                text += "," + std::to_string(100 + below(900)) + ",";
                text += below(20) == 0 ? "ZZZZ" : oneOf(codes);
            }
            text += "\r\n";
        }
        return text;
    }

  private:
    std::string time(bool weekly) {
        std::string text = weekly ? std::to_string(below(7)) + "/" : "";
        text += below(2) == 0 ? "1" : "0";
        text += std::to_string(below(10)) + ":";
        return text + std::to_string(10 + below(50)) + ":00";
    }
    std::string oneOf(const std::vector<std::string>& list) { return list[m_random() % list.size()]; }
    int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    std::mt19937 m_random;
};

/// All files of a world by their names: the traffic of both modes, twice, and the simulator's with the titles of some
/// aircraft of the traffic, and new ones.
inline std::map<std::string, std::string> walkWorld(unsigned seed) {
    std::string aircraft = ";AC#0,1,comment\r\n";
    std::map<std::string, std::string> files;
    for (int number = 12; number >= 1; --number) {
        const std::string name = std::to_string(number);
        aircraft += "AC#" + name + "," + std::to_string(number % 5 * 90) + ",\"Model " + name + "\"\r\n";
        if (number % 4 != 0) {
            files["FS\\aircraft\\plane " + std::to_string(number % 4) + "\\aircraft.cfg"] +=
                "title=Model " + name + "\r\ntexture=gone\r\nsim=none\r\ntitle=New, with a comma " + name +
                "\r\ncruise_speed = 300.5\r\n";
        }
    }
    files["FS\\weather\\icao name.cfg"] = "EGLL=Heathrow, London\r\nkjfk=New York - Kennedy\r\nXXXX=none\r\n";
    std::string airports;
    for (const std::string& code : WalkPlans::codes) {
        const std::string degrees = std::to_string(20 + (code[1] - 'A') * 2);
        airports += code + (code[0] < 'K' ? ",N" : ",S") + degrees + "* 28.39',W" + degrees + "* 27.41',80\r\n";
    }
    airports += "EGLL,N1* 0.0',E1* 0.0',1\r\nshort,line\r\n"; // a second one of a code, and one that is dropped
    WalkPlans plans(seed);
    for (const std::string mode : {"", "030528"}) {
        const std::string text = plans.text();
        for (const std::string place : {"", "original\\"}) {
            files[place + "Aircraft" + mode + ".txt"] = aircraft;
            files[place + "Airports" + mode + ".txt"] = airports;
            files[place + "Flightplans" + mode + ".txt"] = text;
        }
    }
    files["Updater.exe"] = "";
    return files;
}

} // namespace vantor::test
