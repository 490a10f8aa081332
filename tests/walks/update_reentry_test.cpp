// Re-entry: keys, clicks and closes that arrive while the updater waits for the server.
// Its waits let everything through, unlike all other commands.
#include "core/tables.h"
#include "foundation/settings_store.h"
#include "shell/application_loop.h"
#include "support/main_window.h"
#include "support/table_invariants.h"
#include "update/fSHAREDUpdater.h"
#include "update/scripted_control.h"
#include "walks/queued_user.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <string>

namespace vantor::test {
namespace {

const std::string current = VANTOR_UPDATE_SERVER "/versions/VNT_current.txt";
const std::string setup = VANTOR_UPDATE_SERVER "/setup.exe";

class UpdateReentry : public MainWindowFixture, public testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {
        MainWindowFixture::SetUp();
        useHost(&host);
        form().transferControl = [this] { return std::make_unique<ScriptedControl>(script); };
        script.replies[current] = {"2.0.0\r\n" + setup};
        script.replies[setup] = {std::string(30000, 'x')};
        press("cmdListall");
        clickRow(list("List1"), 1);
    }

    // Starts the transfer of the parameter's name; `meanwhile` runs when it has begun.
    void transfer(const std::function<void()>& meanwhile) {
        const std::string kind = GetParam();
        if (kind == "download") {
            press("cmdCheckUpdate");
        }
        script.onRequest = [this, meanwhile] {
            script.onRequest = {};
            meanwhile();
        };
        if (kind == "check") {
            press("cmdCheckUpdate");
        } else if (kind == "download") {
            click(updater(), "cmdDownload");
        } else {
            sset("DisableAutoUpdateCheck", false);
            control<QTimer>(form(), "Timer3").start(0);
            EXPECT_TRUE(waitFor([this] { return !script.onRequest; }));
        }
    }
    [[nodiscard]] fSHAREDUpdater& updater() const { return control<fSHAREDUpdater>(form(), "fSHAREDUpdater"); }
    void queueClick(const char* button) const { clickOn(control<QWidget>(form(), button))(); }
    [[nodiscard]] long requests(const std::string& address) const {
        return static_cast<long>(std::ranges::count(script.requests, address));
    }

    BusyUserHost host;
    TransferScript script;
    DialogService user{[](QDialog& dialog) { dialog.close(); }};
};

TEST_P(UpdateReentry, CommandsRunMeanwhileToTheirEnd) {
    transfer([this] { queueClick("cmdCopy"); });
    EXPECT_EQ(schedulecount, 5);
    EXPECT_TRUE(form().unsavedchanges);
    EXPECT_EQ(tableFaults(), std::vector<std::string>());
    EXPECT_EQ(script.requests.size(), GetParam() == std::string("download") ? 2U : 1U);
}

TEST_P(UpdateReentry, ASecondPressStartsNoSecondTransfer) {
    transfer([this] {
        queueClick("cmdCheckUpdate");
        for (const char* const button : {"cmdCheckAgain", "cmdShowDetail", "cmdDownload", "cmdDownloadInstall"}) {
            if (updater().isVisible()) {
                clickOn(control<QWidget>(updater(), button))();
            }
        }
    });
    EXPECT_EQ(script.requests.size(), GetParam() == std::string("download") ? 2U : 1U);
}

TEST_P(UpdateReentry, ACloseEndsItAndTheProgram) {
    script.replies[GetParam() == std::string("download") ? setup : current].hangs = true;
    EXPECT_EQ(exitCodeOf([this] { transfer([this] { queueClose(form()); }); }), 0);
    EXPECT_TRUE(form().ended());
    EXPECT_FALSE(form().isVisible());
    EXPECT_FALSE(exists("VantorUpd.exe"));
}

TEST_P(UpdateReentry, ACloseDuringALoadMeanwhileWaitsForTheLoad) {
    std::int32_t loaded = 0;
    EXPECT_EQ(exitCodeOf([&] {
                  transfer([&] {
                      schedulecount = 0;
                      host.beforePump = [&](int) {
                          const QWidgetList windows = QApplication::topLevelWidgets();
                          const bool loading = std::ranges::any_of(windows, [](const QWidget* window) {
                              return window->isVisible() && window->windowType() == Qt::SplashScreen;
                          });
                          if (loading) {
                              queueClose(form());
                          }
                          EXPECT_FALSE(loading && form().ended());
                          loaded = schedulecount;
                      };
                      queueClick("cmdReload");
                  });
              }),
              0);
    EXPECT_EQ(loaded, 4);
    EXPECT_TRUE(form().ended());
}

INSTANTIATE_TEST_SUITE_P(, UpdateReentry, testing::Values("check", "silent", "download"),
                         [](const auto& transfer) { return std::string(transfer.param); });

} // namespace
} // namespace vantor::test
