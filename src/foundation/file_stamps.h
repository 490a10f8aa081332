// Foundation: what the whole program stands on and that knows nothing of traffic.
// Which files are still as the program has read or written them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace vantor {

/// Remembers files as they were: one that another program has written since is known by its size or time.
class FileStamps {
  public:
    /// Remembers a file as it is now.
    void remember(std::string_view path);
    /// Remembers a file as it was when `stamp` was taken.
    void set(std::string_view path, std::string stamp);
    /// The stamp that is remembered; empty for a file that isn't.
    [[nodiscard]] std::string of(std::string_view path) const;
    /// Whether a file is there and is another one than that remembered. No file is missed, and none is told that was
    /// never remembered.
    [[nodiscard]] bool changed(std::string_view path) const;

  private:
    std::map<std::filesystem::path, std::string> m_stamps; // by what the system calls the file, links followed
};

} // namespace vantor
