#include "foundation/host.h"

#include "foundation/numbers.h"
#include "foundation/silent_host.h"

#include <array>
#include <chrono>
#include <thread>

namespace vantor {

namespace {
Host* hostInUse = nullptr;
} // namespace

Host& host() noexcept {
    static SilentHost silent;
    return hostInUse != nullptr ? *hostInUse : silent;
}

void useHost(Host* host) noexcept {
    hostInUse = host;
}

void busymouse() {
    host().setPointer(Pointer::Busy);
    host().pumpEvents(Pump::PaintAndTimers);
}

void normalmouse() {
    host().setPointer(Pointer::Normal);
    host().pumpEvents(Pump::PaintAndTimers);
}

void websitevisit(std::string_view address) {
    host().openAddress(address);
}

void SilentHost::message(std::string_view /*text*/) {}

bool SilentHost::askYesNo(std::string_view /*text*/) {
    return false;
}

void SilentHost::setPointer(Pointer /*pointer*/) {}

void SilentHost::pumpEvents(Pump /*what*/) {}

bool SilentHost::pumping() {
    return false;
}

bool SilentHost::inputPending() {
    return false;
}

void SilentHost::sleepFor(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

std::shared_ptr<void> SilentHost::every(int /*milliseconds*/, std::function<void()> /*tick*/) {
    return std::make_shared<bool>(true);
}

std::string SilentHost::shortDate(const Date& date) {
    return twoDigits(date.day) + "/" + twoDigits(date.month) + "/" + std::to_string(date.year);
}

std::string SilentHost::generalDateTime(DateTime value) {
    return shortDate(dateOf(value)) + " " + formatHHMMSS(value);
}

std::string SilentHost::weekdayName(int day) {
    static constexpr std::array<const char*, 7> names = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                         "Thursday", "Friday", "Saturday"};
    return names.at(static_cast<std::size_t>(day - 1));
}

std::string SilentHost::booleanWord(bool value) {
    return value ? "True" : "False";
}

std::optional<SystemVersion> SilentHost::systemVersion() {
    return std::nullopt;
}

void SilentHost::viewTextFile(std::string_view /*path*/) {}

void SilentHost::openFile(std::string_view /*path*/, std::function<void()> /*failed*/) {}

void SilentHost::openAddress(std::string_view /*address*/) {}

void SilentHost::startProgram(std::string_view /*program*/, std::string_view /*arguments*/) {}

} // namespace vantor
