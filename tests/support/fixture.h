// Test support: the fixture that every test of the logic stands on.
// It resets all that outlives a test and gives each one a folder of its own, with the program "in" it.
#pragma once

#include "foundation/action_ring.h"
#include "foundation/trap.h"
#include "support/recording.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// The newest text of the ring of actions, and the text of any of its places (1 to 40); empty where none was written.
[[nodiscard]] inline std::string actionText(int place) {
    return place >= 1 && place <= recentActions ? actionRing().at(place).text : std::string();
}
[[nodiscard]] inline std::string newestAction() {
    return actionText(actionRing().newest());
}

} // namespace vantor

namespace vantor::test {

/// The trap of a caller: its faults stand in the ring as "... in sub caller of module test".
inline constexpr StandardTrap caller{"sub caller", "test"};

/// Puts the run's state and the traffic as they are at a program's start.
void resetGlobals();
/// Empties the ring of actions.
void forgetActions();

class Fixture : public ::testing::Test {
  protected:
    Fixture() { prepare(); }
    ~Fixture() override { cleanUp(); }
    /// What comes ahead of a test and behind it, for one that starts anew.
    void prepare();
    void cleanUp();

    /// The test's own folder, which is the program's folder and the current one too.
    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder; }
    /// The program's path of a file in the folder; `name` may hold folders, with backslashes.
    [[nodiscard]] std::string path(std::string_view name) const;
    /// Writes a file of the folder, creating the folders on its way; the bytes stand as given.
    void writeFile(std::string_view name, std::string_view bytes) const;
    /// All bytes of a file of the folder; a missing one fails the test.
    [[nodiscard]] std::string readFile(std::string_view name) const;
    [[nodiscard]] bool exists(std::string_view name) const;
    /// The lines of the log, columns and all; empty without a log.
    [[nodiscard]] std::vector<std::string> logLines() const;
    /// The texts of the log's lines, without time and channel.
    [[nodiscard]] std::vector<std::string> logTexts() const;

    FakeClock clock;
    RecordingHost recorder;

  private:
    std::filesystem::path m_folder;
    std::filesystem::path m_startFolder;
};

} // namespace vantor::test
