// Re-entry: keys, clicks and closes that arrive while a command runs, a dialog stands or the tool works.
#include "core/tables.h"
#include "foundation/log.h"
#include "platform/code_page.h"
#include "shell/application_loop.h"
#include "simulator/aircraft_changes.h"
#include "support/main_window.h"
#include "support/stand_in_tool.h"
#include "support/table_invariants.h"
#include "walks/queued_user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QPushButton>
#include <QRadioButton>

#include <array>
#include <atomic>
#include <functional>
#include <initializer_list>
#include <string>
#include <thread>
#include <vector>

namespace vantor::test {
namespace {

class ReentryTest : public MainWindowFixture, public testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {
        resetAircraftNumbers();
        MainWindowFixture::SetUp();
        useHost(&host);
        writeStandInTool(folder() / "TTools.exe");
        press("optFS2k4");
        press("optFS2k2");
        press("cmdListall");
        clickRow(list("List1"), 1);
        clickRow(list("List3"), 0);
        for (auto* const button : form().findChildren<QAbstractButton*>()) {
            QObject::connect(button, &QAbstractButton::clicked, button, [this] { ++clicks; });
        }
    }
    void TearDown() override {
        MainWindowFixture::TearDown();
        exitCodeOf([] {}); // the loop that hears of the end
    }
    // The same window over the same files again.
    void startAnew() {
        host.beforePump = {};
        host.afterPump = {};
        host.pumps = 0;
        TearDown();
        SetUp();
    }

    // Shows the button and fills what stands beside it.
    void prepare() const {
        const std::string button = GetParam();
        for (const auto& [option, frame] : std::initializer_list<std::pair<const char*, const char*>>{
                 {"optDelByIcao", "frameDelByIcao"}, {"optSplit", "frameSplit"}, {"optSplitAC", "frameSplitAC"}}) {
            if (control<QWidget>(form(), frame).isAncestorOf(&control<QWidget>(form(), button))) {
                press(option);
            }
        }
        const auto fill = [this](const char* box, const char* text) {
            control<QLineEdit>(form(), box).setText(QLatin1String(text));
        };
        fill("txtICAO1", "LFPG");
        fill("txtICAO2", "EGLL");
        fill("txtDelByICAO", "LFPG");
        fill("txtSplitICAO", "LFPG");
        fill("txtSplitIcao1", "EGKK");
        fill("txtSplitIcao2", "EGSS");
        fill("txtSplitACSource", "AC#1");
        fill("txtSplitACICAO", "LFPG");
        fill("txtSplitACNewICAO", "EGKK");
    }
    // All that a command may change: tables and files.
    struct Outcome {
        Traffic tables;
        std::string flightplans;
        std::string aircraft;
        friend bool operator==(const Outcome&, const Outcome&) = default;
    };
    [[nodiscard]] Outcome outcome() const {
        return {trafficNow(), readFile("Flightplans.txt"), readFile("Aircraft.txt")};
    }

    // Presses the button in the program's event loop, saying yes to all that comes up, and gives what came of it and
    // the exit code.
    struct Run {
        Outcome outcome;
        int code = 0;
    };
    Run run() {
        Run result;
        const DialogService yes([this](QDialog& dialog) { accept(dialog); });
        result.code = exitCodeOf([&] {
            press(GetParam());
            host.beforePump = {};
            host.afterPump = {};
            result.outcome = outcome();
        });
        return result;
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
        for (const Qt::Key key : {Qt::Key_F5, Qt::Key_Delete, Qt::Key_A}) {
            queueKey(form(), key);
        }
        queueKey(form(), Qt::Key_S, Qt::ControlModifier);
    }

