// What becomes of faults: their numbers, the standard trap, the ring of recent actions, the log.
#include "foundation/files.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/system_files.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

namespace vantor {
namespace {

using test::errorOf;
using Lines = std::vector<std::string>;

class Log : public test::Fixture {};

TEST_F(Log, SystemFailuresAndStandardExceptionsBecomeNumbers) {
    // Those that no test of the files meets on a real disk.
    for (const auto& [failure, number] : {std::pair{EMFILE, 67}, {EACCES, 75}, {EROFS, 75}, {ENOSPC, 61}}) {
        EXPECT_EQ(errorFromErrno(failure).number(), number);
    }
    EXPECT_EQ(errorOf([] { throw std::bad_alloc(); }), 7);
    EXPECT_EQ(errorOf([] { throw std::length_error("x"); }), 7);
    EXPECT_EQ(errorOf([] { throw std::out_of_range("x"); }), 9);
    EXPECT_EQ(errorOf([] { throw std::system_error(std::make_error_code(std::errc::no_space_on_device)); }), 61);
    EXPECT_EQ(errorOf([] { throw std::runtime_error("x"); }), 51);
    EXPECT_EQ(errorOf([] { throw 5; }), 51);
    EXPECT_EQ(errorText(61), "Disk full");
    EXPECT_EQ(errorText(23000), "Application-defined or object-defined error");
}

TEST_F(Log, TheTrapNotesTheFaultAndTheNextStatementRuns) {
    const StandardTrap trap{"sub cmdcompile_click", "frmMain"};
    int value = 1;
    EXPECT_FALSE(trap([&] {
        throw Error(ErrorCode::SubscriptOutOfRange);
        value = 2;
    }));
    EXPECT_TRUE(trap([&] { value += 10; }));
    EXPECT_EQ(value, 11);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub cmdcompile_click of module frmMain");
    EXPECT_EQ(actionText(2), "");
}

TEST_F(Log, TrapAndRingGoOnWhenTheLogIsOutOfReach) {
    std::filesystem::create_directory(folder() / "log.txt");
    const StandardTrap trap{"sub x", "m"};
    for (int fault = 1; fault <= 3 * recentActions; ++fault) {
        trap([&] { throw Error(1000 + fault, "Fault"); });
    }
    EXPECT_EQ(newestAction(), "Fault(1120) in sub x of module m");
    EXPECT_EQ(errorOf([] { logaction("41", "", ""); }), 75);
    EXPECT_EQ(actionText(1), "41");
    EXPECT_EQ(errorOf([] { logaction("42", "", ""); }), 0);
}

TEST_F(Log, ALineHasThreeColumns) {
    clock.setTimer(9 * 3600 + 8 * 60 + 7);
    logit("first");
    EXPECT_EQ(readFile("log.txt"), "09:08:07       1            first\r\n");
    const OutputFile other(path("other"));
    logit("second");
    EXPECT_EQ(logLines().back(), "09:08:07       2            second");
    EXPECT_EQ(errorOf([&] { writelogline(path("none\\log.txt"), "x", true); }), 76); // failures reach the caller
    EXPECT_EQ(errorOf([] { writelogline(test::fullDevice, "x", false); }), 61);
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
    // A file that takes lines in a folder that lets nobody remove it; an administrator steps back for that.
    writeFile("log.txt", "earlier\r\n");
    std::filesystem::permissions(folder() / "log.txt", std::filesystem::perms(0666));
    std::filesystem::permissions(folder(), std::filesystem::perms(0555));
    const bool administrator = geteuid() == 0;
    ASSERT_EQ(administrator ? seteuid(65534) : 0, 0);
    const int error = errorOf([&] { writelogline(path("log.txt"), "x", true); });
    ASSERT_EQ(administrator ? seteuid(0) : 0, 0);
    std::filesystem::permissions(folder(), std::filesystem::perms(0755));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(readFile("log.txt"), "earlier\r\n12:00:00       1            x\r\n");
    EXPECT_EQ(newestAction(), "Path/File access error(75) in sub erasefile of module mSHAREDFileSubs");
}
#endif

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
    Lines expected{"Listing last 40 actions: "};
    for (int i = 1; i <= 40; ++i) {
        const std::string number = std::to_string(i);
        logaction("action " + number, "", "");
        expected.push_back(" >> " + number + ": action " + number + " - 12:00:00");
    }
    expected.emplace_back("End of actions list");
    EXPECT_FALSE(exists("log.txt"));
    logaction("action 41", "", "");
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
    EXPECT_EQ(actionText(0) + actionText(41), "");
}

TEST_F(Log, NamesOfTheSystem) {
    for (const auto& [version, name] : {std::pair{SystemVersion{2, 7, 0}, "WINNT6+"},
                                        {{2, 6, 1}, ""},
                                        {{2, 5, 0}, "Win2K"},
                                        {{2, 5, 2}, "WinXP"},
                                        {{2, 4, 0}, "WinNT"},
                                        {{1, 4, 10}, "Win98"},
                                        {{1, 4, 0}, "Win95"},
                                        {{1, 4, 90}, "WinME"},
                                        {{1, 4, 3}, "WIN32"},
                                        {{0, 4, 0}, ""}}) {
        recorder.version = version; // none for 6.1 is meant
        EXPECT_EQ(fosname(), name);
    }
    recorder.version.reset();
    EXPECT_EQ(fosname(), "");
}

} // namespace
} // namespace vantor
