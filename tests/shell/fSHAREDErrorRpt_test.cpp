// The error report dialog.
#include "foundation/error_report.h"
#include "foundation/error_report_text.h"
#include "shell/fSHAREDErrorRpt.h"
#include "support/form_driver.h"

namespace vantor::test {
namespace {

class ErrorDialog : public Fixture {
  protected:
    void SetUp() override { useErrorReporter(showErrorReport); }
    /// Shows a failure and lets `user` have the dialog, which is left by its button if `user` did not close it.
    static void shown(std::string_view text, const std::function<void(fSHAREDErrorRpt&)>& user) {
        const Expectation expected = expectDialog("fSHAREDErrorRpt", [&](QDialog& dialog) {
            auto& form = dynamic_cast<fSHAREDErrorRpt&>(dialog);
            user(form);
            EXPECT_EQ(form.closed(), !form.isVisible());
            if (form.isVisible()) {
                click(form, "cmdExit");
            }
            EXPECT_TRUE(form.closed());
        });
        showerr(text, "topic");
    }
    static std::string textIn(const QDialog& form, std::string_view box) {
        return fromQString(control<QPlainTextEdit>(form, box).toPlainText());
    }
    static bool visible(const QDialog& form, std::string_view name) { return control<QWidget>(form, name).isVisible(); }
};

TEST_F(ErrorDialog, ShowsTheFailureAndTheLog) {
    shown("x", [](QDialog& form) {
        EXPECT_EQ(textIn(form, "txtLog"), "No log file");
        pressKey(form, Qt::Key_Escape);
    });
    writeFile("log.txt", "first\r\nZ\xFCrich\r\n");
    shown("75 - <b>Path</b>\rsecond line", [&](QDialog& form) {
        EXPECT_EQ(control<QLabel>(form, "lblError").text(), QStringLiteral("An error has ocurred:")); // meant
        EXPECT_EQ(fromQString(control<QGroupBox>(form, "Frame2").title()), path("log.txt"));
        EXPECT_EQ(textIn(form, "txtError"), "75 - <b>Path</b>\nsecond line");
        EXPECT_EQ(textIn(form, "txtLog"), "first\nZ\xFCrich\n");
        for (const auto& [button, frame, focus] :
             {std::tuple{"cmdViewLog", "Frame2", "txtLog"}, {"cmdShowComments", "Frame3", "txtUserMessage"}}) {
            EXPECT_FALSE(visible(form, frame));
            click(form, button);
            EXPECT_TRUE(visible(form, frame));
            EXPECT_FALSE(visible(form, button));
            EXPECT_EQ(fromQString(form.focusWidget()->objectName()), focus);
        }
        click(form, "cmdHelp"); // does nothing
        EXPECT_TRUE(form.isVisible());
    });
}

TEST_F(ErrorDialog, MailsAndPreviewsWithTheUsersComments) {
    writeFile("log.txt", "a\r\n\r\n100%\r\n" + std::string(500, 'x'));
    ErrorReport expected{"Error &\xA0so on", std::nullopt, readFile("log.txt")};
    shown(expected.error, [&](fSHAREDErrorRpt& form) {
        const auto checkMail = [&](const char* when) {
            click(form, "cmdEmail");
            EXPECT_EQ(recorder.addresses.back(), mailRequest(expected)) << when;
            click(form, "cmdViewReport");
            EXPECT_EQ(readFile("fulllog.txt"), reportPreview(expected)) << when;
            EXPECT_EQ(recorder.viewedFiles.back(), path("fulllog.txt"));
        };
        checkMail("at first");
        click(form, "cmdShowComments");
        checkMail("with nothing entered yet");
        auto& comments = control<QPlainTextEdit>(form, "txtUserMessage");
        QTest::mouseClick(comments.viewport(), Qt::RightButton);
        checkMail("with a look at the menu");
        QTest::mouseClick(comments.viewport(), Qt::LeftButton);
        expected.comments = "";
        checkMail("a mere click counts");
        form.MakeClean();
        expected.comments.reset();
        checkMail("forgotten");
        QTest::keyClicks(&comments, QStringLiteral("1st"));
        pressKey(comments, Qt::Key_Return);
        QTest::keyClicks(&comments, QStringLiteral("2nd?"));
        expected.comments = "1st\r\n2nd?";
        checkMail("with comments");
    });
}

} // namespace
} // namespace vantor::test