    BusyUserHost host;
    std::function<void(QAbstractButton&)> answerButton = [](QAbstractButton& button) { click(button); };
    int clicks = 0;
};

constexpr std::array commandButtons = {
    "cmdReload",         "cmdLoadFlightPlan", "cmdSaveFlights", "cmdSaveAircraft", "cmdListall",
    "cmdListICAO",       "cmdListUniqueAC",   "cmdAddSchedule", "cmdEditSchedule", "cmdCopy",
    "cmdDeleteSchedule", "cmdSwapAC",         "cmdEditLeg",     "cmdDeleteLeg",    "cmdAddFS",
    "cmdDeleteAC",       "cmdSubAC",          "cmdTimeTable",   "cmdChangeFL",     "cmdDeleteByICAO",
    "cmdDoSplit",        "cmdSplitAC",        "cmdCompile",     "cmdDecompile",    "cmdACReport"};
constexpr std::array dialogButtons = {"cmdLoadFlightPlan", "cmdSaveFlights",  "cmdAddSchedule", "cmdEditSchedule",
                                      "cmdEditLeg",        "cmdSwapAC",       "cmdSubAC",       "cmdAddFS",
                                      "cmdDeleteAC",       "cmdDeleteByICAO", "cmdCompile",     "cmdDecompile",
                                      "cmdSettings",       "cmdFind0",        "cmdChart",       "cmdMap"};

std::string nameOfButton(const testing::TestParamInfo<const char*>& button) {
    return button.param;
}

class CommandReentry : public ReentryTest {};
class DialogReentry : public ReentryTest {};

TEST_P(CommandReentry, KeysAndClicksWaitForItsEnd) {
    prepare();
    const Outcome undisturbed = run().outcome;
    startAnew();
    prepare();
    int before = 0;
    host.beforePump = [&](int pump) {
        before = clicks;
        if (pump < 3) {
            queueEverything();
        }
    };
    host.afterPump = [&] { EXPECT_EQ(clicks, before) << "a pump let a click through"; };
    EXPECT_TRUE(run().outcome == undisturbed) << newestAction();
    // What waited comes now.
    const DialogService no([](QDialog& dialog) { dialog.close(); });
    QCoreApplication::processEvents();
    EXPECT_EQ(tableFaults(), std::vector<std::string>());
}

TEST_P(CommandReentry, ACloseWaitsForItsEnd) {
    prepare();
    const Outcome undisturbed = run().outcome;
    int pumps = 1;
    for (int pump = 0; pump < pumps; ++pump) {
        startAnew();
        prepare();
        host.beforePump = [&](int number) {
            if (number == pump) {
                QApplication::closeAllWindows(); // an open dialog first
                EXPECT_FALSE(form().ended());
            }
        };
        const Run closed = run();
        pumps = std::min(host.pumps, 8);
        EXPECT_EQ(closed.code, pumps > 0 ? 0 : stillRuns);
        EXPECT_EQ(form().ended(), pumps > 0);
        EXPECT_TRUE(closed.outcome == undisturbed) << "closed at pump " << pump;
        EXPECT_EQ(tableFaults(), std::vector<std::string>());
    }
}

INSTANTIATE_TEST_SUITE_P(, CommandReentry, testing::ValuesIn(commandButtons), nameOfButton);

TEST_P(DialogReentry, TheWindowBehindIsOutOfReach) {
    prepare();
    const Outcome before = outcome();
    int dialogs = 0;
    const DialogService user([&](QDialog& dialog) {
        ++dialogs;
        const int clicksBefore = clicks;
        queueEverything();
        queueClose(form());
        QCoreApplication::processEvents();
        EXPECT_EQ(clicks, clicksBefore);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(outcome() == before);
        dialog.close();
    });
    press(GetParam());
    EXPECT_GT(dialogs, 0);
    EXPECT_FALSE(form().ended());
    EXPECT_TRUE(form().isVisible());
}

// The answer and a click on the window behind arrive together: the dialog is gone and its command has not gone on yet.
TEST_P(DialogReentry, AClickBehindTheAnswerStartsNothingInside) {
    prepare();
    const Outcome undisturbed = run().outcome;
    startAnew();
    prepare();
    const auto copy = clickOn(control<QWidget>(form(), "cmdCopy"));
    answerButton = [&](const QAbstractButton& button) {
        clickOn(button)();
        copy();
        QCoreApplication::processEvents();
    };
    EXPECT_TRUE(run().outcome == undisturbed);
    EXPECT_EQ(tableFaults(), std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(, DialogReentry, testing::ValuesIn(dialogButtons), nameOfButton);

#ifndef _WIN32 // the stand-in is a script
class ToolReentry : public ReentryTest {};

TEST_P(ToolReentry, KeysAndClicksComeWhenItHasEnded) {
    // A tool that works until it may end, and a user who clicks meanwhile.
    writeExecutable(folder() / "TTools.exe", "#!/bin/sh\nhere=$(dirname \"$0\")\n: > \"$here/started\"\n"
                                             "while [ ! -e \"$here/go\" ]; do sleep 0.01; done\n");
    const auto copy = clickOn(control<QWidget>(form(), "cmdCopy"));
    std::atomic<bool> over = false;
    std::thread user([&] {
        while (!exists("started") && !over) {
            std::this_thread::yield();
        }
        copy();
        writeFile("go", "");
    });
    const Outcome before = outcome();
    EXPECT_TRUE(run().outcome == before);
    over = true;
    user.join();
    QCoreApplication::processEvents();
    // What the decompile tells behind the tool keeps the window out of reach.
    EXPECT_EQ(schedulecount, std::string_view(GetParam()) == "cmdCompile" ? 5 : 4);
    EXPECT_EQ(tableFaults(), std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(, ToolReentry, testing::Values("cmdCompile", "cmdDecompile"), nameOfButton);
#endif

} // namespace
} // namespace vantor::test
