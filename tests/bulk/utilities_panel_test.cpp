// Tests of the bulk changes from end to end: panel, message box, save, reload.
#include "support/main_window.h"

#include <QLabel>
#include <QRadioButton>

#include <array>

namespace vantor::test {
namespace {

class UtilitiesPanel : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        press("cmdListall");
    }

    [[nodiscard]] bool listsAreEmpty() const { return list("List1").rowCount() == 0 && list("List2").rowCount() == 0; }
};

TEST_F(UtilitiesPanel, EachOptionShowsItsFrameAlone) {
    constexpr std::array<std::array<const char*, 2>, 5> frames{{{"optmass", "frameMassUpdate"},
                                                                {"optATCPercent", "frameSetATCPercent"},
                                                                {"optDelByIcao", "frameDelByIcao"},
                                                                {"optSplit", "frameSplit"},
                                                                {"optSplitAC", "frameSplitAC"}}};
    const auto shown = [&] {
        std::string names;
        for (const auto& frame : frames) {
            names += control<QWidget>(form(), frame[1]).isVisible() ? frame[1] : "";
        }
        return names;
    };
    EXPECT_EQ(shown(), "frameMassUpdate");
    for (std::size_t i = frames.size(); i-- > 0;) {
        press(frames[i][0]);
        EXPECT_EQ(shown(), frames[i][1]);
    }
}

TEST_F(UtilitiesPanel, ChangesAFlightLevel) {
    type("txtICAO1", "egll");
    type("txtICAO2", "lfpg ");
    type("txtNewFL", "abc");
    press("cmdChangeFL", {{"Please enter a valid Flight Level first"}});
    EXPECT_FALSE(form().unsavedchanges);
    EXPECT_EQ(box("txtICAO1"), "egll");
    type("txtNewFL", "350");
    press("cmdChangeFL", {{"Updated 2 legs."}});
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_EQ(box("txtICAO1"), "EGLL");
    EXPECT_EQ(box("txtICAO2"), "LFPG");
    EXPECT_EQ(list("List1").rowCount(), 5); // the lists stay
    EXPECT_EQ(saveAndReload(),
              schedule("AC#1,GAAA", "LFPG", "EGLL", "100%", "350") + schedule("AC#2,GBBB", "EGSS", "LFPG") +
                  schedule("AC#2,GCCC", "LFPG", "EGLL", "100%", "350") + schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

TEST_F(UtilitiesPanel, ChangesAPercentage) {
    press("optATCPercent");
    type("txtATCAircraft", "ac#2 ");
    type("txtATCPercent", "35");
    press("cmdUpdateATCPercent", {{"Updated 2 flights containing aircraft AC#2"}});
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#2,GBBB", "EGSS", "LFPG", "35%") +
                                   schedule("AC#2,GCCC", "LFPG", "EGLL", "35%") +
                                   schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

TEST_F(UtilitiesPanel, DeletesByAirportWithoutSettingTheFlag) {
    press("optDelByIcao");
    type("txtDelByICAO", " ");
    press("cmdDeleteByICAO", {{"Please enter an ICAO"}});
    const std::string question = "About to delete all flights matching 'LFP*'.  Are you sure?";
    type("txtDelByICAO", "lfp*");
    press("cmdDeleteByICAO", {{question, QMessageBox::No}});
    EXPECT_EQ(box("txtDelByICAO"), "LFP*");
    EXPECT_FALSE(listsAreEmpty());
    press("cmdDeleteByICAO", {{question, QMessageBox::Yes}});
    EXPECT_FALSE(form().unsavedchanges);
    EXPECT_TRUE(listsAreEmpty());
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
    EXPECT_EQ(combo("cmbPC1").text(), "10%");
    EXPECT_EQ(fromQString(rest.text()), "90%");

    type("txtSplitICAO", "egll");
    type("txtSplitIcao1", "egkk");
    type("txtSplitIcao2", "xxxx");
    press("cmdDoSplit", {{"XXXX is not a recognised airport code.  Add the airport to Airports.txt before using it."}});
    EXPECT_FALSE(form().unsavedchanges);
    EXPECT_FALSE(listsAreEmpty());
    EXPECT_EQ(box("txtSplitIcao1"), "EGKK");
    type("txtSplitIcao2", "egss");
    press("cmdDoSplit", {{"Changed 2 egll to EGKK and 1 egll to EGSS"}});
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_TRUE(listsAreEmpty());
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGKK") + schedule("AC#2,GBBB", "EGSS", "LFPG") +
                                   schedule("AC#2,GCCC", "LFPG", "EGKK") + schedule("AC#3,GDDD", "EGSS", "EGKK"));
}

TEST_F(UtilitiesPanel, MovesOneAircraft) {
    press("optSplitAC");
    type("txtSplitACICAO", "lfpg");
    type("txtSplitACNewICAO", "egkk");
    type("txtSplitACSource", "ac#2");
    press("cmdSplitAC", {{"Changed 2 flights by AC#2 from LFPG to EGKK"}});
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_TRUE(listsAreEmpty());
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#2,GBBB", "EGSS", "EGKK") +
                                   schedule("AC#2,GCCC", "EGKK", "EGLL") + schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

} // namespace
} // namespace vantor::test
