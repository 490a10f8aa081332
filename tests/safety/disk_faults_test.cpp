// A fault at every write and every read of the program, one call after the other.
// What is saved stays whole, the fault is where it belongs, no file stays open, and the next attempt goes well.
#include "core/aircraft_file.h"
#include "core/airports_file.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/rescue_copy.h"
#include "core/tables.h"
#include "foundation/channels.h"
#include "foundation/disk.h"
#include "foundation/error_report.h"
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "foundation/text_files.h"
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
    std::string description; // as the ring tells it
};

/// What is done while the disk fails. `whole` is what `content` gave when all went well.
struct Work {
    std::function<void()> begin; // ahead of each attempt
    std::function<void()> run;
    std::function<std::string()> content;
    std::function<void(const Fault&, int n, const std::string& whole)> after; // looks at what the n-th fault left
};

class DiskFaults : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useErrorReporter([this](std::string_view text, std::string_view) { reports.emplace_back(text); });
    }

    // Each fault comes at the first, second, ... call, until there are no more calls. Gives the number of all faults.
    int atEveryCall(const std::vector<Fault>& faults, const Work& work) const {
        work.begin();
        work.run();
        const std::string whole = work.content();
        int all = 0;
        for (const Fault& fault : faults) {
            for (int n = 1;; ++n) {
                SCOPED_TRACE("fault " + std::to_string(n) + " of call " + std::to_string(static_cast<int>(fault.call)));
                work.begin();
                bool met = false;
                {
                    const DiskFault armed(fault.call, n, fault.error);
                    work.run();
                    met = armed.met();
                }
                expectNoFileIsOpen();
                if (!met) {
                    EXPECT_EQ(work.content(), whole) << "the next attempt goes well";
                    EXPECT_GT(n, 1) << "no such call";
                    all += n - 1;
                    break;
                }
                work.after(fault, n, whole);
            }
        }
        return all;
    }
    void expectNoFileIsOpen() const {
        writeFile("probe", "");
        EXPECT_EQ(InputFile(path("probe")).number(), 1);
    }
    void expectAllReadsTold(const std::string& where, const std::function<std::string()>& load) const;

    Texts reports;
};

struct Writer {
    std::string file;
    std::string where; // behind the description in the ring
    std::function<void()> save;
};

TEST_F(DiskFaults, WhatIsSavedStaysWhole) {
    for (int number = 1; number <= manyRows; ++number) {
        test::addSchedule("AC#1,N1,100%,24HR,IFR", test::loopOver({"KSEA", "KPDX"}));
        test::addAircraft("AC#" + std::to_string(number), std::string(80, 't'));
    }
    const std::vector<Writer> writers = {
        {"Flightplans.txt", " in sub savesc of module modSchedSave", [this] { savesc(path("Flightplans.txt")); }},
        {"Aircraft.txt", " in sub saveaircraft of module modAircraftSave", [] { saveaircraft(); }},
        {"fulllog.txt", " in sub writetextfile of module mSHAREDFileSubs",
         [this] { WriteTextFile(path("fulllog.txt"), std::string(10000, 'x')); }},
    };
    for (const auto& [file, where, save] : writers) {
        SCOPED_TRACE(file);
        const auto begin = [this, &file = file] {
            writeFile(file, "old");
            test::forgetActions();
        };
        const auto content = [this, &file = file] { return readFile(file); };
        const auto after = [&, &file = file, &where = where](const Fault& fault, int n, const std::string& whole) {
            // The second flush is that of the folder: the new file stands already.
            const bool folderFlush = fault.call == DiskCall::Sync && n == 2;
            EXPECT_EQ(readFile(file), folderFlush ? whole : "old");
            EXPECT_EQ(newestAction(), folderFlush ? "" : fault.description + where);
            EXPECT_EQ(actionText(2), "") << "told once";
            EXPECT_FALSE(exists(file + ".~new"));
        };
        atEveryCall({{DiskCall::Open, EROFS, "Path/File access error(75)"},
                     {DiskCall::Write, ENOSPC, "Disk full(61)"},
                     {DiskCall::Sync, EIO, "Device I/O error(57)"},
                     {DiskCall::Rename, EACCES, "Path/File access error(75)"}},
                    {begin, save, content, after});
        EXPECT_GT(readFile(file).size(), 8192U) << "less than two buffers of the library";
        const bool traffic = file != "fulllog.txt";
        EXPECT_EQ(exists(file + ".bak") ? readFile(file + ".bak") : "", traffic ? "old" : "")
            << "before the first save";
    }
}

