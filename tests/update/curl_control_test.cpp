// Tests of the transfer against real servers on the loopback: web, with TLS too, files, and a proxy with a password.
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "foundation/text.h"
#include "support/disk_faults.h"
#include "support/fixture.h"
#include "update/cSHAREDInternet.h"
#include "update/curl_control.h"
#include "update/fSHAREDInternet.h"
#include "update/recording_form.h"
#include "update/updater.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <tuple>

namespace vantor::test {
namespace {

// The servers as one child process, which ends when nobody reads its output any more.
class Servers {
  public:
    explicit Servers(const std::filesystem::path& folder)
        : m_output(::popen(("exec " VANTOR_TEST_PYTHON " '" VANTOR_TEST_SERVERS "' '" + folder.string() + "'").c_str(),
                           "r")) {
        EXPECT_EQ(std::fscanf(m_output, "%d %d %d %d", &web, &ftp, &proxy, &tls), 4) << "the servers did not start";
    }
    ~Servers() { ::pclose(m_output); }
    Servers(const Servers&) = delete;
    Servers& operator=(const Servers&) = delete;

    int web = 0;
    int ftp = 0;
    int proxy = 0;
    int tls = 0;

  private:
    std::FILE* m_output;
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
        writeFile("served\\pub\\reply.txt", reply);
        writeFile("served\\pub\\setup.exe", patternOf(30000));
        std::filesystem::create_directory(folder() / "got");
        LoadSettings(path("Vantor2.ini"));
        servers = std::make_unique<Servers>(folder() / "served");
        internet.Progress = [this](double value, std::string_view text) {
            lastProgress = std::to_string(static_cast<int>(value)) + ":" + std::string(text);
        };
        internet.Status = [this](std::string_view status) { lastStatus = status; };
        internet.ApplyProxy();
    }

    // {web}, {ftp}, {tls} and {dead} (a port that nobody listens on) in an address.
    [[nodiscard]] std::string address(std::string_view text) const {
        std::string result = replaceAll(text, "{web}", "127.0.0.1:" + std::to_string(servers->web));
        result = replaceAll(result, "{ftp}", "127.0.0.1:" + std::to_string(servers->ftp));
        result = replaceAll(result, "{tls}", "127.0.0.1:" + std::to_string(servers->tls));
        return replaceAll(result, "{dead}", "127.0.0.1:1");
    }
    [[nodiscard]] bool getFile(std::string_view url) {
        return internet.GetFile(address(url), path("got\\setup.exe"), true, false, false);
    }
    [[nodiscard]] std::string text(std::string_view url) { return internet.OpenURL(address(url), true); }
    [[nodiscard]] std::string requests() const { return readFile("served\\requests.txt"); }
    // The file and no other, or neither a file nor a temporary one.
    void expectGot(const std::optional<std::string>& bytes, const std::string& url) const {
        const std::filesystem::directory_iterator left(folder() / "got");
        EXPECT_EQ(std::distance(begin(left), end(left)), bytes ? 1 : 0) << url;
        EXPECT_TRUE(!bytes || readFile("got\\setup.exe") == *bytes) << url;
        EXPECT_FALSE(internet.Connected()) << url;
    }
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
    std::string lastStatus;
};

struct AnswerCase {
    std::string url;
    std::optional<std::string> body; ///< none when it fails
};

TEST_F(RealServers, AnswerWithATextAndWithAFile) {
    EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply);
    EXPECT_EQ(requests(), address("/sized/reply.txt Host: {web} Accept: */*\n")) << "nothing is told of the user";
    writeFile("served\\empty", "");
    const std::vector<AnswerCase> cases = {
        {" http://{web}/unsized/reply.txt ", reply},
        {"{web}/sized/reply.txt", reply},
        {"http://{web}/sized/empty", ""},
        {"http://{web}/missing", "<HTML><BODY>404 Not Found</BODY></HTML>"},
        {"http://{web}/redirect/%2Funsized%2Freply.txt", reply},
        {"http://{web}/redirect/ftp%3A%2F%2F{ftp}%2Freply.txt", reply},
        {"http://{web}/redirect/file%3A%2F%2F%2Fetc%2Fhostname", {}},
        {"http://{web}/redirect/gopher%3A%2F%2F{web}%2F", {}},
        {"http://{web}/loop", {}},
        {"file:///etc/hostname", {}},
        {"http://{web}/reset/pub/setup.exe", {}},
        {"http://{web}/short/pub/setup.exe", {}},
        {"http://{web}/nothing", {}},
        {"http://{dead}/", {}},
        {"http://[x", {}},
        {"FTP://{ftp}/pub/reply.txt", reply},
        {"ftp://vera:geheim@{ftp}/pub/reply.txt", reply},
        {"ftp://vera:falsch@{ftp}/pub/reply.txt", {}},
        {"ftp://{ftp}/pub/other.txt", {}},
        {"ftp://{ftp}/other/reply.txt", {}},
        {"ftp://{dead}/pub/reply.txt", {}},
        {"https://{tls}/sized/reply.txt", {}}, // nobody vouches for the certificate
    };
    for (const AnswerCase& one : cases) {
        EXPECT_EQ(text(one.url), one.body.value_or("")) << one.url;
        writeFile("got\\setup.exe", "old");
        EXPECT_EQ(getFile(one.url), one.body.has_value()) << one.url;
        expectGot(one.body, one.url);
    }
    EXPECT_TRUE(contains(lastStatus, "certificate")) << lastStatus;
    EXPECT_FALSE(getFile("ftp://{ftp}/pub/")) << "the server would send a list of its files";
    expectGot({}, "a folder");
}

