// The check ahead of a compile, the tool's command lines, and runs of a real process.
#include "core/load_pipeline.h"
#include "foundation/process.h"
#include "simulator/traffic_tool.h"
#include "support/stand_in_tool.h"
#include "support/test.h"

namespace vantor::test {
namespace {

namespace fs = std::filesystem;

class MissingAirportsTest : public Fixture {
  protected:
    void SetUp() override {
        addAirport("EGLL", "Heathrow");
        addAirport("LFPG", "Paris");
    }
    // What a check finds; "-" when it says that nothing is missing.
    static std::string found(std::string list = "") { return airportsmissing(list) ? list : "-" + list; }
};

TEST_F(MissingAirportsTest, EachCodeOnceInTheOrderOfFirstMeeting) {
    EXPECT_EQ(found(), "-");
    addLegs(loopOver({"EGLL", "LFPG"}));
    EXPECT_EQ(found(), "-");
    addLegs(loopOver({"ZZZZ", "EGLL", "AAAA"}));
    addLegs(loopOver({"AAAA", "egll"})); // case counts
    recorder.pointers.clear();
    EXPECT_EQ(found(), "AAAA ZZZZ egll ");
    EXPECT_EQ(recorder.pointers.front(), Pointer::Busy);
    EXPECT_EQ(recorder.pointers.back(), Pointer::Normal);
    addLegs({makeLeg({"\0EGLL", 5}, "EGLL")});
    EXPECT_EQ(found(), "AAAA ZZZZ egll " + std::string("\0EGLL ", 6)) << "a NUL makes a code another one";
}

TEST_F(MissingAirportsTest, DeletedAndDestinationsAloneDontCount) {
    const std::int32_t gone = addLegs(loopOver({"AAAA", "BBBB"}));
    changeSchedule(gone, [](ScheduleRec& schedule) { schedule.deleted = true; });
    const std::int32_t leg = addLegs({makeLeg("CCCC", "EGLL"), makeLeg("EGLL", "DDDD")});
    changeSchedule(leg, [](ScheduleRec& schedule) { schedule.legs[1].deleted = true; });
    countDroppedLine();
    EXPECT_EQ(found(), "-");
}

TEST_F(MissingAirportsTest, OddCodes) {
    // ABC and its blank stand in XABC and its blank, so it is not added; XAB and its blank don't.
    addLegs({makeLeg("XABC", "EGLL"), makeLeg("ABC", "EGLL"), makeLeg("XAB", "EGLL")});
    EXPECT_EQ(found(), "XABC XAB ");
    EXPECT_EQ(found("12XABC XAB "), "12XABC XAB ");
    // An airport that is called like a miss is missing.
    std::vector<LegRec> legs;
    for (const char* const code : {"-1", "-1.0", "-1X", "-2"}) {
        addAirport(code, "odd");
        legs.push_back(makeLeg(code, "EGLL"));
    }
    const std::int32_t odd = addLegs(legs);
    EXPECT_EQ(found(), "XABC XAB -1 -1.0 ");
    // A schedule with fewer legs than it tells is recorded and passed as a whole.
    changeSchedule(odd, [](ScheduleRec& schedule) { schedule.legcount = 5; });
    addLegs(loopOver({"ZZZZ", "EGLL"}));
    EXPECT_EQ(found(), "XABC XAB ZZZZ ");
    EXPECT_TRUE(newestAction().starts_with("Subscript out of range(9) in function airportsmissing")) << newestAction();
}

using CommandLineTest = Fixture;

TEST_F(CommandLineTest, BothModesAndAllKindsOfSuffix) {
    struct Case {
        std::int16_t mode;
        const char* file;
        const char* suffix;
        const char* compile;
        const char* decompile;
    };
    const std::string tool = "C:\\Traffic Tools\\TTools.exe";
    for (const Case& c : {Case{2, "C:\\tt\\Flightplans.txt", "C:\\TT\\", " /co /t2", " /de"},
                          {4, "C:\\tt\\flightPlans030528.txt", "C:\\TT\\030528", " /co030528 /t4", " /de030528"},
                          {4, "My Flightplans.old.txt", "MY .OLD", " /coMY .OLD /t4", " /deMY .OLD"}}) {
        fsmode = c.mode;
        plansuffix = GetSuffix(c.file);
        EXPECT_EQ(plansuffix, c.suffix);
        EXPECT_EQ(compileCommand(tool), tool + c.compile);
        EXPECT_EQ(decompileCommand(tool), tool + c.decompile);
    }
}

class ToolRunTest : public Fixture {
  protected:
    [[nodiscard]] fs::path toolFolder() const { return folder() / "Traffic Tools" / "more of it"; }
    [[nodiscard]] std::string tool() const { return path("Traffic Tools\\more of it\\TTools.exe"); }
};

TEST_F(ToolRunTest, RunsAToolToItsEndWhereverBlanksStand) {
    writeStandInTool(toolFolder() / "TTools.exe");
    // Folders that are as long as a front part of the path, and are no programs.
    fs::create_directories(folder() / "Traffic");
    EXPECT_EQ(ExecCmd(tool() + " /co030528 /t4"), 7U);
    EXPECT_EQ(recordedCalls(toolFolder()), oneCall(" [/co030528] [/t4]"));
    EXPECT_EQ(readFile("Traffic Tools\\more of it\\Flightplans.txt"), "new Flightplans\r\n");

    // Another case, no extension, quotes, an argument with blanks and umlauts.
    fs::remove(toolFolder() / "calls.txt");
    EXPECT_EQ(ExecCmd("\"" + path("TRAFFIC tools\\More of it\\ttools") + "\"  \"/deA \xFC\" "), 7U);
#ifdef _WIN32
    EXPECT_EQ(recordedCalls(toolFolder()), oneCall(" [/deA \xFC]"));
#else
    EXPECT_EQ(recordedCalls(toolFolder()), oneCall(" [/deA \xC3\xBC]"));
#endif
    EXPECT_TRUE(recorder.messages.empty());
}

TEST_F(ToolRunTest, TheShortestPathThatNamesAFileIsTheProgram) {
    writeStandInTool(folder() / "Traffic.exe");
    writeStandInTool(toolFolder() / "TTools.exe");
    fs::rename(folder() / "Traffic Tools", folder() / "Other Tools"); // "Traffic" is a program now, ahead of the blank
    EXPECT_EQ(ExecCmd(tool() + " /de"), 7U);
    EXPECT_EQ(recordedCalls(folder()), oneCall(" [Tools\\more] [of] [it\\TTools.exe] [/de]"));
}

TEST_F(ToolRunTest, AToolThatDoesNotStartIsNoError) {
    EXPECT_EQ(ExecCmd(""), waitFailed);
    EXPECT_EQ(ExecCmd(tool() + " /co"), waitFailed);
    fs::create_directories(toolFolder() / "TTools.exe");
    EXPECT_EQ(ExecCmd(tool() + " /co"), waitFailed);
    fs::remove(toolFolder() / "TTools.exe");
    writeFile("Traffic Tools\\more of it\\TTools.exe", "no program");
    EXPECT_EQ(ExecCmd(tool() + " /co"), waitFailed);
    EXPECT_EQ(newestAction(), "");
    EXPECT_TRUE(recorder.messages.empty());
}

#ifndef _WIN32

TEST_F(ToolRunTest, AToolThatIsKilledEndsTheWait) {
    writeExecutable(toolFolder() / "TTools.exe", "#!/bin/sh\nkill -9 $$\n");
    EXPECT_EQ(ExecCmd(tool()), 128U + 9U);
}

TEST_F(ToolRunTest, AWindowsProgramRunsThroughWineWhenThatIsInstalled) {
    writeExecutable(toolFolder() / "TTools.exe", "MZ\x90 and so on");
    writeStandInTool(folder() / "bin" / "wine");
    const std::string search = std::getenv("PATH");
    setenv("PATH", folder().c_str(), 1);
    EXPECT_EQ(ExecCmd(tool() + " /co /t2"), waitFailed);
    setenv("PATH", ((folder() / "bin").string() + ":" + search).c_str(), 1);
    EXPECT_EQ(ExecCmd(tool() + " /co /t2"), 7U);
    setenv("PATH", search.c_str(), 1);
    EXPECT_EQ(recordedCalls(folder() / "bin"),
              oneCall(" [" + (toolFolder() / "TTools.exe").string() + "] [/co] [/t2]"));
}

#endif

} // namespace
} // namespace vantor::test