TEST_F(DiskFaults, TheRescueCopyStaysWhole) {
    test::addAircraft("AC#1", "A");
    test::addSchedule("AC#1,OLD,100%,24HR,IFR", test::loopOver({"KSEA", "KPDX"}));
    const auto named = [](std::string_view tail) {
        test::changeSchedule(1, [&](ScheduleRec& schedule) { schedule.tailnumber = tail; });
    };
    const auto write = [this] {
        RescueWriter copy(path(""), RescueNote());
        while (!copy.step()) {
        }
    };
    const auto begin = [&] {
        named("OLD");
        write();
        named("NEW");
    };
    const auto run = [&] {
        try {
            write();
        } catch (const Error&) {
        }
    };
    const auto content = [this] { return readRescueNote(path("")) ? readFile("Flightplans.rescue") : "none"; };
    const auto after = [&](const Fault& fault, int n, const std::string& whole) {
        // What is whole already takes its place when the disk works again.
        const bool late = fault.call == DiskCall::Rename || (fault.call == DiskCall::Sync && n > 3) ||
                          (fault.call == DiskCall::Open && n > 6);
        EXPECT_EQ(content() == whole, late) << content();
        EXPECT_NE(content(), "none");
        write();
        EXPECT_EQ(content(), whole);
    };
    EXPECT_EQ(atEveryCall({{DiskCall::Open, EROFS, ""},
                           {DiskCall::Write, ENOSPC, ""},
                           {DiskCall::Sync, EIO, ""},
                           {DiskCall::Rename, EACCES, ""}},
                          {begin, run, content, after}),
              9 + 3 + 6 + 3);
}

TEST_F(DiskFaults, SettingsStayWholeAndTheUserIsTold) {
    cSHAREDSettings store;
    for (int i = 0; i < manyRows; ++i) {
        store.sSet("key" + std::to_string(i), std::string(100, 'x'));
    }
    const auto begin = [this] {
        writeFile("Vantor2.ini", "old");
        recorder.messages.clear();
        reports.clear();
    };
    const auto save = [&] { store.SaveSettings(path("Vantor2.ini")); };
    const auto content = [this] { return readFile("Vantor2.ini"); };
    const auto after = [this](const Fault& fault, int n, const std::string& whole) {
        if (fault.call == DiskCall::Sync) {
            EXPECT_EQ(reports, n == 1 ? Texts{"57 - Device I/O error in SaveSettings"} : Texts{});
        } else {
            ASSERT_EQ(recorder.messages.size(), 1U);
            EXPECT_TRUE(recorder.messages[0].starts_with(fault.description)) << recorder.messages[0];
        }
        // The disk has room again for the second attempt, and the second flush is that of the folder.
        const bool saved = fault.call == DiskCall::Write || (fault.call == DiskCall::Sync && n == 2);
        EXPECT_EQ(readFile("Vantor2.ini"), saved ? whole : "old");
        EXPECT_FALSE(exists("Vantor2.ini.~new"));
    };
    const std::string readOnly = "Unable to write to settings file - possibly read-only?";
    atEveryCall({{DiskCall::Open, EROFS, readOnly},
                 {DiskCall::Rename, EACCES, readOnly},
                 {DiskCall::Write, ENOSPC, "You've run out of disk space"},
                 {DiskCall::Sync, EIO, ""}},
                {begin, save, content, after});
}

