// Tests of the transfer: what the control's states, chunks and errors turn into.
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "support/fixture.h"
#include "update/scripted_control.h"
#include "update/transfer.h"
#include "update/transfer_states.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantor::test {

namespace {

using namespace std::string_literals;
using Strings = std::vector<std::string>;

class TransferStates : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        form.StatusText = [this](std::string_view text) { heard.emplace_back(text); };
        form.ProgressText = [this](std::string_view text, double value) {
            heard.push_back(std::to_string(static_cast<int>(value)) + ":" + std::string(text));
        };
        form.DownloadError = [this](std::string_view text) { heard.push_back("error " + std::string(text)); };
        form.DownloadFinished = [this] { heard.emplace_back("finished"); };
        form.NoInternet = [this] { heard.emplace_back("no internet"); };
    }

    void state(TransferState state) {
        script.steps.emplace_back([this, state] { script.tell(state); });
    }
    void respond(std::deque<std::optional<std::string>> chunks) {
        script.chunks = std::move(chunks);
        state(TransferState::ResponseReceived);
        state(TransferState::ResponseCompleted);
    }
    void raise(int number) {
        script.steps.emplace_back([number] { throw Error(number, "Raised"); });
    }
    // A download to its end, with the flag for the length set.
    void download(std::string_view url = "http://h/f", std::string_view name = "f.exe") {
        form.DownloadFile(url, path(name), true);
        while (form.underWay()) {
            form.wait(150);
        }
    }

    TransferScript script;
    fSHAREDInternet form{std::make_unique<ScriptedControl>(script)};
    Strings heard;
};

TEST_F(TransferStates, AReplyPassesAllStates) {
    for (int number = 1; number <= 7; ++number) {
        state(static_cast<TransferState>(number));
    }
    respond({"AB\0cut"s, std::nullopt, "C"}); // a chunk's text ends at a zero
    EXPECT_EQ(form.OpenURL(" http://h/v.txt ", true), "ABC");
    EXPECT_EQ(script.requests, Strings{"http://h/v.txt"});
    EXPECT_EQ(form.ExpectedFilesize(), -1);
    EXPECT_EQ(heard, (Strings{"Resolving host", "Resolved host", "Connecting", "Connected", "Downloading",
                              "Downloaded 1kb", "100:Downloaded 1kb", "Downloaded 2.00 kb (100%)", "finished"}));
    EXPECT_GE(recorder.fullPumps, 10);

    heard.clear();
    respond({});
    EXPECT_EQ(form.OpenURL("http://h/v.txt", false), "");
    EXPECT_EQ(heard, Strings{"finished"});
}

TEST_F(TransferStates, ADownloadCountsAgainstItsLength) {
    script.length = "1536";
    const std::string bytes = std::string(1024, 'a') + "\0b\xFF"s + std::string(509, 'c');
    respond({bytes.substr(0, 1024), bytes.substr(1024)});
    form.ProgressText = [this](std::string_view text, double value) {
        heard.push_back(std::to_string(static_cast<int>(value)) + ":" + std::string(text));
        clock.advance(heard.size() > 4 ? 0.2 : 0.25); // the third comes too early
    };
    download();
    EXPECT_EQ(script.setUp, (Strings{"type 0", "time-out 10"}));
    EXPECT_EQ(heard, (Strings{"Downloading", "1 kb of 2 kb (67%)", "67:1 kb of 2 kb (67%)", "2 kb of 2 kb (133%)",
                              "133:2 kb of 2 kb (133%)", "Downloaded 2.00 kb (100%)", "finished"}));
    EXPECT_EQ(readFile("f.exe"), bytes);
    EXPECT_EQ(form.ExpectedFilesize(), 1536);

    heard.clear();
    form.quietProgress = true;
    respond({bytes});
    state(TransferState::Progress);
    download();
    EXPECT_EQ(heard, (Strings{"Downloading", "finished"}));
}

// A control that never tells of a response is asked twice, and no more.
TEST_F(TransferStates, WithoutAResponseTheGetIsRepeatedOnce) {
    script.length = "7";
    state(TransferState::ResponseCompleted);
    respond({"late"});
    download();
    EXPECT_EQ(script.requests.size(), 2U);
    EXPECT_EQ(form.ExpectedFilesize(), -1); // the second one asks for no length
    EXPECT_EQ(readFile("f.exe"), "late");

    script.requests.clear();
    state(TransferState::ResponseCompleted);
    state(TransferState::ResponseCompleted);
    download();
    EXPECT_EQ(script.requests.size(), 2U);
    EXPECT_EQ(heard.back(), "finished");
}

struct RaisedCase {
    int number;
    std::size_t requests;
    std::string lastEvent;
    std::string ring;
};

