// Test support: the tests of the transfer, of the updater and of its forms.
// A transfer control that answers from a script, without a network.
#pragma once

#include "foundation/error.h"
#include "update/transfer_control.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor::test {

/// What the control does, either step by step or by the address asked for, and the record of what it was asked.
struct TransferScript {
    std::deque<std::function<void()>> steps;       ///< each advance takes the next one
    std::deque<std::optional<std::string>> chunks; ///< of the response; nothing for one that is late
    std::string length;                            ///< the header Content-Length
    int setUpFault = 0;                            ///< number of the error raised when it is set up
    std::int64_t saved = 1536;                     ///< bytes that the control wrote itself

    struct Reply {
        std::string body = {};
        std::optional<std::size_t> length = std::nullopt; ///< the length that is told, if not the body's own
        bool fails = false;                               ///< ends in the error state
        bool hangs = false;                               ///< the answer never begins
    };
    std::map<std::string, Reply> replies; ///< by address, in place of steps; any other address fails
    std::function<void()> onRequest;      ///< runs when a request of those begins; the answer comes a pump later

    std::vector<std::string> requests; ///< "{address}", or "{address}|{verb}" for other verbs than GET
    std::vector<std::string> setUp;    ///< "type 1", "proxy h:1" and so on
    bool executing = false;
    std::function<void(TransferState)> tell;
};

class ScriptedControl : public TransferControl {
  public:
    explicit ScriptedControl(TransferScript& script) : m_script(script) {
        m_script.tell = [this](TransferState state) { tellState(state); };
    }
    void execute(std::string_view url, std::string_view verb) override {
        m_script.requests.push_back(std::string(url) + (verb == "GET" ? "" : "|" + std::string(verb)));
        m_script.executing = true;
        if (m_script.replies.empty()) {
            return;
        }
        const auto found = m_script.replies.find(std::string(url));
        const auto reply = found != m_script.replies.end() ? found->second : TransferScript::Reply{.fails = true};
        m_script.steps.assign({[this] {
                                   if (const auto action = m_script.onRequest) { // a copy: it may put in another
                                       action();
                                   }
                               },
                               [this, reply] { answer(reply); }});
    }
    void cancel() override { m_script.executing = false; }
    void advance(int /*milliseconds*/) override {
        if (!m_script.steps.empty()) {
            const auto step = std::move(m_script.steps.front());
            m_script.steps.pop_front();
            step();
        }
    }
    std::optional<std::string> nextChunk(std::size_t /*most*/) override {
        if (m_script.chunks.empty()) {
            m_script.executing = false;
            return std::string();
        }
        auto chunk = std::move(m_script.chunks.front());
        m_script.chunks.pop_front();
        return chunk;
    }
    std::string header(std::string_view name) override {
        return name == "Content-Length" ? m_script.length : std::string();
    }
    std::string responseText() override { return "Connection reset"; }
    bool stillExecuting() override { return m_script.executing; }
    std::int64_t bytesSaved() override { return m_script.saved; }
    AccessType accessType() override { return m_type; }
    void setAccessType(AccessType type) override {
        if (m_script.setUpFault != 0) {
            throw Error(m_script.setUpFault, "Not registered");
        }
        m_type = type;
        note("type " + std::to_string(static_cast<int>(type)));
    }
    std::string proxy() override { return m_proxy; }
    void setProxy(std::string_view proxy) override {
        m_proxy = proxy;
        note("proxy " + m_proxy);
    }
    void setUserName(std::string_view name) override { note("user " + std::string(name)); }
    void setPassword(std::string_view password) override { note("password " + std::string(password)); }
    void setRequestTimeout(int seconds) override { note("time-out " + std::to_string(seconds)); }

  private:
    void note(std::string call) { m_script.setUp.push_back(std::move(call)); }
    void answer(const TransferScript::Reply& reply) {
        if (!m_script.executing || reply.hangs) {
            return;
        }
        m_script.executing = false;
        m_script.length = std::to_string(reply.length.value_or(reply.body.size()));
        m_script.chunks.clear();
        for (std::size_t at = 0; at < reply.body.size(); at += 1024) {
            m_script.chunks.emplace_back(reply.body.substr(at, 1024));
        }
        if (reply.fails) {
            tellState(TransferState::Error);
            return;
        }
        tellState(TransferState::ResponseReceived);
        tellState(TransferState::ResponseCompleted);
    }

    TransferScript& m_script;
    AccessType m_type = AccessType::Direct;
    std::string m_proxy = "old:1";
};

} // namespace vantor::test
