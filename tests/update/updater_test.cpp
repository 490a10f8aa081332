// The updater without its window: the check, what it stores and shows, and the download; when the program asks by
// itself.
#include "support/test.h"
#include "update/automatic_check.h"
#include "update/scripted_control.h"
#include "update/updater.h"

namespace vantor {
namespace {

const std::string current = "http://u.invalid/versions/VNT_current.txt";
const std::string details = "http://u.invalid/versions/VNT_details.txt";
const std::string setup = "http://u.invalid/setup.exe";
const UpdateSource source{current, details, "VantorUpd.exe"};

// What the updater's form was told, in place of a window.
class RecordingForm : public UpdaterForm {
  public:
    bool loaded = false;
    bool shown = false;
    int modalShows = 0;
    std::string program;
    std::string update;
    std::optional<Colour> colour;
    std::string detailsText;
    bool box = true;
    bool enabled = true;
    RecordingCanvas status;
    std::function<void()> onModal;

    void load() override { loaded = true; }
    void showForm() override { shown = true; }
    void showModally() override {
        ++modalShows;
        shown = true;
        if (onModal) {
            onModal();
        }
    }
    void unload() override { shown = loaded = false; }
    bool isShown() const override { return shown; }
    void setProgram(std::string_view text) override { program = text; }
    void setUpdate(std::string_view text, std::optional<Colour> value) override {
        update = text;
        colour = value;
    }
    void setDetails(std::string_view text) override { detailsText = text; }
    void setDisableAutoUpdate(bool value) override { box = value; }
    bool disableAutoUpdate() const override { return box; }
    void enableCommands(bool value) override { enabled = value; }
    Canvas& picStatus() override { return status; }
};

class UpdaterTest : public Fixture {
  protected:
    void SetUp() override {
        LoadSettings(path("Vantor2.ini"));
        form.status.width = 20000; // no text breaks
        updater.events.status = [this](std::string_view text) { statuses.emplace_back(text); };
        updater.events.checkFinished = [this] { ++finished; };
        updater.events.closed = [this] { ++closed; };
        updater.events.restart = [this] { return ++restarts && restartLeaves; };
    }

    void serve(const std::string& reply) { script.replies[current] = {reply}; }
    /// Ready for a download: a version was found.
    void findSetup(TransferScript::Reply reply) {
        serve("9.0.0\r\n" + setup);
        script.replies[setup] = std::move(reply);
        ASSERT_TRUE(updater.CheckForUpdate(false, source));
    }
    /// Runs `user` once, in the first event pump behind the begin of a request.
    void duringTransfer(std::function<void()> user) {
        script.onRequest = [this, user = std::move(user)] {
            script.onRequest = {};
            recorder.onPump = [this, user](Pump) {
                const auto once = user;
                recorder.onPump = {};
                once();
            };
        };
    }
    [[nodiscard]] std::string statusText() const { return statuses.empty() ? "" : statuses.back(); }
    static void expectInRing(const std::string& text) {
        Texts ring;
        for (int i = 1; i <= recentActions; ++i) {
            ring.push_back(actionText(i));
        }
        EXPECT_TRUE(std::ranges::count(ring, text + " in sub checkforupdate of module fSharedUpdater")) << text;
    }

