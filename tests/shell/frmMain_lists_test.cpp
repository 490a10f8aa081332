// Tests of the main window.
// Its two lists and the boxes that choose what they show, clicked through as a user does. What rows say and which
// buttons they allow is tested without the window.
#include "platform/code_page.h"
#include "support/main_window.h"

#include <QGroupBox>
#include <QPushButton>

#include <string>

namespace vantor::test {
namespace {

class ListsTest : public MainWindowFixture {
  protected:
    [[nodiscard]] std::string rows(std::string_view name) const { return rowsOf(list(name).rows()); }
    [[nodiscard]] std::string title(std::string_view frame) const {
        return fromQString(control<QGroupBox>(form(), frame).title());
    }
    // The states of Edit, Copy, Delete and Swap Aircraft, and then of the leg's Edit and Delete.
    [[nodiscard]] std::string buttons() const {
        std::string states;
        for (const char* const name :
             {"cmdEditSchedule", "cmdCopy", "cmdDeleteSchedule", "cmdSwapAC", "cmdEditLeg", "cmdDeleteLeg"}) {
            states += control<QPushButton>(form(), name).isEnabled() ? '+' : '-';
        }
        return states;
    }
    // The numbers of the legs shown.
    [[nodiscard]] std::string legs() const {
        std::string numbers;
        for (const ListRow& row : list("List2").rows()) {
            numbers += std::to_string(row.itemData) + " ";
        }
        return numbers;
    }
    const std::string one = "AC#1 - \"Boeing 737\" GAAA (IFR,2 legs)|";
    const std::string two = "AC#2 - \"Gone\" GBBB (IFR,2 legs)|";
    const std::string three = "AC#2 - \"Gone\" GCCC (IFR,2 legs)|";
    const std::string four = "AC#3 - \"Airbus\" GDDD (IFR,2 legs)|";
};

TEST_F(ListsTest, EveryFlightIsListedAndClickedThrough) {
    press("cmdListall");
    EXPECT_EQ(rows("List1"), one + two + three + four + "|");
    EXPECT_EQ(title("fraList1"), "Listing all flights");
    EXPECT_EQ(list("List1").currentRow(), 0);
    EXPECT_EQ(legs() + buttons(), "------") << "no legs until a click";
    clickRow(list("List1"), 3);
    EXPECT_EQ(title("fraList2"), "Legs in flight #4");
    // EGKK lies 22 nautical miles from EGLL.
    EXPECT_EQ(rows("List2"), "FL#1 - EGKK to EGLL (22 nm) dpt 06:00:00 every 24HR|"
                             "FL#2 - EGLL to EGKK (22 nm) dpt 12:00:00 every 24HR|");
    EXPECT_EQ(list("List2").currentRow(), 0);
    EXPECT_EQ(buttons(), "++++++");
    clickRow(list("List1"), 1, Qt::ControlModifier);
    EXPECT_EQ(buttons(), "--++++") << "two rows";
    pressKey(list("List1"), Qt::Key_End);
    EXPECT_EQ(list("List1").currentRow(), 4);
    EXPECT_EQ(legs() + buttons(), "2001 2002 ------") << "the closing row leaves the legs";
}

TEST_F(ListsTest, FlightsOfAnAircraftOrAnAirportPickedOrTyped) {
    pickRow(combo("cmbAC"), 1); // AC#2
    press("cmdListACnum");
    EXPECT_EQ(rows("List1"), two + three + "|");
    typeOver(combo("cmbAC"), "ac#3");
    EXPECT_EQ(box("txtATCAircraft"), "AC#2") << "typing is no click";
    press("cmdListACnum");
    EXPECT_EQ(rows("List1"), four + "|");

    pickRow(combo("cmbICAO"), 0); // EGLL
    pickRow(combo("cmbICAO"), 3); // EGSS
    for (const char* const name : {"txtICAO1", "txtSplitICAO", "txtSplitIcao1", "txtDelByICAO", "txtSplitACICAO"}) {
        EXPECT_EQ(box(name), "EGSS") << name;
    }
    press("cmdListICAO");
    EXPECT_EQ(rows("List1"), two + "|");
    typeOver(combo("cmbICAO"), "lfpg");
    press("cmdListICAO");
    EXPECT_EQ(rows("List1"), one + two + three + "|");
    EXPECT_EQ(box("txtICAO1"), "EGSS") << "typing is no click";
}

TEST_F(ListsTest, AircraftOfAnAirportShowTheirLegsThere) {
    pickRow(combo("cmbICAO"), 0); // EGLL
    press("cmdListUniqueICAO");
    EXPECT_EQ(rows("List1"), "AC#1 - \"Boeing 737\"|AC#2 - \"Gone\"|AC#3 - \"Airbus\"||");
    EXPECT_EQ(title("fraList1"), "Aircraft which visit EGLL");
    const std::string percentBox = box("txtATCAircraft");
    clickRow(list("List1"), 1);
    EXPECT_EQ(combo("cmbAC").text(), "AC#2 - \"Gone\"");
    EXPECT_EQ(box("txtATCAircraft"), percentBox) << "setting the text is no click";
    EXPECT_EQ(legs(), "3001 3002 ") << "of its four legs those at the airport";
    EXPECT_EQ(title("fraList2"), "Flights to/from EGLL by \"Gone\"");
    EXPECT_EQ(buttons(), "----++") << "no schedule stands behind the row";
}

TEST_F(ListsTest, AirportsOfAnAircraftAreSortedAndShowItsLegs) {
    pickRow(combo("cmbAC"), 1); // AC#2
    press("cmdListUniqueAC");
    EXPECT_EQ(rows("List1"), "EGLL - EGLL|EGSS - EGSS|LFPG - LFPG||");
    const std::string other = box("txtDelByICAO");
    clickRow(list("List1"), 1);
    EXPECT_EQ(combo("cmbICAO").text(), "EGSS - EGSS");
    EXPECT_EQ(box("txtICAO1"), "EGSS");
    EXPECT_EQ(box("txtDelByICAO"), other) << "setting the text is no click";
    EXPECT_EQ(legs(), "2001 2002 ");
    clickRow(list("List1"), 3);
    EXPECT_EQ(combo("cmbICAO").text(), "EGSS - EGSS") << "the closing row does nothing";
}

} // namespace
} // namespace vantor::test
