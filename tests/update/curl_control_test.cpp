// Tests of the transfer against real servers on the loopback: web, with TLS too, files, and a proxy with a password.
#include "core/settings_keys.h"
#include "support/disk_faults.h"
#include "support/test.h"
#include "update/cSHAREDInternet.h"
#include "update/curl_control.h"

#include <cerrno>
#include <cstdio>
#include <future>

namespace vantor {
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
const std::string setup = patternOf(30000);

class RealServers : public Fixture {
  protected:
    void SetUp() override {
        for (const char* const name : {"http_proxy", "ftp_proxy", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"}) {
            ::unsetenv(name);
        }
        writeFile("served\\reply.txt", reply);
        writeFile("served\\pub\\reply.txt", reply);
        writeFile("served\\pub\\setup.exe", setup);
        std::filesystem::create_directory(folder() / "got");
        LoadSettings(path("Vantor2.ini"));
        servers = std::make_unique<Servers>(folder() / "served");
        surround({});
    }
    void surround(CurlSurroundings surroundings) {
        internet = std::make_unique<cSHAREDInternet>(makeCurlControl(std::move(surroundings)));
        internet->Progress = [this](double value, std::string_view text) {
            lastProgress = std::to_string(static_cast<int>(value)) + ":" + std::string(text);
        };
        internet->Status = [this](std::string_view status) { lastStatus = status; };
        internet->ApplyProxy();
    }

    // {web}, {ftp}, {tls} and {dead} (a port that nobody listens on) in an address.
    [[nodiscard]] std::string address(std::string_view text) const {
        std::string result = replaceAll(text, "{web}", "127.0.0.1:" + std::to_string(servers->web));
        result = replaceAll(result, "{ftp}", "127.0.0.1:" + std::to_string(servers->ftp));
        result = replaceAll(result, "{tls}", "127.0.0.1:" + std::to_string(servers->tls));
        return replaceAll(result, "{dead}", "127.0.0.1:1");
    }
    [[nodiscard]] bool getFile(std::string_view url) {
        return internet->GetFile(address(url), path("got\\setup.exe"), true, false, false);
    }
    [[nodiscard]] std::string text(std::string_view url) { return internet->OpenURL(address(url), true); }
    [[nodiscard]] std::string requests() const { return readFile("served\\requests.txt"); }
    // The file and no other, or neither a file nor a temporary one.
    void expectGot(const std::optional<std::string>& bytes, const std::string& url) const {
        const std::filesystem::directory_iterator left(folder() / "got");
        EXPECT_EQ(std::distance(begin(left), end(left)), bytes ? 1 : 0) << url;
        EXPECT_TRUE(!bytes || readFile("got\\setup.exe") == *bytes) << url;
        EXPECT_FALSE(internet->Connected()) << url;
    }
    void expectAnswers(const std::vector<std::pair<std::string, std::optional<std::string>>>& answers) {
        for (const auto& [url, body] : answers) {
            EXPECT_EQ(text(url), body.value_or("")) << url;
            writeFile("got\\setup.exe", "old");
            EXPECT_EQ(getFile(url), body.has_value()) << url;
            expectGot(body, url);
        }
    }
    void useProxy(int type, const char* user, const char* password, int port) {
        sset(keys::proxyType, static_cast<std::int16_t>(type));
        sset(keys::proxyServer, "127.0.0.1");
        sset(keys::proxyPort, std::to_string(port));
        sset(keys::proxyUser, user);
        sset(keys::proxyPwd, password);
        internet->ApplyProxy();
    }

    std::unique_ptr<Servers> servers;
    std::unique_ptr<cSHAREDInternet> internet;
    std::string lastProgress;
    std::string lastStatus;
};

TEST_F(RealServers, AnswerWithATextAndWithAFile) {
    EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply);
    EXPECT_EQ(requests(), address("/sized/reply.txt Host: {web} Accept: */*\n")) << "nothing is told of the user";
    writeFile("served\\empty", "");
    expectAnswers({
        {" http://{web}/unsized/reply.txt ", reply},
        {"{web}/sized/reply.txt", reply},
        {"http://{web}/sized/empty", ""},
        {"http://{web}/missing", "<HTML><BODY>404 Not Found</BODY></HTML>"},
        {"http://{web}/redirect/%2Funsized%2Freply.txt", reply},
        {"http://{web}/redirect/ftp%3A%2F%2F{ftp}%2Freply.txt", reply},
        {"http://{web}/redirect/file%3A%2F%2F%2Fetc%2Fhostname", {}},
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
    });
    EXPECT_TRUE(contains(lastStatus, "certificate")) << lastStatus;
    EXPECT_FALSE(getFile("ftp://{ftp}/pub/")) << "the server would send a list of its files";
    expectGot({}, "a folder");
    writeFile("served\\setup.exe", patternOf(3'000'000)); // more than is held at a time
    EXPECT_EQ(text("http://{web}/unsized/setup.exe"), "");
    EXPECT_TRUE(getFile("http://{web}/unsized/setup.exe"));
    expectGot(patternOf(3'000'000), "three megabytes");
}

TEST_F(RealServers, WhatBeganSecurelyStaysSo) {
    surround({.proxy = {}, .certificates = (folder() / "served" / "certificate.pem").string()});
    expectAnswers({
        {"https://{tls}/redirect/https%3A%2F%2F{tls}%2Fsized%2Freply.txt", reply},
        {"HTTPS://{tls}/redirect/http%3A%2F%2F{web}%2Fsized%2Freply.txt", {}},
        {"https://{tls}/redirect/ftp%3A%2F%2F{ftp}%2Freply.txt", {}},
        {"http://{web}/redirect/https%3A%2F%2F{tls}%2Fsized%2Freply.txt", reply},
    });
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
        internet->Status = [&](std::string_view status) {
            if (contains(status, moment)) {
                recorder.onPump = [this](Pump) { internet->Cancel(); };
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
    recorder.onPump = [this](Pump) { clock.advance(1); };
    EXPECT_FALSE(getFile("http://{web}/silent"));
    EXPECT_GE(recorder.fullPumps, 10);
    EXPECT_LT(recorder.fullPumps, 30);                // each answer on the way to the server begins anew
    writeFile("served\\drip", std::string(400, 'x')); // a few bytes a second, for longer than any silence may
    EXPECT_TRUE(getFile("http://{web}/drip/drip")) << lastStatus; // last
    recorder.fullPumps = 0;
    EXPECT_FALSE(getFile("http://{web}/stall"));
    EXPECT_GE(recorder.fullPumps, 61); // behind the response only idle seconds count
}

TEST_F(RealServers, AFaultOfTheDiskLeavesNoHalfAFile) {
    for (const std::string url : {"ftp:\\\\{ftp}\\pub\\setup.exe", "http://{web}/sized/pub/setup.exe"}) {
        for (const auto& [call, error] : {std::pair(DiskCall::Write, ENOSPC), std::pair(DiskCall::Rename, EACCES)}) {
            const DiskFault fault(call, 1, error);
            EXPECT_FALSE(getFile(url));
            EXPECT_TRUE(fault.met());
            expectGot(std::nullopt, url);
        }
        EXPECT_TRUE(getFile(url));
        EXPECT_EQ(internet->ExpectedFilesize(), 30000);
    }
}

TEST_F(RealServers, AProxyIsToldItsPassword) {
    const std::string url = "http://{web}/sized/reply.txt";
    useProxy(2, "vera", "geheim", servers->proxy);
    EXPECT_EQ(text(url), reply);
    EXPECT_TRUE(contains(requests(), "tinyproxy")); // it went through
    useProxy(2, "vera", "geheim", servers->web);    // a proxy that asks for none
    EXPECT_EQ(text(url), reply);
    EXPECT_FALSE(containsNoCase(requests(), "authorization"));
    for (const char* const user : {"else", ""}) {
        useProxy(2, user, "geheim", servers->proxy);
        EXPECT_TRUE(containsNoCase(text(url), "<html"));
    }
}

// Whatever the settings say, with the user of the settings; what is asked for directly takes no notice of it.
TEST_F(RealServers, ADownloadGoesThroughTheSystemsProxy) {
    const std::string throughProxy = "127.0.0.1:" + std::to_string(servers->proxy);
    const auto viaProxy = [&](const std::function<void()>& transfer) {
        writeFile("served\\requests.txt", "");
        transfer();
        return contains(requests(), "tinyproxy");
    };
    ::setenv("http_proxy", ("http://" + throughProxy).c_str(), 1);
    useProxy(2, "vera", "geheim", servers->proxy);
    EXPECT_TRUE(viaProxy([&] { EXPECT_TRUE(getFile("http://{web}/sized/pub/setup.exe")); }));
    useProxy(1, "", "", 0);
    EXPECT_FALSE(viaProxy([&] { EXPECT_EQ(text("http://{web}/sized/reply.txt"), reply); }));
    // A system that is asked for each address, redirects too, and overrules the environment.
    auto asked = std::make_shared<Texts>();
    const std::string redirect = "http://{web}/redirect/%2Fsized%2Fpub%2Fsetup.exe";
    surround({.proxy = [=](const std::string& url) -> ProxyAnswer {
        asked->push_back(url);
        return contains(url, "redirect") ? std::string() : throughProxy;
    }});
    useProxy(2, "vera", "geheim", 1);
    EXPECT_TRUE(viaProxy([&] { EXPECT_TRUE(getFile(redirect)); }));
    EXPECT_EQ(*asked, (Texts{address(redirect), address("http://{web}/sized/pub/setup.exe")}));
    EXPECT_FALSE(contains(requests().substr(0, requests().find('\n')), "tinyproxy")) << "the first one went directly";
    ::unsetenv("http_proxy");
}

TEST_F(RealServers, ASystemThatThinksAboutTheProxyHoldsUpNoCancel) {
    const auto answered = std::make_shared<std::promise<void>>();
    const std::shared_future<void> answer = answered->get_future().share();
    surround({.proxy = [answer](const std::string&) -> ProxyAnswer {
        answer.wait();
        return "{nobody}";
    }});
    recorder.onPump = [this](Pump) { internet->Cancel(); };
    EXPECT_FALSE(getFile("http://{web}/sized/reply.txt"));
    EXPECT_FALSE(exists("served\\requests.txt"));
    answered->set_value();
}

} // namespace
} // namespace vantor
