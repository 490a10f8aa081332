// Tests of the transfer against real servers on the loopback: web, files, and a proxy that wants a password.
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "foundation/text.h"
#include "support/fixture.h"
#include "update/curl_control.h"
#include "update/transfer.h"
#include "update/transfer_states.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <ostream>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace vantor::test {

namespace {

// The servers as one child process, which ends with its input.
class Servers {
  public:
    explicit Servers(const std::filesystem::path& folder) {
        std::array<int, 2> input{};
        std::array<int, 2> output{};
        if (::pipe2(input.data(), O_CLOEXEC) != 0 || ::pipe2(output.data(), O_CLOEXEC) != 0) {
            ADD_FAILURE() << "no pipes";
            return;
        }
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
        std::string python = VANTOR_TEST_PYTHON;
        std::string script = VANTOR_TEST_SERVERS;
        std::string served = folder.string();
        std::array<char*, 4> arguments = {python.data(), script.data(), served.data(), nullptr};
        EXPECT_EQ(::posix_spawn(&m_child, python.c_str(), &actions, nullptr, arguments.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        ::close(input[0]);
        ::close(output[1]);
        m_input = input[1];
        std::FILE* const ports = ::fdopen(output[0], "r");
        EXPECT_EQ(std::fscanf(ports, "%d %d %d", &web, &ftp, &proxy), 3) << "the servers did not start";
        std::fclose(ports);
    }
    ~Servers() {
        ::close(m_input);
        ::waitpid(m_child, nullptr, 0);
    }
    Servers(const Servers&) = delete;
    Servers& operator=(const Servers&) = delete;

    int web = 0;
    int ftp = 0;
    int proxy = 0;

  private:
    pid_t m_child = -1;
    int m_input = -1;
};

std::string patternOf(std::size_t length) {
    std::string bytes(length, '\0');
    for (std::size_t at = 0; at < length; ++at) {
        bytes[at] = static_cast<char>(at * 7 + at / 256);
    }
    return bytes;
}

const std::string reply = "1.2.3\nhttp://h/setup@@@.exe\r\n";

class RealServers : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        for (const char* const name : {"http_proxy", "ftp_proxy", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"}) {
            ::unsetenv(name);
        }
        writeFile("served\\reply.txt", reply);
        writeFile("served\\pub\\setup.exe", patternOf(30000));
        LoadSettings(path("Vantor2.ini"));
        servers = std::make_unique<Servers>(folder() / "served");
        internet.Progress = [this](double value, std::string_view text) {
            lastProgress = std::to_string(static_cast<int>(value)) + ":" + std::string(text);
        };
        internet.ApplyProxy();
    }

    // {web}, {ftp} and {dead} (a port that nobody listens on) in an address.
    [[nodiscard]] std::string address(std::string_view text) const {
        std::string result = replaceAll(text, "{web}", "127.0.0.1:" + std::to_string(servers->web));
        result = replaceAll(result, "{ftp}", "127.0.0.1:" + std::to_string(servers->ftp));
        return replaceAll(result, "{dead}", "127.0.0.1:1");
    }
    [[nodiscard]] bool getFile(std::string_view url) {
        return internet.GetFile(address(url), path("got\\setup.exe"), true, false, false);
    }
    [[nodiscard]] std::string text(std::string_view url) { return internet.OpenURL(address(url), true); }
    [[nodiscard]] std::string requests() const { return readFile("served\\requests.txt"); }
    // Neither a file nor a temporary one.
    void expectNothingLeft() const { EXPECT_TRUE(std::filesystem::is_empty(folder() / "got")); }
    void useProxy(int type, const char* user, const char* password) {
        sset("ProxyType", type);
        sset("ProxyServer", "127.0.0.1");
        sset("ProxyPort", std::to_string(servers->proxy));
        sset("ProxyUser", user);
        sset("ProxyPwd", password);
        internet.ApplyProxy();
    }

    std::unique_ptr<Servers> servers;
    cSHAREDInternet internet;
    std::string lastProgress;
};

struct AnswerCase {
    std::string name;
    std::string url;
    bool arrives;
    friend std::ostream& operator<<(std::ostream& out, const AnswerCase& shown) { return out << shown.name; }
};

class Answers : public RealServers, public testing::WithParamInterface<AnswerCase> {
  protected:
    void SetUp() override {
        RealServers::SetUp();
        std::filesystem::create_directory(folder() / "got");
    }
};

TEST_P(Answers, AsATextAndAsAFile) {
    const AnswerCase& expected = GetParam();
    const std::string body = expected.arrives ? reply : "";
    EXPECT_EQ(text(expected.url), body);
    EXPECT_FALSE(internet.Connected());
    writeFile("got\\setup.exe", "old");
    EXPECT_EQ(getFile(expected.url), expected.arrives);
    if (expected.arrives) {
        EXPECT_EQ(readFile("got\\setup.exe"), body);
    } else {
        expectNothingLeft();
    }
    EXPECT_FALSE(internet.Connected());
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, Answers,
    testing::Values(AnswerCase{"Sized", " http://{web}/sized/reply.txt ", true},
                    AnswerCase{"Unsized", "http://{web}/unsized/reply.txt", true},
                    AnswerCase{"NoScheme", "{web}/sized/reply.txt", true},
                    AnswerCase{"Redirect", "http://{web}/redirect/%2Funsized%2Freply.txt", true},
                    AnswerCase{"RedirectToFtp", "http://{web}/redirect/ftp%3A%2F%2F{ftp}%2Freply.txt", true},
                    AnswerCase{"RedirectToFile", "http://{web}/redirect/file%3A%2F%2F%2Fetc%2Fhostname", false},
                    AnswerCase{"RedirectToGopher", "http://{web}/redirect/gopher%3A%2F%2F{web}%2F", false},
                    AnswerCase{"RedirectForEver", "http://{web}/loop", false},
                    AnswerCase{"File", "file:///etc/hostname", false},
                    AnswerCase{"Reset", "http://{web}/reset/pub/setup.exe", false},
                    AnswerCase{"Short", "http://{web}/short/pub/setup.exe", false},
                    AnswerCase{"Nothing", "http://{web}/nothing", false},
                    AnswerCase{"Refused", "http://{dead}/", false}, AnswerCase{"Nonsense", "http://[x", false}),
    [](const auto& answer) { return answer.param.name; });

TEST_F(RealServers, NothingIsSentButTheRequest) {
    EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply);
    EXPECT_EQ(requests(), address("/sized/reply.txt Host: {web} Accept: */*\n"));
}

TEST_F(RealServers, AnErrorPageIsAReply) {
    EXPECT_EQ(text("http://{web}/missing"), "<HTML><BODY>404 Not Found</BODY></HTML>");
}

// The second GET of an answer without bytes asks for no length.
TEST_F(RealServers, AnEmptyReplyIsAskedForTwice) {
    writeFile("served\\empty", "");
    EXPECT_EQ(text("http://{web}/sized/empty"), "");
    ASSERT_TRUE(internet.GetFile(address("http://{web}/sized/empty"), path("f"), true, true, true));
    EXPECT_EQ(readFile("f"), "");
    const std::string log = requests();
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 3);
}

