// The texts of an error report, and the way to the dialog.
#include "foundation/error_report.h"
#include "foundation/error_report_text.h"
#include "foundation/log.h"
#include "support/fixture.h"

#include <stdexcept>

namespace vantor {
namespace {

class ErrorReportTest : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        recorder.version = SystemVersion{2, 5, 1};
    }
    const std::string front = "Error Report: Vantor " + AppVersion() + ", WinXP";
    const std::string mailFront = front + " (Please click Attach and add the log.txt file)%0D%0A%0D%0A";
};

TEST_F(ErrorReportTest, EncodesFourMarksAndEveryKindOfLineEnd) {
    // Each pair counts once: an empty line stays between CR LF ends and goes between ends of one character.
    for (const auto& [text, encoded] :
         {std::pair{"50% of #1 & more? \xFC=+\"<>", "50%25 of %231 %26 more%3F \xFC=+\"<>"},
          {"a%3Fb", "a%253Fb"},
          {"a\r\nb\nc\rd", "a%0D%0Ab%0D%0Ac%0D%0Ad"},
          {"a\r\n\r\nb", "a%0D%0A%0D%0Ab"},
          {"a\n\nb\r\rc\n\n\nd", "a%0D%0Ab%0D%0Ac%0D%0A%0D%0Ad"}}) {
        EXPECT_EQ(encodeForMail(text), encoded);
    }
}

TEST_F(ErrorReportTest, TheMailHoldsDetailsAndLogAndIsCutOnTheEncodedText) {
    EXPECT_EQ(mailBody({"75 - Path?", std::nullopt, "line 1\r\nline #2\r\n"}),
              mailFront + "75 - Path%3F%0D%0A%0D%0Aline 1%0D%0Aline %232%0D%0A");
    EXPECT_EQ(mailBody({"75", "100%\r\nsure", ""}), mailFront + "User: 100%25%0D%0Asure%0D%0A75%0D%0A%0D%0A");
    EXPECT_EQ(mailBody({"75", "", ""}), mailFront + "User: %0D%0A75%0D%0A%0D%0A"); // touched and left empty

    const std::string start = mailFront + "E%0D%0A%0D%0A";
    const std::string fits(mailBodyLimit - start.size(), 'x');
    EXPECT_EQ(mailBody({"E", std::nullopt, fits + "y"}), start + fits);
    EXPECT_EQ(mailBody({"E", std::nullopt, fits.substr(2) + "%"}), start + fits.substr(2) + "%2");

    const ErrorReport report{"E & F", std::nullopt, "log"};
    EXPECT_EQ(mailRequest(report), "mailto:" VANTOR_BUG_MAILBOX "?subject=Bug%20Report%20(Vantor%20-%20" +
                                       AppVersion() + ")&body=" + mailBody(report) + "&attachment=\"\"");
}

TEST_F(ErrorReportTest, ThePreviewMarksWhereTheMailWillBeCut) {
    const std::string hint = "If the 'submit report' button doesn't work on your system, open an email to "
                             "'" VANTOR_BUG_MAILBOX "' and paste the following text into it.  Your reports are "
                             "appreciated.\r\n\r\n";
    EXPECT_EQ(reportPreview({"50% &", std::nullopt, "log\r\n"}), hint + front + "\r\n\r\n50% &\r\n\r\nlog\r\n");
    EXPECT_EQ(reportPreview({"E", "mine", "log"}), hint + front + "\r\n\r\nE\r\n\r\nmine\r\n\r\nlog");
    const std::string start = front + "\r\n\r\nE\r\n\r\n";
    const std::string fits(mailBodyLimit - start.size(), 'x');
    EXPECT_EQ(reportPreview({"E", std::nullopt, fits}), hint + start + fits);
    EXPECT_EQ(reportPreview({"E", std::nullopt, fits + "rest"}),
              hint + start + fits + " *Email will truncate here* rest");
}

TEST_F(ErrorReportTest, AFailureMetWhileOneIsShownGoesToTheRing) {
    std::vector<std::string> shown;
    useErrorReporter([&](std::string_view text, std::string_view topic) {
        shown.push_back(std::string(text).append(topic));
        if (text == "outer") {
            showerr("inner", "");
        }
    });
    showerr("outer", "");
    EXPECT_EQ(newestAction(), "inner in showerr of module mSHAREDShowError");
    showerr("next", " topic");
    EXPECT_EQ(shown, (std::vector<std::string>{"outer", "next topic"}));

    useErrorReporter([](std::string_view, std::string_view) { throw std::runtime_error("no window"); });
    showerr("lost", "");
    EXPECT_EQ(newestAction(), "no window(51) in showerr of module mSHAREDShowError");
    useErrorReporter({});
    showerr("plain", ""); // the fault above did not block the way
    EXPECT_EQ(recorder.messages, std::vector<std::string>{"plain"});
}

} // namespace
} // namespace vantor
