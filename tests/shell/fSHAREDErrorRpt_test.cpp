// The error report dialog.
#include "foundation/error_report.h"
#include "foundation/error_report_text.h"
#include "platform/code_page.h"
#include "shell/fSHAREDErrorRpt.h"
#include "support/fixture.h"
#include "support/form_driver.h"

#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace vantor::test {
namespace {

class ErrorDialog : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useErrorReporter(showErrorReport);
    }
    /// Shows a failure and lets `user` have the dialog, which is left by its button if `user` did not close it.
    static void shown(std::string_view text, const std::function<void(QDialog&)>& user) {
        const Expectation dialog = expectDialog("fSHAREDErrorRpt", [&](QDialog& form) {
            user(form);
            if (form.isVisible()) {
                click(form, "cmdExit");
            }
        });
        showerr(text, "topic");
    }
    static std::string textIn(const QDialog& form, std::string_view box) {
        return fromQString(control<QPlainTextEdit>(form, box).toPlainText());
    }
    static bool visible(const QDialog& form, std::string_view name) { return control<QWidget>(form, name).isVisible(); }
};

TEST_F(ErrorDialog, ShowsTheFailureAndTheLog) {
    writeFile("log.txt", "first\r\nZ\xFCrich\r\n");
    shown("75 - <b>Path</b>\rsecond line", [&](QDialog& form) {
        EXPECT_EQ(control<QLabel>(form, "lblError").text(), QStringLiteral("An error has ocurred:")); // meant
        EXPECT_EQ(fromQString(control<QGroupBox>(form, "Frame2").title()), path("log.txt"));
        EXPECT_EQ(textIn(form, "txtError"), "75 - <b>Path</b>\nsecond line");
        EXPECT_EQ(textIn(form, "txtLog"), "first\nZ\xFCrich\n");
        EXPECT_FALSE(visible(form, "Frame2"));
        EXPECT_FALSE(visible(form, "Frame3"));
        click(form, "cmdViewLog");
        EXPECT_TRUE(visible(form, "Frame2"));
        EXPECT_FALSE(visible(form, "cmdViewLog"));
        click(form, "cmdShowComments");
        EXPECT_TRUE(visible(form, "Frame3"));
        EXPECT_FALSE(visible(form, "cmdShowComments"));
        click(form, "cmdHelp"); // does nothing
        EXPECT_TRUE(form.isVisible());
        auto& report = dynamic_cast<fSHAREDErrorRpt&>(form);
        EXPECT_FALSE(report.closed());
        click(form, "cmdExit");
        EXPECT_TRUE(report.closed());
    });
}

TEST_F(ErrorDialog, TellsAnEmptyLogFromNone) {
    shown("x", [](QDialog& form) { EXPECT_EQ(textIn(form, "txtLog"), "No log file"); });
    writeFile("log.txt", "");
    shown("x", [](QDialog& form) {
        EXPECT_EQ(textIn(form, "txtLog"), "");
        pressKey(form, Qt::Key_Escape);
        EXPECT_TRUE(dynamic_cast<fSHAREDErrorRpt&>(form).closed());
    });
}

TEST_F(ErrorDialog, MailsAndPreviewsWithTheUsersComments) {
    writeFile("log.txt", "a\r\n\r\n100%\r\n" + std::string(500, 'x'));
    ErrorReport expected{"Error & so on", std::nullopt, readFile("log.txt")};
    shown(expected.error, [&](QDialog& form) {
        click(form, "cmdEmail");
        click(form, "cmdViewReport");
        EXPECT_EQ(readFile("fulllog.txt"), reportPreview(expected));
        click(form, "cmdShowComments");
        click(form, "cmdEmail"); // nothing entered yet
        EXPECT_EQ(recorder.addresses.at(1), recorder.addresses.at(0));

        auto& comments = control<QPlainTextEdit>(form, "txtUserMessage");
        QTest::mouseClick(comments.viewport(), Qt::LeftButton); // a mere click counts
        expected.comments = "";
        click(form, "cmdEmail");
        EXPECT_EQ(recorder.addresses.at(2), mailRequest(expected));
        dynamic_cast<fSHAREDErrorRpt&>(form).MakeClean();
        click(form, "cmdEmail");
        EXPECT_EQ(recorder.addresses.at(3), recorder.addresses.at(0));

        QTest::keyClicks(&comments, QStringLiteral("1st"));
        pressKey(comments, Qt::Key_Return);
        QTest::keyClicks(&comments, QStringLiteral("2nd?"));
        expected.comments = "1st\r\n2nd?";
        click(form, "cmdEmail");
        click(form, "cmdViewReport");
    });
    EXPECT_EQ(recorder.addresses.at(4), mailRequest(expected));
    EXPECT_EQ(readFile("fulllog.txt"), reportPreview(expected));
    EXPECT_EQ(recorder.viewedFiles, (std::vector<std::string>{path("fulllog.txt"), path("fulllog.txt")}));
}

} // namespace
} // namespace vantor::test
