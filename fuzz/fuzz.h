// Fuzzing: what the targets share.
// Inputs as texts, files in memory for the readers that take a path, and the way a finding is told.
#pragma once

#include "foundation/canvas.h"
#include "foundation/error.h"

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace vantor::fuzz {

/// What a target does with one input. Each target is one file that defines it.
void check(std::string_view input);

/// Ends the run with a finding: the input breaks what is said.
[[noreturn]] void finding(std::string_view what);

/// A finding unless an invariant holds.
inline void require(bool holds, std::string_view invariant) {
    if (!holds) {
        finding(invariant);
    }
}

/// A folder in memory that is the program's, gone with the process. Its log leads nowhere.
class Folder {
  public:
    Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder();

    [[nodiscard]] const std::filesystem::path& native() const { return m_native; }
    /// The program's path of a file in the folder.
    [[nodiscard]] std::string path(std::string_view name) const;
    void makeFolder(const std::string& name) const;
    void put(const std::string& name, std::string_view bytes) const;
    /// All bytes of a file; empty when it is missing.
    [[nodiscard]] std::string get(const std::string& name) const;

  private:
    std::filesystem::path m_native;
};

/// The folder of this process.
const Folder& folder();

/// A bar that nothing is drawn on, for the readers that show their progress.
Canvas* bar();

/// The number of the error that `statement` raises, 0 for none. Any but those of `allowed` is a finding.
template <class Statement>
int errorOf(std::initializer_list<ErrorCode> allowed, Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return 0;
    } catch (const Error& error) {
        for (const ErrorCode code : allowed) {
            if (error.is(code)) {
                return error.number();
            }
        }
        finding(error.what());
    }
}

} // namespace vantor::fuzz
