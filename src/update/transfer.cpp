#include "update/transfer.h"

#include <utility>

namespace vantor {

struct cSHAREDInternet::State {
    std::unique_ptr<TransferControl> control;
};

cSHAREDInternet::cSHAREDInternet() : cSHAREDInternet(nullptr) {}
cSHAREDInternet::cSHAREDInternet(std::unique_ptr<TransferControl> control)
    : m_state(std::make_shared<State>(State{std::move(control)})) {}
cSHAREDInternet::~cSHAREDInternet() = default;
void cSHAREDInternet::SuppressAllButDLAndErrors(bool /*suppress*/) noexcept {}
void cSHAREDInternet::SuppressAllButErrors(bool /*suppress*/) noexcept {}
void cSHAREDInternet::ApplyProxy() noexcept {}
void cSHAREDInternet::Cancel() noexcept {}
bool cSHAREDInternet::GetFile(std::string_view /*url*/, std::string_view /*local*/, bool /*sizeflag*/,
                              bool /*quietprogress*/, bool /*quietall*/) noexcept {
    return false;
}
std::int32_t cSHAREDInternet::ExpectedFilesize() const noexcept {
    return 0;
}
std::string cSHAREDInternet::OpenURL(std::string_view /*url*/, bool /*show*/) noexcept {
    return {};
}
bool cSHAREDInternet::Connected() const noexcept {
    return false;
}

} // namespace vantor
