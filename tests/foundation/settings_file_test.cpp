// The settings file: round trips, files edited by hand, and saves that fail.
#include "foundation/error_report.h"
#include "foundation/files.h"
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "support/fixture.h"
#include "support/full_disk.h"
#include "support/system_files.h"

namespace vantor {
namespace {

using Texts = std::vector<std::string>;
constexpr std::string_view cantWrite = "Unable to write to settings file - possibly read-only?";

class SettingsFile : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
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

TEST_F(SettingsFile, WrittenSortedAndReadBack) {
    store.sSet("width", 1234.5F);
    store.sSet("gmt", std::int16_t{-5});
    store.sSet("path", "C:\\Flight, Simulator\\ ");
    store.sSet("done", true);
    const std::string bytes = "DONE,True\r\nGMT,-5 \r\nPATH,C:\\Flight, Simulator\\ \r\nWIDTH, 1234.5 \r\n";
    EXPECT_EQ(saved(), bytes);
    load(bytes);
    EXPECT_EQ(store.SettingsCount(), 4);
    EXPECT_EQ(store.sGet("width", 0.0F).single(), 1234.5F);
    EXPECT_EQ(store.sGet("gmt", 0.0F).int16(), -5);
    EXPECT_EQ(store.sGet("path", "").text(), "C:\\Flight, Simulator\\ ");
    EXPECT_EQ(store.sGet("done", false), SettingValue(true));
    EXPECT_EQ(saved(), bytes);
    EXPECT_TRUE(reports.empty());
}

TEST_F(SettingsFile, EditedByHand) {
    load("Z,1\r\nno comma\r\n,empty key\r\n  ,blank key\r\nB,first\r\nb ,skipped\r\nA,1\r\nB,later\r\n\r\nX, false "
         "\r\nW,a\nb");
    EXPECT_EQ(saved(), "A,1\r\nB,later\r\nW,a\nb\r\nX,False\r\nZ,1\r\n");
    load("B,first\r\nno comma\r\nB,second\r\n"); // a line without a comma leaves no key behind
    EXPECT_EQ(store.sGet("B", "").text(), "second");
}

TEST_F(SettingsFile, KeysInSmallLettersStayAsTheyStand) {
    load("key,1\r\nKEY,2\r\nZ,3\r\nz,4");
    EXPECT_EQ(store.sGet("key", "none").text(), "none"); // looked for in capitals: the second line was skipped
    EXPECT_EQ(saved(), "Z,3\r\nKEY,1\r\n");
    store.DeleteSettingByName("key");
    EXPECT_EQ(saved(), "Z,3\r\n");
}

TEST_F(SettingsFile, AMissingOrDamagedFile) {
    store.sSet("old", "x");
    store.LoadSettings(path("none.ini"));
    EXPECT_EQ(store.SettingsCount(), 0);
    load("");
    EXPECT_EQ(store.SettingsCount(), 0);
    load(std::string_view("\0\xFF,\0\r\n,,,\r\nK,v", 14));
    EXPECT_EQ(store.SettingsCount(), 2);
    EXPECT_TRUE(reports.empty());
    std::string large;
    for (int i = 200000; i > 0; --i) {
        large += "KEY" + std::to_string(i) + ",value\r\n";
    }
    load(large);
    EXPECT_EQ(store.SettingsCount(), 200000);
    EXPECT_EQ(store.sGet("KEY777", "").text(), "value");
}

TEST_F(SettingsFile, AReadFaultIsReported) {
    store.LoadSettings(test::unreadable);
    EXPECT_EQ(reports, Texts{"Error " + std::to_string(test::unreadableError) + " in setting file. Line:  of " +
                             test::unreadable});
    EXPECT_EQ(store.SettingsCount(), 0);
}

TEST_F(SettingsFile, AReadOnlyFileIsLostInSilence) {
    store.sSet("key", "x");
    store.SaveSettings(test::unwritable);
    EXPECT_TRUE(recorder.messages.empty());
    EXPECT_EQ(logTexts(), Texts{test::unwritable + " is read only, can't change it to read write, can't update it"});
}

TEST_F(SettingsFile, AFolderInItsPlaceIsTold) {
    std::filesystem::create_directory(folder() / "Vantor2.ini");
    store.sSet("key", "x");
    store.SaveSettings(path("Vantor2.ini"));
    EXPECT_EQ(recorder.messages, Texts{std::string(cantWrite)});
}

TEST_F(SettingsFile, AnyOtherFaultIsReported) {
    store.sSet("key", "x");
    store.SaveSettings(path("none\\Vantor2.ini"));
    EXPECT_EQ(reports, Texts{"76 - Path not found in SaveSettings"});
    EXPECT_TRUE(recorder.messages.empty());
}

#ifndef _WIN32 // no way to fill a disk there
TEST_F(SettingsFile, AFullDiskIsTriedAgainUntilThereIsSpace) {
    for (const std::size_t length : {20U, 100000U}) { // met by the last flush, and by a write in the middle
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
        store.SaveSettings(path("Vantor2.ini"));
        const std::string diskFull = "You've run out of disk space on drive " + path("Vantor2.ini") +
                                     ":\rPlease clear some space and then click OK to attempt to save again.";
        EXPECT_EQ(recorder.messages, (Texts{diskFull, diskFull, diskFull}));
        EXPECT_EQ(readFile("Vantor2.ini"), "KEY," + std::string(length, 'x') + "\r\n");
    }
}
#endif

} // namespace
} // namespace vantor
