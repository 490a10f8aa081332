// The main window: its life: the first start, the mode, the ways out, and the keyboard's way through it.
#include "shell/application_settings.h"
#include "support/main_window.h"

namespace vantor::test {
namespace {

const BoxAnswer chooseMode{"Select FS2002 or FS2004 mode, then set up the file locations in the settings screen."};
const std::string loseChanges = "If you exit now you will lose your changes.  Are you sure?";

// The mode: the program's, the chosen option's, the caption's and the store's.
std::string modes(const frmMain& form) {
    const bool first = control<QRadioButton>(form, "optFS2k2").isChecked();
    const std::string caption = fromQString(control<QGroupBox>(form, "FrameFSAC").title());
    return std::to_string(fsmode) + (first ? " FS2002 " : " FS2004 ") + caption + " " + sget("FSMode", "").text();
}

class FirstStartTest : public WindowFixture {};

TEST_F(FirstStartTest, AsksForTheModeUntilOneWasChosen) {
    {
        const Expectation boxes = answerBoxes({chooseMode});
        open().formLoad();
    }
    form().show();
    EXPECT_EQ(fromQString(form().windowTitle()), "Vantor " + appversion());
    EXPECT_EQ(modes(form()), "2 FS2002 AI Aircraft missing from FS2002 2") << "the default is stored at once";
    EXPECT_EQ(logTexts().at(4), "Vantor version " + appversion() + " starting.");
    play({{"cmdListall", "[.]||------"}, {"List1:0", "[.]||------"}}); // nothing is loaded at the start
    EXPECT_EQ(newestAction(), "");
    press("optFS2k4");
    EXPECT_FALSE(exists("Vantor2.ini")) << "a choice is written at the exit";
    EXPECT_EQ(exitCodeOf([&] { press("cmdExit"); }), 0);
    EXPECT_EQ(readFile("Vantor2.ini"), "FSMODE, 4 \r\n");
    open().formLoad(); // no box
    EXPECT_EQ(modes(form()), "4 FS2004 AI Aircraft missing from FS2004 4");

    writeFile("Vantor2.ini", "FSMODE, 3 \r\n");
    open().formLoad();
    EXPECT_EQ(modes(form()), "3 FS2004 AI Aircraft missing from FS2003 3") << "an odd mode keeps its number";
    writeFile("Vantor2.ini", "FSMODE,two\r\n");
    const Expectation boxes = answerBoxes({chooseMode});
    open().formLoad();
    EXPECT_EQ(modes(form()), "2 FS2002 AI Aircraft missing from FS2002 2");
}

TEST_F(FirstStartTest, AStartThatFailsTellsItAndEnds) {
    std::filesystem::create_directory(folder() / "log.txt");
    const Expectation boxes = answerBoxes({{"Error 75 - Path/File access error"}});
    EXPECT_EQ(exitCodeOf([&] { open().formLoad(); }), 0);
    EXPECT_TRUE(form().ended());
}

class OddHost : public QtHost {
  public:
    bool questionsFail = false;
    bool askYesNo(std::string_view text) override {
        return questionsFail ? throw Error(ErrorCode::OutOfMemory) : QtHost::askYesNo(text);
    }
};

class LifeTest : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        useHost(&host);
    }
    void changeSomething() const {
        press("cmdListall");
        clickRow(list("List1"), 0);
        press("cmdDeleteSchedule");
        ASSERT_TRUE(form().workspace().unsavedchanges);
    }
    // What the end of the program leaves behind.
    [[nodiscard]] std::string leftBehind() const {
        return std::string(form().ended() ? "ended " : "") + (form().isVisible() ? "visible " : "") +
               (logTexts().back() == "End of actions list" ? "dumped " : "") + std::to_string(aircraftcount);
    }
    OddHost host;
};

TEST_F(LifeTest, AModeSwitchKeepsWhatIsLoadedAndShown) {
    const std::string shown = "1 [2] 3 4 .|[2001] 2002|++++++";
    play({{"cmdListall", "[1] 2 3 4 .||------"}, {"List1:1", shown}, {"optFS2k4", shown}});
    EXPECT_EQ(modes(form()) + plansuffix, "4 FS2004 AI Aircraft missing from FS2004 4030528");
    press("optFS2k2");
    EXPECT_EQ(modes(form()) + plansuffix, "2 FS2002 AI Aircraft missing from FS2002 2030528")
        << "only a load changes it";
    EXPECT_EQ(list("List3").rowCount(), 2);
}

TEST_F(LifeTest, ExitWithChangesAsks) {
    changeSomething();
    std::filesystem::remove(folder() / "Vantor2.ini");
    host.questionsFail = true;
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit"); }), stillRuns) << "a question that fails is no Yes";
    host.questionsFail = false;
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit", {{loseChanges, QMessageBox::No}}); }), stillRuns);
    EXPECT_EQ(leftBehind(), "visible 4");
    EXPECT_TRUE(exists("Vantor2.ini")) << "settings are saved whatever the answer";
    EXPECT_EQ(exitCodeOf([this] { press("cmdExit", {{loseChanges, QMessageBox::Yes}}); }), 0);
    EXPECT_EQ(leftBehind(), "ended dumped 0");
}

