// The log's layout, the ring of recent actions and the system's name.
#include "foundation/files.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/system_files.h"

#include <algorithm>
#include <unistd.h>

namespace vantor {
namespace {

using Lines = std::vector<std::string>;

class Log : public test::Fixture {};

TEST_F(Log, ALineHasThreeColumns) {
    clock.setTimer(9 * 3600 + 8 * 60 + 7);
    logit("first");
    EXPECT_EQ(readFile("log.txt"), "09:08:07       1            first\r\n");
    const OutputFile other(path("other"));
    logit("second");
    EXPECT_EQ(logLines().back(), "09:08:07       2            second");
}

TEST_F(Log, ANewLogStartsWithItsHeader) {
    logit("from an earlier run");
    recorder.version = SystemVersion{2, 5, 1};
    logit("starting.", true);
    EXPECT_EQ(logTexts(), (Lines{"Log file created 01/06/2004 12:00:00", "Operating System: WinXP", "App: Vantor",
                                 "Version: " + AppVersion(), "starting."}));
    for (const std::string& line : logLines()) {
        EXPECT_EQ(line.substr(0, 28), "12:00:00       1            ");
    }
    EXPECT_TRUE(AppVersion().find_first_not_of("0123456789.") == std::string::npos);
    EXPECT_EQ(std::ranges::count(AppVersion(), '.'), 2);
}

#ifndef _WIN32 // folders there keep nobody from erasing
TEST_F(Log, ALogThatCantBeErasedIsAppendedToWithoutAHeader) {
    struct HeaderWatch : test::RecordingHost {
        int headers = 0;
        std::string generalDateTime(DateTime value) override {
            ++headers;
            return RecordingHost::generalDateTime(value);
        }
    } watch;
    useHost(&watch);
    // A file that takes lines in a folder that lets nobody remove it; an administrator steps back for that.
    writeFile("log.txt", "earlier\r\n");
    std::filesystem::permissions(folder() / "log.txt", std::filesystem::perms(0666));
    std::filesystem::permissions(folder(), std::filesystem::perms(0555));
    const bool administrator = geteuid() == 0;
    ASSERT_EQ(administrator ? seteuid(65534) : 0, 0);
    const int error = test::errorOf([&] { writelogline(path("log.txt"), "x", true); });
    ASSERT_EQ(administrator ? seteuid(0) : 0, 0);
    std::filesystem::permissions(folder(), std::filesystem::perms(0755));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(readFile("log.txt"), "earlier\r\n12:00:00       1            x\r\n");
    EXPECT_EQ(watch.headers, 0);
    EXPECT_EQ(newestAction(), "Path/File access error(75) in sub erasefile of module mSHAREDFileSubs");
    writelogline(path("log.txt"), "x", true);
    EXPECT_EQ(watch.headers, 1);
}
#endif

TEST_F(Log, FailuresReachTheCaller) {
    EXPECT_EQ(test::errorOf([&] { writelogline(path("none\\log.txt"), "x", true); }), 76);
    EXPECT_EQ(test::errorOf([] { writelogline(test::fullDevice, "x", false); }), 61);
}

TEST_F(Log, ADumpBeforeTheRingWrapped) {
    logaction("one", "sub a", "m");
    clock.advance(60);
    logaction("two", "", "");
    logdebug("three", "function b", "");
    dumpactions();
    EXPECT_EQ(logTexts(),
              (Lines{"Listing last 40 actions: ", " >> 1: one in sub a of module m - 12:00:00", " >> 2: two - 12:01:00",
                     " >> 3: DBG: three in function b - 12:01:00", "End of actions list"}));
    EXPECT_EQ(newestAction(), "DBG: three in function b"); // the ring keeps its entries
}

TEST_F(Log, The41stActionDumpsTheRingInOrder) {
    for (int i = 1; i <= 40; ++i) {
        logaction("action " + std::to_string(i), "", "");
    }
    EXPECT_FALSE(exists("log.txt"));
    logaction("action 41", "", "");
    Lines expected{"Listing last 40 actions: "};
    for (int i = 1; i <= 40; ++i) {
        const std::string number = std::to_string(i);
        expected.push_back(" >> " + number + ": action " + number + " - 12:00:00");
    }
    expected.emplace_back("End of actions list");
    EXPECT_EQ(logTexts(), expected);
    EXPECT_EQ(actionText(1), "action 41");
    EXPECT_EQ(actionText(2), "action 2");

    dumpactions(); // the oldest first: 2 to 40, then 41
    EXPECT_EQ(logTexts().at(43), " >> 1: action 2 - 12:00:00");
    EXPECT_EQ(logTexts().at(82), " >> 40: action 41 - 12:00:00");
}

TEST_F(Log, The41stDebugEntryDumpsNothing) {
    for (int i = 1; i <= 41; ++i) {
        logdebug(std::to_string(i), "", "");
    }
    EXPECT_FALSE(exists("log.txt"));
    EXPECT_EQ(actionText(1), "DBG: 41");
    EXPECT_EQ(actionText(40), "DBG: 40");
    EXPECT_EQ(actionText(0), "");
    EXPECT_EQ(actionText(41), "");
}

TEST_F(Log, AnUnreachableLogKeepsTheRingTurning) {
    std::filesystem::create_directory(folder() / "log.txt");
    for (int i = 1; i <= 40; ++i) {
        logaction(std::to_string(i), "", "");
    }
    EXPECT_EQ(test::errorOf([] { logaction("41", "", ""); }), 75);
    EXPECT_EQ(newestAction(), "41");
    EXPECT_EQ(actionText(1), "41");
    EXPECT_EQ(test::errorOf([] { logaction("42", "", ""); }), 0);
}

TEST_F(Log, NamesOfTheSystem) {
    const auto name = [this](int platform, int major, int minor) {
        recorder.version = SystemVersion{platform, major, minor};
        return fosname();
    };
    EXPECT_EQ(name(2, 7, 0), "WINNT6+");
    EXPECT_EQ(name(2, 6, 1), ""); // meant
    EXPECT_EQ(name(2, 5, 0), "Win2K");
    EXPECT_EQ(name(2, 5, 2), "WinXP");
    EXPECT_EQ(name(2, 4, 0), "WinNT");
    EXPECT_EQ(name(1, 4, 10), "Win98");
    EXPECT_EQ(name(1, 4, 0), "Win95");
    EXPECT_EQ(name(1, 4, 90), "WinME");
    EXPECT_EQ(name(1, 4, 3), "WIN32");
    EXPECT_EQ(name(0, 4, 0), "");
    recorder.version.reset();
    EXPECT_EQ(fosname(), "");
}

} // namespace
} // namespace vantor
