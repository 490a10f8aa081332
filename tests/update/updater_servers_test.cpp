// Tests of the updater's form against a real web server on the loopback.
#include "foundation/settings_store.h"
#include "platform/code_page.h"
#include "platform/qt_host.h"
#include "support/fixture.h"
#include "support/form_driver.h"
#include "update/fSHAREDUpdater.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace vantor::test {
namespace {

class UpdaterWithServer : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        useHost(&m_host);
        for (const char* const name : {"http_proxy", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"}) {
            qunsetenv(name);
        }
        for (std::size_t at = 0; at < setup.size(); ++at) {
            setup[at] = static_cast<char>(at * 7 + at / 256);
        }
        writeFile("served\\setup110b.exe", setup);
        writeFile("served\\details.txt", "New in 1.1.0b");
        LoadSettings(path("Vantor2.ini"));
        m_server.start(QStringLiteral(VANTOR_TEST_PYTHON),
                       {QStringLiteral(VANTOR_TEST_SERVERS), toQtPath(path("served"))});
        ASSERT_TRUE(waitFor([this] { return m_server.canReadLine(); }))
            << m_server.readAllStandardError().toStdString();
        m_web = "http://127.0.0.1:" + m_server.readLine().split(' ').value(0).toStdString();
        form = std::make_unique<fSHAREDUpdater>();
        form->updater().events.status = [this](std::string_view text) {
            statuses.emplace_back(text);
            if (text == "Downloading" && closeInDownload) {
                QTimer::singleShot(0, form.get(), [this] {
                    for (const char* name : {"cmdCheckAgain", "cmdShowDetail", "cmdDownload", "cmdDownloadInstall"}) {
                        EXPECT_FALSE(control<QPushButton>(*form, name).isEnabled()) << name;
                    }
                    form->close();
                });
            }
        };
        form->updater().events.restart = [this] {
            ++restarts;
            return true;
        };
    }
    void TearDown() override {
        form.reset();
        m_server.closeWriteChannel(); // its end
        m_server.waitForFinished();
        Fixture::TearDown();
    }

    /// The server's way of answering /{kind}/{file}.
    [[nodiscard]] std::string address(std::string_view kind, std::string_view file) const {
        return m_web + "/" + std::string(kind) + "/" + std::string(file);
    }
    void check(std::string_view kindOfSetup) {
        writeFile("served\\current.txt", "1.1.0b\n" + address(kindOfSetup, "setup@@@.exe") + "\n");
        form->updater().ShowandCheck(
            {address("unsized", "current.txt"), address("sized", "details.txt"), "VantorUpd.exe"});
        ASSERT_EQ(control<QLabel>(*form, "lblUpdate").text(), QStringLiteral("Version 1.1.0B is available!"));
    }

    std::string setup = std::string(120000, '\0');
    std::unique_ptr<fSHAREDUpdater> form;
    std::vector<std::string> statuses;
    int restarts = 0;
    bool closeInDownload = false;

  private:
    QtHost m_host;
    QProcess m_server;
    std::string m_web;
};

TEST_F(UpdaterWithServer, ChecksReadsDownloadsAndHandsOver) {
    check("slow");
    click(*form, "cmdShowDetail");
    EXPECT_EQ(control<QPlainTextEdit>(*form, "txtDetails").toPlainText(), QStringLiteral("New in 1.1.0b"));
    const Expectation boxes =
        answerBoxes({{"The update has been downloaded. Do you want to install it now?", QMessageBox::Yes}});
    click(*form, "cmdDownloadInstall");
    EXPECT_EQ(readFile("VantorUpd.exe"), setup);
    EXPECT_EQ(restarts, 1);
    EXPECT_FALSE(form->isVisible());
    const std::string requests = readFile("served\\requests.txt");
    EXPECT_EQ(std::ranges::count(requests, '\n'), 3) << requests;
}

TEST_F(UpdaterWithServer, AnUnfinishedDownloadLeavesNothing) {
    check("reset");
    click(*form, "cmdDownload");
    EXPECT_EQ(statuses.back(), "Error - Download failed.");
    EXPECT_FALSE(exists("VantorUpd.exe"));
    check("stall");
    closeInDownload = true;
    click(*form, "cmdDownload");
    closeInDownload = false;
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(logTexts().back(), "Download cancelled");
    EXPECT_FALSE(exists("VantorUpd.exe"));
    check("none"); // an error page
    click(*form, "cmdDownload");
    EXPECT_EQ(statuses.back(), "Error - File not found on server.");
    EXPECT_FALSE(exists("VantorUpd.exe"));
}

} // namespace
} // namespace vantor::test
