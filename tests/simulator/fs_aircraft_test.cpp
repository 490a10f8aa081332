// The scan of the simulator's aircraft.
#include "simulator/fs_aircraft.h"
#include "support/test.h"

namespace vantor::test {
namespace {

namespace fs = std::filesystem;

class SimulatorScanTest : public Fixture {
  protected:
    void SetUp() override {
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

} // namespace
} // namespace vantor::test
