// Tests of the main window.
// Newer versions: the button, the automatic check, and the hand-over to the installer.
#include "foundation/settings_store.h"
#include "shell/application_loop.h"
#include "shell/application_settings.h"
#include "support/main_window.h"
#include "support/stand_in_tool.h"
#include "update/fSHAREDUpdater.h"
#include "update/scripted_control.h"

#include <QLabel>
#include <QTimer>

namespace vantor::test {
namespace {

const std::string current = VANTOR_UPDATE_SERVER "/versions/VNT_current.txt";
const std::string setup = VANTOR_UPDATE_SERVER "/setup.exe";
const std::string loseByUpdate =
    "Updating Vantor will restart your program, losing your unsaved changes. Are you sure?";
const std::string installNow = "The update has been downloaded. Do you want to install it now?";

class UpdateCommands : public MainWindowFixture {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        form().transferControl = [this] { return std::make_unique<ScriptedControl>(script); };
        script.replies[current] = {"2.0.0\r\n" + setup};
        script.replies[setup] = {std::string(30000, 'x')};
    }
    void changeSomething() const {
        press("cmdListall");
        clickRow(list("List1"), 0);
        press("cmdDeleteSchedule");
        ASSERT_TRUE(form().unsavedchanges);
    }
    [[nodiscard]] fSHAREDUpdater& updater() const { return control<fSHAREDUpdater>(form(), "fSHAREDUpdater"); }
    void install(std::vector<BoxAnswer> answers) const {
        const Expectation boxes = answerBoxes(std::move(answers));
        click(updater(), "cmdDownloadInstall");
    }
    /// Lets the start-up job's time come.
    void elapse() const {
        auto& timer = control<QTimer>(form(), "Timer3");
        ASSERT_TRUE(timer.isActive());
        timer.start(0);
        ASSERT_TRUE(waitFor([&] { return !timer.isActive() || timer.interval() > 0; }));
    }
    void allowAutomaticCheck() const { sset("DisableAutoUpdateCheck", false); }

    TransferScript script;
};

TEST_F(UpdateCommands, TheButtonAsksAboutUnsavedChangesFirst) {
    changeSomething();
    press("cmdCheckUpdate", {{loseByUpdate, QMessageBox::No}});
    EXPECT_TRUE(script.requests.empty());
    press("cmdCheckUpdate", {{loseByUpdate, QMessageBox::Yes}});
    EXPECT_TRUE(updater().isVisible());
    EXPECT_TRUE(form().unsavedchanges);
}

TEST_F(UpdateCommands, TheAutomaticCheckComesOnceFiveSecondsAfterTheStart) {
    auto& timer = control<QTimer>(form(), "Timer3");
    EXPECT_EQ(timer.interval(), 5000);
    EXPECT_TRUE(timer.isActive());
    allowAutomaticCheck();
    const Expectation boxes =
        answerBoxes({{"An update is available. Would you like to view the details now?", QMessageBox::Yes}});
    const Expectation dialog = expectDialog("fSHAREDUpdater", [](QDialog& shown) {
        EXPECT_EQ(control<QLabel>(shown, "lblUpdate").text(), QStringLiteral("Version 2.0.0 is available!"));
        click(shown, "cmdExit");
    });
    elapse();
    EXPECT_FALSE(timer.isActive());
    EXPECT_EQ(sget("LastUpdateCheck", "").text(), "01/Jun/2004");
}

TEST_F(UpdateCommands, TheAutomaticCheckNeedsLeaveAndAWeek) {
    elapse();
    EXPECT_EQ(logTexts().back(), "Automatic update check is disabled");
    allowAutomaticCheck();
    sset("LastUpdateCheck", dayNumber({2004, 5, 26}));
    control<QTimer>(form(), "Timer3").start(0);
    elapse();
    EXPECT_TRUE(script.requests.empty());
}

TEST_F(UpdateCommands, TheAutomaticCheckWaitsForAnOpenDialog) {
    allowAutomaticCheck();
    press("cmdSettings", "frmSettings", [this](QDialog& shown) {
        elapse();
        EXPECT_TRUE(control<QTimer>(form(), "Timer3").isActive()) << "it comes again";
        shown.reject();
    });
    EXPECT_TRUE(script.requests.empty());
}

class HandOver : public UpdateCommands, public ::testing::WithParamInterface<bool> {};

// To a native installer, or through Wine to one for Windows.
TEST_P(HandOver, StartsTheInstallerWithTheCaptionAndLeaves) {
    const bool wine = GetParam();
    const auto folderOfCalls = wine ? folder() / "bin" : folder();
    writeFile("Updater.exe", "MZ");
    writeStandInTool(wine ? folderOfCalls / "wine" : folder() / "Updater.exe");
    const QByteArray search = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString((folder() / "bin").string()) + ':' + search);
    sset("ProxyUser", "someone");
    changeSomething();
    EXPECT_EQ(exitCodeOf([this] {
                  press("cmdCheckUpdate", {{loseByUpdate, QMessageBox::Yes}});
                  install({{installNow, QMessageBox::Yes}});
              }),
              0);
    EXPECT_TRUE(form().ended());
    EXPECT_FALSE(form().isVisible());
    EXPECT_FALSE(updater().isVisible());
    EXPECT_FALSE(form().unsavedchanges) << "the program must not ask again";
    EXPECT_EQ(readFile("updater.ini"), "VantorUpd.exe");
    EXPECT_EQ(readFile("VantorUpd.exe").size(), 30000U);
    EXPECT_NE(readFile("Vantor2.ini").find("PROXYUSER,someone\r\n"), std::string::npos);
    EXPECT_TRUE(waitFor([&] { return recordedCalls(folderOfCalls).ends_with('\n'); }));
    EXPECT_EQ(recordedCalls(folderOfCalls), oneCall((wine ? " [" + (folder() / "Updater.exe").string() + "]" : "") +
                                                    " [Vantor] [" + appversion() + "]"));
    qputenv("PATH", search);
}

