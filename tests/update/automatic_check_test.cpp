// Tests of when the program asks by itself.
#include "support/test.h"
#include "update/automatic_check.h"

namespace vantor {
namespace {

class AutomaticCheck : public Fixture {
  protected:
    void SetUp() override {
        LoadSettings(path("Vantor2.ini")); // an empty store
    }
    static bool dueAfter(const SettingValue& last) {
        sset("LastUpdateCheck", last);
        return CheckDue();
    }
};

TEST_F(AutomaticCheck, IsOffUntilTheUserSwitchesItOn) {
    EXPECT_TRUE(CheckDisabled());
    EXPECT_EQ(logTexts().back(), "Automatic update check is disabled");
    sset("DisableAutoUpdateCheck", "not a flag");
    EXPECT_TRUE(CheckDisabled());
    sset("DisableAutoUpdateCheck", false);
    EXPECT_FALSE(CheckDisabled());
}

TEST_F(AutomaticCheck, IsDueAWeekAfterTheLastAnswer) {
    const std::int32_t today = dayNumber({2004, 6, 1});
    EXPECT_TRUE(CheckDue()) << "never checked";
    for (const int days : {-3, 0, 6, 7, 8}) { // one ahead: the clock was put back
        EXPECT_EQ(dueAfter(today - days), days >= 7) << days;
    }
    EXPECT_TRUE(dueAfter(" " + std::to_string(today - 7) + " ")) << "as the file writes it";
    EXPECT_EQ(checkDateText(today - 6), "26/May/2004");
    EXPECT_FALSE(dueAfter("26/May/2004"));
    EXPECT_TRUE(dueAfter("25/MAY/2004"));
    EXPECT_TRUE(newestAction().empty()) << newestAction();
}

TEST_F(AutomaticCheck, ADateThatIsNoneIsAFaultInTheRing) {
    // The months of another language among them: it is compared as it stands, so a check is due.
    for (const std::string text : {"26/Mai/2004", "31/Jun/2004", "-5/May/2004", "26/May", "1/2/3/4"}) {
        forgetActions();
        EXPECT_TRUE(dueAfter(text)) << text;
        EXPECT_EQ(newestAction(), "Type mismatch(13) in function checkdue of module mSHAREDUpdater") << text;
    }
}

} // namespace
} // namespace vantor
