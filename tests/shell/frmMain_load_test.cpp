// Tests of the main window.
// Its commands that move traffic between the files and the tables, with all they ask and tell.
#include "core/tables.h"
#include "foundation/log.h"
#include "platform/code_page.h"
#include "shell/application_loop.h"
#include "support/main_window.h"
#include "support/table_invariants.h"

#include <QApplication>
#include <QFileDialog>

#include <algorithm>
#include <vector>

namespace vantor::test {
namespace {

const std::string associated = "Do you want to load the associated aircraft and airport files?";

class LoadTest : public MainWindowFixture {
  protected:
    void deleteFirst() const {
        press("cmdListall");
        clickRow(list("List1"), 0);
        press("cmdDeleteSchedule");
        ASSERT_TRUE(schedules.peek(1).deleted);
    }
    // Loads selected plans of a folder, with the answers to the boxes that follow.
    void loadSelected(const QString& name, std::vector<BoxAnswer> answers, const QString& subfolder = {}) const {
        const Expectation boxes = answerBoxes(std::move(answers));
        press("cmdLoadFlightPlan", "fileDialog", [&](QDialog& dialog) {
            EXPECT_EQ(fromQString(dialog.windowTitle()), "Choose a flight plan");
            auto& chooser = dynamic_cast<QFileDialog&>(dialog);
            EXPECT_EQ(chooser.fileMode(), QFileDialog::ExistingFile);
            chooser.setDirectory(chooser.directory().filePath(subfolder));
            enterFileName(dialog, name);
        });
    }
    // Loads a family of files with a suffix: one aircraft that the simulator lacks, two airports, one schedule.
    void loadFamily(QMessageBox::StandardButton answer) const {
        writeFile("AircraftTEST.txt", "AC#9,250,\"Stray\"\r\n");
        writeFile("AirportsTEST.txt", "YPPH,S31* 56.42',E115* 58.02',67\r\nYPEA,S31* 40.07',E116* 0.9',149\r\n");
        writeFile("FlightplansTEST.txt", schedule("AC#9,VHAAA", "YPEA", "YPPH"));
        loadSelected(QStringLiteral("FlightplansTEST.txt"), {{associated, answer}});
        EXPECT_EQ(plansuffix, "TEST");
        EXPECT_EQ(form().workspace().flightsname, path("FlightplansTEST.txt"));
        EXPECT_EQ(startsInLog(), 1) << "said by the default load alone";
        press("cmdListall");
    }
    static std::ptrdiff_t visibleWindows() {
        return std::ranges::count_if(QApplication::topLevelWidgets(), &QWidget::isVisible);
    }
    [[nodiscard]] std::ptrdiff_t startsInLog() const { return std::ranges::count(logTexts(), "Startup complete"); }
};

TEST_F(LoadTest, TheDefaultPlansFillTheWindow) {
    EXPECT_EQ(logTexts().back(), "Startup complete");
    EXPECT_EQ(combo("cmbAC").rowCount(), 4);
    EXPECT_EQ(combo("cmbAC").currentRow(), 0);
    EXPECT_EQ(combo("cmbICAO").rowCount(), 4);
    EXPECT_EQ(box("txtATCAircraft"), "AC#1");
    EXPECT_EQ(list("List3").rowCount(), 2);
    EXPECT_EQ(visibleWindows(), 1) << "the splash is gone";
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(LoadTest, AReloadAsksOnlyAboutUnsavedChanges) {
    deleteFirst();
    const std::string question = "You will lose any changes if you do this. Are you sure?";
    press("cmdReload", {{question, QMessageBox::No}});
    EXPECT_TRUE(schedules.peek(1).deleted);
    EXPECT_EQ(list("List1").rowCount(), 5);
    press("cmdReload", {{question, QMessageBox::Yes}});
    EXPECT_FALSE(schedules.peek(1).deleted);
    EXPECT_EQ(list("List1").rowCount(), 0);
    EXPECT_TRUE(form().workspace().unsavedchanges) << "a load does not clear it";
}

TEST_F(LoadTest, AFailingDefaultLoadIsSilentAndTheWindowLives) {
    std::filesystem::remove(folder() / "Airports.txt");
    press("cmdReload");
    EXPECT_NE(newestAction().find("Airports.txt missing or empty.  Please run this program"), std::string::npos);
    EXPECT_NE(newestAction().find("sub cmdreload_click"), std::string::npos) << newestAction();
    EXPECT_EQ(startsInLog(), 1);
    EXPECT_EQ(visibleWindows(), 1) << "the splash is gone";
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor) << "it stays busy until the next command";
    press("cmdListall");
    EXPECT_EQ(list("List1").rowCount(), 5) << "the old flights are still there";
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(LoadTest, SelectedPlansWithoutASuffixComeAlone) {
    deleteFirst(); // the flag is not looked at
    press("cmdLoadFlightPlan", "fileDialog", [](QDialog& dialog) { pressKey(dialog, Qt::Key_Escape); });
    EXPECT_EQ(form().workspace().flightsname, path("Flightplans.txt")) << "a cancelled selection changes nothing";
    EXPECT_EQ(list("List1").rowCount(), 5);
    writeFile("other\\Flightplans.txt", schedule("AC#3,GNEW", "LFPG", "EGKK"));
    loadSelected(QStringLiteral("Flightplans.txt"), {}, QStringLiteral("other"));
    EXPECT_EQ(form().workspace().aircraftname, path("Aircraft.txt"));
    EXPECT_EQ(plansuffix, "");
    EXPECT_EQ(schedulecount, 1);
    EXPECT_EQ(aircraftcount, 4);
    EXPECT_EQ(list("List1").rowCount(), 0);
    EXPECT_EQ(list("List3").rowCount(), 2);
    EXPECT_TRUE(form().workspace().unsavedchanges);
    press("cmdSaveFlights",
          {{"Overwrite " + path("other\\Flightplans.txt") + "?", QMessageBox::No}, {"Save cancelled"}});
}

TEST_F(LoadTest, SelectedPlansBringTheirFamilyOnYesAndItsAircraftAreSavedUnderTheFixedName) {
    deleteFirst();
    loadFamily(QMessageBox::Yes);
    const std::string named = path("AircraftTEST.txt");
    EXPECT_EQ(form().workspace().airportsname, path("AirportsTEST.txt"));
    EXPECT_EQ(combo("cmbAC").text(), "AC#9 - \"Stray\"");
    EXPECT_EQ(box("txtATCAircraft"), "AC#9");
    EXPECT_EQ(combo("cmbICAO").rowCount(), 2);
    EXPECT_EQ(list("List3").rowText(0), "AC#9 - \"Stray\"");
    EXPECT_EQ(list("List1").rowText(0), "AC#9 - \"Stray\" VHAAA (IFR,2 legs)");
    EXPECT_EQ(visibleWindows(), 1);

    const std::string before = readFile("Aircraft.txt");
    press("cmdSaveAircraft", {{"Overwrite " + named + "?", QMessageBox::No}, {"Save Cancelled"}});
    EXPECT_EQ(readFile("Aircraft.txt"), before);
    press("cmdSaveAircraft", {{"Overwrite " + named + "?", QMessageBox::Yes}, {"Aircraft saved to " + named}});
    EXPECT_EQ(readFile("Aircraft.txt"), readFile("AircraftTEST.txt"));
    EXPECT_TRUE(form().workspace().unsavedchanges);
}

TEST_F(LoadTest, SelectedPlansUseTheLoadedTablesOnNo) {
    loadFamily(QMessageBox::No);
    EXPECT_EQ(form().workspace().aircraftname, path("Aircraft.txt"));
    EXPECT_EQ(aircraftcount, 4);
    EXPECT_EQ(combo("cmbICAO").rowCount(), 4);
    EXPECT_EQ(list("List1").rowText(0), "AC#9 - AC#9 VHAAA (IFR,2 legs)");
}

TEST_F(LoadTest, AFailingSelectedLoadEndsTheProgram) {
    const std::string text = path("AircraftTEST.txt") + " missing or empty.   Please run this program in the "
                                                        "TrafficTools path AFTER you have decompiled Traffic.BGL";
    writeFile("FlightplansTEST.txt", "");
    EXPECT_EQ(exitCodeOf([&] {
                  loadSelected(QStringLiteral("FlightplansTEST.txt"), {{associated, QMessageBox::Yes}, {text}});
              }),
              1);
    EXPECT_TRUE(form().ended());
    EXPECT_EQ(visibleWindows(), 0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    const std::vector<std::string> texts = logTexts();
    EXPECT_EQ(texts.back(), "End of actions list");
    EXPECT_TRUE(std::ranges::any_of(texts, [&](const std::string& line) {
        return line.starts_with(" >> ") && line.find(text) != std::string::npos;
    })) << "the fault stands in the log";
}

TEST_F(LoadTest, SavedFlightsLoadAgainToTheSameTables) {
    deleteFirst();
    const std::string file = path("Flightplans.txt");
    const std::string before = readFile("Flightplans.txt");
    press("cmdSaveFlights", {{"Overwrite " + file + "?", QMessageBox::No}, {"Save cancelled"}});
    EXPECT_EQ(readFile("Flightplans.txt"), before);
    EXPECT_TRUE(form().workspace().unsavedchanges);
    const std::string saved = saveAndReload();
    EXPECT_EQ(saved, before.substr(before.find("\r\n") + 2)) << "all but the deleted line, to the byte";
    const Traffic tables = trafficNow();
    EXPECT_EQ(saveAndReload(), saved);
    EXPECT_EQ(trafficNow(), tables);
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit"); }), 0) << "no question behind a save";
}

TEST_F(LoadTest, AFlightSaveThatFailsLeavesTheFileAsItWas) {
    // A folder stands where the file is to go.
    std::filesystem::remove(folder() / "Flightplans.txt");
    std::filesystem::create_directories(folder() / "Flightplans.txt" / "inside");
    const std::string file = form().workspace().flightsname;
    press("cmdSaveFlights", {{"Overwrite " + file + "?", QMessageBox::Yes}, {"Flight plans saved to " + file}});
    EXPECT_TRUE(std::filesystem::is_directory(folder() / "Flightplans.txt" / "inside"));
    EXPECT_FALSE(newestAction().empty()) << "the fault stands in the ring";
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace vantor::test
