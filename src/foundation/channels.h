// Foundation: what the whole program stands on and that knows nothing of traffic.
// Files on numbered channels. All paths are texts with backslashes.
#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace vantor {

/// One open file on the lowest free channel, 1 to 255. It is closed when it goes.
class Channel {
  public:
    /// Channel number, from 1 upward; 0 when closed.
    [[nodiscard]] int number() const noexcept { return m_file ? m_file.get_deleter().number : 0; }
    [[nodiscard]] bool isOpen() const noexcept { return m_file != nullptr; }

  protected:
    enum class Mode { Input, Replace, Append };

    /// Opens a native file. Raises 53, 61, 67, 75 or 76.
    Channel(const std::filesystem::path& native, Mode mode);
    Channel(Channel&&) noexcept = default;
    Channel& operator=(Channel&&) = delete;
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;
    ~Channel() = default;

    [[nodiscard]] std::FILE* file() const noexcept { return m_file.get(); }
    void closeQuietly() noexcept { m_file.reset(); }
    /// Flushes and closes; raises what the flush met.
    void closeChecked();
    /// Writes and raises on failure; error 52 when the channel was closed.
    void writeBytes(std::string_view bytes);

  private:
    struct Close {
        int number;
        void operator()(std::FILE* file) const noexcept;
    };

    std::unique_ptr<std::FILE, Close> m_file;
};

/// A file read line by line. A line ends at CR LF, a lone CR or a lone LF; the last needs no end.
class InputFile : public Channel {
  public:
    /// Raises 53 for a missing file, 76 for a missing folder, 75 for one that can't be read (a folder among them).
    explicit InputFile(std::string_view path);
    /// The next line without its end; false at the end of the file. The view holds until the next call.
    [[nodiscard]] bool readLine(std::string_view& line);
    /// As many whole lines, with their ends, as come in one read; false at the end of the file. The characters hold
    /// until the next call and may be changed. No line may have been read singly before.
    [[nodiscard]] bool readLines(std::span<char>& lines);
    void close() noexcept { closeQuietly(); }

  private:
    [[nodiscard]] bool fill();

    std::vector<char> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    bool m_atEnd = false;
    bool m_skipLineFeed = false;
};

/// A file written straight to its place, for the log and the reports, which keep what was written before a fault.
class OutputFile : public Channel {
  public:
    enum class Open { Replace, Append };
    explicit OutputFile(std::string_view path, Open how = Open::Replace);
    void write(std::string_view bytes) { writeBytes(bytes); }
    void close() { closeChecked(); }
};

} // namespace vantor