TEST_F(DiskFaults, TheLogLosesTheFaultyLineAlone) {
    const Texts whole = {"Vantor starting.", "first", "second", "third"};
    const auto begin = [&] {
        EraseFile(path("log.txt"));
        test::forgetActions();
        logit(whole[0], true);
    };
    const auto writeLines = [&] {
        const StandardTrap trap{"sub test", "test"};
        for (std::size_t i = 1; i < whole.size(); ++i) {
            trap([&] { logit(whole[i]); });
        }
    };
    const auto logged = [this] {
        const Texts texts = logTexts();
        return Texts(texts.begin() + 4, texts.end()); // behind the header
    };
    const auto after = [&](const Fault& fault, int n, const std::string&) {
        Texts expected = whole;
        expected.erase(expected.begin() + n);
        EXPECT_EQ(logged(), expected);
        EXPECT_EQ(newestAction(), fault.description + " in sub test of module test");
    };
    const auto content = [&] { return logged() == whole ? "whole" : ""; };
    const std::vector<Fault> faults = {{DiskCall::Open, EACCES, "Path/File access error(75)"},
                                       {DiskCall::Write, ENOSPC, "Disk full(61)"}};
    EXPECT_EQ(atEveryCall(faults, {begin, writeLines, content, after}), 2 * 3);
}

TEST_F(DiskFaults, TheReportEndsWhereTheFaultIs) {
    for (const char* const plane : {"A", "B"}) {
        writeFile(std::string("FS\\") + plane + "\\aircraft.cfg", "texture=red\r\nsim=none\r\n");
        std::filesystem::create_directories(folder() / "FS" / plane / "texture.blue");
    }
    fsaircraftpath = path("FS\\");
    const auto content = [this] { return readFile("ACLOG.TXT"); };
    const auto after = [&](const Fault&, int, const std::string& whole) {
        EXPECT_TRUE(whole.starts_with(content()));
        EXPECT_EQ(newestAction(), "");
    };
    EXPECT_GE(atEveryCall({{DiskCall::Open, EACCES, ""}, {DiskCall::Write, ENOSPC, ""}, {DiskCall::Read, EIO, ""}},
                          {[] {}, [] { modACReport(); }, content, after}),
              3 * 3);
}

// `load` gives something that tells what was loaded; `where` stands behind the description of what it raises.
void DiskFaults::expectAllReadsTold(const std::string& where, const std::function<std::string()>& load) const {
    std::string loaded;
    const auto attempt = [&] {
        try {
            loaded = load();
        } catch (const Error& error) {
            loaded = error.description();
        }
    };
    const auto after = [&](const Fault& fault, int n, const std::string& whole) {
        // A read behind the end of the file, when all is there, may fail unseen.
        EXPECT_TRUE(loaded == fault.description + where || (n > 1 && loaded == whole)) << loaded;
    };
    atEveryCall({{DiskCall::Open, EACCES, "Path/File access error"},
                 {DiskCall::Open, ENOENT, "File not found"},
                 {DiskCall::Read, EIO, "Device I/O error"}},
                {[] {}, attempt, [&] { return loaded; }, after});
    EXPECT_EQ(loaded, load());
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
    // Each file is opened for its speed and then for its titles. The log's own opening counts, too: when that one fails
    // the scan ends with its error, told to the caller.
    const auto after = [](const Fault&, int n, const std::string&) { EXPECT_EQ(fsaircraftcount, n % 2 == 1 ? 2 : 1); };
    const auto content = [] { return std::to_string(fsaircraftcount); };
    const auto scan = [] { LoadFSAircraft(nullptr); };
    EXPECT_EQ(atEveryCall({{DiskCall::Open, EACCES, ""}}, {[] {}, scan, content, after}), 4);
    EXPECT_EQ(fsaircraftcount, 2);
    EXPECT_EQ(logTexts().at(0).substr(0, 32), "Error 75 in LoadFSAircraft, item");
    {
        const DiskFault fault(DiskCall::Read, 2, EIO);
        EXPECT_THROW(scan(), Error);
    }
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

} // namespace
} // namespace vantor
