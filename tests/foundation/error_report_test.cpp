// The texts of an error report, and the way to the dialog.
#include "foundation/error_report.h"
#include "foundation/error_report_text.h"
#include "support/test.h"

#include <stdexcept>

namespace vantor {
namespace {

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