TEST_F(RealServers, TenMegabytesAreAFileButNoReply) {
    writeFile("served\\setup.exe", patternOf(10'000'000));
    for (const char* const kind : {"sized", "unsized"}) {
        const std::string url = "http://{web}/" + std::string(kind) + "/setup.exe";
        EXPECT_EQ(text(url), "");
        EXPECT_TRUE(getFile(url));
        expectGot(patternOf(10'000'000), url);
    }
}

TEST_F(RealServers, ACancelLeavesNothing) {
    // At which text of the status the transfer is cancelled.
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"http://{web}/silent", "Connected"},       // before the response
        {"http://{web}/stall", "kb of"},            // in mid-body
        {"ftp://{ftp}/pub/setup.exe", "Connected"}, // on a file server
    };
    for (const auto& [url, moment] : cases) {
        clock.advance(1);
        internet.Status = [&](std::string_view status) {
            if (contains(status, moment)) {
                recorder.onPump = [this](Pump) { internet.Cancel(); };
            }
        };
        EXPECT_FALSE(getFile(url));
        recorder.onPump = {};
        expectGot(std::nullopt, url);
        EXPECT_EQ(lastProgress, "0:Download cancelled");
    }
}

// The clock moves a second at each pump, so nobody waits.
TEST_F(RealServers, AServerThatDoesNotAnswerTimesOut) {
    fSHAREDInternet form(makeCurlControl());
    std::string error;
    form.DownloadError = [&](std::string_view words) { error = words; };
    const auto download = [&](std::string_view url) {
        form.DownloadFile(address(url), path("f.exe"), true);
        while (form.underWay()) {
            form.wait();
        }
    };
    recorder.onPump = [this](Pump) { clock.advance(1); };
    download("http://{web}/silent");
    EXPECT_GE(recorder.fullPumps, 10);
    EXPECT_LT(recorder.fullPumps, 30); // each answer on the way to the server begins anew
    EXPECT_EQ(error, "Download timed out. Please try again.");
    writeFile("served\\drip", std::string(400, 'x')); // a few bytes a second, for longer than any silence may last
    download("http://{web}/drip/drip");
    EXPECT_EQ(readFile("f.exe").size(), 400U);
    recorder.fullPumps = 0;
    download("http://{web}/stall");
    EXPECT_GE(recorder.fullPumps, 61); // behind the response only idle seconds count
    EXPECT_EQ(error, "Transfer timed out");
    EXPECT_FALSE(exists("f.exe"));
}

