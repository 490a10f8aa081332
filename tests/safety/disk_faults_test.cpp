// A fault at every write and every read of the program, one call after the other.
// What is saved stays whole, the fault is where it belongs, no file stays open, and the next attempt goes well.
#include "core/aircraft_file.h"
#include "core/airports_file.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/tables.h"
#include "foundation/error_report.h"
#include "foundation/files.h"
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "foundation/trap.h"
#include "simulator/aircraft_report.h"
#include "simulator/fs_aircraft.h"
#include "support/disk_faults.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <cerrno>
#include <functional>

namespace vantor {
namespace {

using test::DiskCall;
using test::DiskFault;
using Texts = std::vector<std::string>;

constexpr int manyRows = 100;

struct Fault {
    DiskCall call;
    int error;
    std::string_view description; // as the ring tells it
};

class DiskFaults : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useErrorReporter([this](std::string_view text, std::string_view) { reports.emplace_back(text); });
    }

    // Runs a statement with a fault at the first, second, ... call, until there are no more calls; `after` looks at
    // what each run left. Gives the number of faults met.
    static int atEvery(DiskCall call, int error, const std::function<void()>& statement,
                       const std::function<void(int)>& after) {
        for (int n = 1;; ++n) {
            bool met = false;
            {
                const DiskFault fault(call, n, error);
                statement();
                met = fault.met();
            }
            if (!met) {
                return n - 1;
            }
            SCOPED_TRACE("fault " + std::to_string(n) + " of call " + std::to_string(static_cast<int>(call)));
            after(n);
        }
    }
    void expectNoFileIsOpen() {
        writeFile("probe", "");
        EXPECT_EQ(InputFile(path("probe")).number(), 1);
    }
    void expectAllWritesSafe(const std::string& file, const std::string& where, const std::function<void()>& save);
    void expectAllReadsTold(const std::string& where, const std::function<std::string()>& load);

    Texts reports;
};

void DiskFaults::expectAllWritesSafe(const std::string& file, const std::string& where,
                                     const std::function<void()>& save) {
    save();
    const std::string whole = readFile(file);
    ASSERT_GT(whole.size(), 8192U) << "less than two buffers of the library";
    const auto restart = [&] {
        writeFile(file, "old");
        resetLogging();
    };
    for (const Fault& fault :
         {Fault{DiskCall::Open, EROFS, "Path/File access error(75)"}, Fault{DiskCall::Write, ENOSPC, "Disk full(61)"},
          Fault{DiskCall::Sync, EIO, "Device I/O error(57)"},
          Fault{DiskCall::Rename, EACCES, "Path/File access error(75)"}}) {
        restart();
        const int met = atEvery(fault.call, fault.error, save, [&](int n) {
            // The second flush is that of the folder: the new file stands already.
            const bool folderFlush = fault.call == DiskCall::Sync && n == 2;
            EXPECT_EQ(readFile(file), folderFlush ? whole : "old");
            EXPECT_EQ(newestAction(), folderFlush ? "" : std::string(fault.description) + where);
            EXPECT_EQ(actionText(2), "") << "told once";
            EXPECT_FALSE(exists(file + ".~new"));
            expectNoFileIsOpen();
            restart();
        });
        EXPECT_GE(met, 1) << fault.description;
        EXPECT_EQ(readFile(file), whole);
    }
}

TEST_F(DiskFaults, FlightPlansStayWhole) {
    for (std::int32_t recnum = 1; recnum <= manyRows; ++recnum) {
        test::addSchedule("AC#1,N1,100%,24HR,IFR", test::loopOver({"KSEA", "KPDX"}));
    }
    expectAllWritesSafe("Flightplans.txt", " in sub savesc of module modSchedSave",
                        [&] { savesc(path("Flightplans.txt")); });
}

TEST_F(DiskFaults, AircraftStayWhole) {
    for (int number = 1; number <= manyRows; ++number) {
        test::addAircraft("AC#" + std::to_string(number), std::string(80, 't'));
    }
    expectAllWritesSafe("Aircraft.txt", " in sub saveaircraft of module modAircraftSave", [] { saveaircraft(); });
}

