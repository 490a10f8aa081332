// Tests of the bulk changes from end to end: panel, message box, save, reload. Their rules are tested without it, and
// that each option shows its frame alone by the random walks.
#include "support/main_window.h"

namespace vantor::test {
namespace {

using UtilitiesPanel = MainWindowFixture;

TEST_F(UtilitiesPanel, EachChangeTellsItsCountAndMarksTheFlag) {
    const std::string all = "[1] 2 3 4 .|[1001] 1002|++++++";
    play({{"cmdListall"},
          {"List1:0", all},
          {"txtICAO1=egll"},
          {"txtICAO2=lfpg "},
          {"txtNewFL=abc"},
          {"cmdChangeFL", all, {{"Please enter a valid Flight Level first"}}},
          {"txtNewFL=350"},
          {"cmdChangeFL", "*" + all, {{"Updated 2 legs."}}}});
    EXPECT_EQ(box("txtICAO1") + box("txtICAO2"), "EGLLLFPG");
    auto& happened = control<QLabel>(form(), "lblHappened");
    EXPECT_EQ(happened.text(), QStringLiteral("Flight level 350 from EGLL to LFPG"));
    play({{"txtICAO1=eddf"}, {"cmdChangeFL", "*" + all, {{"Couldn't find any legs from EDDF to LFPG"}}}});
    EXPECT_EQ(happened.text(), QStringLiteral("Couldn't find any legs from EDDF to LFPG"));
    form().workspace().unsavedchanges = false;
    play({{"optATCPercent"},
          {"txtATCAircraft=ac#2 "},
          {"txtATCPercent=35"},
          {"cmdUpdateATCPercent", "*" + all, {{"Updated 2 flights containing aircraft AC#2"}}}});
    EXPECT_EQ(saveAndReload(),
              schedule("AC#1,GAAA", "LFPG", "EGLL", "100%", "350") + schedule("AC#2,GBBB", "EGSS", "LFPG", "35%") +
                  schedule("AC#2,GCCC", "LFPG", "EGLL", "35%", "350") + schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

TEST_F(UtilitiesPanel, SplitsAndMovesEmptyTheLists) {
    auto& rest = control<QLabel>(form(), "lblPercent2");
    EXPECT_EQ(rest.text(), QStringLiteral("100%"));
    play({{"cmdListall"},
          {"optSplit"},
          {"cmbPC1:2"},
          {"txtSplitICAO=egll"},
          {"txtSplitIcao1=egkk"},
          {"txtSplitIcao2=xxxx"},
          {"cmdDoSplit",
           "[1] 2 3 4 .||------",
           {{"XXXX is not a recognised airport code.  Add the airport to Airports.txt before using it."}}},
          {"txtSplitIcao2=egss"},
          {"cmdDoSplit", "*||------", {{"Changed 2 egll to EGKK and 1 egll to EGSS"}}}});
    EXPECT_EQ(combo("cmbPC1").text() + rest.text().toStdString(), "10%90%");
    form().workspace().unsavedchanges = false;
    play({{"cmdListall"},
          {"optSplitAC"},
          {"txtSplitACICAO=lfpg"},
          {"txtSplitACNewICAO=egll"},
          {"txtSplitACSource=ac#2"},
          {"cmdSplitAC", "*||------", {{"Changed 2 flights by AC#2 from LFPG to EGLL"}}}});
    EXPECT_EQ(box("txtSplitACICAO") + box("txtSplitACNewICAO") + box("txtSplitACSource"), "LFPGEGLLAC#2");
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGKK") + schedule("AC#2,GBBB", "EGSS", "EGLL") +
                                   schedule("AC#2,GCCC", "EGLL", "EGKK") + schedule("AC#3,GDDD", "EGSS", "EGKK"));
}

TEST_F(UtilitiesPanel, DeletesByAirportWithoutTheFlag) {
    const std::string question = "About to delete all flights matching 'LFP*'.  Are you sure?";
    play({{"cmdListall"},
          {"optDelByIcao"},
          {"txtDelByICAO= "},
          {"cmdDeleteByICAO", "", {{"Please enter an ICAO"}}},
          {"txtDelByICAO= lfp* "},
          {"cmdDeleteByICAO", "[1] 2 3 4 .||------", {{question, QMessageBox::No}}},
          {"cmdDeleteByICAO", "||------", {{question, QMessageBox::Yes}}},
          {"cmdListall", "[x1] x2 x3 4 .||------"}});
    EXPECT_EQ(box("txtDelByICAO"), "LFP*");
    EXPECT_EQ(saveAndReload(), schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

} // namespace
} // namespace vantor::test