    RecordingForm form;
    TransferScript script;
    Updater updater{form, std::make_unique<ScriptedControl>(script)};
    Texts statuses;
    int finished = 0;
    int closed = 0;
    int restarts = 0;
    bool restartLeaves = true;
};

struct CheckCase {
    std::string reply;
    std::string update;
    std::optional<Colour> colour;
    std::string status;
    std::string stored; // under LastUpdateCheck
};

TEST_F(UpdaterTest, TellsWhatACheckFound) {
    const std::string page = VANTOR_HOME_PAGE;
    const std::string failed = "Update check failed. Visit " + page + " to update this program manually.";
    const std::string url = "\r\n" + setup;
    const std::vector<CheckCase> cases = {
        {"1.0.0" + url, "You're up to date!", 192, "Latest available version is 1.0.0", "38139"},
        {"0.9.99z\n" + setup, "You're up to date!", 192, "Latest available version is 0.9.99Z", "38139"},
        {"1.0.0b" + url, "Version 1.0.0B is available!", 32768, "", "01/Jun/2004"},
        {"2.0.0", "Could not read update status from file", std::nullopt,
         "Update check failed, could not read download filename", ""},
        {"", "Could not retrieve update status", 192, failed, ""},
        {"<html><body>404</body></html>", "Could not retrieve update status", 192, failed, ""},
    };
    sset("DisableAutoUpdateCheck", false);
    for (const CheckCase& one : cases) {
        sset("LastUpdateCheck", "");
        serve(one.reply);
        EXPECT_EQ(updater.CheckForUpdate(false, source), one.colour == updateFoundColour);
        EXPECT_EQ(form.update, one.update);
        EXPECT_EQ(form.colour, one.colour) << one.update;
        EXPECT_EQ(statusText(), one.status);
        EXPECT_EQ(sget("LastUpdateCheck", "").text(), one.stored) << one.update;
        EXPECT_TRUE(form.enabled);
        EXPECT_EQ(form.program, "") << "the form's own text stays";
    }
    EXPECT_EQ(statuses.front(), "Checking for update");
    EXPECT_FALSE(form.box);
    EXPECT_EQ(finished, static_cast<int>(cases.size()));
    expectInRing("Could not retrieve information from the update server.");
    expectInRing("Please visit " + page + " to see if an update is available.");
    expectInRing("DBG: " + failed);
    EXPECT_EQ(std::ranges::count(logTexts(), "Already up to date (Available version is 1.0.0)"), 1);

    serve("2.0.0" + url);
    EXPECT_FALSE(updater.CheckForUpdate(false, source, "2.0.0a"));
    EXPECT_EQ(form.program, "Version 2.0.0a");

    sset("DisableAutoUpdateCheck", "yes");
    script.setUpFault = static_cast<int>(TransferError::NotRegistered);
    script.requests.clear();
    EXPECT_FALSE(updater.CheckForUpdate(false, source));
    EXPECT_EQ(form.update, "Could not retrieve update status");
    EXPECT_EQ(statusText(), "The internet control (MSINET.OCX) is missing or outdated. Visit the Runtimes page on " +
                                page + " to download an updated version.");
    expectInRing("MSINET control is missing or outdated");
    expectInRing("13-Type mismatch");
    EXPECT_TRUE(form.box) << "what is no flag gave no leave";
    EXPECT_TRUE(script.requests.empty());
}

TEST_F(UpdaterTest, ASilentCheckOnlyAsksWhenItFoundSomething) {
    for (const char* const reply : {"1.0.0\nhttp://u", ""}) {
        serve(reply);
        EXPECT_FALSE(updater.CheckForUpdate(true, source));
    }
    serve("2.0.0\n" + setup);
    recorder.answers = {false, true};
    EXPECT_TRUE(updater.CheckForUpdate(true, source));
    EXPECT_FALSE(form.shown);
    form.onModal = [this] {
        EXPECT_TRUE(form.enabled) << "a form that is shown must be of use";
        serve("1.0.0\n" + setup);
        updater.checkAgain();
        updater.StopAll();
    };
    statuses.clear();
    EXPECT_TRUE(updater.CheckForUpdate(true, source));
    EXPECT_EQ(form.modalShows, 1);
    EXPECT_EQ(std::ranges::count(statuses, "Latest available version is 1.0.0"), 1) << "of the inner check alone";
    EXPECT_EQ(recorder.questions, Texts(2, "An update is available. Would you like to view the details now?"));
}

TEST_F(UpdaterTest, ClosingEndsACheckWithoutAWord) {
    script.replies[current] = {.body = "", .hangs = true};
    duringTransfer([this] {
        EXPECT_FALSE(form.enabled);
        form.box = false;
        updater.StopAll();
        EXPECT_FALSE(form.shown);
        updater.ShowandCheck(source); // too late: this check is on its way out
    });
    updater.ShowandCheck(source);
    EXPECT_FALSE(form.shown);
    EXPECT_EQ(form.modalShows, 0);
    EXPECT_EQ(form.update, "");
    EXPECT_EQ(statuses, Texts{"Checking for update"});
    EXPECT_TRUE(form.enabled);
    EXPECT_FALSE(sget("DisableAutoUpdateCheck", true).flag());
    EXPECT_EQ(sget("LastUpdateCheck", "none").text(), "none");
    updater.StopAll();
    EXPECT_EQ(closed, 1) << "there is nothing to close";

    findSetup({.body = "", .hangs = true});
    EXPECT_EQ(form.update, "Version 9.0.0 is available!") << "the next check is as good as the first";
    duringTransfer([this] { updater.StopAll(); });
    updater.download();
    EXPECT_EQ(statusText(), "") << "the check's, cleared";
    EXPECT_EQ(logTexts().back(), "Download cancelled");
    EXPECT_TRUE(form.enabled);
}

TEST_F(UpdaterTest, NothingBeginsInsideACheck) {
    serve("2.0.0\n" + setup);
    duringTransfer([this] {
        updater.checkAgain();
        updater.showDetails();
        updater.download();
        updater.downloadAndInstall();
        EXPECT_FALSE(updater.CheckForUpdate(true, source));
        updater.ShowandCheck(source);
        EXPECT_TRUE(form.shown) << "the user asked for the check that runs silently";
    });
    EXPECT_TRUE(updater.CheckForUpdate(true, source));
    EXPECT_EQ(script.requests, Texts{current});
    EXPECT_TRUE(recorder.questions.empty()) << "it is no silent one any more";
    EXPECT_EQ(form.update, "Version 2.0.0 is available!");
}

TEST_F(UpdaterTest, DetailsAreShownUnlessTheServerHasNone) {
    const std::string unreadable =
        "Unable to read data from server. Please check your internet settings and try again.";
    serve("1.0.0\n" + setup);
    updater.CheckForUpdate(false, source);
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"New:\n- maps\r\n- charts", "New:\r\n- maps\r\n- charts"},
        {"Reads HTML files", "Reads HTML files"},
        {"Room for 404 gates", "Room for 404 gates"},
        {"<Html>Error 404</Html>", unreadable},
        {"", unreadable},
    };
    for (const auto& [reply, shown] : cases) {
        script.replies[details] = {reply};
        script.onRequest = [this] { EXPECT_EQ(form.detailsText, "Retrieving info..."); };
        updater.showDetails();
        EXPECT_EQ(form.detailsText, shown);
        EXPECT_EQ(recorder.pointers.back(), Pointer::Normal);
    }
}

