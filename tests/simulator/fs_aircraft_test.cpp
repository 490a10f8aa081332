// The scan of the simulator's aircraft.
#include "core/tables.h"
#include "foundation/numbers.h"
#include "simulator/fs_aircraft.h"
#include "support/expect_error.h"
#include "support/fixture.h"

#include <algorithm>
#include <filesystem>
#include <string>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace vantor::test {
namespace {

namespace fs = std::filesystem;

class SimulatorScanTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        fs::create_directories(root());
        fsaircraftpath = path("aircraft\\");
    }

    [[nodiscard]] fs::path root() const { return folder() / "aircraft"; }

    // An aircraft folder with the given aircraft.cfg.
    void addConfig(const std::string& name, const std::string& text) const {
        writeFile("aircraft\\" + name + "\\aircraft.cfg", text);
    }

    // The titles found and their speeds, as in "title" 250|.
    static std::string scan() {
        LoadFSAircraft(nullptr);
        EXPECT_EQ(fsaircraftcount, fsaircraft.size());
        std::string result;
        for (const AircraftRec& record : fsaircraft) {
            EXPECT_EQ(record.acnum.text(), "");
            result.append(record.title.text()).append(" ").append(shortestSingle(record.cruisespeed)).append("|");
        }
        return result;
    }
};

TEST_F(SimulatorScanTest, ReadsTitlesAndTheSpeedOfTheirFile) {
    addConfig("b737", "[fltsim.0]\r\ntitle=Boeing 737\r\nsim=b\r\n[fltsim.1]\r\nTitle = Boeing 737 Blue = new \r\n"
                      "[Reference Speeds]\r\ncruise_speed =\t 450.0  // knots\r\ncruise_speed = 100\r\n");
    addConfig("A320", " t I t l E =~hidden\n  TITLE  =  Airbus\ntitle=Boeing 737\n");
    fs::create_directories(root() / "empty");
    EXPECT_EQ(scan(), R"("Airbus" 250|"Boeing 737" 250|"Boeing 737" 450|"Boeing 737 Blue = new" 450|)");
    // A second scan starts anew.
    fs::remove_all(root() / "b737");
    EXPECT_EQ(scan(), R"("Airbus" 250|"Boeing 737" 250|)");
}

TEST_F(SimulatorScanTest, MindsTheLengthsOfLinesAndTitles) {
    const std::string name(78, 'n');
    // 13 and 14, 6 and 7 characters.
    addConfig("a", "cruise_speed=\ncruise_speed=9\ntitle=\ntitle=x\n");
    // A blank makes them long enough.
    addConfig("b", "cruise_speed= \ntitle= \n");
    // A tab is no blank, and a key needs its "=".
    addConfig("c", "\tcruise_speed=99\ncruise_speed  \n;title=no\nmytitle=no\ntitle=c");
    // Every kind of end.
    addConfig("d", "title=one\rtitle=" + name + "\n\r\ncruise_speed=120\r\ntitle=" + name + "m");
    EXPECT_EQ(scan(), R"("x" 9|"" 0|"c" 250|"one" 120|")" + name + R"(" 120|")" + name + "m 120|");
}

TEST_F(SimulatorScanTest, TellsThatTheFolderIsMissing) {
    addConfig("a", "title=x\n");
    ASSERT_EQ(scan(), "\"x\" 250|");
    fs::remove_all(root());
    EXPECT_EQ(scan(), "");
    EXPECT_EQ(recorder.messages,
              std::vector<std::string>{"Cannot find Flight Sim aircraft folder.  If you've moved Flight Sim, please "
                                       "delete Vantor.ini and run this program again."});
    EXPECT_EQ(logTexts().back(), "FS Aircraft not found");
}

TEST_F(SimulatorScanTest, StopsAtASpeedBeyondItsField) {
    addConfig("a", "title=x\n");
    addConfig("b", "cruise_speed=1E+39\n");
    EXPECT_EQ(faultOf([] { LoadFSAircraft(nullptr); }),
              "6 Overflow in LoadFSAircraft, while attempting to load " + path("aircraft\\b\\aircraft.cfg"));
    EXPECT_EQ(fsaircraftcount, 0);
    EXPECT_TRUE(recorder.messages.empty());
}

#ifndef _WIN32
TEST_F(SimulatorScanTest, PassesOverAFileThatCannotBeOpened) {
    addConfig("a", "title=first\n");
    addConfig("c", "title=last\n");
    fs::create_directory(root() / "b");
    // A pipe is there and can't be read, whoever runs the tests.
    ASSERT_EQ(mkfifo((root() / "b" / "aircraft.cfg").c_str(), 0600), 0);
    EXPECT_EQ(scan(), R"("first" 250|"last" 250|)");
    // Both passes over the file are tried.
    EXPECT_EQ(std::ranges::count(logTexts(), "Error 75 in LoadFSAircraft, item " + path("aircraft\\b\\aircraft.cfg")),
              2);
    EXPECT_TRUE(recorder.messages.empty());
}
#endif

TEST_F(SimulatorScanTest, ShowsItsProgress) {
    addConfig("a", "");
    fs::create_directories(root() / "b");
    RecordingCanvas canvas;
    LoadFSAircraft(&canvas);
    EXPECT_EQ(canvas.all<DrawnText>().at(0).text, "Loading FS Aircraft");
    // The last folder counts, though it has no file: the bar ends full.
    EXPECT_EQ(canvas.all<FilledBox>().at(1).x2, canvas.width);
}

} // namespace
} // namespace vantor::test