TEST_F(RealServers, ASlowDownloadShowsItsProgress) {
    recorder.onPump = [this](Pump) { clock.advance(0.3); };
    ASSERT_TRUE(internet.GetFile(address("http://{web}/slow/pub/setup.exe"), path("f.exe"), true, false, false));
    EXPECT_EQ(readFile("f.exe"), patternOf(30000));
    EXPECT_EQ(internet.ExpectedFilesize(), 30000);
    EXPECT_TRUE(contains(lastProgress, " kb of 29 kb (")) << lastProgress;
}

TEST_F(RealServers, TenMegabytesAreAFileButNoReply) {
    writeFile("served\\big", patternOf(10'000'000));
    for (const char* const kind : {"sized", "unsized"}) {
        const std::string url = address("http://{web}/" + std::string(kind) + "/big");
        EXPECT_EQ(internet.OpenURL(url, false), "");
        EXPECT_TRUE(contains(newestAction(), "Reply is longer than 1048576 bytes")) << newestAction();
        ASSERT_TRUE(internet.GetFile(url, path("big"), true, true, false));
        EXPECT_TRUE(readFile("big") == patternOf(10'000'000));
    }
}

struct InterruptCase {
    std::string name;
    std::string url;
    std::string statusText; ///< when it is cancelled
    friend std::ostream& operator<<(std::ostream& out, const InterruptCase& shown) { return out << shown.name; }
};

class Interrupted : public RealServers, public testing::WithParamInterface<InterruptCase> {};

TEST_P(Interrupted, LeavesNothing) {
    std::filesystem::create_directory(folder() / "got");
    internet.Status = [this](std::string_view status) {
        if (containsNoCase(status, GetParam().statusText)) {
            recorder.onPump = [this](Pump) { internet.Cancel(); };
        }
    };
    EXPECT_FALSE(getFile(GetParam().url));
    expectNothingLeft();
    EXPECT_FALSE(internet.Connected());
    EXPECT_EQ(lastProgress, "0:Download cancelled");
}

