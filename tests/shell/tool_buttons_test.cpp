// The buttons for the simulator's tool and the aircraft report, over a stand-in for the tool.
#include "support/main_window.h"
#include "support/stand_in_tool.h"

namespace vantor::test {
namespace {

const std::string sureCompile = "This will update Flight Simulator 2002 with your changes - are you sure?";
const std::string sureDecompile =
    "This will overwrite the current flightplans, aircraft and airports with values extracted from Flight Simulator - "
    "are you sure?";
const std::string reloadNow =
    "You must now reload your data if you want to use the new flightplans extracted from Flight Simulator.";

class ToolButtons : public MainWindowFixture {
  protected:
    /// Which of the two buttons can be pressed.
    [[nodiscard]] std::string enabled() const {
        return std::string(control<QWidget>(form(), "cmdCompile").isEnabled() ? "compile " : "") +
               (control<QWidget>(form(), "cmdDecompile").isEnabled() ? "decompile" : "");
    }
    /// Presses a button that these boxes answer, and gives what the tool recorded.
    [[nodiscard]] std::string run(std::string_view button, std::vector<BoxAnswer> boxes) const {
        std::filesystem::remove(folder() / "calls.txt");
        press(button, std::move(boxes));
        return recordedCalls(folder());
    }
    [[nodiscard]] std::string compile(const std::string& box, QMessageBox::StandardButton answer) const {
        return run("cmdCompile", {{box, answer}});
    }
    [[nodiscard]] std::string decompile() const {
        return run("cmdDecompile", {{sureDecompile, QMessageBox::Yes}, {reloadNow}});
    }
};

TEST_F(ToolButtons, AreEnabledByTheFileAtEachChangeOfModeAndAtTheStart) {
    EXPECT_EQ(enabled(), "");
    writeStandInTool(folder() / "ttools.EXE");
    EXPECT_EQ(enabled(), "");
    press("optFS2k4");
    EXPECT_EQ(enabled(), "compile decompile");
    std::filesystem::remove(folder() / "ttools.EXE");
    press("optFS2k2");
    EXPECT_EQ(enabled(), "");
    writeStandInTool(folder() / "TTools.exe");
    open().formLoad();
    EXPECT_EQ(enabled(), "compile decompile");
}

TEST_F(ToolButtons, CommandLinesAcrossModesAndLoads) {
    writeStandInTool(folder() / "TTools.exe");
    press("optFS2k4");
    press("optFS2k2"); // FS2004 leaves its suffix behind
    EXPECT_EQ(compile(sureCompile, QMessageBox::Yes), oneCall(" [/co030528] [/t2]"));
    press("optFS2k4");
    EXPECT_EQ(compile("This will update Flight Simulator 2004 with your changes - are you sure?", QMessageBox::Yes),
              oneCall(" [/co030528] [/t4]"));
    EXPECT_EQ(readFile("Flightplans.txt"), "new Flightplans\r\n"); // the tool's work, which is not loaded by itself
    EXPECT_EQ(schedulecount, 4);
    press("optFS2k2");
    press("cmdReload");
    EXPECT_EQ(compile(sureCompile, QMessageBox::No), "");
    EXPECT_EQ(compile(sureCompile, QMessageBox::Yes), oneCall(" [/co] [/t2]"));

    form().workspace().unsavedchanges = true;
    const std::string unsaved =
        "You haven't saved your flightplans and/or aircraft.  Are you sure you want to compile now?";
    EXPECT_EQ(compile(unsaved, QMessageBox::No), "");
    EXPECT_EQ(compile(unsaved, QMessageBox::Yes), oneCall(" [/co] [/t2]"));
    EXPECT_TRUE(form().workspace().unsavedchanges);
    addSchedule("AC#1,GEEE,100%,24HR,IFR", loopOver({"ZZZZ", "AAAA"}));
    EXPECT_EQ(compile("You can't compile this file.  The following airports are missing: AAAA ZZZZ ", QMessageBox::Ok),
              "");
    schedulecount = 0;
    EXPECT_EQ(compile("No data loaded, cannot compile", QMessageBox::Ok), "");
    // Decompiling needs no data and minds no unsaved changes.
    EXPECT_EQ(decompile(), oneCall(" [/de]"));
    EXPECT_EQ(run("cmdDecompile", {{sureDecompile, QMessageBox::No}}), "");
    writeFile("TTools.exe", "no program"); // one that does not start goes unnoticed
    EXPECT_EQ(decompile(), "");
}

TEST_F(ToolButtons, TheReportIsWrittenAndShown) {
    writeFile("FS\\aircraft\\A\\aircraft.cfg", "texture=gone\r\n");
    useHost(&recorder); // in place of the desktop's viewer
    press("cmdACReport");
    EXPECT_EQ(readFile("ACLOG.TXT"), path("FS\\aircraft\\A\\") + " texture folder 'textures.gone' is missing.\r\n");
    EXPECT_EQ(recorder.viewedFiles, std::vector<std::string>{path("aclog.txt")});
    // A report that could not be written changes nothing about the showing.
    std::filesystem::remove(folder() / "ACLOG.TXT");
    std::filesystem::create_directories(folder() / "ACLOG.TXT");
    press("cmdACReport");
    EXPECT_EQ(recorder.viewedFiles.size(), 2U);
}

#ifndef _WIN32 // its text viewer is always there
TEST_F(ToolButtons, AReportThatNoProgramOpensIsShownInAWindowOfItsOwn) {
    writeExecutable(folder() / "bin" / "xdg-open", "#!/bin/sh\nexit 3\n");
    writeFile("FS\\aircraft\\A\\aircraft.cfg", "texture=gone\r\n");
    const QByteArray search = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString((folder() / "bin").string()) + ':' + search);
    press("cmdACReport");
    QWidget* shown = nullptr;
    EXPECT_TRUE(waitFor([&] {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            shown = window->objectName() == QLatin1String("textWindow") ? window : shown;
        }
        return shown != nullptr;
    }));
    qputenv("PATH", search);
    ASSERT_NE(shown, nullptr);
    QWidget& window = *shown;
    EXPECT_TRUE(window.isVisible() && !window.isModal());
    EXPECT_EQ(fromQString(control<QLabel>(window, "lblPath").text()), path("aclog.txt"));
    click(window, "cmdCopyAll");
    EXPECT_EQ(fromQString(QApplication::clipboard()->text()),
              path("FS\\aircraft\\A\\") + " texture folder 'textures.gone' is missing.\n");
    click(window, "cmdClose");
    EXPECT_FALSE(window.isVisible());
}
#endif

} // namespace
} // namespace vantor::test
