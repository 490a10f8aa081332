// Test support: the fixture that every test of the logic stands on.
// It resets all that outlives a test and gives each one a folder of its own, with the program "in" it.
#pragma once

#include "support/recording.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace vantor::test {

/// Drops everything global: tables, settings, log, ring, locale, progress, clock, host, error dialog.
void resetGlobals();

class Fixture : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

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
