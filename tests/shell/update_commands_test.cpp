// Newer versions: the button, the automatic check, the hand-over to the installer, and what the user does meanwhile:
// the waits of a transfer let everything through, unlike all other commands.
#include "shell/application_settings.h"
#include "shell/update_commands.h"
#include "support/main_window.h"
#include "support/stand_in_tool.h"
#include "update/fSHAREDUpdater.h"
#include "update/scripted_control.h"
#include "walks/queued_user.h"

namespace vantor::test {
namespace {

const std::string current = VANTOR_UPDATE_SERVER "/versions/VNT_current.txt";
const std::string setup = VANTOR_UPDATE_SERVER "/setup.exe";
const std::string loseByUpdate =
    "Updating Vantor will restart your program, losing your unsaved changes. Are you sure?";
const std::string installNow = "The update has been downloaded. Do you want to install it now?";

class QuestionFails : public BusyUserHost {
  public:
    std::string_view failing;
    bool askYesNo(std::string_view text) override {
        return text == failing ? throw Error(ErrorCode::OutOfMemory) : BusyUserHost::askYesNo(text);
    }
};

class UpdateCommands : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        useHost(&host);
        script = {};
        form().updates().transferControl = [this] { return std::make_unique<ScriptedControl>(script); };
        script.replies[current] = {"2.0.0\r\n" + setup};
        script.replies[setup] = {std::string(30000, 'x')};
        press("cmdListall");
        clickRow(list("List1"), 1);
    }
    void changeSomething() const {
        clickRow(list("List1"), 1);
        press("cmdCopy");
    }
    [[nodiscard]] fSHAREDUpdater& updater() const { return control<fSHAREDUpdater>(form(), "fSHAREDUpdater"); }
    [[nodiscard]] QTimer& timer() const { return control<QTimer>(form(), "Timer3"); }
    void install(std::vector<BoxAnswer> answers) const {
        const Expectation boxes = answerBoxes(std::move(answers));
        click(updater(), "cmdDownloadInstall");
    }
    /// Lets the start-up job's time come.
    void elapse() const {
        timer().start(0);
        ASSERT_TRUE(waitFor([&] { return !timer().isActive() || timer().interval() > 0; }));
    }
    static void allowAutomaticCheck() { sset("DisableAutoUpdateCheck", false); }

    QuestionFails host;
    TransferScript script;
};

TEST_F(UpdateCommands, TheAutomaticCheckComesOnceFiveSecondsAfterTheStart) {
    EXPECT_EQ(timer().interval(), 5000);
    EXPECT_TRUE(timer().isActive());
    allowAutomaticCheck();
    const Expectation boxes =
        answerBoxes({{"An update is available. Would you like to view the details now?", QMessageBox::Yes}});
    const Expectation dialog = expectDialog("fSHAREDUpdater", [](QDialog& shown) {
        EXPECT_EQ(control<QLabel>(shown, "lblUpdate").text(), QStringLiteral("Version 2.0.0 is available!"));
        click(shown, "cmdExit");
    });
    elapse();
    EXPECT_FALSE(timer().isActive());
    EXPECT_EQ(sget("LastUpdateCheck", "").text(), "01/Jun/2004");
}

TEST_F(UpdateCommands, TheAutomaticCheckNeedsLeaveAWeekAndNoOpenDialog) {
    elapse();
    EXPECT_EQ(logTexts().back(), "Automatic update check is disabled");
    allowAutomaticCheck();
    changeSomething();
    {
        const DialogService user([this](QDialog& question) {
            elapse();
            EXPECT_TRUE(timer().isActive()) << "it comes again";
            question.close();
        });
        press("cmdCheckUpdate");
    }
    EXPECT_TRUE(script.requests.empty());
    sset("LastUpdateCheck", dayNumber({2004, 5, 26}));
    elapse();
    EXPECT_TRUE(script.requests.empty());
}