TEST_F(DiskFaults, TextFilesStayWhole) {
    expectAllWritesSafe("fulllog.txt", " in sub writetextfile of module mSHAREDFileSubs",
                        [&] { WriteTextFile(path("fulllog.txt"), std::string(10000, 'x')); });
}

TEST_F(DiskFaults, AFolderThatVanishesUnderASave) {
    test::addSchedule("AC#1,N1,100%,24HR,IFR", test::loopOver({"KSEA", "KPDX"}));
    std::filesystem::create_directory(folder() / "usb");
    {
        const DiskFault fault(DiskCall::Rename, 1, [&] { std::filesystem::remove_all(folder() / "usb"); });
        savesc(path("usb\\Flightplans.txt"));
        EXPECT_TRUE(fault.met());
    }
    EXPECT_EQ(newestAction(), "File not found(53) in sub savesc of module modSchedSave");
    savesc(path("usb\\Flightplans.txt"));
    EXPECT_EQ(newestAction(), "Path not found(76) in sub savesc of module modSchedSave");
    savesc(path("Flightplans.txt"));
    EXPECT_TRUE(exists("Flightplans.txt"));
    expectNoFileIsOpen();
}

TEST_F(DiskFaults, SettingsStayWholeAndTheUserIsTold) {
    constexpr std::string_view readOnly = "Unable to write to settings file - possibly read-only?";
    cSHAREDSettings store;
    for (int i = 0; i < manyRows; ++i) {
        store.sSet("key" + std::to_string(i), std::string(100, 'x'));
    }
    const auto save = [&] { store.SaveSettings(path("Vantor2.ini")); };
    save();
    const std::string whole = readFile("Vantor2.ini");
    const auto restart = [&] {
        writeFile("Vantor2.ini", "old");
        recorder.messages.clear();
        reports.clear();
    };
    for (const Fault& fault : {Fault{DiskCall::Open, EROFS, readOnly}, Fault{DiskCall::Rename, EACCES, readOnly},
                               Fault{DiskCall::Write, ENOSPC, ""}, Fault{DiskCall::Sync, EIO, ""}}) {
        restart();
        const int met = atEvery(fault.call, fault.error, save, [&](int n) {
            if (fault.call == DiskCall::Write) { // the disk has room again for the second attempt
                ASSERT_EQ(recorder.messages.size(), 1U);
                EXPECT_TRUE(recorder.messages[0].starts_with("You've run out of disk space"));
            } else if (fault.call == DiskCall::Sync) {
                EXPECT_EQ(reports, n == 1 ? Texts{"57 - Device I/O error in SaveSettings"} : Texts{});
            } else {
                EXPECT_EQ(recorder.messages, Texts{std::string(fault.description)});
            }
            const bool saved = fault.call == DiskCall::Write || (fault.call == DiskCall::Sync && n == 2);
            EXPECT_EQ(readFile("Vantor2.ini"), saved ? whole : "old");
            EXPECT_FALSE(exists("Vantor2.ini.~new"));
            expectNoFileIsOpen();
            restart();
        });
        EXPECT_GE(met, 1);
        EXPECT_EQ(readFile("Vantor2.ini"), whole);
    }
}

TEST_F(DiskFaults, TheLogLosesTheFaultyLineAlone) {
    const Texts lines = {"first", "second", "third"};
    const auto writeLines = [&] {
        const StandardTrap trap{"sub test", "test"};
        for (const std::string& line : lines) {
            trap([&] { logit(line); });
        }
    };
    for (const Fault& fault : {Fault{DiskCall::Open, EACCES, "Path/File access error(75) in sub test of module test"},
                               Fault{DiskCall::Write, ENOSPC, "Disk full(61) in sub test of module test"}}) {
        const auto restart = [&] {
            EraseFile(path("log.txt"));
            resetLogging();
            logit("Vantor starting.", true);
        };
        restart();
        const int met = atEvery(fault.call, fault.error, writeLines, [&](int n) {
            Texts expected = {"Vantor starting."};
            expected.insert(expected.end(), lines.begin(), lines.end());
            expected.erase(expected.begin() + n);
            Texts logged = logTexts();
            logged.erase(logged.begin(), logged.begin() + 4); // the header
            EXPECT_EQ(logged, expected);
            EXPECT_EQ(newestAction(), fault.description);
            expectNoFileIsOpen();
            restart();
        });
        EXPECT_EQ(met, 3);
    }
}

