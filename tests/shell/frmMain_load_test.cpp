// The main window: its commands that move traffic between the files and the tables, with all they ask and tell.
#include "support/main_window.h"

namespace vantor::test {
namespace {

const std::string associated = "Do you want to load the associated aircraft and airport files?";
const std::string loseByReload = "You will lose any changes if you do this. Are you sure?";

class LoadTest : public MainWindowFixture {
  protected:
    void deleteFirst() const {
        play({{"cmdListall", "[1] 2 3 4 .||------"},
              {"List1:0", "[1] 2 3 4 .|[1001] 1002|++++++"},
              {"cmdDeleteSchedule", "*[x1] 2 3 4 .|off [1001] 1002|++++++"}});
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
        press("cmdListall");
    }
    // What the boxes and the list of missing aircraft show, the windows in sight and the pointer.
    [[nodiscard]] std::string filled() const {
        const auto windows = std::ranges::count_if(QApplication::topLevelWidgets(), &QWidget::isVisible);
        return rowsOf(combo("cmbAC").rows()) + std::to_string(combo("cmbAC").currentRow()) + box("txtATCAircraft") +
               " " + rowsOf(combo("cmbICAO").rows()) + " " + rowsOf(list("List3").rows()) + " " +
               std::to_string(windows) + (QApplication::overrideCursor() != nullptr ? " busy" : "");
    }
    [[nodiscard]] std::ptrdiff_t startsInLog() const { return std::ranges::count(logTexts(), "Startup complete"); }
};

TEST_F(LoadTest, TheDefaultPlansFillTheWindow) {
    const std::string expected = "AC#1 - \"Boeing 737\"|AC#2 - \"Gone\"|AC#3 - \"Airbus\"|AC#5 - \"Lost\"|0AC#1 "
                                 "EGLL - EGLL|LFPG - LFPG|EGKK - EGKK|EGSS - EGSS| "
                                 "AC#2 - \"Gone\"|AC#5 - \"Lost\"| 1";
    EXPECT_EQ(filled(), expected);
    EXPECT_EQ(logTexts().back(), "Startup complete");
    deleteFirst();
    play({{"cmdReload", "*[x1] 2 3 4 .|off [1001] 1002|++++++", {{loseByReload, QMessageBox::No}}},
          {"cmdReload", "*|off |------", {{loseByReload, QMessageBox::Yes}}}}); // a load does not clear the flag
    EXPECT_EQ(filled(), expected);
    EXPECT_FALSE(schedules.peek(1).deleted);

    form().workspace().unsavedchanges = false;
    std::filesystem::remove(folder() / "Airports.txt");
    play({{"cmdReload", "|off |------"}}); // a failing default load is silent and the window lives
    EXPECT_NE(newestAction().find("Airports.txt missing or empty.  Please run this program"), std::string::npos);
    EXPECT_NE(newestAction().find("sub cmdreload_click"), std::string::npos) << newestAction();
    EXPECT_EQ(startsInLog(), 2);
    EXPECT_TRUE(filled().ends_with(" 1 busy")) << "the splash is gone, the pointer stays until the next command";
    play({{"cmdListall", "[1] 2 3 4 .|off |------"}}); // the old flights are still there
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(LoadTest, SelectedPlansComeAloneOrBringTheirFamily) {
    deleteFirst(); // the flag is not looked at
    press("cmdLoadFlightPlan", "fileDialog", [](QDialog& dialog) { pressKey(dialog, Qt::Key_Escape); });
    EXPECT_EQ(form().workspace().flightsname + seen(),
              path("Flightplans.txt") + "*[x1] 2 3 4 .|off [1001] 1002|++++++");
    writeFile("other\\Flightplans.txt", schedule("AC#3,GNEW", "LFPG", "EGKK"));
    loadSelected(QStringLiteral("Flightplans.txt"), {}, QStringLiteral("other"));
    EXPECT_EQ(form().workspace().aircraftname + plansuffix, path("Aircraft.txt"));
    EXPECT_TRUE(filled().ends_with("AC#2 - \"Gone\"|AC#5 - \"Lost\"| 1"));
    play({{"cmdListall", "*[1] .|off |------"},
          {"cmdSaveFlights",
           "*[1] .|off |------",
           {{"Overwrite " + path("other\\Flightplans.txt") + "?", QMessageBox::No}, {"Save cancelled"}}}});

    loadFamily(QMessageBox::No); // to the tables that are loaded
    EXPECT_EQ(form().workspace().aircraftname, path("Aircraft.txt"));
    EXPECT_EQ(rowsOf(list("List1").rows()), "AC#9 - AC#9 VHAAA (IFR,2 legs)||");
    loadFamily(QMessageBox::Yes);
    EXPECT_EQ(form().workspace().airportsname, path("AirportsTEST.txt"));
    EXPECT_EQ(filled(), "AC#9 - \"Stray\"|0AC#9 YPPH - YPPH|YPEA - YPEA| AC#9 - \"Stray\"| 1");
    EXPECT_EQ(rowsOf(list("List1").rows()), "AC#9 - \"Stray\" VHAAA (IFR,2 legs)||");
    EXPECT_EQ(startsInLog(), 1) << "said by the default load alone";

    const std::string named = path("AircraftTEST.txt");
    const std::string before = readFile("Aircraft.txt");
    press("cmdSaveAircraft", {{"Overwrite " + named + "?", QMessageBox::No}, {"Save Cancelled"}});
    EXPECT_EQ(readFile("Aircraft.txt"), before);
    press("cmdSaveAircraft", {{"Overwrite " + named + "?", QMessageBox::Yes}, {"Aircraft saved to " + named}});
    EXPECT_EQ(readFile("Aircraft.txt"), readFile("AircraftTEST.txt")) << "under the fixed name";
    EXPECT_TRUE(form().workspace().unsavedchanges);
}

TEST_F(LoadTest, AFailingSelectedLoadEndsTheProgram) {
    const std::string text = path("AircraftTEST.txt") + " missing or empty.   Please run this program in the "
                                                        "TrafficTools path AFTER you have decompiled Traffic.BGL";
    writeFile("FlightplansTEST.txt", "");
    EXPECT_EQ(exitCodeOf([&] {
                  loadSelected(QStringLiteral("FlightplansTEST.txt"), {{associated, QMessageBox::Yes}, {text}});
              }),
              1);
    EXPECT_TRUE(form().ended() && !form().isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    const std::vector<std::string> texts = logTexts();
    EXPECT_EQ(texts.back(), "End of actions list");
    EXPECT_TRUE(std::ranges::any_of(texts, [&](const std::string& line) {
        return line.starts_with(" >> ") && line.find(text) != std::string::npos;
    })) << "the fault stands in the log";
}

TEST_F(LoadTest, SavedFlightsAreAllButTheDeletedOnesToTheByte) {
    deleteFirst();
    const std::string before = readFile("Flightplans.txt");
    EXPECT_EQ(saveAndReload(), before.substr(before.find("\r\n") + 2));
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit"); }), 0) << "no question behind a save";
}

TEST_F(LoadTest, ASaveThatFailsTellsWhyAndLosesNothing) {
    deleteFirst();
    for (const std::string kind : {"Flightplans", "Aircraft"}) {
        // A folder stands where the file is to go.
        const std::string file = path(kind + ".txt");
        std::filesystem::remove(folder() / (kind + ".txt"));
        std::filesystem::create_directories(folder() / (kind + ".txt") / "inside");
        const bool flights = kind == "Flightplans";
        press(flights ? "cmdSaveFlights" : "cmdSaveAircraft",
              {{"Overwrite " + file + "?", QMessageBox::Yes},
               {file + " was changed by another program since it was loaded. Overwrite it?", QMessageBox::Yes},
               {(flights ? "Flight plans" : "Aircraft") + (" not saved to " + file) + ": Path/File access error"}});
        EXPECT_TRUE(std::filesystem::is_directory(folder() / (kind + ".txt") / "inside"));
        EXPECT_TRUE(newestAction().starts_with("Path/File access error(75)")) << newestAction();
        EXPECT_TRUE(form().workspace().unsavedchanges);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
}

} // namespace
} // namespace vantor::test
