#include "core/tables.h"
#include "simulator/fs_aircraft.h"
#include "support/expect_error.h"
#include "support/fixture.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#ifndef _WIN32
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

namespace vantor::test {
namespace {

namespace fs = std::filesystem;

// One row of the simulator's table.
using Found = std::pair<std::string, float>;
using AllFound = std::vector<Found>;

class SimulatorScanTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        fs::create_directories(root());
        fsaircraftpath = path("aircraft\\");
    }

    [[nodiscard]] fs::path root() const { return folder() / "aircraft"; }

    // An aircraft folder with the given aircraft.cfg. Gives the file's path as messages show it.
    std::string addConfig(const std::string& name, const std::string& text) const {
        const std::string file = "aircraft\\" + name + "\\aircraft.cfg";
        writeFile(file, text);
        return path(file);
    }

    static AllFound scan() {
        LoadFSAircraft(nullptr);
        return found();
    }

    static AllFound found() {
        EXPECT_EQ(fsaircraftcount, fsaircraft.size());
        AllFound result;
        for (const AircraftRec& record : fsaircraft) {
            EXPECT_EQ(record.acnum.text(), "");
            result.emplace_back(record.title.text(), record.cruisespeed);
        }
        return result;
    }
};

TEST_F(SimulatorScanTest, ReadsTitlesAndTheSpeedOfTheirFile) {
    addConfig("b737", "[fltsim.0]\r\ntitle=Boeing 737\r\nsim=b\r\n[fltsim.1]\r\nTitle = Boeing 737 Blue = new \r\n"
                      "[Reference Speeds]\r\ncruise_speed = 450.0  // knots\r\ncruise_speed = 100\r\n");
    addConfig("A320", " t I t l E =~hidden\n  TITLE  =  Airbus\ntitle=Boeing 737\n");
    fs::create_directories(root() / "empty");
    EXPECT_EQ(scan(), (AllFound{{"\"Airbus\"", 250.0F},
                                {"\"Boeing 737\"", 250.0F},
                                {"\"Boeing 737\"", 450.0F},
                                {"\"Boeing 737 Blue = new\"", 450.0F}}));
    // A second scan starts anew.
    fs::remove_all(root() / "b737");
    EXPECT_EQ(scan().size(), 2U);
}

TEST_F(SimulatorScanTest, LooksOnlyAtLinesOfALengthThatCanHoldAValue) {
    addConfig("a", "cruise_speed=\ncruise_speed=9\ntitle=\ntitle=x\n");  // 13 and 14, 6 and 7 characters
    addConfig("b", "cruise_speed= \ntitle= \n");                         // a blank makes them long enough
    addConfig("c", "\tcruise_speed=99\n;title=no\nmytitle=no\ntitle=c"); // a tab is no blank
    EXPECT_EQ(scan(), (AllFound{{"\"x\"", 9.0F}, {"\"\"", 0.0F}, {"\"c\"", 250.0F}}));
}

TEST_F(SimulatorScanTest, ReadsLinesOfEveryKindOfEndAndCutsLongTitles) {
    const std::string name(78, 'n');
    addConfig("a", "title=one\rtitle=two\n\r\ncruise_speed=120\r\ntitle=" + name + "\rtitle=" + name + "m");
    EXPECT_EQ(
        scan(),
        (AllFound{
            {"\"one\"", 120.0F}, {"\"two\"", 120.0F}, {"\"" + name + "\"", 120.0F}, {"\"" + name + "m", 120.0F}}));
}

TEST_F(SimulatorScanTest, TellsThatTheFolderIsMissing) {
    addConfig("a", "title=x\n");
    ASSERT_EQ(scan().size(), 1U);
    fs::remove_all(root());
    EXPECT_TRUE(scan().empty());
    EXPECT_EQ(
        recorder.messages,
        (std::vector<std::string>{"Cannot find Flight Sim aircraft folder.  If you've moved Flight Sim, please delete "
                                  "Vantor.ini and run this program again."}));
    EXPECT_EQ(logTexts().back(), "FS Aircraft not found");
}

TEST_F(SimulatorScanTest, StopsAtASpeedBeyondItsField) {
    addConfig("a", "title=x\n");
    const std::string file = addConfig("b", "cruise_speed=1E+39\n");
    EXPECT_EQ(faultOf([] { LoadFSAircraft(nullptr); }),
              "6 Overflow in LoadFSAircraft, while attempting to load " + file);
    EXPECT_TRUE(found().empty());
    EXPECT_TRUE(recorder.messages.empty());
}

#ifndef _WIN32
TEST_F(SimulatorScanTest, PassesOverAFileThatCannotBeOpened) {
    // A socket can be seen in its folder and never be opened, not even by an administrator.
    const fs::path socketFile = root() / "b" / "aircraft.cfg";
    fs::create_directories(socketFile.parent_path());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(socketFile.native().size(), sizeof address.sun_path);
    socketFile.native().copy(address.sun_path, sizeof address.sun_path - 1);
    const int handle = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(handle);

    addConfig("a", "title=first\n");
    addConfig("c", "title=last\n");
    EXPECT_EQ(scan(), (AllFound{{"\"first\"", 250.0F}, {"\"last\"", 250.0F}}));
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
    const std::vector<DrawnText> texts = canvas.all<DrawnText>();
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.back().text, "Loading FS Aircraft");
    // The last folder counts, though it has no file: the bar ends full.
    ASSERT_FALSE(canvas.all<FilledBox>().empty());
    EXPECT_EQ(canvas.all<FilledBox>().back().x2, canvas.all<FilledBox>().back().x1 + canvas.width);
}

} // namespace
} // namespace vantor::test
