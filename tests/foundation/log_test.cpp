// What becomes of faults: their numbers, the standard trap, the ring of recent actions, the log; the texts of an error
// report, and the way to the dialog.
#include "foundation/channels.h"
#include "foundation/error_report.h"
#include "foundation/error_report_text.h"
#include "foundation/trap.h"
#include "support/test.h"

#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

namespace vantor {
namespace {

class Log : public Fixture {};

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
    EXPECT_EQ(Error(ErrorCode::Loader).description(), "Application-defined or object-defined error");
}

TEST_F(Log, TheTrapNotesTheFaultAndTheNextStatementRuns) {
    const StandardTrap trap{"sub cmdcompile_click", "frmMain"};
    int value = 1;
    EXPECT_FALSE(trap([&] {
        throw Error(ErrorCode::SubscriptOutOfRange);
        value = 2;
    }));
    EXPECT_TRUE(trap([&](int more) { value += more; }, 10));
    EXPECT_EQ(value, 11);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub cmdcompile_click of module frmMain");
    EXPECT_EQ(actionCount(), 1);
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
    const OutputFile other(path("other"));
    logit("second");
    EXPECT_EQ(readFile("log.txt"), "09:08:07       1            first\r\n09:08:07       2            second\r\n");
    EXPECT_EQ(errorOf([&] { writelogline(path("none\\log.txt"), "x", true); }), 76); // failures reach the caller
    EXPECT_EQ(errorOf([] { writelogline(fullDevice, "x", false); }), 61);
}

TEST_F(Log, ANewLogStartsWithItsHeader) {
    logit("from an earlier run");
    recorder.version = SystemVersion{2, 5, 1};
    beginLog("starting.");
    EXPECT_EQ(logTexts(), (Texts{"Log file created 01/06/2004 12:00:00", "Operating System: WinXP", "App: Vantor",
                                 "Version: " + AppVersion(), "starting."}));
    EXPECT_EQ(logLines().front().substr(0, 28), "12:00:00       1            ");
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
              (Texts{"Listing last 40 actions: ", " >> 1: one in sub a of module m - 12:00:00", " >> 2: two - 12:01:00",
                     " >> 3: DBG: three in function b - 12:01:00", "End of actions list"}));
    EXPECT_EQ(newestAction(), "DBG: three in function b"); // the ring keeps its entries
}

TEST_F(Log, The41stActionDumpsTheRingInOrderAndDebugEntriesDumpNothing) {
    for (int i = 1; i <= 41; ++i) {
        logdebug(std::to_string(i), "", "");
    }
    EXPECT_EQ(actionText(1) + actionText(40), "DBG: 41DBG: 40");
    forgetActions();
    Texts expected{"Listing last 40 actions: "};
    for (int i = 1; i <= 40; ++i) {
        const std::string number = std::to_string(i);
        logaction("action " + number, "", "");
        expected.push_back(" >> " + number + ": action " + number + " - 12:00:00");
    }
    expected.emplace_back("End of actions list");
    EXPECT_FALSE(exists("log.txt"));
    logaction("action 41", "", "");
    EXPECT_EQ(logTexts(), expected);
    EXPECT_EQ(actionText(1) + actionText(2), "action 41action 2");
    dumpactions(); // the oldest first: 2 to 40, then 41
    EXPECT_EQ(logTexts().at(43), " >> 1: action 2 - 12:00:00");
    EXPECT_EQ(logTexts().at(82), " >> 40: action 41 - 12:00:00");
}

TEST_F(Log, NamesOfTheSystem) {
    EXPECT_EQ(fosname(), "");
    const auto name = [&](const SystemVersion& version) {
        recorder.version = version;
        return fosname();
    };
    EXPECT_EQ(
        each<SystemVersion>(
            name,
            {{2, 7, 0}, {2, 6, 1}, {2, 5, 0}, {2, 5, 2}, {2, 4, 0}, {1, 4, 10}, {1, 4, 0}, {1, 4, 90}, {1, 4, 3}, {}}),
        "WINNT6+||Win2K|WinXP|WinNT|Win98|Win95|WinME|WIN32||");
}

