// Foundation: what the whole program stands on and that knows nothing of traffic.
// A host without a window: shows nothing, answers No, speaks English.
#pragma once

#include "foundation/host.h"

namespace vantor {

/// The host in use while no window stands, and the base of hosts that replace only some of its answers.
class SilentHost : public Host {
  public:
    void message(std::string_view text) override;
    bool askYesNo(std::string_view text) override;
    void setPointer(Pointer pointer) override;
    void pumpEvents(Pump what) override;
    bool pumping() override;
    bool inputPending() override;
    void sleepFor(int milliseconds) override;
    /// No event loop runs: nothing ticks.
    std::shared_ptr<void> every(int milliseconds, std::function<void()> tick) override;
    std::string shortDate(const Date& date) override;
    std::string generalDateTime(DateTime value) override;
    std::string weekdayName(int day) override;
    std::string booleanWord(bool value) override;
    std::optional<SystemVersion> systemVersion() override;
    void viewTextFile(std::string_view path) override;
    void openFile(std::string_view path, std::function<void()> failed) override;
    void openAddress(std::string_view address) override;
    void startProgram(std::string_view program, std::string_view arguments) override;
};

} // namespace vantor