TEST_F(TransferStates, RaisedErrorsAreSortedByNumber) {
    const std::vector<RaisedCase> cases = {
        {35764, 1, "error Download failed. Please try again.", ""},
        {35761, 1, "error Download timed out. Please try again.", ""},
        {35756, 2, "finished", ""},
        {35001, 1, "finished", "Raised(35001) in sub wait of module fSHAREDInternet"},
    };
    script.length = "9";
    for (const RaisedCase& one : cases) {
        script.requests.clear();
        script.steps.clear();
        respond({"part", std::nullopt});
        raise(one.number);
        state(TransferState::ResponseReceived);
        state(TransferState::ResponseCompleted); // for those that go on
        download();
        EXPECT_EQ(script.requests.size(), one.requests) << one.number;
        EXPECT_EQ(heard.back(), one.lastEvent);
        EXPECT_EQ(exists("f.exe"), one.lastEvent == "finished");
        EXPECT_EQ(newestAction(), one.ring);
    }
}

TEST_F(TransferStates, RetriesEnd) {
    for (int step = 0; step < 10; ++step) {
        raise(35756);
    }
    download();
    EXPECT_EQ(script.requests.size(), 4U);
    EXPECT_EQ(heard, Strings{"error Download failed. Please try again."});
    EXPECT_EQ(newestAction(), "Raised(35756) in sub wait of module fSHAREDInternet");
}

TEST_F(TransferStates, AnErrorLeavesNothing) {
    respond({"part", std::nullopt});
    state(TransferState::Error);
    download();
    EXPECT_EQ(heard[heard.size() - 2], "Connection reset");
    EXPECT_EQ(heard.back(), "error Connection reset");
    respond({"part", std::nullopt});
    state(TransferState::Error);
    EXPECT_EQ(form.OpenURL("http://h/", true), "");

    form.DownloadFile("http://h/f", path("f.exe"), false);
    form.CancelDownload();
    EXPECT_EQ(heard.back(), "error Download cancelled");
    EXPECT_TRUE(std::filesystem::is_empty(folder())); // no file, and no temporary one
}

TEST_F(TransferStates, AFileThatCannotBeWrittenIsNoDownload) {
    respond({"bytes"});
    download("http://h/f", "missing\\f.exe");
    EXPECT_EQ(heard.back(), "error Path not found");
    EXPECT_EQ(newestAction(), "Path not found(76) in sub inet1_statechanged of module fSHAREDInternet");
}

TEST_F(TransferStates, SixtyOneIdleSecondsEndIt) {
    recorder.onPump = [this](Pump) { clock.advance(1); };
    respond({"a"});
    for (int late = 0; late < 10; ++late) { // moves every 50 seconds
        script.chunks.insert(script.chunks.end(), 50, std::nullopt);
        script.chunks.emplace_back("b");
    }
    EXPECT_EQ(form.OpenURL("http://h/", false), "abbbbbbbbbb");

    for (int number = 0; number < 59; ++number) {
        script.steps.emplace_back([] {});
    }
    state(TransferState::Connecting); // at the last moment
    recorder.fullPumps = 0;
    heard.clear();
    download();
    EXPECT_EQ(heard, (Strings{"error Transfer timed out"}));
    EXPECT_EQ(recorder.fullPumps, 60 + 61); // a tick each
    EXPECT_FALSE(form.Connected());
}

TEST_F(TransferStates, ALongReplyIsNone) {
    respond(std::deque<std::optional<std::string>>(longestReply / 1024 + 5, std::string(1024, '\0')));
    EXPECT_EQ(form.OpenURL("http://h/", false), "");
    EXPECT_EQ(script.chunks.size(), 4U); // not read to its end
    EXPECT_EQ(newestAction(), "Reply is longer than 1048576 bytes in sub inet1_statechanged of module fSHAREDInternet");
    EXPECT_EQ(heard, Strings{"error Download failed. Please try again."});
}

TEST_F(TransferStates, FileServersTakeThreeCommands) {
    script.length = "3072";
    const auto endOfCommand = [this] { script.executing = false; };
    script.steps = {endOfCommand,
                    [this] {
                        script.tell(TransferState::ResponseReceived);
                        script.tell(TransferState::Progress);
                    },
                    [&] {
                        EXPECT_EQ(script.requests.size(), 2U);
                        EXPECT_EQ(heard.size(), 1U); // not finished yet
                        script.tell(TransferState::ResponseCompleted);
                        script.executing = false;
                    },
                    endOfCommand};
    form.DownloadFile("ftp.h.org/pub\\b c/my file.exe ", path("f.exe"), true);
    EXPECT_EQ(script.requests,
              (Strings{"FTP://ftp.h.org|CD /pub/b c/", "FTP://ftp.h.org|GET my%20file.exe " + path("f.exe"),
                       "FTP://ftp.h.org|CLOSE"}));
    EXPECT_EQ(heard, (Strings{"File Size: 3 kb.  Downloaded 2 kb (50%)", "finished"}));

    heard.clear();
    script.requests.clear();
    state(TransferState::Error);
    form.DownloadFile("Ftp://u:p@h:21/f.exe", path("f.exe"), false);
    EXPECT_EQ(script.requests, (Strings{"FTP://u:p@h:21|CD /"}));
    form.DownloadFile("ftp:///f.exe", path("f.exe"), false);
    EXPECT_EQ(heard, (Strings{"Connection reset", "error Connection reset", "error No address specified"}));
}

