// Re-entry: keys, clicks and closes that arrive while a command runs, a dialog stands or the tool works. They wait in
// the window system's queue, so that each event pump decides by itself what it lets through.
#include "support/main_window.h"
#include "support/stand_in_tool.h"
#include "support/table_invariants.h"
#include "walks/queued_user.h"

#include <qpa/qwindowsysteminterface.h>

namespace vantor::test {
namespace {

class ReentryTest : public MainWindowFixture, public testing::WithParamInterface<const char*> {
  protected:
    // The window with a row chosen in each list, the button in sight, and all boxes filled that stand beside one.
    void SetUp() override {
        MainWindowFixture::SetUp();
        useHost(&host);
        host.beforePump = {};
        host.afterPump = {};
        writeStandInTool(folder() / "TTools.exe");
        press("optFS2k4");
        press("optFS2k2");
        press("cmdListall");
        clickRow(list("List1"), 1);
        clickRow(list("List3"), 0);
        press("cmdExplorer");
        const QWidgetList windows = QApplication::topLevelWidgets();
        explorer = *std::ranges::find(windows, QStringLiteral("frmExplorer"), &QObject::objectName);
        control<QTableView>(*explorer, "tblFlights").selectRow(0);
        form().activateWindow();
        for (QWidget* const window : {static_cast<QWidget*>(&form()), explorer}) {
            for (auto* const button : window->findChildren<QAbstractButton*>()) {
                QObject::connect(button, &QAbstractButton::clicked, button, [this] { ++clicks; });
            }
        }
        if (std::string_view(GetParam()) == "cmdDeleteByICAO") {
            press("optDelByIcao");
            type("txtDelByICAO", "LFPG");
        }
        host.pumps = 0;
    }
    void TearDown() override {
        MainWindowFixture::TearDown();
        exitCodeOf([] {}); // the loop that hears of the end
    }
    // The same window over the same files again.
    void startAnew() {
        TearDown();
        cleanUp();
        prepare();
        SetUp();
    }

    // All that a command may change: tables, files and lists.
    using Outcome = std::pair<Traffic, std::string>;
    [[nodiscard]] Outcome outcome() const {
        std::string text = readFile("Flightplans.txt") + readFile("Aircraft.txt");
        for (const char* const name : {"List1", "List2", "List3"}) {
            text += rowsOf(list(name).rows()) + "\n";
        }
        return {trafficNow(), text};
    }

    // Presses the button in the program's event loop, saying yes to all that comes up; gives the exit code and what
    // came of it.
    Outcome done;
    int run() {
        const DialogService yes([this](QDialog& dialog) { accept(dialog); });
        return exitCodeOf([&] {
            press(GetParam());
            host.beforePump = {};
            host.afterPump = {};
            done = outcome();
        });
    }
    // Runs it with nobody about, and gets ready to run it again.
    Outcome undisturbed() {
        run();
        pumps = host.pumps;
        startAnew();
        return std::move(done);
    }
    void accept(QDialog& dialog) const {
        if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
            QAbstractButton* const yes = box->button(QMessageBox::Yes);
            answerButton(*(yes != nullptr ? yes : box->button(QMessageBox::Ok)));
        } else if (dialog.objectName() == QLatin1String("fileDialog")) {
            control<QLineEdit>(dialog, "fileNameEdit").setText(toQtPath(path("Flightplans.txt")));
            pressKey(control<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
        } else if (auto* const ok = dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))) {
            if (dialog.objectName() == QLatin1String("frmAircraftSub")) {
                control<ListBox>(dialog, "List1").setCurrentRow(0);
            }
            answerButton(*ok);
        }
        if (dialog.isVisible()) {
            dialog.close();
        }
    }

    void queueEverything() const {
        for (const char* const button :
             {"cmdReload", "cmdListall", "cmdCopy", "cmdDeleteSchedule", "cmdSaveFlights", "optFS2k4"}) {
            clickOn(control<QWidget>(form(), button))();
        }
        clickOn(control<QWidget>(*explorer, "cmdDelete"))();
        for (const Qt::Key key : {Qt::Key_F5, Qt::Key_Delete, Qt::Key_A}) {
            queueKey(form(), key);
        }
        queueKey(form(), Qt::Key_S, Qt::ControlModifier);
    }

