#include "update/cSHAREDInternet.h"

#include "foundation/disk.h"
#include "update/curl_control.h"
#include "update/fSHAREDInternet.h"

#include <utility>

namespace vantor {

struct cSHAREDInternet::State {
    explicit State(std::unique_ptr<TransferControl> control) : form(std::move(control)) {}

    fSHAREDInternet form;
    bool cancelled = false;
    bool finished = false;
    bool error = false;
    unsigned calls = 0; // a call on the stack sees by it that a later one took the transfer over
};

cSHAREDInternet::cSHAREDInternet() : cSHAREDInternet(makeCurlControl()) {}

cSHAREDInternet::cSHAREDInternet(std::unique_ptr<TransferControl> control)
    : m_state(std::make_shared<State>(std::move(control))) {
    fSHAREDInternet& form = m_state->form;
    // Handlers are copied before they run: one may destroy this object.
    form.StatusText = [this](std::string_view text) {
        if (const auto handler = Status) {
            handler(text);
        }
    };
    form.ProgressText = [this](std::string_view text, double value) {
        if (const auto handler = Progress) {
            handler(value, text);
        }
    };
    form.NoInternet = [this] {
        if (const auto handler = NoInternet) {
            handler();
        }
    };
    form.DownloadFinished = [state = m_state.get()] { state->finished = true; };
    form.DownloadError = [state = m_state.get()](std::string_view) { state->error = true; };
}

cSHAREDInternet::~cSHAREDInternet() {
    ++m_state->calls;
    m_state->form.unload();
}

void cSHAREDInternet::SuppressAllButDLAndErrors(bool suppress) noexcept {
    m_state->form.quietProgress = suppress;
}

void cSHAREDInternet::SuppressAllButErrors(bool suppress) noexcept {
    m_state->form.quietAll = suppress;
}

void cSHAREDInternet::ApplyProxy() noexcept {
    m_state->form.ApplyProxy();
}

void cSHAREDInternet::Cancel() noexcept {
    const std::shared_ptr<State> state = m_state;
    state->cancelled = true;
    state->form.Cancel();
}

bool cSHAREDInternet::GetFile(std::string_view url, std::string_view local, bool sizeflag, bool quietprogress,
                              bool quietall) noexcept {
    const std::shared_ptr<State> state = m_state;
    const unsigned mine = ++state->calls;
    state->cancelled = false;
    state->finished = false;
    state->error = false;
    state->form.quietProgress = quietprogress;
    state->form.quietAll = quietall;
    if (state->form.Connected()) {
        state->form.Cancel();
    }
    if (mine == state->calls) {
        state->form.DownloadFile(url, local, sizeflag);
    }
    while (mine == state->calls && state->form.underWay() && !state->error && !state->finished && !state->cancelled) {
        state->form.wait();
    }
    if (mine != state->calls) {
        return false;
    }
    if (state->finished && !state->error && !state->cancelled) {
        return true;
    }
    EraseFile(local);
    return false;
}

std::int32_t cSHAREDInternet::ExpectedFilesize() const noexcept {
    return m_state->form.ExpectedFilesize();
}

std::string cSHAREDInternet::OpenURL(std::string_view url, bool show) noexcept {
    const std::shared_ptr<State> state = m_state;
    ++state->calls;
    state->cancelled = false;
    return state->form.OpenURL(url, show);
}

bool cSHAREDInternet::Connected() const noexcept {
    return m_state->form.Connected();
}

} // namespace vantor
