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
        serve("2.0.0");
        script.replies[setup] = {std::string(30000, 'x')};
    }
    void serve(const std::string& version) { script.replies[current] = {version + "\r\n" + setup}; }
    void changeSomething() const {
        press("cmdListall");
        clickRow(list("List1"), 0);
        press("cmdDeleteSchedule");
        ASSERT_TRUE(form().unsavedchanges);
    }
    [[nodiscard]] fSHAREDUpdater& updater() const { return control<fSHAREDUpdater>(form(), "fSHAREDUpdater"); }
    [[nodiscard]] bool updaterShows() const {
        const auto* found = form().findChild<fSHAREDUpdater*>();
        return found != nullptr && found->isVisible();
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
    const Expectation boxes = answerBoxes(
        {{loseByUpdate, QMessageBox::No}, {loseByUpdate, QMessageBox::NoButton}, {loseByUpdate, QMessageBox::Yes}});
    press("cmdCheckUpdate");
    press("cmdCheckUpdate");
    EXPECT_TRUE(script.requests.empty());
    press("cmdCheckUpdate");
    EXPECT_TRUE(updaterShows());
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
    form().hide();
    form().show();
    EXPECT_FALSE(timer.isActive());
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
    sset("LastUpdateCheck", dayNumber({2004, 5, 26}));
    const Expectation dialog = expectDialog("frmSettings", [this](QDialog& shown) {
        elapse();
        EXPECT_TRUE(control<QTimer>(form(), "Timer3").isActive()) << "it comes again";
        sset("LastUpdateCheck", "");
        shown.reject();
    });
    press("cmdSettings");
    EXPECT_TRUE(script.requests.empty());
}

class HandOver : public UpdateCommands {
  protected:
    void SetUp() override {
        UpdateCommands::SetUp();
        writeStandInTool(folder() / "Updater.exe");
    }
};

TEST_F(HandOver, StartsTheInstallerWithTheCaptionAndLeaves) {
    changeSomething();
    const Expectation boxes = answerBoxes({{loseByUpdate, QMessageBox::Yes}, {installNow, QMessageBox::Yes}});
    sset("ProxyUser", "someone");
    EXPECT_EQ(exitCodeOf([this] {
                  press("cmdCheckUpdate");
                  click(updater(), "cmdDownloadInstall");
              }),
              0);
    EXPECT_TRUE(form().ended());
    EXPECT_FALSE(form().isVisible());
    EXPECT_FALSE(updaterShows());
    EXPECT_FALSE(form().unsavedchanges) << "the program must not ask again";
    EXPECT_EQ(readFile("updater.ini"), "VantorUpd.exe");
    EXPECT_EQ(readFile("VantorUpd.exe").size(), 30000U);
    EXPECT_NE(readFile("Vantor2.ini").find("PROXYUSER,someone\r\n"), std::string::npos);
    EXPECT_TRUE(waitFor([this] { return recordedCalls(folder()).ends_with('\n'); }));
    EXPECT_EQ(recordedCalls(folder()), oneCall(" [Vantor] [" + appversion() + "]"));
}

TEST_F(HandOver, AnInstallerForWindowsRunsThroughWine) {
    writeFile("Updater.exe", "MZ");
    writeStandInTool(folder() / "bin" / "wine");
    const QByteArray search = qgetenv("PATH");
    qputenv("PATH", QByteArray((folder() / "bin").c_str()) + ':' + search);
    const Expectation boxes = answerBoxes({{installNow, QMessageBox::Yes}});
    EXPECT_EQ(exitCodeOf([this] {
                  press("cmdCheckUpdate");
                  click(updater(), "cmdDownloadInstall");
              }),
              0);
    EXPECT_TRUE(waitFor([this] { return recordedCalls(folder() / "bin").ends_with('\n'); }));
    EXPECT_EQ(recordedCalls(folder() / "bin"),
              oneCall(" [" + (folder() / "Updater.exe").string() + "] [Vantor] [" + appversion() + "]"));
    qputenv("PATH", search);
}

TEST_F(HandOver, ChangesMadeSinceTheCheckAreAskedFor) {
    press("cmdCheckUpdate");
    changeSomething();
    {
        const Expectation boxes = answerBoxes({{installNow, QMessageBox::Yes}, {loseByUpdate, QMessageBox::No}});
        click(updater(), "cmdDownloadInstall");
    }
    EXPECT_FALSE(form().ended());
    EXPECT_TRUE(form().isVisible());
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_FALSE(exists("updater.ini"));
    EXPECT_TRUE(updaterShows());
}

TEST_F(UpdateCommands, WithoutTheInstallerTheProgramStays) {
    press("cmdCheckUpdate");
    const Expectation boxes =
        answerBoxes({{installNow, QMessageBox::Yes},
                     {"The installer is missing: " + path("Updater.exe") + "\rClose Vantor and run " +
                      path("VantorUpd.exe") + " to install the update."}});
    click(updater(), "cmdDownloadInstall");
    EXPECT_FALSE(form().ended());
    EXPECT_TRUE(exists("VantorUpd.exe"));
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
    EXPECT_FALSE(updaterShows());
    EXPECT_FALSE(exists("VantorUpd.exe"));
}

INSTANTIATE_TEST_SUITE_P(Of, LeavingDuringATransfer, ::testing::Values("check", "silentCheck", "download"),
                         [](const auto& parameter) { return parameter.param; });

} // namespace
} // namespace vantor::test