struct DownloadCase {
    TransferScript::Reply reply;
    std::string status;
    bool fileStays;
};

TEST_F(UpdaterTest, ADownloadIsCheckedBeforeItCounts) {
    const std::string setupFile(25000, 'x');
    findSetup({setupFile});
    const std::string failed = "Error - Download failed.";
    const std::vector<DownloadCase> cases = {
        {{setupFile}, "File saved to " + path("VantorUpd.exe"), true},
        {{.body = setupFile.substr(1)}, failed, true}, // too short for a setup file, but all that there is
        {{.body = "<Html>gone</Html>"}, "Error - File not found on server.", false},
        {{.body = setupFile, .length = 30000}, "Error - Downloaded file is incomplete. Please retry", false},
        {{.body = setupFile, .fails = true}, failed, false},
    };
    for (const DownloadCase& one : cases) {
        script.replies[setup] = one.reply;
        updater.download();
        EXPECT_EQ(statusText(), one.status);
        EXPECT_EQ(exists("VantorUpd.exe"), one.fileStays) << statusText();
        EXPECT_EQ(logTexts().back(), "Trying to download " + path("VantorUpd.exe"));
        EXPECT_EQ(recorder.pointers.back(), Pointer::Normal);
        EXPECT_TRUE(form.enabled);
    }
    EXPECT_EQ(restarts, 0);
}

TEST_F(UpdaterTest, InstallsWhenTheUserWantsItAndTheProgramLeaves) {
    const std::string saved = "File saved to " + path("VantorUpd.exe");
    findSetup({std::string(25000, 'x')});
    recorder.answers = {false, true, true};
    restartLeaves = false;
    for (const int asked : {0, 1}) { // the user doesn't want it, and then the program doesn't leave
        statuses.clear();
        updater.downloadAndInstall();
        EXPECT_EQ(restarts, asked);
        EXPECT_EQ(statusText(), saved);
        EXPECT_TRUE(form.shown);
    }
    restartLeaves = true;
    updater.downloadAndInstall();
    EXPECT_EQ(restarts, 2);
    EXPECT_FALSE(form.shown);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(recorder.questions, Texts(3, "The update has been downloaded. Do you want to install it now?"));
    updater.DownloadAndInstall("Other.exe");
    EXPECT_EQ(restarts, 3) << "without a question";
    EXPECT_TRUE(exists("Other.exe"));
}

