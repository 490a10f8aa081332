// The settings: values, the store in memory, its file, and saves that fail.
#include "foundation/error_report.h"
#include "support/test.h"

namespace vantor {
namespace {

class Settings : public Fixture {
  protected:
    void SetUp() override {
        useErrorReporter([this](std::string_view text, std::string_view) { reports.emplace_back(text); });
    }
    void load(std::string_view bytes) {
        writeFile("Vantor2.ini", bytes);
        store.LoadSettings(path("Vantor2.ini"));
    }
    std::string saved() {
        store.SaveSettings(path("out.ini"));
        return readFile("out.ini");
    }

    cSHAREDSettings store;
    Texts reports;
};

TEST_F(Settings, ValuesConvert) {
    EXPECT_EQ(SettingValue(" 2 ").int16(), 2); // as a reload gives it back
    EXPECT_EQ(SettingValue(" 0.25 ").single(), 0.25F);
    EXPECT_EQ(SettingValue(true).int16(), -1);
    EXPECT_TRUE(SettingValue(" 1 ").flag() && SettingValue(std::int32_t{-1}).flag());
    EXPECT_FALSE(SettingValue(" false").flag());
    EXPECT_EQ(errorOf([] { (void)SettingValue("").int16(); }), 13);
    EXPECT_EQ(errorOf([] { (void)SettingValue("yes").flag(); }), 13);
    EXPECT_EQ(errorOf([] { (void)SettingValue("40000").int16(); }), 6);
    EXPECT_EQ(SettingValue(-0.25F).written() + SettingValue(std::int32_t{2}).text(), "-0.25 2");
}

TEST_F(Settings, KeptSortedWithoutDuplicates) {
    for (const char* const key : {"m", "z", "a", "M", "b,1", "y", "aa", "", "~", "B1"}) {
        store.StoreSetting(key, key);
    }
    EXPECT_EQ(saved(), "A,a\r\nAA,aa\r\nB1,B1\r\nM,M\r\nY,y\r\nZ,z\r\n~,~\r\n"); // the later values
    EXPECT_EQ(store.RetrieveSetting("b,1", "").text(), "B1");
    EXPECT_EQ(store.SettingNameByIndex(4), "B1"); // behind the empty key, which is not written
    store.DeleteSettingByName("b1");
    store.DeleteSettingByName("none");
    EXPECT_EQ(newestAction(), "");
    store.DeleteSetting(7);
    store.DeleteSetting(7);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub deletesetting of module cSHAREDSettings");
    EXPECT_EQ(saved(), "A,a\r\nAA,aa\r\nM,M\r\nY,y\r\nZ,z\r\n");
    EXPECT_EQ(store.SettingNameByIndex(0), "");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in property get settingnamebyindex of module cSHAREDSettings");
    store.DeleteAllSettings();
    EXPECT_EQ(store.SettingsCount(), 0);
}

TEST_F(Settings, DefaultsKeepTheirTypeAndWordsForTrueAndFalseAreRead) {
    recorder.trueWord = "Wahr";
    recorder.falseWord = "Falsch";
    EXPECT_EQ(store.RetrieveSetting("none", 0.5F), SettingValue(0.5F));
    const SettingValue other = 7.0F;
    for (const auto& [word, plain, nonzero] : {std::tuple{"TRUE", SettingValue(true), SettingValue(true)},
                                               {" wahr ", true, true},
                                               {"False", false, other},
                                               {"FALSCH ", false, other},
                                               {" 0 ", " 0 ", other},
                                               {"truely", "truely", "truely"},
                                               {"", "", ""}}) {
        store.sSet("key", word);
        EXPECT_EQ(store.sGet("KEY", other), plain) << word;
        EXPECT_EQ(store.RetrieveWithDefault("key", other), nonzero) << word;
    }
    EXPECT_EQ(newestAction(), "");
}

TEST_F(Settings, TheGlobalStoreNeedsALoad) {
    constexpr SettingKey<std::int16_t> mode{"FSMode", 4};
    EXPECT_EQ(sget(mode).int16(), 4);
    EXPECT_NE(newestAction().find("in function sget of module mSHAREDSettingsGetSet"), std::string::npos);
    savesettings(path("Vantor2.ini"));
    EXPECT_FALSE(exists("Vantor2.ini"));
    LoadSettings(path("Vantor2.ini"));
    sset("fsmode", std::int16_t{2});
    EXPECT_EQ(sget(mode).int16(), 2);
    savesettings(path("Vantor2.ini"));
    EXPECT_EQ(readFile("Vantor2.ini"), "FSMODE, 2 \r\n");
}

TEST_F(Settings, FilesAsWrittenAndAsEditedByHand) {
    store.sSet("width", 1234.5F);
    store.sSet("gmt", std::int16_t{-5});
    store.sSet("path", "C:\\Flight, Simulator\\ ");
    store.sSet("done", true);
    const std::string written = "DONE,True\r\nGMT,-5 \r\nPATH,C:\\Flight, Simulator\\ \r\nWIDTH, 1234.5 \r\n";
    EXPECT_EQ(saved(), written);
    for (const auto& [bytes, again] : std::vector<std::pair<std::string, std::string>>{
             {written, written},
             {"Z,1\r\nno comma\r\n,empty key\r\n  ,blank key\r\nB,first\r\nb ,skipped\r\nA,1\r\nB,later\r\n\r\nX, "
              "false "
              "\r\nW,a\nb",
              "A,1\r\nB,later\r\nW,a\nb\r\nX,False\r\nZ,1\r\n"},
             {"B,first\r\nno comma\r\nB,second\r\n", "B,second\r\n"}, // a line without a comma leaves no key behind
             {"Z,3\r\nA,1\r\nz,4", "A,1\r\nZ,3\r\n"}, // neighbours in the file that is written: the first stays
             {"Z,3\nA,1\nz,4", "A,1\r\nZ,3\r\n"},     // saved by an editor with line ends of its own
             {"Z,3\rA,1\r\rz,4\r", "A,1\r\nZ,3\r\n"},
             {std::string("\0\xFF,\0\r\n,,,\r\nK,v", 14), std::string("\0\x9F,\0\r\nK,v\r\n", 11)}}) {
        load(bytes);
        EXPECT_EQ(saved(), again) << bytes;
    }
    load("key,1\r\nKEY,2\r\nZ,3\r\nz,4");                // keys in small letters stay as they stand
    EXPECT_EQ(store.sGet("key", "none").text(), "none"); // looked for in capitals: the second line was skipped
    EXPECT_EQ(saved(), "Z,3\r\nKEY,1\r\n");
    store.DeleteSettingByName("key");
    EXPECT_EQ(saved(), "Z,3\r\n");
    store.LoadSettings(path("none.ini"));
    EXPECT_EQ(store.SettingsCount(), 0);
    EXPECT_TRUE(reports.empty());
}

TEST_F(Settings, FaultsOfTheFileAreTold) {
    store.LoadSettings(unreadable);
    store.sSet("key", "x");
    store.SaveSettings(path("none\\Vantor2.ini"));
    EXPECT_EQ(reports, (Texts{"Error " + std::to_string(unreadableError) + " in setting file. Line:  of " + unreadable,
                              "76 - Path not found in SaveSettings"}));
    store.SaveSettings(unwritable); // lost in silence
    EXPECT_EQ(logTexts(), Texts{unwritable + " is read only, can't change it to read write, can't update it"});
    EXPECT_TRUE(recorder.messages.empty());
}

} // namespace
} // namespace vantor
