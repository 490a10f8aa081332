// Tests of the splash, the about box and the pictures.
#include "foundation/native_path.h"
#include "foundation/progress.h"
#include "platform/picture_box.h"
#include "shell/application_settings.h"
#include "shell/artwork.h"
#include "shell/fSHAREDAbout.h"
#include "shell/frmSplash.h"
#include "support/form_driver.h"

namespace vantor::test {
namespace {

using SplashAndAbout = Fixture;

TEST_F(SplashAndAbout, TheSplashShowsTitleAndBarWithoutBlocking) {
    frmSplash splash;
    splash.show();
    EXPECT_FALSE(splash.isModal());
    EXPECT_EQ(fromQString(control<QLabel>(splash, "lblTitle").text()), "Vantor " + appversion());
    auto& bar = control<PictureBox>(splash, "picProgress");
    EXPECT_NEAR((splash.width() - bar.width()) * twipsPerPixel, 200, twipsPerPixel);
    EXPECT_GT(bar.mapTo(&splash, QPoint()).y(), control<QLabel>(splash, "lblTitle").geometry().bottom());
    showprogressstring(splash.progress(), 100, 100, "Finished");
    const QImage drawn = bar.surface().toImage();
    EXPECT_EQ(drawn.pixelColor(2, drawn.height() / 2), QColor(0x80, 0xFF, 0x80));
    const QPixmap sharp = splashPicture({300, 170}, 2);
    EXPECT_EQ(sharp.size(), QSize(600, 340));
    EXPECT_EQ(sharp.deviceIndependentSize(), QSizeF(300, 170));
}

TEST_F(SplashAndAbout, TheAboutBoxNamesProgramMakerAndYearAndOpensTheMakersPages) {
    fSHAREDAbout about;
    about.show();
    EXPECT_EQ(fromQString(control<QLabel>(about, "lblVersion").text()), appversion());
    const QString maker = control<QLabel>(about, "lblMaker").text();
    EXPECT_TRUE(maker.contains(QStringLiteral("Ostrevane Software")));
    EXPECT_GT(maker.left(4).toInt(), 2000) << "the year of the build";
    for (const char* name : {"lblHomePage", "lblProducts"}) {
        auto& link = control<QLabel>(about, name);
        link.setFocus();
        pressKey(link, Qt::Key_Tab); // into the link
        pressKey(link, Qt::Key_Return);
    }
    ASSERT_EQ(recorder.addresses.size(), 2U);
    EXPECT_TRUE(recorder.addresses.at(0).starts_with("http"));
    EXPECT_EQ(recorder.addresses.at(1), recorder.addresses.at(0) + "/products");
    writeFile("Vantor-licences\\Qt.txt", "Qt's own words");
    {
        const Expectation dialog = expectDialog("frmLicences", [](QDialog& licences) {
            auto& list = control<ListBox>(licences, "lstLicences");
            auto& text = control<QPlainTextEdit>(licences, "txtLicence");
            EXPECT_EQ(rowsOf(list.rows()), "Vantor|Natural Earth|Qt|");
            EXPECT_TRUE(text.toPlainText().contains(QStringLiteral("Ostrevane Software")));
            clickRow(list, 2);
            EXPECT_EQ(fromQString(text.toPlainText()), "Qt's own words");
            click(licences, "cmdClose");
        });
        click(about, "cmdLicences");
    }
    click(about, "cmdOpenFolder");
    EXPECT_EQ(recorder.openedFiles, std::vector<std::string>{programFolder()});
    recorder.opensFiles = false;
    click(about, "cmdOpenFolder");
    EXPECT_EQ(recorder.messages.size(), 1U);
    click(about, "cmdOpenLog");
    EXPECT_EQ(recorder.viewedFiles, std::vector<std::string>{path("log.txt")});
    click(about, "cmdOK");
    EXPECT_FALSE(about.isVisible());
}

} // namespace
} // namespace vantor::test