TEST_F(UpdaterTest, ADownloadWithoutAnAddressChecksFirst) {
    serve("1.0.0");
    updater.ShowandCheck(source);
    updater.download();
    EXPECT_EQ(statusText(), "Update check failed, could not read download filename");
    serve("1.0.0\n" + setup);
    script.replies[setup] = {std::string(25000, 'x')};
    updater.download();
    EXPECT_TRUE(exists("VantorUpd.exe")) << "also when it is no newer one";
    EXPECT_EQ(script.requests, (Texts{current, current, current, setup}));
}

TEST_F(UpdaterTest, ProgressIsDrawnAndItsEndReadsTwice) {
    const auto drawn = [this] { return form.status.all<DrawnText>(); };
    updater.cInternet_Progress(40, "10 kb of 25 kb (40%)");
    ASSERT_EQ(form.status.all<FilledBox>().size(), 1U);
    EXPECT_DOUBLE_EQ(form.status.all<FilledBox>().front().x2, form.status.width * 0.4);
    EXPECT_EQ(drawn().back().text, "10 kb of 25 kb (40%)");
    updater.cInternet_Progress(100, "Downloaded 25kb");
    EXPECT_EQ(drawn().back().text, "Downloaded Downloaded 25kb");
    form.status.width = 90.0 * 10;
    form.status.calls.clear();
    updater.redrawStatus();
    ASSERT_EQ(drawn().size(), 3U) << "broken at its blanks";
    EXPECT_EQ(drawn().front().text, "Downloaded");
    updater.cInternet_Progress(100, "C:\\TrafficTools\\VantorUpd.exe");
    EXPECT_EQ(drawn().back().text, "orUpd.exe") << "a long path has no blank to break at";
}

class AutomaticCheck : public Fixture {
  protected:
    void SetUp() override {
        LoadSettings(path("Vantor2.ini")); // an empty store
    }
    static bool dueAfter(const SettingValue& last) {
        sset("LastUpdateCheck", last);
        return CheckDue();
    }
};

TEST_F(AutomaticCheck, IsOffUntilTheUserSwitchesItOn) {
    EXPECT_TRUE(CheckDisabled());
    EXPECT_EQ(logTexts().back(), "Automatic update check is disabled");
    sset("DisableAutoUpdateCheck", "not a flag");
    EXPECT_TRUE(CheckDisabled());
    sset("DisableAutoUpdateCheck", false);
    EXPECT_FALSE(CheckDisabled());
}

TEST_F(AutomaticCheck, IsDueAWeekAfterTheLastAnswer) {
    const std::int32_t today = dayNumber({2004, 6, 1});
    EXPECT_TRUE(CheckDue()) << "never checked";
    for (const int days : {-3, 0, 6, 7, 8}) { // one ahead: the clock was put back
        EXPECT_EQ(dueAfter(today - days), days >= 7) << days;
    }
    EXPECT_TRUE(dueAfter(" " + std::to_string(today - 7) + " ")) << "as the file writes it";
    EXPECT_EQ(checkDateText(today - 6), "26/May/2004");
    EXPECT_FALSE(dueAfter("26/May/2004"));
    EXPECT_TRUE(dueAfter("25/MAY/2004"));
    EXPECT_TRUE(newestAction().empty()) << newestAction();
}

TEST_F(AutomaticCheck, ADateThatIsNoneIsAFaultInTheRing) {
    // The months of another language among them: it is compared as it stands, so a check is due.
    for (const std::string text : {"26/Mai/2004", "31/Jun/2004", "-5/May/2004", "26/May", "1/2/3/4"}) {
        forgetActions();
        EXPECT_TRUE(dueAfter(text)) << text;
        EXPECT_EQ(newestAction(), "Type mismatch(13) in function checkdue of module mSHAREDUpdater") << text;
    }
}

} // namespace
} // namespace vantor
