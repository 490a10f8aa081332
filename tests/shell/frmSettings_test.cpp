// Tests of the settings dialog, driven by real clicks and keys.
#include "shell/application_settings.h"
#include "shell/frmSettings.h"
#include "shell/path_label.h"
#include "support/form_driver.h"

namespace vantor::test {
namespace {

class FrmSettings : public Fixture {
  protected:
    void SetUp() override {
        useHost(&m_host);
        writeFile("Vantor2.ini", stored);
        LoadSettings(settingsFile());
        readsettings();
        open();
    }
    void TearDown() override { form.reset(); }
    void open() {
        form = std::make_unique<frmSettings>();
        form->show();
    }
    // Opens the dialog anew and works it.
    void open(std::initializer_list<std::string_view> steps) {
        open();
        play(*form, steps);
    }
    [[nodiscard]] std::string offset() const {
        return fromQString(control<QLineEdit>(*form, "txtGMTHour").text() + QLatin1Char(':') +
                           control<QLineEdit>(*form, "txtGMTMin").text());
    }
    [[nodiscard]] std::string label(std::string_view name) const {
        return fromQString(control<PathLabel>(*form, name).text());
    }
    /// Presses a button whose file dialog, with this title, is cancelled or chooses a path of the program.
    void choose(std::string_view button, const std::string& title, const std::string& chosen = {}) const {
        const Expectation expected =
            expectDialog("fileDialog", [&](QDialog& dialog) { answer(dialog, title, chosen); });
        click(*form, button);
    }
    static void answer(QDialog& dialog, const std::string& title, const std::string& chosen) {
        EXPECT_EQ(fromQString(dialog.windowTitle()), title);
        if (chosen.empty()) {
            pressKey(dialog, Qt::Key_Escape);
        } else {
            enterFileName(dialog, toQtPath(chosen));
        }
    }

    static constexpr std::string_view stored = "FSMODE, 2 \r\nFS2K2PATH,D:\\FS2002\\\r\n";
    std::unique_ptr<frmSettings> form;

  private:
    QtHost m_host;
};

TEST_F(FrmSettings, RefusesAnOffsetOutOfRangeAndStoresNothingUnlessByOk) {
    const Expectation boxes =
        answerBoxes({{"Hour offset can be -12 to +12 only"}, {"Minute offset can be 0 to 59 only"}});
    open({"txtGMTHour=-13", "txtGMTMin=", "cmdOK"});
    EXPECT_EQ(offset(), "-13:00") << "filled in though the hour is refused";
    EXPECT_EQ(form->focusWidget(), &control<QWidget>(*form, "txtGMTHour"));
    play(*form, {"txtGMTHour=9", "txtGMTMin=60", "cmdOK"});
    EXPECT_EQ(offset(), "09:60");
    EXPECT_EQ(form->focusWidget(), &control<QWidget>(*form, "txtGMTMin"));
    EXPECT_TRUE(form->isVisible());
    pressKey(*form, Qt::Key_Escape);
    open({"txtGMTHour=5", "cmdCancel"});
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(gmtoffset, 0.0F);
    EXPECT_EQ(readFile("Vantor2.ini"), stored);

    open({"txtGMTHour=12", "txtGMTMin=59", "cmdOK"});
    EXPECT_FALSE(form->isVisible());
    EXPECT_NEAR(gmtoffset * 24 * 60, 12 * 60 + 59, 1e-3);
    open();
    EXPECT_EQ(offset(), "12:59");
}

TEST_F(FrmSettings, OkStoresEveryControlInTheFileAndReadsTheSettingsAnew) {
    EXPECT_EQ(offset(), "00:00");
    EXPECT_EQ(label("lblAircraft1"), path("Aircraft030528.txt"));
    writeFile("mine\\Ports.txt", "");
    choose("cmdPickAirports1", "Select your airports.txt file", path("mine\\Ports.txt"));
    play(*form, {"txtGMTHour=", "txtGMTMin=-"});
    pressKey(*form, Qt::Key_Return);
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
    for (const std::string which :
         {"Aircraft0", "Aircraft1", "Airports0", "Airports1", "Flightplans0", "Flightplans1"}) {
        SCOPED_TRACE(which);
        writeFile("other\\" + which + ".txt", "");
        const std::string title = "Select your " + lower(which.substr(0, which.size() - 1)) + ".txt file";
        choose("cmdPick" + which, title, path("other\\" + which + ".txt"));
        choose("cmdPick" + which, title);
        EXPECT_EQ(label("lbl" + which), path("other\\" + which + ".txt"));
    }
}

TEST_F(FrmSettings, AFolderWithoutAircraftIsAskedForAgain) {
    writeFile("FS\\aircraft\\b737\\aircraft.cfg", "");
    writeFile("Empty\\readme.txt", "");
    const std::string title = "Please locate the Flight Sim folder";
    {
        const Expectation first =
            expectDialog("fileDialog", [&](QDialog& dialog) { answer(dialog, title, path("Empty")); });
        const Expectation boxes = answerBoxes({{"I can't see an Aircraft folder in that location."}});
        choose("cmdGetFS2k4Path", title, path("FS"));
    }
    EXPECT_EQ(label("lblFS2k4Path"), path("FS\\"));
    EXPECT_EQ(fs2k4path, "C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\") << "nothing is stored yet";
    choose("cmdGetFS2k2Path", title);
    EXPECT_EQ(label("lblFS2k2Path"), "D:\\FS2002\\");
    click(*form, "cmdOK");
    EXPECT_EQ(fs2k4path, path("FS\\"));
}

TEST_F(FrmSettings, LongPathsAreElidedInTheMiddleAndStayWhole) {
    auto& shown = control<PathLabel>(*form, "lblAircraft0");
    const QString longPath = QStringLiteral("C:\\") + QString(400, QLatin1Char('x')) + QStringLiteral("\\A&B.txt");
    const QSize before = form->minimumSizeHint();
    shown.setPath(longPath);
    QCoreApplication::processEvents(); // the layout hears of it
    EXPECT_EQ(form->minimumSizeHint(), before) << "a path must not widen the dialog";
    EXPECT_EQ(shown.toolTip(), longPath);
    EXPECT_TRUE(shown.shownText().startsWith(QStringLiteral("C:\\")));
    EXPECT_TRUE(shown.shownText().endsWith(QStringLiteral("\\A&B.txt")));
    EXPECT_LT(shown.fontMetrics().horizontalAdvance(shown.shownText()), shown.width());
    click(*form, "cmdOK");
    EXPECT_EQ(sget("AircraftTxt2k2", "").text(), fromQString(longPath));
}

} // namespace
} // namespace vantor::test