INSTANTIATE_TEST_SUITE_P(Moments, Interrupted,
                         testing::Values(InterruptCase{"BeforeTheResponse", "http://{web}/silent", "Connected"},
                                         InterruptCase{"InMidBody", "http://{web}/stall", "kb of"},
                                         InterruptCase{"OnAFileServer", "ftp://{ftp}/pub/setup.exe", "Connected"}),
                         [](const auto& moment) { return moment.param.name; });

// The clock moves a second at each pump, so nobody waits.
TEST_F(RealServers, AServerThatDoesNotAnswerTimesOut) {
    fSHAREDInternet form(makeCurlControl());
    std::string error;
    form.DownloadError = [&](std::string_view words) { error = words; };
    const auto download = [&](std::string_view url) {
        form.DownloadFile(address(url), path("f.exe"), true);
        while (form.underWay()) {
            form.wait(10);
        }
        return recorder.fullPumps;
    };
    recorder.onPump = [this](Pump) { clock.advance(1); };
    EXPECT_GE(download("http://{web}/silent"), 10);
    EXPECT_LT(recorder.fullPumps, 30); // each answer on the way to the server begins anew
    EXPECT_EQ(error, "Download timed out. Please try again.");
    EXPECT_GE(download("http://{web}/stall"), 61); // behind the response only idle seconds count
    EXPECT_EQ(error, "Transfer timed out");
    EXPECT_FALSE(exists("f.exe"));
}

struct FileServerCase {
    std::string name;
    std::string url;
    bool arrives;
    friend std::ostream& operator<<(std::ostream& out, const FileServerCase& shown) { return out << shown.name; }
};

class FileServer : public RealServers, public testing::WithParamInterface<FileServerCase> {};

TEST_P(FileServer, Downloads) {
    std::filesystem::create_directories(folder() / "got");
    EXPECT_EQ(getFile(GetParam().url), GetParam().arrives);
    if (GetParam().arrives) {
        EXPECT_EQ(readFile("got\\setup.exe"), patternOf(30000));
        EXPECT_EQ(internet.ExpectedFilesize(), 30000);
    } else {
        expectNothingLeft();
    }
}

INSTANTIATE_TEST_SUITE_P(Addresses, FileServer,
                         testing::Values(FileServerCase{"Plain", "FTP://{ftp}/pub/setup.exe", true},
                                         FileServerCase{"Backslashes", "ftp:\\\\{ftp}\\pub\\setup.exe", true},
                                         FileServerCase{"User", "ftp://vera:geheim@{ftp}/pub/setup.exe", true},
                                         FileServerCase{"WrongPassword", "ftp://vera:falsch@{ftp}/pub/setup.exe",
                                                        false},
                                         FileServerCase{"NoSuchFile", "ftp://{ftp}/pub/other.exe", false},
                                         FileServerCase{"NoSuchFolder", "ftp://{ftp}/other/setup.exe", false},
                                         FileServerCase{"NoFile", "ftp://{ftp}/pub/", false},
                                         FileServerCase{"NoServer", "ftp://{dead}/pub/setup.exe", false}),
                         [](const auto& server) { return server.param.name; });

TEST_F(RealServers, AProxyIsToldItsPassword) {
    useProxy(2, "vera", "geheim");
    EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply);
    EXPECT_TRUE(contains(requests(), "tinyproxy")); // it went through
    EXPECT_FALSE(containsNoCase(requests(), "authorization"));
    useProxy(2, "vera", "falsch");
    EXPECT_TRUE(containsNoCase(text("http://{web}/sized/reply.txt"), "<html"));
    useProxy(2, "", "");
    EXPECT_TRUE(containsNoCase(text("http://{web}/sized/reply.txt"), "<html"));
    EXPECT_TRUE(contains(logTexts().back(), "Proxy set to: 2 127.0.0.1:"));
}

// A download asks the system's proxy whatever the settings say, with the user of the settings.
TEST_F(RealServers, ADownloadGoesThroughTheSystemsProxy) {
    ::setenv("http_proxy", ("http://127.0.0.1:" + std::to_string(servers->proxy)).c_str(), 1);
    useProxy(2, "vera", "geheim");
    ASSERT_TRUE(internet.GetFile(address("http://{web}/sized/pub/setup.exe"), path("f.exe"), true, false, false));
    EXPECT_EQ(readFile("f.exe"), patternOf(30000));
    EXPECT_TRUE(contains(requests(), "tinyproxy"));
    std::filesystem::remove(folder() / "served" / "requests.txt");
    useProxy(1, "", "");
    EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply);
    EXPECT_FALSE(contains(requests(), "tinyproxy"));
    ::unsetenv("http_proxy");
}

} // namespace

} // namespace vantor::test