TEST_F(DiskFaults, TheReportEndsWhereTheFaultIs) {
    for (const char* const plane : {"A", "B"}) {
        writeFile(std::string("FS\\") + plane + "\\aircraft.cfg", "texture=red\r\nsim=none\r\n");
        std::filesystem::create_directories(folder() / "FS" / plane / "texture.blue");
    }
    fsaircraftpath = path("FS\\");
    modACReport();
    const std::string whole = readFile("ACLOG.TXT");
    for (const Fault& fault :
         {Fault{DiskCall::Open, EACCES, ""}, Fault{DiskCall::Write, ENOSPC, ""}, Fault{DiskCall::Read, EIO, ""}}) {
        const int met = atEvery(
            fault.call, fault.error, [] { modACReport(); },
            [&](int) {
                EXPECT_TRUE(whole.starts_with(readFile("ACLOG.TXT")));
                EXPECT_EQ(newestAction(), "");
                expectNoFileIsOpen();
            });
        EXPECT_GE(met, 3);
        EXPECT_EQ(readFile("ACLOG.TXT"), whole);
    }
}

// `load` gives something that tells what was loaded; `where` stands behind the description of what it raises.
void DiskFaults::expectAllReadsTold(const std::string& where, const std::function<std::string()>& load) {
    std::string loaded;
    const auto attempt = [&] {
        try {
            loaded = load();
        } catch (const Error& error) {
            loaded = error.description();
        }
    };
    const std::string whole = load();
    for (const Fault& fault :
         {Fault{DiskCall::Open, EACCES, "Path/File access error"}, Fault{DiskCall::Open, ENOENT, "File not found"},
          Fault{DiskCall::Read, EIO, "Device I/O error"}}) {
        const int met = atEvery(fault.call, fault.error, attempt, [&](int n) {
            // A read behind the end of the file, when all is there, may fail unseen.
            EXPECT_TRUE(loaded == std::string(fault.description) + where || (n > 1 && loaded == whole)) << loaded;
            expectNoFileIsOpen();
        });
        EXPECT_GE(met, 1);
        EXPECT_EQ(loaded, whole) << "the next attempt goes well";
    }
}

TEST_F(DiskFaults, EveryReaderTellsWhatItMeets) {
    writeFile("Aircraft.txt", "AC#1,250,\"A\"\r\nAC#2,250,\"B\"\r\n");
    writeFile("Airports.txt", "KSEA,N47* 27.00',W122* 18.30',433\r\n");
    writeFile("icao name.cfg", "KSEA=Seattle\r\n");
    writeFile("Flightplans.txt", "AC#1,N1,50%,6H,IFR,06:00:00,08:15:00,350,F,101,KSEA\r\n");
    fsicaofile = path("icao name.cfg");
    expectAllReadsTold(" in LoadAircraft", [&] {
        LoadAircraft(path("Aircraft.txt"), nullptr);
        return std::string(aircraft[aircraftcount].title.text());
    });
    expectAllReadsTold(" in line 0 of airports.txt.  Error on: ", [&] {
        LoadAirports(path("Airports.txt"), nullptr);
        return std::to_string(airports.peek(airportcount).altitude);
    });
    expectAllReadsTold(" in LoadAirportTitles", [] {
        AirportRec airport = airports.HashFind("KSEA");
        airport.title = "";
        airports.HashPutSlot(airport.slot, airport);
        LoadAirportTitles(nullptr);
        return std::string(airports.HashFind("KSEA").title.text());
    });
    expectAllReadsTold(" in LoadSched", [&] {
        LoadSched(nullptr, path("Flightplans.txt"));
        return std::string(schedules.peek(schedulecount).tailnumber.text());
    });
    expectAllReadsTold("", [&] {
        std::string text;
        LoadTextFile(path("Aircraft.txt"), text);
        return text;
    });
}

