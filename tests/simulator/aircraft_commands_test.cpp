// Tests of the main window's aircraft commands from end to end.
#include "support/main_window.h"

namespace vantor::test {
namespace {

const std::string offeredRows = "AC#1 - \"Boeing 737\"|AC#3 - \"Airbus\"||";

class AircraftCommands : public MainWindowFixture {
  protected:
    /// Presses a button that opens the chooser, and takes a row there; -1 cancels.
    void choose(std::string_view button, int row, const std::string& current) const {
        press(button, "frmAircraftSub", [&](QDialog& dialog) {
            EXPECT_EQ(control<QLabel>(dialog, "lblCurrent").text().toStdString(), current);
            EXPECT_EQ(rowsOf(control<ListBox>(dialog, "List1").rows()), offeredRows);
            if (row >= 0) {
                clickRow(control<ListBox>(dialog, "List1"), row);
            }
            click(dialog, row >= 0 ? "cmdOK" : "cmdCancel");
        });
    }
    /// The rows of the missing aircraft and of the box, with a star while changes are unsaved.
    [[nodiscard]] std::string shown() const {
        return (form().workspace().unsavedchanges ? "*" : "") + rowsOf(list("List3").rows()) + " " +
               rowsOf(combo("cmbAC").rows());
    }
    [[nodiscard]] std::string savedAircraft() const {
        const std::string file = path("Aircraft.txt");
        press("cmdSaveAircraft", {{"Overwrite " + file + "?", QMessageBox::Yes}, {"Aircraft saved to " + file}});
        return readFile("Aircraft.txt");
    }
};

TEST_F(AircraftCommands, SubstitutesAMissingAircraft) {
    const std::string before = shown();
    press("cmdSubAC"); // nothing is picked: no dialog
    clickRow(list("List3"), 0);
    choose("cmdSubAC", -1, "AC#2 - \"Gone\"");
    EXPECT_EQ(shown(), before);
    choose("cmdSubAC", 1, "AC#2 - \"Gone\"");
    EXPECT_EQ(shown(), "*AC#5 - \"Lost\"| AC#1 - \"Boeing 737\"|AC#2 - \"Airbus\"|AC#3 - \"Airbus\"|AC#5 - \"Lost\"|");
    EXPECT_EQ(combo("cmbAC").text(), "AC#2 - \"Airbus\"");
    EXPECT_EQ(savedAircraft(),
              "AC#1,250,\"Boeing 737\"\r\nAC#2,300,\"Airbus\"\r\nAC#3,400,\"Airbus\"\r\nAC#5,120,\"Lost\"\r\n");
    // A row that the other box hasn't goes all the same, and the aircraft stays as it was; AC#2 counts as missing
    // until the next load.
    form().workspace().unsavedchanges = false;
    clickRow(list("List3"), 0);
    combo("cmbAC").setRowText(3, "AC#5 - \"Renamed\"");
    choose("cmdSubAC", 0, "AC#5 - \"Lost\"");
    EXPECT_TRUE(shown().starts_with(" AC#1")) << shown();
    EXPECT_EQ(aircraft[4].title.text(), "\"Lost\"");
}

TEST_F(AircraftCommands, AddsSimulatorAircraftAndDeletesOneWithItsSchedules) {
    const std::string before = shown();
    const std::string add = "This will add any new FS Aircraft to AIRCRAFT.TXT.  Are you sure?";
    press("cmdAddFS", {{add, QMessageBox::No}});
    EXPECT_EQ(shown(), before);
    press("cmdAddFS", {{add, QMessageBox::Yes}});
    EXPECT_EQ(combo("cmbAC").rowText(3) + std::to_string(combo("cmbAC").currentRow()), "AC#4 - \"New one\"0");
    form().workspace().unsavedchanges = false;
    press("cmdAddFS", {{add, QMessageBox::Yes}, {"No new aircraft found"}});
    EXPECT_TRUE(form().workspace().unsavedchanges) << "whether or not anything new turned up";

    const std::string sure = "Are you sure?  This will also delete all schedules for this aircraft.";
    clickRow(list("List3"), 0); // AC#2 into the combo box
    play({{"cmdListall"},
          {"cmdDeleteAC", "*[1] 2 3 4 .||------", {{sure, QMessageBox::No}}},
          {"cmdDeleteAC", "*||------", {{sure, QMessageBox::Yes}}}});
    EXPECT_EQ(shown(), "*AC#5 - \"Lost\"| AC#1 - \"Boeing 737\"|AC#3 - \"Airbus\"|AC#4 - \"New one\"|AC#5 - \"Lost\"|");
    EXPECT_EQ(savedAircraft(),
              "AC#1,250,\"Boeing 737\"\r\nAC#3,400,\"Airbus\"\r\nAC#4,250,\"New one\"\r\nAC#5,120,\"Lost\"\r\n");
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#3,GDDD", "EGLL", "EGKK"));
    combo("cmbAC").setText("");
    press("cmdDeleteAC"); // nothing is named: no question
}

TEST_F(AircraftCommands, SwapsTheAircraftOfSelectedSchedules) {
    const std::string selected = "1 (2) [3] 4 (.)|[3001] 3002|";
    play({{"cmdListall"}, {"List1:1"}, {"List1+4"}, {"List1+2"}}); // the closing row takes no part
    choose("cmdSwapAC", -1, "AC#2");
    EXPECT_TRUE(seen().starts_with(selected)) << seen();
    choose("cmdSwapAC", 1, "AC#2");
    EXPECT_EQ(seen(), "*1 2 [3] 4 .||----++") << "a row must be clicked before the next swap";
    EXPECT_EQ(schedules.peek(2).acnum.text(), "AC#3");
    EXPECT_EQ(schedules.peek(3).acnum.text(), "AC#3");
}

} // namespace
} // namespace vantor::test