TEST_F(RealServers, AFaultOfTheDiskLeavesNoHalfAFile) {
    const std::vector<std::tuple<DiskCall, int, std::string>> faults = {
        {DiskCall::Open, EROFS, "Path/File access error"},
        {DiskCall::Write, ENOSPC, "Disk full"},
        {DiskCall::Sync, EIO, "Device I/O error"},
        {DiskCall::Rename, EACCES, "Path/File access error"},
    };
    for (const std::string url : {"ftp:\\\\{ftp}\\pub\\setup.exe", "http://{web}/sized/pub/setup.exe"}) {
        for (const auto& [call, error, words] : faults) {
            bool met = true;
            for (int n = 1; met; ++n) {
                SCOPED_TRACE(url + ", " + words + " at call " + std::to_string(n));
                lastStatus.clear();
                test::forgetActions();
                bool got = false;
                {
                    const DiskFault fault(call, n, error);
                    got = getFile(url);
                    met = fault.met();
                }
                const bool folderFlush = call == DiskCall::Sync && n == 2;
                EXPECT_EQ(got, !met || folderFlush);
                EXPECT_TRUE(got || contains(lastStatus + newestAction(), words)) << lastStatus;
                EXPECT_TRUE(met || n > 1);
                EXPECT_TRUE(!got || internet.ExpectedFilesize() == 30000);
                expectGot(got ? std::optional(patternOf(30000)) : std::nullopt, url);
            }
        }
    }
}

TEST_F(RealServers, AProxyIsToldItsPassword) {
    useProxy(2, "vera", "geheim");
    EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply);
    EXPECT_TRUE(contains(requests(), "tinyproxy"));  // it went through
    sset("ProxyPort", std::to_string(servers->web)); // a proxy that asks for none
    internet.ApplyProxy();
    EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply);
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
    EXPECT_TRUE(getFile("http://{web}/sized/pub/setup.exe"));
    expectGot(patternOf(30000), "through the proxy");
    EXPECT_TRUE(contains(requests(), "tinyproxy"));
    std::filesystem::remove(folder() / "served" / "requests.txt");
    useProxy(1, "", "");
    EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply);
    EXPECT_FALSE(contains(requests(), "tinyproxy"));
    ::unsetenv("http_proxy");
}

// The updater as a whole, but for its window.
TEST_F(RealServers, AVersionIsFoundReadAndFetched) {
    const std::string setup = patternOf(120000);
    writeFile("served\\setup110b.exe", setup);
    writeFile("served\\details.txt", "New in 1.1.0b");
    RecordingForm form;
    Updater updater(form);
    updater.events.status = [this](std::string_view status) { lastStatus = status; };
    const auto check = [&](const std::string& kind) {
        writeFile("served\\current.txt", address("1.1.0b\nhttp://{web}/" + kind + "/setup@@@.exe\n"));
        updater.ShowandCheck(
            {address("http://{web}/unsized/current.txt"), address("http://{web}/sized/details.txt"), "VantorUpd.exe"});
        EXPECT_EQ(form.update, "Version 1.1.0B is available!");
    };
    check("slow");
    updater.showDetails();
    EXPECT_EQ(form.detailsText, "New in 1.1.0b");
    recorder.onPump = [this](Pump) { clock.advance(0.3); };
    updater.download();
    EXPECT_TRUE(readFile("VantorUpd.exe") == setup);
    EXPECT_EQ(lastStatus, "File saved to " + path("VantorUpd.exe"));
    EXPECT_TRUE(std::ranges::any_of(form.status.all<DrawnText>(), [](const DrawnText& drawn) {
        return contains(drawn.text, " kb of 117 kb (") && !contains(drawn.text, "(100%)");
    }));
    check("reset");
    updater.download();
    EXPECT_EQ(lastStatus, "Error - Download failed.");
    EXPECT_FALSE(exists("VantorUpd.exe"));
}

} // namespace
} // namespace vantor::test