TEST_F(DiskFaults, TheScanPassesOverAFileThatCantBeOpened) {
    for (const char* const plane : {"A", "B"}) {
        writeFile(std::string("FS\\") + plane + "\\aircraft.cfg", std::string("title=") + plane + " long enough\r\n");
    }
    fsaircraftpath = path("FS\\");
    // Each file is opened for its speed and then for its titles.
    const int met = atEvery(
        DiskCall::Open, EACCES, [] { LoadFSAircraft(nullptr); },
        [&](int n) {
            // The log's own opening counts, too: when that one fails the scan ends with its error, told to the caller.
            EXPECT_EQ(fsaircraftcount, n % 2 == 1 ? 2 : 1);
            expectNoFileIsOpen();
        });
    EXPECT_EQ(met, 4);
    EXPECT_EQ(fsaircraftcount, 2);
    EXPECT_EQ(logTexts().at(0).substr(0, 32), "Error 75 in LoadFSAircraft, item");
    EXPECT_THROW(
        {
            const DiskFault fault(DiskCall::Read, 2, EIO);
            LoadFSAircraft(nullptr);
        },
        Error);
    expectNoFileIsOpen();
    EXPECT_TRUE(recorder.messages.empty());
}

TEST_F(DiskFaults, AFileThatChangesBetweenCountingAndReading) {
    for (const char* const changed : {"", "AC#1,1,a\r\nAC#2,2,b\r\nAC#3,3,c\r\n"}) {
        writeFile("Aircraft.txt", "AC#1,1,a\r\nAC#2,2,b\r\n");
        const DiskFault fault(DiskCall::Open, 2, [&] { writeFile("Aircraft.txt", changed); });
        try {
            LoadAircraft(path("Aircraft.txt"), nullptr);
            EXPECT_EQ(aircraftcount, 0);
        } catch (const Error& error) {
            EXPECT_EQ(error.description(), "Subscript out of range in LoadAircraft");
        }
        expectNoFileIsOpen();
    }
}

TEST_F(DiskFaults, AFolderWhereAFileIsMeant) {
    for (const char* const name : {"Aircraft.txt", "Airports.txt", "Flightplans.txt", "icao name.cfg", "Vantor2.ini",
                                   "FS/A/aircraft.cfg", "log.txt"}) {
        std::filesystem::create_directories(folder() / name);
    }
    const auto errorOf = [](auto&& load) {
        try {
            load();
            return 0;
        } catch (const Error& error) {
            return error.number();
        }
    };
    EXPECT_EQ(errorOf([&] { LoadAircraft(path("Aircraft.txt"), nullptr); }), 23000);
    EXPECT_EQ(errorOf([&] { LoadAirports(path("Airports.txt"), nullptr); }), 23000);
    EXPECT_EQ(errorOf([&] { LoadSched(nullptr, path("Flightplans.txt")); }), 75);
    fsicaofile = path("icao name.cfg");
    EXPECT_EQ(errorOf([&] { LoadAirportTitles(nullptr); }), 0);
    fsaircraftpath = path("FS\\");
    EXPECT_EQ(errorOf([&] { LoadFSAircraft(nullptr); }), 0);
    modACReport();
    EXPECT_EQ(readFile("ACLOG.TXT"), "");
    cSHAREDSettings store;
    store.LoadSettings(path("Vantor2.ini"));
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(errorOf([] { logit("x"); }), 75);
    savesc(path("Flightplans.txt"));
    EXPECT_EQ(newestAction(), "Path/File access error(75) in sub savesc of module modSchedSave");
    expectNoFileIsOpen();
}

} // namespace
} // namespace vantor