struct ProxyCase {
    std::string settings;
    Strings setUp;
    std::string log;
    std::string ring;
};

TEST_F(TransferStates, TheProxyOfTheSettingsGoesToTheControl) {
    const std::string applied = "DBG: Proxy username/password set";
    const std::vector<ProxyCase> cases = {
        {"PROXYTYPE, 0 \r\n", {"type 0", "user ", "password "}, "Proxy set to: 0 old:1", ""},
        {"", {"type 1", "user ", "password ", "proxy "}, "Proxy set to: 1 ", ""},
        {"PROXYPORT,3128\r\nPROXYPWD, pa ss\r\nPROXYSERVER,px\r\nPROXYTYPE, 2 \r\nPROXYUSER,me\r\n",
         {"type 2", "user ", "password ", "proxy px:3128", "user me", "password  pa ss"},
         "Proxy set to: 2 px:3128",
         applied},
        {"PROXYSERVER,px\r\nPROXYTYPE, 2 \r\n",
         {"type 2", "user ", "password ", "proxy ", "user ", "password "},
         "Proxy set to: 2 ",
         applied},
    };
    for (const ProxyCase& one : cases) {
        script.setUp.clear();
        writeFile("Vantor2.ini", one.settings);
        LoadSettings(path("Vantor2.ini"));
        form.ApplyProxy();
        EXPECT_EQ(script.setUp, one.setUp);
        EXPECT_EQ(logTexts().back(), one.log);
        EXPECT_EQ(newestAction(), one.ring);
    }
}

TEST_F(TransferStates, AMissingControlIsToldAtEachTransfer) {
    LoadSettings(path("Vantor2.ini"));
    writeFile("f.exe", "old");
    script.setUpFault = 339;
    form.ApplyProxy();
    EXPECT_EQ(newestAction(), "Not registered(339) in sub applyproxy of module fSHAREDInternet");
    EXPECT_EQ(form.OpenURL("http://h/", true), "");
    form.DownloadFile("http://h/f", path("f.exe"), true);
    EXPECT_EQ(heard, (Strings{"no internet", "finished", "no internet"}));
    EXPECT_FALSE(exists("f.exe"));
    EXPECT_EQ(script.requests, Strings{});
}

// What a user may do from a button while a call waits for its transfer.
class TransferInterrupted : public TransferStates {
  protected:
    void SetUp() override {
        TransferStates::SetUp();
        form.unload();
        internet = std::make_unique<cSHAREDInternet>(std::make_unique<ScriptedControl>(script));
        internet->Progress = [this](double value, std::string_view text) {
            heard.push_back(std::to_string(static_cast<int>(value)) + ":" + std::string(text));
        };
        respond({"some", std::nullopt, "more"});
    }
    // Runs once, while the first half of the response is there.
    void inMidTransfer(std::function<void()> action) {
        script.steps.emplace_back([this, action = std::move(action)] {
            ASSERT_TRUE(internet->Connected());
            action();
        });
    }
    [[nodiscard]] bool getFile() { return internet->GetFile("http://h/f", path("f.exe"), true, false, false); }
    void expectNoFile() { EXPECT_TRUE(std::filesystem::is_empty(folder())); }

    std::unique_ptr<cSHAREDInternet> internet;
};

TEST_F(TransferInterrupted, ByCancel) {
    inMidTransfer([this] { internet->Cancel(); });
    EXPECT_FALSE(getFile());
    EXPECT_EQ(heard.back(), "0:Download cancelled");
    EXPECT_FALSE(internet->Connected());
    expectNoFile();
    // From the handler of an event, and for a text.
    internet->Status = [this](std::string_view text) {
        if (text.starts_with("Downloaded")) {
            internet->Cancel();
        }
    };
    clock.advance(1);
    respond({"some", "more"});
    EXPECT_EQ(internet->OpenURL("http://h/", true), "");
    EXPECT_EQ(heard.back(), "0:Download cancelled");
}

TEST_F(TransferInterrupted, ByTheEndOfTheObject) {
    inMidTransfer([this] { internet.reset(); });
    EXPECT_FALSE(getFile());
    EXPECT_FALSE(script.executing);
    expectNoFile();
}

TEST_F(TransferInterrupted, ByAnother) {
    std::string reply;
    inMidTransfer([&] {
        respond({"text"});
        reply = internet->OpenURL("http://h/v", false);
    });
    EXPECT_FALSE(getFile());
    EXPECT_EQ(reply, "text");
    expectNoFile();

    bool inner = false;
    respond({"some", std::nullopt, "more"});
    inMidTransfer([&] {
        respond({"whole"});
        inner = getFile();
    });
    EXPECT_FALSE(getFile());
    EXPECT_TRUE(inner);
    EXPECT_EQ(readFile("f.exe"), "whole");
}

} // namespace

} // namespace vantor::test
