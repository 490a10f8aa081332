// Values of settings, and the store in memory.
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "support/expect_error.h"
#include "support/fixture.h"

namespace vantor {
namespace {

using test::errorOf;

class Settings : public test::Fixture {
  protected:
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (std::int32_t index = 1; index <= store.SettingsCount(); ++index) {
            result.push_back(store.SettingNameByIndex(index));
        }
        return result;
    }
    cSHAREDSettings store;
};

TEST_F(Settings, ValuesConvert) {
    EXPECT_EQ(SettingValue(" 2 ").int16(), 2); // as a reload gives it back
    EXPECT_EQ(SettingValue(" 0.25 ").single(), 0.25F);
    EXPECT_EQ(SettingValue(true).int16(), -1);
    EXPECT_EQ(SettingValue(2.5F).int32(), 2);
    EXPECT_TRUE(SettingValue(" 1 ").flag());
    EXPECT_FALSE(SettingValue(" false").flag());
    EXPECT_TRUE(SettingValue(std::int32_t{-1}).flag());
    EXPECT_EQ(errorOf([] { (void)SettingValue("").int16(); }), 13);
    EXPECT_EQ(errorOf([] { (void)SettingValue("yes").flag(); }), 13);
    EXPECT_EQ(errorOf([] { (void)SettingValue("40000").int16(); }), 6);
    EXPECT_EQ(SettingValue(-0.25F).written(), "-0.25 ");
    EXPECT_EQ(SettingValue(std::int32_t{2}).text(), "2");
    EXPECT_EQ(SettingValue(" x ").text(), " x ");
}

TEST_F(Settings, KeptSortedWithoutDuplicates) {
    for (const char* const key : {"m", "z", "a", "M", "b,1", "y", "aa", "", "~", "B1"}) {
        store.StoreSetting(key, key);
    }
    EXPECT_EQ(names(), (std::vector<std::string>{"", "A", "AA", "B1", "M", "Y", "Z", "~"}));
    EXPECT_EQ(store.RetrieveSetting("m", "").text(), "M");
    EXPECT_EQ(store.sGet("B1", "").text(), "B1"); // the later value
    EXPECT_EQ(store.RetrieveSetting("b,1", "").text(), "B1");
}

TEST_F(Settings, DefaultsKeepTheirType) {
    store.sSet("Fs2k2Path", "C:\\FS");
    EXPECT_EQ(store.RetrieveSetting("FS2k2Path", "").text(), "C:\\FS");
    EXPECT_EQ(store.RetrieveSetting("none", 0.5F), SettingValue(0.5F));
    store.sSet("zero", " 0 ");
    store.sSet("no", false);
    store.sSet("word", "abc");
    store.sSet("empty", "");
    EXPECT_EQ(store.RetrieveSetting("zero", 7.0F).text(), " 0 ");
    EXPECT_EQ(store.RetrieveWithDefault("zero", 7.0F), SettingValue(7.0F));
    EXPECT_EQ(store.RetrieveWithDefault("no", 7.0F), SettingValue(7.0F));
    EXPECT_EQ(store.RetrieveWithDefault("word", 7.0F).text(), "abc");
    EXPECT_EQ(store.RetrieveWithDefault("empty", 7.0F).text(), "");
    EXPECT_EQ(newestAction(), "");
}

TEST_F(Settings, WordsForTrueAndFalse) {
    recorder.trueWord = "Wahr";
    recorder.falseWord = "Falsch";
    for (const auto& [word, flag] :
         {std::pair{"TRUE", true}, {" true ", true}, {"wahr", true}, {"False", false}, {"FALSCH ", false}}) {
        store.StoreSetting("flag", word);
        EXPECT_EQ(store.RetrieveSetting("flag", "default"), SettingValue(flag)) << word;
    }
    store.StoreSetting("flag", "truely");
    EXPECT_EQ(store.RetrieveSetting("flag", "default"), SettingValue("truely"));
}

TEST_F(Settings, Deleting) {
    for (const char* const key : {"a", "b", "c"}) {
        store.StoreSetting(key, key);
    }
    store.DeleteSettingByName("b");
    store.DeleteSettingByName("none");
    EXPECT_EQ(names(), (std::vector<std::string>{"A", "C"}));
    EXPECT_EQ(newestAction(), "");
    store.DeleteSetting(1);
    EXPECT_EQ(names(), std::vector<std::string>{"C"});
    store.DeleteSetting(2);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub deletesetting of module cSHAREDSettings");
    EXPECT_EQ(store.SettingNameByIndex(0), "");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in property get settingnamebyindex of module cSHAREDSettings");
    store.DeleteAllSettings();
    EXPECT_EQ(store.SettingsCount(), 0);
}

TEST_F(Settings, TheGlobalStoreNeedsALoad) {
    EXPECT_EQ(sget("key", "default").text(), "default");
    EXPECT_NE(newestAction().find("in function sget of module mSHAREDSettingsGetSet"), std::string::npos);
    savesettings(path("Vantor2.ini"));
    EXPECT_FALSE(exists("Vantor2.ini"));
    LoadSettings(path("Vantor2.ini"));
    sset("FSMode", std::int16_t{2});
    EXPECT_EQ(sget("fsmode", "").int16(), 2);
    savesettings(path("Vantor2.ini"));
    EXPECT_EQ(readFile("Vantor2.ini"), "FSMODE, 2 \r\n");
}

} // namespace
} // namespace vantor