class ErrorReportTest : public Fixture {
  protected:
    const std::string front = "Error Report: Vantor " + AppVersion() + ", ";
    const std::string mailFront = front + " (Please click Attach and add the log.txt file)%0D%0A%0D%0A";
};

TEST_F(ErrorReportTest, TheMailIsEncodedAndCutOnTheEncodedText) {
    // Four marks and every kind of line end. Each pair of ends counts once: an empty line stays between CR LF ends and
    // goes between ends of one character.
    for (const auto& [text, encoded] :
         {std::pair{"50% of #1 & more? \xFC=+\"<>", "50%25 of %231 %26 more%3F \xFC=+\"<>"},
          {"a%3Fb", "a%253Fb"},
          {"a\r\nb\nc\rd", "a%0D%0Ab%0D%0Ac%0D%0Ad"},
          {"a\r\n\r\nb", "a%0D%0A%0D%0Ab"},
          {"a\n\nb\r\rc\n\n\nd", "a%0D%0Ab%0D%0Ac%0D%0A%0D%0Ad"}}) {
        EXPECT_EQ(encodeForMail(text), encoded);
    }
    EXPECT_EQ(mailBody({"75 - Path?", std::nullopt, "line #1"}), mailFront + "75 - Path%3F%0D%0A%0D%0Aline %231");
    EXPECT_EQ(mailBody({"75", "100%\r\nsure", ""}), mailFront + "User: 100%25%0D%0Asure%0D%0A75%0D%0A%0D%0A");
    EXPECT_EQ(mailBody({"75", "", ""}), mailFront + "User: %0D%0A75%0D%0A%0D%0A"); // touched and left empty

    const std::string start = mailFront + "E%0D%0A%0D%0A";
    const std::string fits(mailBodyLimit - start.size(), 'x');
    EXPECT_EQ(mailBody({"E", std::nullopt, fits + "y"}), start + fits);
    const ErrorReport torn{"E", std::nullopt, fits.substr(2) + "%"};
    EXPECT_EQ(mailRequest(torn), "mailto:" VANTOR_BUG_MAILBOX "?subject=Bug%20Report%20(Vantor%20-%20" + AppVersion() +
                                     ")&body=" + start + fits.substr(2) + "%2&attachment=\"\"");
}

TEST_F(ErrorReportTest, ThePreviewMarksWhereTheMailWillBeCut) {
    const std::string hint = "If the 'submit report' button doesn't work on your system, open an email to "
                             "'" VANTOR_BUG_MAILBOX "' and paste the following text into it.  Your reports are "
                             "appreciated.\r\n\r\n";
    EXPECT_EQ(reportPreview({"50% &", "mine", "log"}), hint + front + "\r\n\r\n50% &\r\n\r\nmine\r\n\r\nlog");
    const std::string start = front + "\r\n\r\nE\r\n\r\n";
    const std::string fits(mailBodyLimit - start.size(), 'x');
    EXPECT_EQ(reportPreview({"E", std::nullopt, fits}), hint + start + fits);
    EXPECT_EQ(reportPreview({"E", std::nullopt, fits + "y"}), hint + start + fits + " *Email will truncate here* y");
}

TEST_F(ErrorReportTest, AFailureMetWhileOneIsShownGoesToTheRing) {
    Texts shown;
    useErrorReporter([&](std::string_view text, std::string_view topic) {
        shown.push_back(std::string(text).append(topic));
        if (text == "outer") {
            showerr("inner", "");
        }
    });
    showerr("outer", "");
    EXPECT_EQ(newestAction(), "inner in showerr of module mSHAREDShowError");
    showerr("next", " topic");
    EXPECT_EQ(shown, (Texts{"outer", "next topic"}));

    useErrorReporter([](std::string_view, std::string_view) { throw std::runtime_error("no window"); });
    showerr("lost", "");
    EXPECT_EQ(newestAction(), "no window(51) in showerr of module mSHAREDShowError");
    useErrorReporter({});
    showerr("plain", ""); // the fault above did not block the way
    EXPECT_EQ(recorder.messages, Texts{"plain"});
}

} // namespace
} // namespace vantor
