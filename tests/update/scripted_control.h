// Test support: the tests of the updater and of its forms.
// A transfer control that answers from a script, without a network.
#pragma once

#include "foundation/error.h"
#include "update/transfer_control.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantor::test {

/// What the control answers to one address, and the record of what it was asked.
struct TransferScript {
    struct Reply {
        std::string body = {};
        std::optional<std::size_t> length = std::nullopt; ///< the length that is told, if not the body's own
        bool fails = false;                               ///< ends in the error state, behind the body
        bool hangs = false;                               ///< the answer never begins
    };
    std::map<std::string, Reply> replies; ///< by address; any other fails
    std::vector<std::string> requests;
    std::function<void()> onRequest; ///< runs when a request begins
    bool notRegistered = false;
};

class ScriptedControl : public TransferControl {
  public:
    explicit ScriptedControl(TransferScript& script) : m_script(script) {}

    void execute(std::string_view url, std::string_view /*verb*/) override {
        m_script.requests.emplace_back(url);
        const auto found = m_script.replies.find(std::string(url));
        m_reply = found != m_script.replies.end() ? found->second : TransferScript::Reply{.fails = true};
        m_sent = 0;
        m_executing = true;
        m_started = false;
    }
    void cancel() override { m_executing = false; }
    void advance(int /*milliseconds*/) override {
        if (!m_executing) {
            return;
        }
        if (!std::exchange(m_started, true)) {
            if (const auto action = m_script.onRequest) { // a copy: it may put another in its place
                action();
            }
            return; // the answer comes behind the next event pump
        }
        if (!m_executing || m_reply.hangs) {
            return;
        }
        m_executing = false;
        if (m_reply.fails) {
            tellState(TransferState::Error);
            return;
        }
        tellState(TransferState::ResponseReceived);
        tellState(TransferState::ResponseCompleted);
    }
    std::optional<std::string> nextChunk(std::size_t most) override {
        std::string chunk = m_reply.body.substr(std::min(m_sent, m_reply.body.size()), most);
        m_sent += chunk.size();
        return chunk;
    }
    std::string header(std::string_view /*name*/) override {
        return std::to_string(m_reply.length.value_or(m_reply.body.size()));
    }
    std::string responseText() override { return "Scripted failure"; }
    bool stillExecuting() override { return m_executing; }
    AccessType accessType() override { return m_type; }
    void setAccessType(AccessType type) override {
        if (m_script.notRegistered) {
            throw Error(static_cast<int>(TransferError::NotRegistered), "Class not registered");
        }
        m_type = type;
    }
    std::string proxy() override { return m_proxy; }
    void setProxy(std::string_view proxy) override { m_proxy = proxy; }
    void setUserName(std::string_view /*name*/) override {}
    void setPassword(std::string_view /*password*/) override {}
    void setRequestTimeout(int /*seconds*/) override {}

  private:
    TransferScript& m_script;
    TransferScript::Reply m_reply;
    std::size_t m_sent = 0;
    bool m_executing = false;
    bool m_started = false;
    AccessType m_type = AccessType::SystemDefault;
    std::string m_proxy;
};

} // namespace vantor::test
