// The rescue copy from a change to its restoring, and saves over files that another program has written.
#include "shell/rescue_keeper.h"
#include "support/main_window.h"

#include <chrono>

namespace vantor::test {
namespace {

const std::string loseAtExit = "If you exit now you will lose your changes.  Are you sure?";

class RescueKeeperTest : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString((folder() / "own").string()));
        keep();
    }
    void keep() const {
        form().rescue().setPauses(std::chrono::milliseconds(1), std::chrono::minutes(1));
        form().rescue().start();
    }
    // Opens the program anew, as after a kill.
    void startAnew() {
        open().formLoad();
        form().show();
        keep();
    }
    void deleteSchedule(int row) const {
        press("cmdListall");
        clickRow(list("List1"), row);
        press("cmdDeleteSchedule");
    }
    [[nodiscard]] bool kept() const { return exists("Vantor2.rescue"); }
    [[nodiscard]] static std::string loaded() {
        std::string text;
        for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
            text += std::string(schedules.peek(recnum).tailnumber.text()) + " ";
        }
        return text + std::to_string(aircraftcount);
    }
};

TEST_F(RescueKeeperTest, RestoresWhatWasKeptInAPause) {
    const std::string before = readFile("Flightplans.txt");
    deleteSchedule(1);
    ASSERT_TRUE(waitFor([this] { return kept(); }));
    startAnew();
    ASSERT_TRUE(form().rescue().offer());
    press("optFS2k4");
    form().restoreKept();
    EXPECT_FALSE(form().rescue().offer());
    EXPECT_EQ(loaded(), "GAAA GCCC GDDD 4");
    EXPECT_EQ(fsmode, 2);
    EXPECT_EQ(form().workspace().flightsname, path("Flightplans.txt"));
    EXPECT_EQ(list("List3").rowCount(), 2);
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_TRUE(kept()) << "they are not saved yet";
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#2,GCCC", "LFPG", "EGLL") +
                                   schedule("AC#3,GDDD", "EGLL", "EGKK"));
    EXPECT_EQ(readFile("Flightplans.txt.bak"), before);
    EXPECT_FALSE(kept());
}

TEST_F(RescueKeeperTest, OnlyAYesGivesChangesUp) {
    deleteSchedule(1);
    {
        const Expectation boxes = answerBoxes({{loseAtExit, QMessageBox::No}});
        EXPECT_EQ(exitCodeOf([this] { form().close(); }), 0);
    }
    EXPECT_TRUE(kept());
    startAnew();
    press("cmdReload");
    deleteSchedule(2);
    ASSERT_TRUE(waitFor([this] { return exists("Vantor2.rescue.1"); })) << "newer changes replace those not restored";
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit", {{loseAtExit, QMessageBox::Yes}}); }), 0);
    EXPECT_FALSE(kept());
    startAnew();
    EXPECT_FALSE(form().rescue().offer());
}

TEST_F(RescueKeeperTest, ALoadThatAsksNothingLosesNothing) {
    writeFile("Other.txt", schedule("AC#1,GNEW", "LFPG", "EGLL"));
    deleteSchedule(3);
    // Behind the load earlier changes still count as unsaved, so that the restoring asks.
    const Expectation boxes =
        answerBoxes({{"Do you want to load the associated aircraft and airport files?", QMessageBox::No},
                     {"You will lose any changes if you do this. Are you sure?", QMessageBox::Yes}});
    press("cmdLoadFlightPlan", "fileDialog", [](QDialog& dialog) { enterFileName(dialog, toQString("Other.txt")); });
    EXPECT_EQ(loaded(), "GNEW 4");
    form().restoreKept();
    EXPECT_EQ(loaded(), "GAAA GBBB GCCC 4");
}

TEST_F(RescueKeeperTest, TheSecondProgramOfAFolderKeepsItsOwn) {
    RescueKeeper second(form().workspace());
    EXPECT_FALSE(form().rescue().openElsewhere());
    second.start();
    { const RescueKeeper::Loading loading(second, true); }
    EXPECT_TRUE(second.openElsewhere());
    deleteSchedule(1);
    second.keepNow();
    EXPECT_FALSE(second.offer());
    second.stop();
    EXPECT_FALSE(std::filesystem::is_empty(folder() / "own"));
}

TEST_F(RescueKeeperTest, AFileThatAnotherProgramWroteIsAskedAbout) {
    const std::string file = path("Flightplans.txt");
    const std::string aircraft = path("Aircraft.txt");
    const std::string changed = " was changed by another program since it was loaded. Overwrite it?";
    writeFile("Flightplans.txt", "other");
    writeFile("Aircraft.txt", "other");
    press("cmdSaveFlights",
          {{"Overwrite " + file + "?", QMessageBox::Yes}, {file + changed, QMessageBox::No}, {"Save cancelled"}});
    press(
        "cmdSaveAircraft",
        {{"Overwrite " + aircraft + "?", QMessageBox::Yes}, {aircraft + changed, QMessageBox::No}, {"Save Cancelled"}});
    EXPECT_EQ(readFile("Flightplans.txt") + readFile("Aircraft.txt"), "otherother");
    press("cmdSaveFlights", {{"Overwrite " + file + "?", QMessageBox::Yes},
                             {file + changed, QMessageBox::Yes},
                             {"Flight plans saved to " + file}});
    saveAndReload(); // it is the program's own now
}

} // namespace
} // namespace vantor::test
