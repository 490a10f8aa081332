// The settings: values, the store in memory, its file, and saves that fail.
#include "foundation/error_report.h"
#include "foundation/files.h"
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/full_disk.h"
#include "support/system_files.h"

#include <tuple>

namespace vantor {
namespace {

using test::errorOf;
using Texts = std::vector<std::string>;

class Settings : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useErrorReporter([this](std::string_view text, std::string_view) { reports.emplace_back(text); });
    }
    Texts names() const {
        Texts result;
        for (std::int32_t index = 1; index <= store.SettingsCount(); ++index) {
            result.push_back(store.SettingNameByIndex(index));
        }
        return result;
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
    EXPECT_EQ(SettingValue(2.5F).int32(), 2);
    EXPECT_TRUE(SettingValue(" 1 ").flag());
    EXPECT_FALSE(SettingValue(" false").flag());
    EXPECT_TRUE(SettingValue(std::int32_t{-1}).flag());
    EXPECT_EQ(errorOf([] { (void)SettingValue("").int16(); }), 13);
    EXPECT_EQ(errorOf([] { (void)SettingValue("yes").flag(); }), 13);
    EXPECT_EQ(errorOf([] { (void)SettingValue("40000").int16(); }), 6);
    EXPECT_EQ(SettingValue(-0.25F).written(), "-0.25 ");
    EXPECT_EQ(SettingValue(std::int32_t{2}).text(), "2");
}

TEST_F(Settings, KeptSortedWithoutDuplicates) {
    for (const char* const key : {"m", "z", "a", "M", "b,1", "y", "aa", "", "~", "B1"}) {
        store.StoreSetting(key, key);
    }
    EXPECT_EQ(names(), (Texts{"", "A", "AA", "B1", "M", "Y", "Z", "~"}));
    EXPECT_EQ(store.RetrieveSetting("m", "").text(), "M"); // the later value
    EXPECT_EQ(store.RetrieveSetting("b,1", "").text(), "B1");
    store.DeleteSettingByName("b1");
    store.DeleteSettingByName("none");
    EXPECT_EQ(names(), (Texts{"", "A", "AA", "M", "Y", "Z", "~"}));
    EXPECT_EQ(newestAction(), "");
    store.DeleteSetting(7);
    store.DeleteSetting(7);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub deletesetting of module cSHAREDSettings");
    EXPECT_EQ(names(), (Texts{"", "A", "AA", "M", "Y", "Z"}));
    EXPECT_EQ(store.SettingNameByIndex(0), "");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in property get settingnamebyindex of module cSHAREDSettings");
    store.DeleteAllSettings();
    EXPECT_EQ(store.SettingsCount(), 0);
}

TEST_F(Settings, DefaultsKeepTheirType) {
    EXPECT_EQ(store.RetrieveSetting("none", 0.5F), SettingValue(0.5F));
    store.sSet("zero", " 0 ");
    store.sSet("no", false);
    store.sSet("word", "abc");
    store.sSet("empty", "");
    EXPECT_EQ(store.RetrieveSetting("ZERO", 7.0F).text(), " 0 ");
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

TEST_F(Settings, WrittenSortedAndReadBack) {
    store.sSet("width", 1234.5F);
    store.sSet("gmt", std::int16_t{-5});
    store.sSet("path", "C:\\Flight, Simulator\\ ");
    store.sSet("done", true);
    const std::string bytes = "DONE,True\r\nGMT,-5 \r\nPATH,C:\\Flight, Simulator\\ \r\nWIDTH, 1234.5 \r\n";
    EXPECT_EQ(saved(), bytes);
    load(bytes);
    EXPECT_EQ(store.sGet("width", 0.0F).single(), 1234.5F);
    EXPECT_EQ(store.sGet("gmt", 0.0F).int16(), -5);
    EXPECT_EQ(store.sGet("path", "").text(), "C:\\Flight, Simulator\\ ");
    EXPECT_EQ(store.sGet("done", false), SettingValue(true));
    EXPECT_EQ(saved(), bytes);
    EXPECT_TRUE(reports.empty());
}

TEST_F(Settings, FilesEditedByHand) {
    load("Z,1\r\nno comma\r\n,empty key\r\n  ,blank key\r\nB,first\r\nb ,skipped\r\nA,1\r\nB,later\r\n\r\nX, false "
         "\r\nW,a\nb");
    EXPECT_EQ(saved(), "A,1\r\nB,later\r\nW,a\nb\r\nX,False\r\nZ,1\r\n");
    load("B,first\r\nno comma\r\nB,second\r\n"); // a line without a comma leaves no key behind
    EXPECT_EQ(store.sGet("B", "").text(), "second");
    load("key,1\r\nKEY,2\r\nZ,3\r\nz,4");                // keys in small letters stay as they stand
    EXPECT_EQ(store.sGet("key", "none").text(), "none"); // looked for in capitals: the second line was skipped
    EXPECT_EQ(saved(), "Z,3\r\nKEY,1\r\n");
    store.DeleteSettingByName("key");
    EXPECT_EQ(saved(), "Z,3\r\n");
    for (const char* const other : {"Z,3\nA,1\nz,4", "Z,3\rA,1\r\rz,4\r"}) { // saved by an editor with ends of its own
        load(other);
        EXPECT_EQ(saved(), "A,1\r\nZ,3\r\n");
    }
    load("Z,3\r\nA,1\r\nz,4"); // neighbours in the file that is written: the first stays
    EXPECT_EQ(saved(), "A,1\r\nZ,3\r\n");
    load(std::string_view("\0\xFF,\0\r\n,,,\r\nK,v", 14));
    EXPECT_EQ(store.SettingsCount(), 2);
    store.LoadSettings(path("none.ini"));
    EXPECT_EQ(store.SettingsCount(), 0);
    EXPECT_TRUE(reports.empty());
    std::string large;
    for (int i = 200000; i > 0; --i) {
        large += "KEY" + std::to_string(i) + ",value\r\n";
    }
    load(large);
    EXPECT_EQ(store.SettingsCount(), 200000);
    EXPECT_EQ(store.sGet("KEY777", "").text(), "value");
}

TEST_F(Settings, FaultsOfTheFileAreTold) {
    store.LoadSettings(test::unreadable);
    EXPECT_EQ(reports, Texts{"Error " + std::to_string(test::unreadableError) + " in setting file. Line:  of " +
                             test::unreadable});
    EXPECT_EQ(store.SettingsCount(), 0);
    store.sSet("key", "x");
    store.SaveSettings(path("none\\Vantor2.ini"));
    EXPECT_EQ(reports.back(), "76 - Path not found in SaveSettings");
    store.SaveSettings(test::unwritable); // lost in silence
    EXPECT_EQ(logTexts(), Texts{test::unwritable + " is read only, can't change it to read write, can't update it"});
    EXPECT_TRUE(recorder.messages.empty());
    std::filesystem::create_directory(folder() / "dir");
    store.SaveSettings(path("dir"));
    EXPECT_EQ(recorder.messages, Texts{"Unable to write to settings file - possibly read-only?"});
    EXPECT_EQ(reports.size(), 2U);
}

#ifndef _WIN32 // no way to fill a disk there
TEST_F(Settings, AFullDiskIsTriedAgainUntilThereIsSpace) {
    // Met by the last flush, and by a write in the middle. A path's drive is its first character unless that is a "\\".
    for (const auto& [file, drive, length] : {std::tuple{path("Vantor2.ini"), path("Vantor2.ini"), 20U},
                                              {std::string("Vantor2.ini"), std::string("V"), 100000U}}) {
        recorder.messages.clear();
        writeFile("Vantor2.ini", "OLD,1\r\n");
        test::FullDisk full(10);
        recorder.onMessage = [&](std::string_view) {
            EXPECT_EQ(readFile("Vantor2.ini"), "OLD,1\r\n");
            EXPECT_FALSE(exists("Vantor2.ini.~new"));
            if (recorder.messages.size() == 3) {
                full.release();
            }
        };
        store.sSet("key", std::string(length, 'x'));
        store.SaveSettings(file);
        const std::string told = "You've run out of disk space on drive " + drive +
                                 ":\rPlease clear some space and then click OK to attempt to save again.";
        EXPECT_EQ(recorder.messages, (Texts{told, told, told}));
        EXPECT_EQ(readFile("Vantor2.ini"), "KEY," + std::string(length, 'x') + "\r\n");
    }
}
#endif

} // namespace
} // namespace vantor