// Through Wine to an installer for Windows; there it simply runs.
TEST_F(UpdateCommands, StartsTheInstallerWithTheCaptionAndLeaves) {
#ifdef _WIN32
    const bool wine = false;
#else
    const bool wine = true;
#endif
    const auto folderOfCalls = wine ? folder() / "bin" : folder();
    writeFile("Updater.exe", "MZ");
    writeStandInTool(wine ? folderOfCalls / "wine" : folder() / "Updater.exe");
    const QByteArray search = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString((folder() / "bin").string()) + ':' + search);
    sset("ProxyUser", "someone");
    changeSomething();
    press("cmdCheckUpdate", {{loseByUpdate, QMessageBox::No}});
    EXPECT_TRUE(script.requests.empty());
    EXPECT_EQ(exitCodeOf([this] {
                  press("cmdCheckUpdate", {{loseByUpdate, QMessageBox::Yes}});
                  EXPECT_TRUE(updater().isVisible() && form().workspace().unsavedchanges);
                  install({{installNow, QMessageBox::Yes}});
              }),
              0);
    EXPECT_TRUE(form().ended());
    EXPECT_FALSE(form().isVisible() || updater().isVisible());
    EXPECT_FALSE(form().workspace().unsavedchanges) << "the program must not ask again";
    EXPECT_EQ(readFile("updater.ini"), "VantorUpd.exe");
    EXPECT_EQ(readFile("VantorUpd.exe").size(), 30000U);
    EXPECT_NE(readFile("Vantor2.ini").find("PROXYUSER,someone\r\n"), std::string::npos);
    EXPECT_TRUE(waitFor([&] { return recordedCalls(folderOfCalls).ends_with('\n'); }));
    EXPECT_EQ(recordedCalls(folderOfCalls), oneCall((wine ? " [" + (folder() / "Updater.exe").string() + "]" : "") +
                                                    " [Vantor] [" + appversion() + "]"));
    qputenv("PATH", search);
}

TEST_F(UpdateCommands, TheProgramStaysWithoutAnInstallerOrWithoutLeave) {
    press("cmdCheckUpdate");
    install({{installNow, QMessageBox::Yes},
             {"The installer is missing: " + path("Updater.exe") + "\rClose Vantor and run " + path("VantorUpd.exe") +
              " to install the update."}});
    EXPECT_TRUE(exists("VantorUpd.exe"));
    writeStandInTool(folder() / "Updater.exe");
    changeSomething(); // since the check
    install({{installNow, QMessageBox::Yes}, {loseByUpdate, QMessageBox::No}});
    press("cmdCheckUpdate", {{loseByUpdate, QMessageBox::Yes}});
    changeSomething(); // more than the user agreed to lose
    install({{installNow, QMessageBox::Yes}, {loseByUpdate, QMessageBox::No}});
    host.failing = loseByUpdate;
    install({{installNow, QMessageBox::Yes}});
    EXPECT_FALSE(form().ended());
    EXPECT_TRUE(form().isVisible() && updater().isVisible() && form().workspace().unsavedchanges);
    EXPECT_FALSE(exists("updater.ini"));
}

// The user's keys, clicks and closes wait in the window system's queue when a transfer has begun.
class DuringATransfer : public UpdateCommands, public testing::WithParamInterface<const char*> {
  protected:
    [[nodiscard]] static bool isDownload() { return std::string_view(GetParam()) == "download"; }
    void transfer(const std::function<void()>& meanwhile) {
        if (isDownload()) {
            press("cmdCheckUpdate");
        }
        script.onRequest = [this, meanwhile] {
            script.onRequest = {};
            meanwhile();
        };
        if (isDownload()) {
            click(updater(), "cmdDownload");
        } else if (std::string_view(GetParam()) == "check") {
            press("cmdCheckUpdate");
        } else {
            allowAutomaticCheck();
            elapse();
        }
    }
    void queueClick(const QWidget& window, const char* button) const { clickOn(control<QWidget>(window, button))(); }

    DialogService user{[](QDialog& dialog) { dialog.close(); }};
};

TEST_P(DuringATransfer, AnExitOrACloseEndsItAndTheProgram) {
    for (const bool closes : {false, true}) {
        script.replies[isDownload() ? setup : current].hangs = true;
        EXPECT_EQ(exitCodeOf([&] { transfer([&] { closes ? queueClose(form()) : queueClick(form(), "cmdExit"); }); }),
                  0);
        EXPECT_TRUE(form().ended());
        EXPECT_FALSE(form().isVisible() || updater().isVisible());
        EXPECT_FALSE(exists("VantorUpd.exe"));
        TearDown();
        exitCodeOf([] {}); // the loop that hears of the end
        cleanUp();
        prepare();
        SetUp();
    }
}

INSTANTIATE_TEST_SUITE_P(, DuringATransfer, testing::Values("check", "silent", "download"),
                         [](const auto& transfer) { return std::string(transfer.param); });

} // namespace
} // namespace vantor::test
