// Tests of the settings dialog, driven by real clicks and keys.
#include "core/tables.h"
#include "foundation/settings_store.h"
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
        auto& name = control<QLineEdit>(dialog, "fileNameEdit");
        name.setText(toQtPath(path)); // as if pasted: typed slashes move the dialog while its lists are still read
        test::pressKey(name, Qt::Key_Return);
        // The first Enter may go to the list of completions.
        if (dialog.isVisible()) {
            test::pressKey(name, Qt::Key_Return);
        }
    };
}

void cancel(QDialog& dialog) {
    test::pressKey(dialog, Qt::Key_Escape);
}

TEST_F(FrmSettings, OpensWithTheStoreAndTheDefaultsOfBothModes) {
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Settings"));
    EXPECT_EQ(label("lblFS2k2Path"), "D:\\FS2002\\");
    EXPECT_EQ(label("lblFS2k4Path"), "C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\");
    EXPECT_EQ(label("lblAircraft0"), path("Aircraft.txt"));
    EXPECT_EQ(label("lblAirports0"), path("Airports.txt"));
    EXPECT_EQ(label("lblFlightplans0"), path("Flightplans.txt"));
    EXPECT_EQ(label("lblAircraft1"), path("Aircraft030528.txt"));
    EXPECT_EQ(label("lblAirports1"), path("Airports030528.txt"));
    EXPECT_EQ(label("lblFlightplans1"), path("Flightplans030528.txt"));
    EXPECT_EQ(box("txtGMTHour"), "00");
    EXPECT_EQ(box("txtGMTMin"), "00");
}

TEST_F(FrmSettings, RefusesAnOffsetOutOfRangeAndStaysOpen) {
    const std::string before = readFile("Vantor2.ini");
    {
        const test::Expectation boxes = answerBoxes({{"Hour offset can be -12 to +12 only"},
                                                     {"Hour offset can be -12 to +12 only"},
                                                     {"Minute offset can be 0 to 59 only"}});
        typeOffset("13", "00");
        click(*form, "cmdOK");
        typeOffset("-13", "");
        click(*form, "cmdOK");
        EXPECT_EQ(box("txtGMTMin"), "00") << "filled in though the hour is refused";
        typeOffset("9", "60");
        click(*form, "cmdOK");
        EXPECT_EQ(box("txtGMTHour"), "09");
    }
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(gmtoffset, 0.0F);
    EXPECT_EQ(sget("GMTOffset", "none").text(), "none");
    EXPECT_EQ(readFile("Vantor2.ini"), before);

    typeOffset("12", "59");
    click(*form, "cmdOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_NEAR(gmtoffset * 24 * 60, 12 * 60 + 59, 1e-3);
}

TEST_F(FrmSettings, NegativeHoursWithMinutesMoveTowardsGmtAtEveryOk) {
    typeOffset("-05", "30");
    click(*form, "cmdOK");
    EXPECT_FLOAT_EQ(gmtoffset, -4.5F / 24);
    open();
    EXPECT_EQ(box("txtGMTHour"), "-04");
    EXPECT_EQ(box("txtGMTMin"), "30");
    click(*form, "cmdOK");
    EXPECT_FLOAT_EQ(gmtoffset, -3.5F / 24);
}

TEST_F(FrmSettings, OkStoresEveryControlInTheFileAndReadsTheSettingsAnew) {
    {
        const test::Expectation dialog =
            expectDialog("fileDialog", choose("Select your airports.txt file", path("mine\\Ports.txt")));
        writeFile("mine\\Ports.txt", "");
        click(*form, "cmdPickAirports1");
    }
    typeOffset("", "-");
    test::pressKey(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());

    LoadSettings(settingsFile());
    EXPECT_EQ(sget("FS2k2Path", "").text(), "D:\\FS2002\\");
    EXPECT_EQ(sget("FS2k4Path", "").text(), "C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\");
    EXPECT_EQ(sget("AircraftTxt2k2", "").text(), path("Aircraft.txt"));
    EXPECT_EQ(sget("AirportsTxt2k2", "").text(), path("Airports.txt"));
    EXPECT_EQ(sget("FlightplansTxt2k2", "").text(), path("Flightplans.txt"));
    EXPECT_EQ(sget("AircraftTxt2k4", "").text(), path("Aircraft030528.txt"));
    EXPECT_EQ(sget("AirportsTxt2k4", "").text(), path("mine\\Ports.txt"));
    EXPECT_EQ(sget("FlightplansTxt2k4", "").text(), path("Flightplans030528.txt"));
    EXPECT_EQ(sget("GMTOffset", 1.0F).single(), 0.0F);
    EXPECT_EQ(sget("FSMode", std::int16_t{0}).int16(), 2) << "keys of others stay";
}

TEST_F(FrmSettings, TheChooserOfEachButtonSetsItsOwnLabelAndACancelLeavesIt) {
    struct Pick {
        const char* button;
        const char* label;
        const char* title;
    };
    for (const Pick& pick : {Pick{"cmdPickAircraft0", "lblAircraft0", "Select your aircraft.txt file"},
                             Pick{"cmdPickAircraft1", "lblAircraft1", "Select your aircraft.txt file"},
                             Pick{"cmdPickAirports0", "lblAirports0", "Select your airports.txt file"},
                             Pick{"cmdPickAirports1", "lblAirports1", "Select your airports.txt file"},
                             Pick{"cmdPickFlightplans0", "lblFlightplans0", "Select your flightplans.txt file"},
                             Pick{"cmdPickFlightplans1", "lblFlightplans1", "Select your flightplans.txt file"}}) {
        SCOPED_TRACE(pick.button);
        const std::string chosen = path(std::string("other\\") + pick.label + ".txt");
        writeFile(std::string("other\\") + pick.label + ".txt", "");
        {
            const test::Expectation dialog = expectDialog("fileDialog", choose(pick.title, chosen));
            click(*form, pick.button);
        }
        EXPECT_EQ(label(pick.label), chosen);
        EXPECT_EQ(fromQString(control<PathLabel>(*form, pick.label).toolTip()), chosen);
        const test::Expectation dialog = expectDialog("fileDialog", &cancel);
        click(*form, pick.button);
        EXPECT_EQ(label(pick.label), chosen);
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
