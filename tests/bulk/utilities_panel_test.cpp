// Tests of the bulk changes from end to end: panel, message box, save, reload. Their rules are tested without it, and
// that each option shows its frame alone by the random walks.
#include "support/main_window.h"

#include <QLabel>

#include <array>

namespace vantor::test {
namespace {

class UtilitiesPanel : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        press("cmdListall");
        clickRow(list("List1"), 0);
    }
    /// What a change did to the flag and to the lists.
    [[nodiscard]] std::string traces() const {
        const bool emptied = list("List1").rowCount() == 0 && list("List2").rowCount() == 0;
        return std::string(form().workspace().unsavedchanges ? "flag " : "") + (emptied ? "emptied" : "");
    }
    /// The file with these airports in the places of those of the five legs that changes touch here.
    [[nodiscard]] static std::string plans(const std::string& percent1, const std::string& percent2,
                                           const std::array<std::string, 6>& icaos, const std::string& level = "200") {
        return schedule("AC#1,GAAA", icaos[0], icaos[1], percent1, level) +
               schedule("AC#2,GBBB", "EGSS", icaos[2], percent2) +
               schedule("AC#2,GCCC", icaos[3], icaos[4], percent2, level) +
               schedule("AC#3,GDDD", icaos[5], "EGKK", percent1);
    }
};

TEST_F(UtilitiesPanel, ChangesAFlightLevelAndAPercentage) {
    type("txtICAO1", "egll");
    type("txtICAO2", "lfpg ");
    type("txtNewFL", "abc");
    press("cmdChangeFL", {{"Please enter a valid Flight Level first"}});
    EXPECT_EQ(traces() + box("txtICAO1"), "egll");
    type("txtNewFL", "350");
    press("cmdChangeFL", {{"Updated 2 legs."}});
    EXPECT_EQ(traces() + box("txtICAO1") + box("txtICAO2"), "flag EGLLLFPG");
    form().workspace().unsavedchanges = false;
    press("optATCPercent");
    type("txtATCAircraft", "ac#2 ");
    type("txtATCPercent", "35");
    press("cmdUpdateATCPercent", {{"Updated 2 flights containing aircraft AC#2"}});
    EXPECT_EQ(traces(), "flag ");
    EXPECT_EQ(saveAndReload(), plans("100%", "35%", {"LFPG", "EGLL", "LFPG", "LFPG", "EGLL", "EGLL"}, "350"));
}

TEST_F(UtilitiesPanel, DeletesByAirportWithoutSettingTheFlag) {
    press("optDelByIcao");
    type("txtDelByICAO", " ");
    press("cmdDeleteByICAO", {{"Please enter an ICAO"}});
    EXPECT_EQ(box("txtDelByICAO"), "");
    const std::string question = "About to delete all flights matching 'LFP*'.  Are you sure?";
    type("txtDelByICAO", " lfp* ");
    press("cmdDeleteByICAO", {{question, QMessageBox::No}});
    EXPECT_EQ(traces() + box("txtDelByICAO"), "LFP*");
    press("cmdDeleteByICAO", {{question, QMessageBox::Yes}});
    EXPECT_EQ(traces(), "emptied");
    press("cmdListall");
    EXPECT_TRUE(list("List1").rowText(0).starts_with("(DEL) AC#1"));
    EXPECT_TRUE(list("List1").rowText(3).starts_with("AC#3"));
    EXPECT_EQ(saveAndReload(), schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

TEST_F(UtilitiesPanel, SplitsAnAirport) {
    press("optSplit");
    auto& rest = control<QLabel>(form(), "lblPercent2");
    EXPECT_EQ(fromQString(rest.text()), "100%");
    EXPECT_EQ(combo("cmbPC1").rowCount(), 21);
    pickRow(combo("cmbPC1"), 2);
    EXPECT_EQ(combo("cmbPC1").text() + fromQString(rest.text()), "10%90%");
    type("txtSplitICAO", "egll");
    type("txtSplitIcao1", "egkk");
    type("txtSplitIcao2", "xxxx");
    press("cmdDoSplit", {{"XXXX is not a recognised airport code.  Add the airport to Airports.txt before using it."}});
    EXPECT_EQ(traces() + box("txtSplitIcao1") + box("txtSplitIcao2"), "EGKKXXXX");
    type("txtSplitIcao2", "egss");
    press("cmdDoSplit", {{"Changed 2 egll to EGKK and 1 egll to EGSS"}});
    EXPECT_EQ(traces(), "flag emptied");
    EXPECT_EQ(saveAndReload(), plans("100%", "100%", {"LFPG", "EGKK", "LFPG", "LFPG", "EGKK", "EGSS"}));
}

TEST_F(UtilitiesPanel, MovesOneAircraft) {
    press("optSplitAC");
    type("txtSplitACICAO", "lfpg");
    type("txtSplitACNewICAO", "egkk");
    type("txtSplitACSource", "ac#2");
    press("cmdSplitAC", {{"Changed 2 flights by AC#2 from LFPG to EGKK"}});
    EXPECT_EQ(traces() + box("txtSplitACICAO") + box("txtSplitACNewICAO") + box("txtSplitACSource"),
              "flag emptiedLFPGEGKKAC#2");
    EXPECT_EQ(saveAndReload(), plans("100%", "100%", {"LFPG", "EGLL", "EGKK", "EGKK", "EGLL", "EGLL"}));
}

} // namespace
} // namespace vantor::test
