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
    {
        const Expectation boxes = answerBoxes({{"Please enter a valid Flight Level first"}});
        press("cmdChangeFL");
    }
    EXPECT_FALSE(form().unsavedchanges);
    EXPECT_EQ(box("txtICAO1"), "egll");
    type("txtNewFL", "350");
    {
        const Expectation boxes = answerBoxes({{"Updated 2 legs."}});
        press("cmdChangeFL");
    }
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
    EXPECT_EQ(box("txtATCAircraft"), "AC#1"); // the aircraft picked above
    type("txtATCAircraft", "2");
    type("txtATCPercent", "35");
    {
        const Expectation boxes = answerBoxes({{"Please specify the full aircraft code, including AC#.  E.g. AC#100"}});
        press("cmdUpdateATCPercent");
    }
    EXPECT_TRUE(form().unsavedchanges); // already
    type("txtATCAircraft", "ac#2 ");
    {
        const Expectation boxes = answerBoxes({{"Updated 2 flights containing aircraft AC#2"}});
        press("cmdUpdateATCPercent");
    }
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#2,GBBB", "EGSS", "LFPG", "35%") +
                                   schedule("AC#2,GCCC", "LFPG", "EGLL", "35%") +
                                   schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

TEST_F(UtilitiesPanel, DeletesByAirportWithoutSettingTheFlag) {
    press("optDelByIcao");
    type("txtDelByICAO", " ");
    {
        const Expectation boxes = answerBoxes({{"Please enter an ICAO"}});
        press("cmdDeleteByICAO");
    }
    const std::string question = "About to delete all flights matching 'LFP*'.  Are you sure?";
    type("txtDelByICAO", "lfp*");
    {
        const Expectation boxes = answerBoxes({{question, QMessageBox::No}});
        press("cmdDeleteByICAO");
    }
    EXPECT_EQ(box("txtDelByICAO"), "LFP*");
    EXPECT_FALSE(listsAreEmpty());
    {
        const Expectation boxes = answerBoxes({{question, QMessageBox::Yes}});
        press("cmdDeleteByICAO");
    }
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
    pickRow(combo("cmbPC1"), 6);
    EXPECT_EQ(combo("cmbPC1").text(), "30%");
    EXPECT_EQ(fromQString(rest.text()), "70%");
    pickRow(combo("cmbPC1"), 2);

    type("txtSplitICAO", "egll");
    type("txtSplitIcao1", "egkk");
    type("txtSplitIcao2", "xxxx");
    {
        const Expectation boxes =
            answerBoxes({{"XXXX is not a recognised airport code.  Add the airport to Airports.txt before using it."}});
        press("cmdDoSplit");
    }
    EXPECT_FALSE(form().unsavedchanges);
    EXPECT_FALSE(listsAreEmpty());
    EXPECT_EQ(box("txtSplitIcao1"), "EGKK");
    type("txtSplitIcao2", "egss");
    {
        const Expectation boxes = answerBoxes({{"Changed 2 egll to EGKK and 1 egll to EGSS"}});
        press("cmdDoSplit");
    }
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_TRUE(listsAreEmpty());
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGKK") + schedule("AC#2,GBBB", "EGSS", "LFPG") +
                                   schedule("AC#2,GCCC", "LFPG", "EGKK") + schedule("AC#3,GDDD", "EGSS", "EGKK"));
}

TEST_F(UtilitiesPanel, MovesOneAircraft) {
    press("optSplitAC");
    type("txtSplitACSource", "ac#9");
    type("txtSplitACICAO", "lfpg");
    type("txtSplitACNewICAO", "egkk");
    {
        const Expectation boxes =
            answerBoxes({{"AC#9 is not a recognised aircraft code.  Add the aircraft before using it."}});
        press("cmdSplitAC");
    }
    EXPECT_FALSE(form().unsavedchanges);
    type("txtSplitACSource", "ac#2");
    {
        const Expectation boxes = answerBoxes({{"Changed 2 flights by AC#2 from LFPG to EGKK"}});
        press("cmdSplitAC");
    }
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_TRUE(listsAreEmpty());
    EXPECT_EQ(saveAndReload(), schedule("AC#1,GAAA", "LFPG", "EGLL") + schedule("AC#2,GBBB", "EGSS", "EGKK") +
                                   schedule("AC#2,GCCC", "EGKK", "EGLL") + schedule("AC#3,GDDD", "EGLL", "EGKK"));
}

} // namespace
} // namespace vantor::test
