// Tests of when the program asks by itself.
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "support/fixture.h"
#include "update/automatic_check.h"

namespace vantor {
namespace {

class AutomaticCheck : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
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
    EXPECT_FALSE(dueAfter(today));
    EXPECT_FALSE(dueAfter(today - 6));
    EXPECT_TRUE(dueAfter(today - 7));
    EXPECT_TRUE(dueAfter(today - 8));
    EXPECT_TRUE(dueAfter(" " + std::to_string(today - 7) + " ")) << "as the file writes it";
    EXPECT_FALSE(dueAfter(today + 3)) << "a clock that was put back";
    EXPECT_EQ(checkDateText(today - 6), "26/May/2004");
    EXPECT_FALSE(dueAfter("26/May/2004"));
    EXPECT_TRUE(dueAfter("25/MAY/2004"));
    EXPECT_TRUE(newestAction().empty()) << newestAction();
}

TEST_F(AutomaticCheck, ADateThatIsNoneIsAFaultInTheRing) {
    // The months of another language among them: it is compared as it stands, so a check is due.
    for (const std::string text : {"26/Mai/2004", "31/Jun/2004", "-5/May/2004", "26/May", "1/2/3/4"}) {
        resetLogging();
        EXPECT_TRUE(dueAfter(text)) << text;
        EXPECT_EQ(newestAction(), "Type mismatch(13) in function checkdue of module mSHAREDUpdater") << text;
    }
}

} // namespace
} // namespace vantor
