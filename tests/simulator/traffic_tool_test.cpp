// The check ahead of a compile, the tool's command lines, and runs of a real process.
#include "core/load_pipeline.h"
#include "core/tables.h"
#include "foundation/log.h"
#include "foundation/process.h"
#include "simulator/traffic_tool.h"
#include "support/fixture.h"
#include "support/stand_in_tool.h"
#include "support/traffic.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace vantor::test {
namespace {

namespace fs = std::filesystem;

class MissingAirportsTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
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
}

TEST_F(MissingAirportsTest, DeletedAndDestinationsAloneDontCount) {
    const std::int32_t gone = addLegs(loopOver({"AAAA", "BBBB"}));
    changeSchedule(gone, [](ScheduleRec& schedule) { schedule.deleted = true; });
    const std::int32_t leg = addLegs({makeLeg("CCCC", "EGLL"), makeLeg("EGLL", "DDDD")});
    changeSchedule(leg, [](ScheduleRec& schedule) { schedule.legs[1].deleted = true; });
    countDroppedLine();
    EXPECT_EQ(found(), "-");
}

TEST_F(MissingAirportsTest, ACodeInsideTheListIsNotAdded) {
    addLegs({makeLeg("XABC", "EGLL"), makeLeg("ABC", "EGLL"), makeLeg("XAB", "EGLL")});
    EXPECT_EQ(found(), "XABC XAB "); // ABC and its blank stand in XABC and its blank, XAB and its blank don't
    EXPECT_EQ(found("12XABC XAB "), "12XABC XAB ");
}

TEST_F(MissingAirportsTest, AnAirportCalledLikeAMissIsMissing) {
    addAirport("-1", "odd");
    addAirport("-1.0", "odd");
    addAirport("-1X", "odd");
    addAirport("-2", "odd");
    addLegs({makeLeg("-1", "EGLL"), makeLeg("-1.0", "EGLL"), makeLeg("-1X", "EGLL"), makeLeg("-2", "EGLL")});
    EXPECT_EQ(found(), "-1 -1.0 ");
}

TEST_F(MissingAirportsTest, AScheduleWithFewerLegsThanItTellsIsRecordedAndPassed) {
    const std::int32_t broken = addLegs(loopOver({"EGLL", "LFPG"}));
    changeSchedule(broken, [](ScheduleRec& schedule) { schedule.legcount = 3; });
    addLegs(loopOver({"ZZZZ", "EGLL"}));
    EXPECT_EQ(found(), "ZZZZ ");
    EXPECT_TRUE(newestAction().starts_with("Subscript out of range(9) in function airportsmissing")) << newestAction();
}

class CommandLineTest : public Fixture {
  protected:
    static std::string both() {
        return compileCommand("C:\\Traffic Tools\\TTools.exe") + "|" +
               decompileCommand("C:\\Traffic Tools\\TTools.exe");
    }
};

TEST_F(CommandLineTest, BothModesAndAllKindsOfSuffix) {
    const std::string tool = "C:\\Traffic Tools\\TTools.exe";
    fsmode = 2;
    plansuffix = GetSuffix("C:\\Traffic Tools\\Flightplans.txt"); // a default load of FS2002
    EXPECT_EQ(plansuffix, "C:\\TRAFFIC TOOLS\\");
    EXPECT_EQ(both(), tool + " /co /t2|" + tool + " /de");
    fsmode = 4;
    plansuffix = GetSuffix("C:\\Traffic Tools\\Flightplans030528.txt"); // and of FS2004
    EXPECT_EQ(both(), tool + " /co030528 /t4|" + tool + " /de030528");
    fsmode = 2; // the mode changed, nothing loaded since
    EXPECT_EQ(both(), tool + " /co030528 /t2|" + tool + " /de030528");
    plansuffix = GetSuffix("flightplans_Summer.txt"); // a chosen file, its bare name
    EXPECT_EQ(both(), tool + " /co_SUMMER /t2|" + tool + " /de_SUMMER");
    plansuffix = GetSuffix("My Flightplans.old.txt");
    EXPECT_EQ(both(), tool + " /coMY .OLD /t2|" + tool + " /deMY .OLD");
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
    fs::create_directories(folder() / "empty");
    const std::string search = std::getenv("PATH");
    const auto searchIn = [](const std::string& folders) { setenv("PATH", folders.c_str(), 1); };
    searchIn((folder() / "empty").string());
    EXPECT_EQ(ExecCmd(tool() + " /co /t2"), waitFailed);

    writeStandInTool(folder() / "bin" / "wine");
    searchIn((folder() / "bin").string() + ":" + search);
    EXPECT_EQ(ExecCmd(tool() + " /co /t2"), 7U);
    EXPECT_EQ(recordedCalls(folder() / "bin"),
              oneCall(" [" + (toolFolder() / "TTools.exe").string() + "] [/co] [/t2]"));
    searchIn(search);
}

#endif

} // namespace
} // namespace vantor::test