#ifdef _WIN32 // there it simply runs
INSTANTIATE_TEST_SUITE_P(ToTheInstaller, HandOver, ::testing::Values(false));
#else
INSTANTIATE_TEST_SUITE_P(ToTheInstaller, HandOver, ::testing::Bool());
#endif

TEST_F(UpdateCommands, TheProgramStaysWithoutAnInstallerOrWithoutLeave) {
    press("cmdCheckUpdate");
    install({{installNow, QMessageBox::Yes},
             {"The installer is missing: " + path("Updater.exe") + "\rClose Vantor and run " + path("VantorUpd.exe") +
              " to install the update."}});
    EXPECT_TRUE(exists("VantorUpd.exe"));
    writeStandInTool(folder() / "Updater.exe");
    changeSomething(); // since the check
    install({{installNow, QMessageBox::Yes}, {loseByUpdate, QMessageBox::No}});
    EXPECT_FALSE(form().ended());
    EXPECT_TRUE(form().isVisible());
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_TRUE(updater().isVisible());
    EXPECT_FALSE(exists("updater.ini"));
}

class LeavingDuringATransfer : public UpdateCommands, public ::testing::WithParamInterface<std::string> {};

TEST_P(LeavingDuringATransfer, EndsItAndTheProgram) {
    const bool download = GetParam() == "download";
    script.replies[download ? setup : current].hangs = true;
    EXPECT_EQ(exitCodeOf([&] {
                  if (download) {
                      press("cmdCheckUpdate");
                  }
                  script.onRequest = [this] {
                      QTimer::singleShot(0, &form(), [this] {
                          EXPECT_FALSE(form().ended());
                          press("cmdExit");
                      });
                  };
                  if (download) {
                      click(updater(), "cmdDownload");
                  } else if (GetParam() == "check") {
                      press("cmdCheckUpdate");
                  } else {
                      allowAutomaticCheck();
                      elapse();
                  }
              }),
              0);
    EXPECT_TRUE(form().ended());
    EXPECT_FALSE(updater().isVisible());
    EXPECT_FALSE(exists("VantorUpd.exe"));
}

INSTANTIATE_TEST_SUITE_P(Of, LeavingDuringATransfer, ::testing::Values("check", "silentCheck", "download"),
                         [](const auto& parameter) { return parameter.param; });

} // namespace
} // namespace vantor::test
