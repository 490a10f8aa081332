// Tests of the settings dialog, driven by real clicks and keys.
#include "core/tables.h"
#include "foundation/settings_store.h"
#include "foundation/text.h"
#include "platform/code_page.h"
#include "platform/qt_host.h"
#include "shell/application_settings.h"
#include "shell/frmPathLabel.h"
#include "shell/frmSettings.h"
#include "support/fixture.h"
#include "support/form_driver.h"

#include <QLineEdit>
#include <QPushButton>

#include <set>

namespace vantor {
namespace {

using test::answerBoxes;
using test::click;
using test::control;
using test::expectDialog;
using test::typeOver;

class FrmSettings : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useHost(&m_host);
        writeFile("Vantor2.ini", "FSMODE, 2 \r\nFS2K2PATH,D:\\FS2002\\\r\n");
        LoadSettings(settingsFile());
        readsettings();
        open();
    }

    void TearDown() override {
        form.reset();
        Fixture::TearDown();
    }

    void open() {
        form = std::make_unique<frmSettings>();
        form->show();
    }

    void typeOffset(std::string_view hour, std::string_view minute) const {
        typeOver(control<QLineEdit>(*form, "txtGMTHour"), hour);
        typeOver(control<QLineEdit>(*form, "txtGMTMin"), minute);
    }

    [[nodiscard]] std::string box(std::string_view name) const {
        return fromQString(control<QLineEdit>(*form, name).text());
    }

    [[nodiscard]] std::string label(std::string_view name) const {
        return fromQString(control<PathLabel>(*form, name).text());
    }

    std::unique_ptr<frmSettings> form;

  private:
    QtHost m_host;
};

/// Chooses a file or folder (a path of the program) in a file dialog that must have this title.
std::function<void(QDialog&)> choose(std::string_view title, const std::string& path) {
    return [title = std::string(title), path](QDialog& dialog) {
        EXPECT_EQ(fromQString(dialog.windowTitle()), title);
        test::enterFileName(dialog, toQtPath(path));
    };
}

void cancel(QDialog& dialog) {
    test::pressKey(dialog, Qt::Key_Escape);
}

