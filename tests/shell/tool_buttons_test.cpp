// The buttons for the simulator's tool and the aircraft report, over a stand-in for the tool.
#include "core/tables.h"
#include "platform/command_button.h"
#include "support/main_window.h"
#include "support/stand_in_tool.h"
#include "support/traffic.h"

namespace vantor::test {
namespace {

constexpr std::string_view sureDecompile =
    "This will overwrite the current flightplans, aircraft and airports with values extracted from Flight Simulator - "
    "are you sure?";
constexpr std::string_view reloadNow =
    "You must now reload your data if you want to use the new flightplans extracted from Flight Simulator.";

class ToolButtons : public MainWindowFixture {
  protected:
    [[nodiscard]] bool enabled(std::string_view button) const { return control<QWidget>(form(), button).isEnabled(); }
    /// Puts the tool beside the program; a change of mode looks for it.
    void installTool() {
        writeStandInTool(folder() / "TTools.exe");
        press("optFS2k4");
        press("optFS2k2");
        ASSERT_TRUE(enabled("cmdCompile"));
    }
    /// Presses Compile, expecting one box, and gives what the tool recorded.
    [[nodiscard]] std::string compile(const BoxAnswer& box) const {
        std::filesystem::remove(folder() / "calls.txt");
        press("cmdCompile", {box});
        return recordedCalls(folder());
    }
    [[nodiscard]] std::string compileNow(char mode) const {
        return compile(
            {std::string("This will update Flight Simulator 200") + mode + " with your changes - are you sure?",
             QMessageBox::Yes});
    }
    [[nodiscard]] std::string decompileNow() const {
        std::filesystem::remove(folder() / "calls.txt");
        press("cmdDecompile", {{std::string(sureDecompile), QMessageBox::Yes}, {std::string(reloadNow)}});
        return recordedCalls(folder());
    }
};

TEST_F(ToolButtons, AreEnabledByTheFileAtEachChangeOfMode) {
    EXPECT_FALSE(enabled("cmdCompile"));
    EXPECT_FALSE(enabled("cmdDecompile"));
    EXPECT_TRUE(enabled("cmdACReport"));
    writeStandInTool(folder() / "ttools.EXE");
    EXPECT_FALSE(enabled("cmdCompile"));
    press("optFS2k4");
    EXPECT_TRUE(enabled("cmdCompile"));
    EXPECT_TRUE(enabled("cmdDecompile"));
    {
        frmMain started; // a program that starts with the tool there
        started.formLoad();
        EXPECT_TRUE(control<QWidget>(started, "cmdCompile").isEnabled());
        EXPECT_TRUE(control<QWidget>(started, "cmdDecompile").isEnabled());
    }
    std::filesystem::remove(folder() / "ttools.EXE");
    press("optFS2k2");
    EXPECT_FALSE(enabled("cmdCompile"));
    EXPECT_FALSE(enabled("cmdDecompile"));
}

TEST_F(ToolButtons, CommandLinesAcrossModesAndLoads) {
    installTool(); // by way of FS2004, which leaves its suffix behind
    EXPECT_EQ(compileNow('2'), oneCall(" [/co030528] [/t2]"));
    press("optFS2k4");
    EXPECT_EQ(compileNow('4'), oneCall(" [/co030528] [/t4]"));
    EXPECT_EQ(readFile("Flightplans.txt"), "new Flightplans\r\n"); // the tool's work, which is not loaded by itself
    EXPECT_EQ(schedulecount, 4);
    press("optFS2k2");
    press("cmdReload");
    EXPECT_EQ(compileNow('2'), oneCall(" [/co] [/t2]"));
    EXPECT_EQ(decompileNow(), oneCall(" [/de]"));
}

TEST_F(ToolButtons, CompileStopsWhereItCannotBeRightAndAsksOneQuestion) {
    installTool();
    EXPECT_EQ(compile({"This will update Flight Simulator 2002 with your changes - are you sure?", QMessageBox::No}),
              "");
    form().unsavedchanges = true;
    const std::string unsaved =
        "You haven't saved your flightplans and/or aircraft.  Are you sure you want to compile now?";
    EXPECT_EQ(compile({unsaved, QMessageBox::No}), "");
    EXPECT_EQ(compile({unsaved, QMessageBox::Yes}), oneCall(" [/co030528] [/t2]"));
    EXPECT_TRUE(form().unsavedchanges);

    addSchedule("AC#1,GEEE,100%,24HR,IFR", loopOver({"ZZZZ", "AAAA"}));
    EXPECT_EQ(compile({"You can't compile this file.  The following airports are missing: AAAA ZZZZ "}), "");
    schedulecount = 0;
    EXPECT_EQ(compile({"No data loaded, cannot compile"}), "");

    // Decompiling needs no data and minds no unsaved changes.
    EXPECT_EQ(decompileNow(), oneCall(" [/de030528]"));
    press("cmdDecompile", {{std::string(sureDecompile), QMessageBox::No}});
    writeFile("TTools.exe", "no program"); // one that does not start goes unnoticed
    EXPECT_EQ(decompileNow(), "");
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

} // namespace
} // namespace vantor::test