TEST_F(LifeTest, TheCloseBoxClosesWhateverTheAnswer) {
    changeSomething();
    const Expectation boxes = answerBoxes({{loseChanges, QMessageBox::No}});
    EXPECT_EQ(exitCodeOf([this] { form().close(); }), 0);
    EXPECT_EQ(leftBehind(), "ended 4") << "No skips the clearing up";
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
    EXPECT_NEAR(upper, control<QGroupBox>(form(), "fraList2").height(), 1) << "the lists share the height";
    EXPECT_GT(upper, 300);
}

class KeyboardTest : public LifeTest {
  protected:
    void SetUp() override {
        LifeTest::SetUp();
        activate();
    }
    void activate() const {
        form().activateWindow();
        ASSERT_TRUE(waitFor([this] { return form().isActiveWindow(); }));
    }
};

TEST_F(KeyboardTest, ShortcutsPressTheirButtons) {
    pressKey(form(), Qt::Key_L, Qt::ControlModifier);
    ASSERT_EQ(list("List1").rowCount(), 5);
    pressKey(form(), Qt::Key_F5);
    EXPECT_EQ(list("List1").rowCount(), 0) << "a load empties the list";
    activate(); // behind the splash
    {
        const Expectation boxes = answerBoxes(
            {{"Overwrite " + path("Flightplans.txt") + "?", QMessageBox::NoButton}, {"Save cancelled"}}); // Escape
        pressKey(form(), Qt::Key_S, Qt::ControlModifier);
    }
    // Delete goes to the list that has the focus.
    activate();
    press("cmdListall");
    pressKey(list("List1"), Qt::Key_Delete);
    EXPECT_FALSE(form().workspace().unsavedchanges) << "its button is disabled until a row is clicked";
    clickRow(list("List1"), 0);
    pressKey(list("List1"), Qt::Key_Delete);
    EXPECT_TRUE(schedules.peek(1).deleted);
    clickRow(list("List1"), 1);
    clickRow(list("List2"), 1);
    pressKey(list("List2"), Qt::Key_Delete);
    EXPECT_TRUE(schedules.peek(2).legs[2].deleted && !schedules.peek(2).deleted);
}

// There are more commands than letters: those of files, modes, tools and lists have one each that nothing else on
// screen shares, since Alt and a shared letter only moves the focus.
TEST_F(KeyboardTest, MainCommandsHaveKeysOfTheirOwn) {
    const QStringList groups =
        QStringLiteral("fraPlans frameFSMode FrameCompile fraList1 fraList2").split(QLatin1Char(' '));
    std::set<QString> keys;
    for (const QAbstractButton* const button : form().findChildren<QAbstractButton*>()) {
        const std::string name = fromQString(button->objectName());
        const QString key = button->shortcut().toString();
        EXPECT_TRUE(button->isEnabled() || !button->toolTip().isEmpty()) << name;
        EXPECT_TRUE(key.isEmpty() || !button->isVisible() || keys.insert(key).second) << name << " shares its key";
        EXPECT_FALSE(key.isEmpty() && groups.contains(button->parentWidget()->objectName())) << name << " has no key";
    }
}

TEST_F(KeyboardTest, TabVisitsTheGroupsInReadingOrder) {
    const QStringList groups =
        QStringLiteral("fraPlans frameFSMode FrameCompile picClunk fraList1 fraList2 frameAC FrameIcao "
                       "FrameFSAC FrameUtils")
            .split(QLatin1Char(' '));
    auto* const first = &control<QPushButton>(form(), "cmdReload");
    first->setFocus();
    std::set<const QWidget*> visited;
    qsizetype latest = 0;
    for (QWidget* at = first; visited.insert(at).second; at = QApplication::focusWidget()) {
        const QWidget* group = at;
        while (group != nullptr && !groups.contains(group->objectName())) {
            group = group->parentWidget();
        }
        ASSERT_NE(group, nullptr) << fromQString(at->objectName()) << " stands in no group";
        EXPECT_GE(groups.indexOf(group->objectName()), latest) << fromQString(at->objectName()) << " comes too late";
        latest = groups.indexOf(group->objectName());
        pressKey(*at, Qt::Key_Tab);
    }
    EXPECT_EQ(QApplication::focusWidget(), first) << "the way round ends where it began";
    for (const QWidget* const button : form().findChildren<QPushButton*>()) {
        EXPECT_EQ(visited.contains(button), button->isVisible() && button->isEnabled())
            << fromQString(button->objectName());
    }
    const Expectation about = expectDialog("fSHAREDAbout", [](QDialog& box) { click(box, "cmdOK"); });
    pressKey(control<QWidget>(form(), "picClunk"), Qt::Key_Space);
}

TEST_F(KeyboardTest, TheListsAreDraggedApart) {
    auto& split = control<QSplitter>(form(), "splitLists");
    const QList<int> told = split.sizes();
    EXPECT_LE(std::abs(told[0] - told[1]), 1);
    QWidget& handle = *split.handle(1);
    QTest::mousePress(&handle, Qt::LeftButton, {}, QPoint(20, 1));
    QTest::mouseMove(&handle, QPoint(20, 61));
    QTest::mouseRelease(&handle, Qt::LeftButton, {}, QPoint(20, 61));
    EXPECT_EQ(split.sizes()[0], told[0] + 60);
    EXPECT_GT(list("List1").height(), list("List2").height());
}

} // namespace
} // namespace vantor::test
