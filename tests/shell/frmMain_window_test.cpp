// Tests of the main window.
// Its life: the first start, the mode, the ways out, and the keyboard's way through it.
#include "core/tables.h"
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "platform/code_page.h"
#include "shell/application_loop.h"
#include "shell/application_settings.h"
#include "support/main_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <initializer_list>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace vantor::test {
namespace {

const BoxAnswer chooseMode{"Select FS2002 or FS2004 mode, then set up the file locations in the settings screen."};
const std::string loseChanges = "If you exit now you will lose your changes.  Are you sure?";

std::string missingCaption(frmMain& form) {
    return fromQString(control<QGroupBox>(form, "FrameFSAC").title());
}

bool chosen(frmMain& form, std::string_view option) {
    return control<QRadioButton>(form, option).isChecked();
}

class FirstStartTest : public WindowFixture {};

TEST_F(FirstStartTest, AsksForTheModeUntilOneWasChosen) {
    const Expectation boxes = answerBoxes({chooseMode});
    open().formLoad();
    form().show();
    EXPECT_EQ(fromQString(form().windowTitle()), "Vantor " + appversion());
    EXPECT_TRUE(chosen(form(), "optFS2k2"));
    EXPECT_EQ(fsmode, 2);
    EXPECT_EQ(missingCaption(form()), "AI Aircraft missing from FS2002");
    EXPECT_EQ(combo("cmbPC1").text(), "0%");
    EXPECT_EQ(logTexts().at(4), "Vantor version " + appversion() + " starting.");
    EXPECT_EQ(schedulecount, 0) << "nothing is loaded at the start";
    EXPECT_EQ(sget("FSMode", std::int16_t{0}).int16(), 2) << "without a choice the default is chosen";
    press("optFS2k4");
    EXPECT_FALSE(exists("Vantor2.ini")) << "a choice is written at the exit";
    EXPECT_EQ(exitCodeOf([&] { press("cmdExit"); }), 0);
    EXPECT_EQ(readFile("Vantor2.ini"), "FSMODE, 4 \r\n");
    open().formLoad(); // no box
    EXPECT_TRUE(chosen(form(), "optFS2k4"));
    EXPECT_EQ(missingCaption(form()), "AI Aircraft missing from FS2004");
}

TEST_F(FirstStartTest, AModeThatIsNoNumberGivesTheDefault) {
    writeFile("Vantor2.ini", "FSMODE,two\r\n");
    fsmode = 4;
    const Expectation boxes = answerBoxes({chooseMode});
    open().formLoad();
    EXPECT_EQ(fsmode, 2);
}

TEST_F(FirstStartTest, AnyOtherModeStartsAsFs2004AndKeepsItsNumber) {
    writeFile("Vantor2.ini", "FSMODE, 3 \r\n");
    open().formLoad();
    EXPECT_TRUE(chosen(form(), "optFS2k4"));
    EXPECT_EQ(sget("FSMode", std::int16_t{0}).int16(), 3);
}

TEST_F(FirstStartTest, AStartThatFailsTellsItAndEnds) {
    std::filesystem::create_directory(folder() / "log.txt");
    const Expectation boxes = answerBoxes({{"Error 75 - Path/File access error"}});
    EXPECT_EQ(exitCodeOf([&] { open().formLoad(); }), 0);
    EXPECT_TRUE(form().ended());
}

TEST_F(FirstStartTest, WithoutTrafficTheListIsItsClosingRow) {
    writeFile("Vantor2.ini", "FSMODE, 2 \r\n");
    open().formLoad();
    form().show();
    press("cmdListall");
    EXPECT_EQ(list("List1").rowCount(), 1);
    EXPECT_EQ(list("List1").currentRow(), 0);
    clickRow(list("List1"), 0);
    EXPECT_EQ(list("List2").rowCount(), 0);
    EXPECT_FALSE(control<QPushButton>(form(), "cmdDeleteSchedule").isEnabled());
    EXPECT_TRUE(newestAction().empty()) << newestAction();
}

class LifeTest : public MainWindowFixture {
  protected:
    void changeSomething() const {
        press("cmdListall");
        clickRow(list("List1"), 0);
        press("cmdDeleteSchedule");
        ASSERT_TRUE(form().unsavedchanges);
    }
    [[nodiscard]] bool logHas(std::string_view text) const {
        const std::vector<std::string> texts = logTexts();
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
};

TEST_F(LifeTest, AModeSwitchKeepsWhatIsLoadedAndShown) {
    press("cmdListall");
    clickRow(list("List1"), 1);
    press("optFS2k4");
    EXPECT_EQ(missingCaption(form()), "AI Aircraft missing from FS2004");
    EXPECT_EQ(fsmode, 4);
    EXPECT_EQ(plansuffix, "030528");
    EXPECT_EQ(schedulecount, 4);
    EXPECT_EQ(list("List1").currentRow(), 1);
    EXPECT_EQ(list("List2").rowCount(), 2);
    EXPECT_EQ(list("List3").rowCount(), 2);
    press("optFS2k2");
    EXPECT_EQ(missingCaption(form()), "AI Aircraft missing from FS2002");
    EXPECT_EQ(plansuffix, "030528") << "only a load changes it";
}

TEST_F(LifeTest, ExitWithChangesAsks) {
    changeSomething();
    std::filesystem::remove(folder() / "Vantor2.ini");
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit", {{loseChanges, QMessageBox::No}}); }), stillRuns);
    EXPECT_FALSE(form().ended());
    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(aircraftcount, 4);
    EXPECT_TRUE(exists("Vantor2.ini")) << "settings are saved whatever the answer";
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit", {{loseChanges, QMessageBox::Yes}}); }), 0);
    EXPECT_TRUE(form().ended());
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(aircraftcount, 0);
    EXPECT_TRUE(logHas("Listing last 40 actions: "));
}

TEST_F(LifeTest, TheCloseBoxClosesWhateverTheAnswer) {
    changeSomething();
    const Expectation boxes = answerBoxes({{loseChanges, QMessageBox::No}});
    EXPECT_EQ(exitCodeOf([this] { form().close(); }), 0);
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(aircraftcount, 4) << "No skips the clearing up";
    EXPECT_FALSE(logHas("End of actions list"));
}

// A host in whose event pumps something happens, as a window system may deliver it, and whose questions may fail.
class OddHost : public QtHost {
  public:
    std::function<void()> onPump;
    bool questionsFail = false;
    void pumpEvents(Pump what) override {
        if (onPump) {
            onPump();
        }
        QtHost::pumpEvents(what);
    }
    bool askYesNo(std::string_view text) override {
        return questionsFail ? throw Error(ErrorCode::OutOfMemory) : QtHost::askYesNo(text);
    }
};

class OddHostTest : public LifeTest {
  protected:
    void SetUp() override {
        LifeTest::SetUp();
        useHost(&host);
    }
    OddHost host; // outlives the window
};

TEST_F(OddHostTest, AQuestionThatFailsLosesNoChanges) {
    changeSomething();
    host.questionsFail = true;
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit"); }), stillRuns);
    EXPECT_FALSE(form().ended());
    EXPECT_EQ(aircraftcount, 4);
}

TEST_F(OddHostTest, ACloseWaitsForTheEndOfTheLoad) {
    const int code = exitCodeOf([this] {
        schedulecount = 0;
        bool splashSeen = false;
        host.onPump = [&] {
            form().close();
            EXPECT_TRUE(form().isVisible());
            EXPECT_FALSE(form().ended());
            for (const QWidget* const other : form().findChildren<QWidget*>(QStringLiteral("frmSplash"))) {
                splashSeen = splashSeen || other->isVisible();
                const QPoint apart = other->frameGeometry().center() - form().frameGeometry().center();
                EXPECT_LE(other->isVisible() ? apart.manhattanLength() : 0, 2) << "it stands over its window";
            }
        };
        press("cmdReload");
        host.onPump = {};
        EXPECT_TRUE(splashSeen) << "the load never let events run";
        EXPECT_EQ(schedulecount, 4);
        EXPECT_TRUE(form().isVisible()) << "the close comes behind the command";
    });
    EXPECT_EQ(code, 0);
    EXPECT_TRUE(form().ended());
    EXPECT_FALSE(form().isVisible());
    EXPECT_TRUE(logHas("End of actions list"));
}

TEST_F(LifeTest, HasALeastSizeThatHoldsItsControls) {
#ifdef _WIN32
    if (QGuiApplication::platformName() == QStringLiteral("offscreen")) {
        GTEST_SKIP() << "letters are wider there than in the system's own windows";
    }
#endif
    EXPECT_LE(form().minimumSizeHint().width(), 687);
    EXPECT_LE(form().minimumSizeHint().height(), 529);
    form().resize(333, 333);
    EXPECT_TRUE(waitFor([this] { return form().size() == QSize(687, 529); }));
    form().resize(1200, 900);
    const int upper = control<QGroupBox>(form(), "fraList1").height();
    const int lower = control<QGroupBox>(form(), "fraList2").height();
    EXPECT_NEAR(upper, lower, 1) << "the lists share the height";
    EXPECT_GT(upper, 300);
}

class KeyboardTest : public LifeTest {
  protected:
    void SetUp() override {
        LifeTest::SetUp();
        form().activateWindow();
        ASSERT_TRUE(waitFor([this] { return form().isActiveWindow(); }));
    }
};

TEST_F(KeyboardTest, ShortcutsPressTheirButtons) {
    pressKey(form(), Qt::Key_L, Qt::ControlModifier);
    ASSERT_EQ(list("List1").rowCount(), 5);
    pressKey(form(), Qt::Key_F5);
    EXPECT_EQ(list("List1").rowCount(), 0) << "a load empties the list";
    form().activateWindow(); // behind the splash
    ASSERT_TRUE(waitFor([this] { return form().isActiveWindow(); }));
    const Expectation boxes = answerBoxes(
        {{"Overwrite " + path("Flightplans.txt") + "?", QMessageBox::NoButton}, {"Save cancelled"}}); // Escape
    pressKey(form(), Qt::Key_S, Qt::ControlModifier);
}

TEST_F(KeyboardTest, DeleteGoesToTheListThatHasTheFocus) {
    press("cmdListall");
    pressKey(list("List1"), Qt::Key_Delete);
    EXPECT_FALSE(form().unsavedchanges) << "its button is disabled until a row is clicked";
    clickRow(list("List1"), 0);
    pressKey(list("List1"), Qt::Key_Delete);
    EXPECT_TRUE(schedules.peek(1).deleted);
    clickRow(list("List1"), 1);
    clickRow(list("List2"), 1);
    pressKey(list("List2"), Qt::Key_Delete);
    EXPECT_TRUE(schedules.peek(2).legs[2].deleted);
    EXPECT_FALSE(schedules.peek(2).deleted);
}

// There are more commands than letters: those of files, modes, tools and lists have one each that nothing else on
// screen shares, since Alt and a shared letter only moves the focus.
TEST_F(KeyboardTest, MainCommandsHaveKeysOfTheirOwn) {
    std::map<std::string, std::string> owners;
    for (const QAbstractButton* const button : form().findChildren<QAbstractButton*>()) {
        const std::string name = fromQString(button->objectName());
        EXPECT_TRUE(button->isEnabled() || !button->toolTip().isEmpty()) << name;
        const std::string key = fromQString(button->shortcut().toString());
        if (!key.empty() && button->isVisible()) {
            EXPECT_TRUE(owners.emplace(key, name).second) << name << " and " << owners[key] << " share " << key;
        }
    }
    for (const std::string group : {"fraPlans", "frameFSMode", "FrameCompile", "fraList1", "fraList2"}) {
        for (const QAbstractButton* const button : control<QGroupBox>(form(), group).findChildren<QAbstractButton*>()) {
            EXPECT_FALSE(button->shortcut().isEmpty()) << fromQString(button->objectName());
        }
    }
}

TEST_F(KeyboardTest, TabVisitsEveryControlGroupByGroupInReadingOrder) {
    const std::vector<std::string> groups = {"fraPlans", "frameFSMode", "FrameCompile", "fraList1",  "fraList2",
                                             "frameAC",  "FrameIcao",   "FrameFSAC",    "FrameUtils"};
    std::map<QWidget*, std::size_t> groupOf;
    std::set<QWidget*> reachable;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        auto& group = control<QGroupBox>(form(), groups[i]);
        for (QWidget* const child : group.findChildren<QWidget*>()) {
            // Of option buttons the chosen one is reached; what stands inside a combo box or a list belongs to it.
            const auto* const option = qobject_cast<const QRadioButton*>(child);
            if ((option == nullptr || option->isChecked()) && child->isVisible() && child->isEnabled() &&
                (child->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && child->focusProxy() == nullptr &&
                !child->objectName().startsWith(QStringLiteral("qt_")) &&
                qobject_cast<QComboBox*>(child->parentWidget()) == nullptr) {
                groupOf.emplace(child, i);
                reachable.insert(child);
            }
        }
    }
    auto* const first = &control<QPushButton>(form(), "cmdReload");
    first->setFocus();
    std::set<QWidget*> visited;
    std::size_t group = 0;
    for (QWidget* at = QApplication::focusWidget(); at != nullptr && visited.insert(at).second;
         at = QApplication::focusWidget()) {
        ASSERT_TRUE(groupOf.contains(at)) << fromQString(at->objectName()) << " is no control of the form";
        EXPECT_GE(groupOf[at], group) << fromQString(at->objectName()) << " comes too late";
        group = std::max(group, groupOf[at]);
        pressKey(*at, Qt::Key_Tab);
    }
    EXPECT_EQ(QApplication::focusWidget(), first) << "the way round ends where it began";
    for (QWidget* const widget : reachable) {
        EXPECT_TRUE(visited.contains(widget)) << fromQString(widget->objectName()) << " is never reached";
    }
    EXPECT_GT(visited.size(), 25U);
}

} // namespace
} // namespace vantor::test
