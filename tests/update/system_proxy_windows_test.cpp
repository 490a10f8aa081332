// Tests of the system's proxy on Windows: settings in the registry, and a download that goes by them.
#include "support/test.h"
#include "update/cSHAREDInternet.h"
#include "update/curl_control.h"

// The second needs the first.
#include <thread>
#include <windows.h>
#include <winsock2.h>

namespace vantor {
namespace {

// A proxy that answers each request by itself with a script or, if it is asked for anything else, with its line.
class Proxy {
  public:
    Proxy() {
        WSADATA data;
        WSAStartup(MAKEWORD(2, 2), &data);
        m_listener = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        int size = sizeof address;
        EXPECT_EQ(bind(m_listener, reinterpret_cast<sockaddr*>(&address), size), 0);
        EXPECT_EQ(listen(m_listener, 5), 0);
        getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size);
        server = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
        m_thread = std::thread([this] { serve(); });
    }
    ~Proxy() {
        closesocket(m_listener);
        m_thread.join();
        WSACleanup();
    }
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;

    std::string server;

  private:
    void serve() const {
        for (SOCKET client = 0; (client = accept(m_listener, nullptr, nullptr)) != INVALID_SOCKET;) {
            std::string request(4096, '\0');
            const int length = recv(client, request.data(), static_cast<int>(request.size()), 0);
            request.resize(static_cast<std::size_t>(std::max(length, 0)));
            const std::string body = request.starts_with("GET /script")
                                         ? "function FindProxyForURL(url, host) { return host == 'by.script.invalid' ? "
                                           "'PROXY " +
                                               server + "' : 'DIRECT'; }"
                                         : request.substr(0, request.find('\r'));
            const std::string answer = "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: "
                                       "application/x-ns-proxy-autoconfig\r\nContent-Length: " +
                                       std::to_string(body.size()) + "\r\n\r\n" + body;
            send(client, answer.data(), static_cast<int>(answer.size()), 0);
            closesocket(client);
        }
    }

    SOCKET m_listener;
    std::thread m_thread;
};

class WindowsProxy : public Fixture {
  protected:
    void SetUp() override { LoadSettings(path("Vantor2.ini")); }
    void TearDown() override { RegDeleteKeyValueA(HKEY_CURRENT_USER, key, "DefaultConnectionSettings"); }
    // The user's settings in the registry: numbers of 32 bits, and texts with their lengths ahead.
    static void set(DWORD flags, const std::string& server, const std::string& exceptions, const std::string& script) {
        std::string bytes;
        const auto add = [&bytes](DWORD number) {
            bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
        };
        add(0x46);
        add(1);
        add(flags);
        for (const std::string& text : {server, exceptions, script}) {
            add(static_cast<DWORD>(text.size()));
            bytes += text;
        }
        bytes.append(32, '\0');
        RegSetKeyValueA(HKEY_CURRENT_USER, key, "DefaultConnectionSettings", REG_BINARY, bytes.data(),
                        static_cast<DWORD>(bytes.size()));
    }
    // What a download of the address got.
    std::string got(const std::string& url) {
        cSHAREDInternet internet;
        internet.ApplyProxy();
        return internet.GetFile(url, path("f.exe"), true, true, true) ? readFile("f.exe") : "";
    }

    static constexpr DWORD direct = 1;
    static constexpr DWORD named = 2;
    static constexpr DWORD scripted = 4;
    static constexpr const char* key = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Connections";
    Proxy proxy;
};

// No name here is known to anybody: only the proxy can have answered.
TEST_F(WindowsProxy, IsThatOfTheUser) {
    const std::string list = "http=" + proxy.server + ";https=127.0.0.1:1";
    set(direct | named, list, "*.direct.invalid;<local>", "");
    EXPECT_EQ(got("http://updates.invalid/setup.exe"), "GET http://updates.invalid/setup.exe HTTP/1.1");
    EXPECT_EQ(got("http://an.direct.invalid/setup.exe") + got("https://updates.invalid/"), "");
    set(direct, list, "", "");
    EXPECT_EQ(got("http://updates.invalid/setup.exe"), "");
}

TEST_F(WindowsProxy, IsThatOfTheUsersScript) {
    set(direct | scripted, "", "", "http://" + proxy.server + "/script.pac");
    EXPECT_EQ(got("http://by.script.invalid/setup.exe"), "GET http://by.script.invalid/setup.exe HTTP/1.1");
    EXPECT_EQ(got("http://updates.invalid/setup.exe"), "");
}

} // namespace
} // namespace vantor