    BusyUserHost host;
    std::function<void(QAbstractButton&)> answerButton = [](QAbstractButton& button) { click(button); };
    QWidget* explorer = nullptr; // beside the window, with a row selected
    int clicks = 0;
    int pumps = 0; // of the undisturbed run
};

class CommandReentry : public ReentryTest {};
class DialogReentry : public ReentryTest {};
class ToolReentry : public ReentryTest {};

TEST_P(CommandReentry, KeysAndClicksWaitForItsEnd) {
    const Outcome expected = undisturbed();
    ASSERT_GT(pumps, 0) << "a command that never pumps has no place here";
    int before = 0;
    host.beforePump = [&](int pump) {
        before = clicks;
        if (pump < 3) {
            queueEverything();
        }
    };
    host.afterPump = [&] { EXPECT_EQ(clicks, before) << "a pump let a click through"; };
    run();
    EXPECT_TRUE(done == expected) << newestAction();
    // What waited comes now.
    const DialogService no([](QDialog& dialog) { dialog.close(); });
    QCoreApplication::processEvents();
    EXPECT_EQ(tableFaults(), std::vector<std::string>());
}

TEST_P(CommandReentry, ACloseWaitsForItsEnd) {
    const Outcome expected = undisturbed();
    ASSERT_GT(pumps, 0);
    for (const int at : {0, pumps - 1}) {
        bool asked = false;
        host.beforePump = [&](int pump) {
            if (pump == at) {
                asked = true;
                QApplication::closeAllWindows(); // an open dialog first
                EXPECT_FALSE(form().ended());
            }
        };
        const int code = run();
        EXPECT_TRUE(asked || at > 0); // a tool may be done in fewer pumps than the time before
        EXPECT_EQ(code == 0, asked);
        EXPECT_EQ(form().ended(), asked);
        EXPECT_TRUE(done == expected) << "closed at pump " << at;
        startAnew();
    }
}

// The answer and a click on the window behind arrive together: the dialog is gone and its command has not gone on yet.
TEST_P(DialogReentry, AClickBehindTheAnswerStartsNothingInside) {
    const Outcome expected = undisturbed();
    const auto copy = clickOn(control<QWidget>(form(), "cmdCopy"));
    const auto copyInExplorer = clickOn(control<QWidget>(*explorer, "cmdCopy"));
    answerButton = [&](const QAbstractButton& button) {
        clickOn(button)();
        copy();
        copyInExplorer();
        QCoreApplication::processEvents();
    };
    run();
    EXPECT_TRUE(done == expected);
}

#ifndef _WIN32 // the stand-in is a script
TEST_P(ToolReentry, KeysAndClicksMeanwhileAreLost) {
    // A tool that works until it may end, but not for ever.
    writeExecutable(folder() / "TTools.exe", "#!/bin/sh\nhere=$(dirname \"$0\")\n: > \"$here/started\"\n"
                                             "for i in $(seq 500); do [ -e \"$here/go\" ] || sleep 0.01; done\n");
    host.beforePump = [&](int) {
        if (exists("started") && !exists("go")) {
            queueEverything();
            writeFile("go", "");
        }
    };
    const Outcome before = outcome();
    run();
    EXPECT_TRUE(exists("go")) << "nothing was pumped while the tool worked";
    EXPECT_TRUE(done == before);
    QCoreApplication::processEvents();
    EXPECT_TRUE(outcome() == before);
}
INSTANTIATE_TEST_SUITE_P(, ToolReentry, testing::Values("cmdCompile", "cmdDecompile"));
#endif

INSTANTIATE_TEST_SUITE_P(, CommandReentry,
                         testing::Values("cmdReload", "cmdLoadFlightPlan", "cmdSaveFlights", "cmdSaveAircraft",
                                         "cmdListall", "cmdEditSchedule", "cmdCopy", "cmdDeleteSchedule", "cmdSwapAC",
                                         "cmdAddFS", "cmdDeleteAC", "cmdSubAC", "cmdDeleteByICAO", "cmdCompile"),
                         [](const auto& button) { return std::string(button.param); });
INSTANTIATE_TEST_SUITE_P(, DialogReentry,
                         testing::Values("cmdSaveFlights", "cmdAddSchedule", "cmdEditLeg", "cmdSwapAC", "cmdDeleteAC",
                                         "cmdSettings", "cmdFind0", "cmdChart", "cmdMap"),
                         [](const auto& button) { return std::string(button.param); });

} // namespace
} // namespace vantor::test
