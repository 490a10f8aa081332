// A fault at every write and at the first reads of the program, one call after the other, and a kill at the same
// places. What is saved stays whole, the fault is told where it belongs, no file stays open, and the next attempt goes
// well.
#include "core/aircraft_file.h"
#include "core/airports_file.h"
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/rescue_copy.h"
#include "foundation/error_report.h"
#include "foundation/text_files.h"
#include "simulator/fs_aircraft.h"
#include "support/disk_faults.h"
#include "support/test.h"

#include <cerrno>

namespace vantor {
namespace {

struct Fault {
    DiskCall call;
    int error;
    std::string description;
};

struct Writer {
    std::string file;
    std::string where; // behind the description in the ring
    std::function<void()> save;
};

class DiskFaults : public Fixture {
  protected:
    void SetUp() override {
        for (int number = 1; number <= 100; ++number) {
            addSchedule("AC#1,N1,100%,24HR,IFR", loopOver({"KSEA", "KPDX"}));
            addAircraft("AC#" + std::to_string(number), std::string(80, 't'));
        }
    }
    void expectNoFileIsOpen() const {
        for (const auto& handle : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code gone; // the handle of this very listing
            EXPECT_NE(std::filesystem::read_symlink(handle, gone).parent_path(), folder());
        }
    }
    // Each fault comes at the first, second, ... call of `run`, until there are no more calls; `after` looks at what
    // the n-th left, 0 for none. Gives the number of all faults.
    int atEveryCall(const std::function<void()>& begin, const std::function<void()>& run,
                    const std::function<void(const Fault&, int n)>& after) const {
        int all = 0;
        for (const Fault& fault : writeFaults) {
            bool met = true;
            for (int n = 1; met; ++n) {
                SCOPED_TRACE("fault " + std::to_string(n) + ": " + fault.description);
                begin();
                {
                    const DiskFault armed(fault.call, n, fault.error);
                    run();
                    met = armed.met();
                }
                expectNoFileIsOpen();
                after(fault, met ? n : 0);
                all += met ? 1 : 0;
                EXPECT_TRUE(met || n > 1) << "no such call";
            }
        }
        return all;
    }