TEST_F(FrmSettings, RefusesAnOffsetOutOfRangeAndStaysOpen) {
    const std::string before = readFile("Vantor2.ini");
    const test::Expectation boxes =
        answerBoxes({{"Hour offset can be -12 to +12 only"}, {"Minute offset can be 0 to 59 only"}});
    typeOffset("-13", "");
    click(*form, "cmdOK");
    EXPECT_EQ(box("txtGMTMin"), "00") << "filled in though the hour is refused";
    typeOffset("9", "60");
    click(*form, "cmdOK");
    EXPECT_EQ(box("txtGMTHour"), "09");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(gmtoffset, 0.0F);
    EXPECT_EQ(sget("GMTOffset", "none").text(), "none");
    EXPECT_EQ(readFile("Vantor2.ini"), before);

    typeOffset("12", "59");
    click(*form, "cmdOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_NEAR(gmtoffset * 24 * 60, 12 * 60 + 59, 1e-3);
    open();
    EXPECT_EQ(box("txtGMTHour"), "12");
    EXPECT_EQ(box("txtGMTMin"), "59");
}

TEST_F(FrmSettings, OkStoresEveryControlInTheFileAndReadsTheSettingsAnew) {
    EXPECT_EQ(box("txtGMTHour"), "00");
    EXPECT_EQ(label("lblAircraft1"), path("Aircraft030528.txt"));
    writeFile("mine\\Ports.txt", "");
    const test::Expectation dialog =
        expectDialog("fileDialog", choose("Select your airports.txt file", path("mine\\Ports.txt")));
    click(*form, "cmdPickAirports1");
    typeOffset("", "-");
    test::pressKey(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());

    // Sorted, and keys of others stay.
    EXPECT_EQ(readFile("Vantor2.ini"),
              "AIRCRAFTTXT2K2," + path("Aircraft.txt") + "\r\nAIRCRAFTTXT2K4," + path("Aircraft030528.txt") +
                  "\r\nAIRPORTSTXT2K2," + path("Airports.txt") + "\r\nAIRPORTSTXT2K4," + path("mine\\Ports.txt") +
                  "\r\nFLIGHTPLANSTXT2K2," + path("Flightplans.txt") + "\r\nFLIGHTPLANSTXT2K4," +
                  path("Flightplans030528.txt") +
                  "\r\nFS2K2PATH,D:\\FS2002\\\r\nFS2K4PATH,C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\\r\n"
                  "FSMODE, 2 \r\nGMTOFFSET, 0 \r\n");
}

TEST_F(FrmSettings, TheChooserOfEachButtonSetsItsOwnLabelAndACancelLeavesIt) {
    for (const std::string kind : {"Aircraft", "Airports", "Flightplans"}) {
        for (const char* const mode : {"0", "1"}) {
            const std::string which = kind + mode;
            SCOPED_TRACE(which);
            writeFile("other\\" + which + ".txt", "");
            const std::string chosen = path("other\\" + which + ".txt");
            const test::Expectation dialogs[] = {
                expectDialog("fileDialog", choose("Select your " + lower(kind) + ".txt file", chosen)),
                expectDialog("fileDialog", &cancel)};
            for (int i = 0; i < 2; ++i) {
                click(*form, "cmdPick" + which);
                EXPECT_EQ(label("lbl" + which), chosen);
            }
        }
    }
}

TEST_F(FrmSettings, AFolderWithoutAircraftIsAskedForAgain) {
    writeFile("FS\\aircraft\\b737\\aircraft.cfg", "");
    writeFile("Empty\\readme.txt", "");
    const std::string title = "Please locate the Flight Sim folder";
    {
        const test::Expectation first = expectDialog("fileDialog", choose(title, path("Empty")));
        const test::Expectation second = expectDialog("fileDialog", choose(title, path("FS")));
        const test::Expectation boxes = answerBoxes({{"I can't see an Aircraft folder in that location."}});
        click(*form, "cmdGetFS2k4Path");
    }
    EXPECT_EQ(label("lblFS2k4Path"), path("FS\\"));
    EXPECT_EQ(fs2k4path, "C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\") << "nothing is stored yet";
    {
        const test::Expectation again = expectDialog("fileDialog", &cancel);
        click(*form, "cmdGetFS2k2Path");
    }
    EXPECT_EQ(label("lblFS2k2Path"), "D:\\FS2002\\");
    click(*form, "cmdOK");
    EXPECT_EQ(fs2k4path, path("FS\\"));
}

TEST_F(FrmSettings, CancelAndEscapeStoreNothing) {
    const std::string before = readFile("Vantor2.ini");
    typeOffset("5", "00");
    click(*form, "cmdCancel");
    EXPECT_FALSE(form->isVisible());
    open();
    typeOffset("99", "00");
    test::pressKey(*form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(gmtoffset, 0.0F);
    EXPECT_EQ(readFile("Vantor2.ini"), before);
}

TEST_F(FrmSettings, LongPathsAreElidedInTheMiddleAndStayWhole) {
    auto& shown = control<PathLabel>(*form, "lblAircraft0");
    const QString longPath = QStringLiteral("C:\\") + QString(400, QLatin1Char('x')) + QStringLiteral("\\A&B.txt");
    const QSize before = form->minimumSizeHint();
    shown.setPath(longPath);
    EXPECT_EQ(form->minimumSizeHint(), before) << "a path must not widen the dialog";
    EXPECT_EQ(shown.text(), longPath);
    EXPECT_EQ(shown.toolTip(), longPath);
    EXPECT_TRUE(shown.shownText().startsWith(QStringLiteral("C:\\")));
    EXPECT_TRUE(shown.shownText().endsWith(QStringLiteral("\\A&B.txt")));
    EXPECT_LT(shown.fontMetrics().horizontalAdvance(shown.shownText()), shown.width());
    click(*form, "cmdOK");
    EXPECT_EQ(sget("AircraftTxt2k2", "").text(), fromQString(longPath));
}

TEST_F(FrmSettings, EveryMnemonicLeadsToOneControl) {
    std::set<QChar> letters;
    const auto take = [&letters](const QString& text) {
        const qsizetype mark = text.indexOf(QLatin1Char('&'));
        if (mark >= 0) {
            EXPECT_TRUE(letters.insert(text.at(mark + 1).toLower()).second) << fromQString(text);
        }
    };
    for (const QLabel* caption : form->findChildren<QLabel*>()) {
        if (caption->buddy() != nullptr) {
            take(caption->text());
        }
    }
    for (const QPushButton* button : form->findChildren<QPushButton*>()) {
        take(button->text());
    }
    EXPECT_EQ(letters.size(), 11U);
}

} // namespace
} // namespace vantor
