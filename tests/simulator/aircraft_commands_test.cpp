// Tests of the main window's aircraft commands from end to end.
#include "core/tables.h"
#include "simulator/aircraft_changes.h"
#include "support/main_window.h"

#include <QLabel>
#include <QPushButton>

namespace vantor::test {
namespace {

class AircraftCommands : public MainWindowFixture {
  protected:
    static void pickAircraft(QDialog& dialog, int row) {
        clickRow(control<ListBox>(dialog, "List1"), row);
        click(dialog, "cmdOK");
    }
    static void cancel(QDialog& dialog) { click(dialog, "cmdCancel"); }

    [[nodiscard]] std::string missing() const { return rowsOf(list("List3").rows()); }
    [[nodiscard]] std::string offered() const { return rowsOf(combo("cmbAC").rows()); }
    [[nodiscard]] std::string savedAircraft() const {
        const std::string file = path("Aircraft.txt");
        press("cmdSaveAircraft", {{"Overwrite " + file + "?", QMessageBox::Yes}, {"Aircraft saved to " + file}});
        return readFile("Aircraft.txt");
    }
};

TEST_F(AircraftCommands, SubstitutesAMissingAircraft) {
    ASSERT_EQ(missing(), "AC#2 - \"Gone\"|AC#5 - \"Lost\"|");
    press("cmdSubAC"); // nothing is picked: no dialog
    clickRow(list("List3"), 0);
    press("cmdSubAC", "frmAircraftSub", cancel);
    EXPECT_FALSE(form().workspace().unsavedchanges);
    EXPECT_EQ(list("List3").rowCount(), 2);
    press("cmdSubAC", "frmAircraftSub", [&](QDialog& sub) {
        EXPECT_EQ(rowsOf(control<ListBox>(sub, "List1").rows()), "AC#1 - \"Boeing 737\"|AC#3 - \"Airbus\"||");
        pickAircraft(sub, 1);
    });
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_EQ(missing(), "AC#5 - \"Lost\"|");
    EXPECT_EQ(offered(), "AC#1 - \"Boeing 737\"|AC#2 - \"Airbus\"|AC#3 - \"Airbus\"|AC#5 - \"Lost\"|");
    EXPECT_EQ(combo("cmbAC").text(), "AC#2 - \"Airbus\"");
    EXPECT_EQ(savedAircraft(),
              "AC#1,250,\"Boeing 737\"\r\nAC#2,300,\"Airbus\"\r\nAC#3,400,\"Airbus\"\r\nAC#5,120,\"Lost\"\r\n");

    // A row that the other box hasn't goes all the same, and the aircraft stays as it was.
    form().workspace().unsavedchanges = false;
    clickRow(list("List3"), 0);
    combo("cmbAC").setRowText(3, "AC#5 - \"Renamed\"");
    press("cmdSubAC", "frmAircraftSub", [&](QDialog& sub) {
        // AC#2 counts as missing until the next load.
        EXPECT_EQ(rowsOf(control<ListBox>(sub, "List1").rows()), "AC#1 - \"Boeing 737\"|AC#3 - \"Airbus\"||");
        pickAircraft(sub, 0);
    });
    EXPECT_EQ(missing(), "");
    EXPECT_EQ(aircraft[4].title.text(), "\"Lost\"");
    EXPECT_FALSE(form().workspace().unsavedchanges);
}

TEST_F(AircraftCommands, AddsSimulatorAircraft) {
    const std::string question = "This will add any new FS Aircraft to AIRCRAFT.TXT.  Are you sure?";
    press("cmdAddFS", {{question, QMessageBox::No}});
    EXPECT_FALSE(form().workspace().unsavedchanges);
    press("cmdAddFS", {{question, QMessageBox::Yes}});
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_EQ(combo("cmbAC").rowText(3), "AC#4 - \"New one\"");
    EXPECT_EQ(combo("cmbAC").currentRow(), 0);
    EXPECT_EQ(savedAircraft(), "AC#1,250,\"Boeing 737\"\r\nAC#2,300,\"Gone\"\r\nAC#3,400,\"Airbus\"\r\n"
                               "AC#4,250,\"New one\"\r\nAC#5,120,\"Lost\"\r\n");
    form().workspace().unsavedchanges = false;
    press("cmdAddFS", {{question, QMessageBox::Yes}, {"No new aircraft found"}});
    EXPECT_TRUE(form().workspace().unsavedchanges); // whether or not anything new turned up
}

TEST_F(AircraftCommands, DeletesAnAircraftWithItsSchedules) {
    press("cmdListall");
    clickRow(list("List3"), 0); // AC#2 into the combo box
    const std::string question = "Are you sure?  This will also delete all schedules for this aircraft.";
    press("cmdDeleteAC", {{question, QMessageBox::No}});
    EXPECT_FALSE(form().workspace().unsavedchanges);
    press("cmdDeleteAC", {{question, QMessageBox::Yes}});
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_EQ(missing(), "AC#5 - \"Lost\"|");
    EXPECT_EQ(offered(), "AC#1 - \"Boeing 737\"|AC#3 - \"Airbus\"|AC#5 - \"Lost\"|");
    EXPECT_EQ(list("List1").rowCount(), 0);
    EXPECT_EQ(savedAircraft(), "AC#1,250,\"Boeing 737\"\r\nAC#3,400,\"Airbus\"\r\nAC#5,120,\"Lost\"\r\n");
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#3,GDDD", "EGLL", "EGKK"));

    combo("cmbAC").setText("");
    press("cmdDeleteAC"); // nothing is named: no question
}

TEST_F(AircraftCommands, SwapsTheAircraftOfSelectedSchedules) {
    press("cmdListall");
    clickRow(list("List1"), 1);
    clickRow(list("List1"), 4, Qt::ControlModifier); // the closing row takes no part
    clickRow(list("List1"), 2, Qt::ControlModifier);
    press("cmdSwapAC", "frmAircraftSub", cancel);
    EXPECT_FALSE(form().workspace().unsavedchanges);
    press("cmdSwapAC", "frmAircraftSub", [&](QDialog& sub) {
        EXPECT_EQ(fromQString(control<QLabel>(sub, "lblCurrent").text()), "AC#2");
        pickAircraft(sub, 1);
    });
    EXPECT_TRUE(form().workspace().unsavedchanges);
    EXPECT_EQ(list("List1").currentRow(), 2);
    EXPECT_TRUE(list("List1").rowText(1).starts_with("AC#3 - \"Airbus\" GBBB"));
    EXPECT_FALSE(control<QPushButton>(form(), "cmdSwapAC").isEnabled()); // until a row is clicked
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#3,GBBB", "EGSS", "LFPG") +
                                   schedule("AC#3,GCCC", "LFPG", "EGLL") + schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

} // namespace
} // namespace vantor::test