    const std::vector<Writer> writers = {
        {"Flightplans.txt", " in sub savesc of module modSchedSave", [this] { savesc(path("Flightplans.txt")); }},
        {"Aircraft.txt", " in sub saveaircraft of module modAircraftSave", [] { saveaircraft(); }},
        {"fulllog.txt", " in sub writetextfile of module mSHAREDFileSubs",
         [this] { WriteTextFile(path("fulllog.txt"), std::string(10000, 'x')); }}};
    const std::vector<Fault> writeFaults = {{DiskCall::Open, EROFS, "Path/File access error(75)"},
                                            {DiskCall::Write, ENOSPC, "Disk full(61)"},
                                            {DiskCall::Sync, EIO, "Device I/O error(57)"},
                                            {DiskCall::Rename, EACCES, "Path/File access error(75)"}};
    const std::vector<Fault> readFaults = {{DiskCall::Open, EACCES, "75 Path/File access error"},
                                           {DiskCall::Open, ENOENT, "53 File not found"},
                                           {DiskCall::Read, EIO, "57 Device I/O error"}};
};

// Whether the new file stands already at the n-th call: the second flush is that of the folder.
bool standsAlready(DiskCall call, int n) {
    return call == DiskCall::Sync && n == 2;
}

TEST_F(DiskFaults, WhatIsSavedStaysWholeAndTheFaultIsToldOnce) {
    for (const auto& [file, where, save] : writers) {
        SCOPED_TRACE(file);
        writeFile(file, "old");
        save();
        const std::string whole = readFile(file);
        EXPECT_GT(whole.size(), 8192U) << "less than two buffers of the library";
        const auto begin = [this, &file = file] {
            writeFile(file, "old");
            forgetActions();
        };
        atEveryCall(begin, save, [&, &file = file, &where = where](const Fault& fault, int n) {
            const bool saved = n == 0 || standsAlready(fault.call, n);
            EXPECT_EQ(readFile(file), saved ? whole : "old");
            EXPECT_EQ(newestAction(), saved ? "" : fault.description + where);
            EXPECT_EQ(actionText(2), "");
            EXPECT_FALSE(exists(file + ".~new"));
        });
    }
    EXPECT_EQ(readFile("Flightplans.txt.bak"), "old") << "before the first save";
}

TEST_F(DiskFaults, TheRescueCopyStaysWhole) {
    const auto write = [this] {
        RescueWriter copy(path(""), RescueNote());
        while (!copy.step()) {
        }
    };
    const auto named = [&](std::string_view tail) {
        changeSchedule(1, [&](ScheduleRec& schedule) { schedule.tailnumber = tail; });
        write();
        return readFile("Flightplans.rescue");
    };
    const std::string whole = named("NEW");
    const std::string old = named("OLD");
    const auto begin = [&] {
        named("OLD");
        changeSchedule(1, [](ScheduleRec& schedule) { schedule.tailnumber = "NEW"; });
    };
    const auto run = [&] { static_cast<void>(errorOf(write)); };
    const int all = atEveryCall(begin, run, [&](const Fault& fault, int n) {
        // What is whole already takes its place when the disk works again.
        const bool late = n == 0 || fault.call == DiskCall::Rename || (fault.call == DiskCall::Sync && n > 3) ||
                          (fault.call == DiskCall::Open && n > 6);
        EXPECT_TRUE(readRescueNote(path("")));
        EXPECT_EQ(readFile("Flightplans.rescue"), late ? whole : old);
    });
    EXPECT_EQ(all, 7 + 5 + 6 + 3);
}

// What a kill would leave at each call.
TEST_F(DiskFaults, AtAnyTimeTheOldFileStandsOrTheNewOneAndNothingElseIsTakenForTraffic) {
    const auto& [file, where, save] = writers.front();
    save();
    const std::string whole = readFile(file);
    for (const Fault& fault : writeFaults) {
        bool met = true;
        for (int n = 1; met; ++n) {
            SCOPED_TRACE("ahead of call " + std::to_string(n) + ", as of " + fault.description);
            writeFile(file, "old");
            const DiskFault look(fault.call, n, [&, &file = file] {
                EXPECT_EQ(readFile(file), standsAlready(fault.call, n) ? whole : "old");
                for (const auto& entry : std::filesystem::directory_iterator(folder())) {
                    EXPECT_TRUE(entry.path().filename() == file || entry.path().extension() != ".txt") << entry.path();
                }
            });
            save();
            met = look.met();
        }
    }
}

// A full disk is tried again. A path's drive is its first character, unless that is a backslash.
TEST_F(DiskFaults, TheSettingsAreSavedOrTellWhyNot) {
    const std::string saved = "KEY," + std::string(10000, 'x') + "\r\n";
    cSHAREDSettings store;
    store.sSet("key", saved.substr(4, 10000));
    useErrorReporter([this](std::string_view text, std::string_view) { recorder.messages.emplace_back(text); });
    for (const auto& [name, drive] : {std::pair(path("Vantor2.ini"), path("Vantor2.ini")), {"Vantor2.ini", "V"}}) {
        const std::map<DiskCall, std::string> told = {
            {DiskCall::Open, "Unable to write to settings file - possibly read-only?"},
            {DiskCall::Write, "You've run out of disk space on drive " + drive +
                                  ":\rPlease clear some space and then click OK to attempt to save again."},
            {DiskCall::Sync, "57 - Device I/O error in SaveSettings"},
            {DiskCall::Rename, "Unable to write to settings file - possibly read-only?"}};
        const auto begin = [&] {
            writeFile("Vantor2.ini", "old");
            recorder.messages.clear();
        };
        atEveryCall(
            begin, [&, &name = name] { store.SaveSettings(name); },
            [&](const Fault& fault, int n) {
                const bool silent = n == 0 || standsAlready(fault.call, n);
                EXPECT_EQ(recorder.messages, silent ? Texts{} : Texts{told.at(fault.call)});
                EXPECT_EQ(readFile("Vantor2.ini"), silent || fault.call == DiskCall::Write ? saved : "old");
            });
    }
}

TEST_F(DiskFaults, EveryReaderTellsWhatItMeets) {
    writeFile("Aircraft.txt", "AC#1,250,\"A\"\r\n");
    writeFile("Airports.txt", "KSEA,N47* 27.00',W122* 18.30',433\r\n");
    writeFile("icao name.cfg", "KSEA=Seattle\r\n");
    writeFile("Flightplans.txt", "AC#1,N1,50%,6H,IFR,06:00:00,08:15:00,350,F,101,KSEA\r\n");
    fsicaofile = path("icao name.cfg");
    std::string text;
    const std::vector<std::pair<std::string, std::function<void()>>> readers = {
        {" in LoadAircraft", [this] { LoadAircraft(path("Aircraft.txt"), nullptr); }},
        {" in line 0 of airports.txt.  Error on: ", [this] { LoadAirports(path("Airports.txt"), nullptr); }},
        {" in LoadAirportTitles", [] { LoadAirportTitles(nullptr); }},
        {" in LoadSched", [this] { LoadSched(nullptr, path("Flightplans.txt")); }},
        {"", [&] { LoadTextFile(path("Aircraft.txt"), text); }}};
    for (const auto& [where, load] : readers) {
        for (const Fault& fault : readFaults) {
            const DiskFault armed(fault.call, 1, fault.error);
            EXPECT_EQ(faultOf(load), fault.description + where);
            expectNoFileIsOpen();
        }
        EXPECT_EQ(faultOf(load), "none") << "the next attempt goes well:" << where;
    }
    // The scan of the simulator passes over a file that can't be opened.
    const std::string config = path("aircraft\\a\\aircraft.cfg");
    writeFile("aircraft\\a\\aircraft.cfg", "title=A\r\n");
    fsaircraftpath = path("aircraft\\");
    for (const Fault& fault : readFaults) {
        const DiskFault armed(fault.call, 1, fault.error);
        const bool passes = fault.error == EACCES;
        EXPECT_EQ(faultOf([] { LoadFSAircraft(nullptr); }),
                  passes ? "none" : fault.description + " in LoadFSAircraft, while attempting to load " + config);
        EXPECT_EQ(fsaircraftcount, passes ? 1 : 0);
        EXPECT_EQ(logTexts().back(), "Error 75 in LoadFSAircraft, item " + config);
    }
}

} // namespace
} // namespace vantor
