// Foundation: what the whole program stands on and that knows nothing of traffic.
// Files on numbered channels, and what the program asks of the disk. All paths are texts with backslashes.
#pragma once

#include "foundation/clock.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// One open file on the lowest free channel. It is closed when it goes, or by closeAllFiles.
class Channel {
  public:
    /// Channel number, from 1 upward; 0 when closed.
    [[nodiscard]] int number() const noexcept;
    [[nodiscard]] bool isOpen() const noexcept { return number() != 0; }

  protected:
    struct Slot {
        std::FILE* file = nullptr;
        int number = 0;
    };

    enum class Mode { Input, Replace, Append };

    /// Opens a native file on the lowest free channel. Raises 53, 61, 67, 75 or 76.
    Channel(const std::filesystem::path& native, Mode mode);
    Channel(Channel&&) noexcept = default;
    Channel& operator=(Channel&&) noexcept = delete;
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;
    ~Channel();

    [[nodiscard]] std::FILE* file() const noexcept { return m_slot ? m_slot->file : nullptr; }
    void closeSlot() noexcept;
    /// Flushes and closes; raises what the flush met.
    void closeChecked();
    /// Writes and raises on failure; error 52 when the channel was closed.
    void writeBytes(std::string_view bytes);

  private:
    friend void closeAllFiles() noexcept;
    /// The slots of the open channels: channel n at n - 1, expired where the channel is free.
    [[nodiscard]] static std::vector<std::weak_ptr<Slot>>& openSlots();

    std::shared_ptr<Slot> m_slot;
};

/// Closes the files of all open channels, whoever holds them.
void closeAllFiles() noexcept;

/// A file read line by line. A line ends at CR LF, a lone CR or a lone LF; the last needs no end.
class InputFile : public Channel {
  public:
    /// Raises 53 for a missing file, 76 for a missing folder, 75 for one that can't be read (a folder among them).
    explicit InputFile(std::string_view path);
    /// The next line without its end; false at the end of the file. The view holds until the next call.
    [[nodiscard]] bool readLine(std::string_view& line);
    void close() noexcept { closeSlot(); }

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

/// A file that takes the place of an old one only when all of it was written: it is filled beside the target, flushed
/// to the disk, and renamed over it by commit. Without commit, or after a failed write, the old file stays byte for
/// byte. The first failed write raises; later ones do nothing, so that a full disk is told once.
class ReplacingFile : public Channel {
  public:
    /// Raises 75 when the target is read-only or a folder, and as Channel does.
    explicit ReplacingFile(std::string_view path);
    ReplacingFile(ReplacingFile&&) noexcept = default;
    ReplacingFile& operator=(ReplacingFile&&) = delete;
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;
    ~ReplacingFile();

    void write(std::string_view bytes);
    /// Puts the new file in the old one's place; quiet after a failed write, which was raised already.
    void commit();

  private:
    void discard() noexcept;

    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    bool m_failed = false;
    bool m_done = false;
};

/// `path` with a "\" added unless it is empty or ends in one.
[[nodiscard]] std::string addbackslash(std::string_view path);
/// Up to and including the last separator ("/" counts as one), or ".\" without any.
[[nodiscard]] std::string pathonly(std::string_view name);
/// Behind the last separator, or the whole name; every "/" in the result is a "\".
[[nodiscard]] std::string fileonly(std::string_view name);
/// The same as fileonly.
[[nodiscard]] std::string fileexpath(std::string_view name);
/// Before the last "." of the whole text, folder and all: a dot in a folder's name counts.
[[nodiscard]] std::string filewithoutext(std::string_view name);
/// The same as filewithoutext.
[[nodiscard]] std::string fileroot(std::string_view name);
/// The text up to its first zero character, trimmed.
[[nodiscard]] std::string stripnull(std::string_view text);

/// Whether a search for `path` (wildcards * and ? work in its last part) first meets something that is no folder.
[[nodiscard]] bool FileExists(std::string_view path) noexcept;
/// Whether a search for `path`, less one "\" at its end, first meets a folder. A bare drive ("C:", "C:\") is taken for
/// granted.
[[nodiscard]] bool FolderExists(std::string_view path) noexcept;
/// Whether the file (or folder) is there and nobody may write to it.
[[nodiscard]] bool isReadOnly(std::string_view path) noexcept;
/// Takes the read-only mark off an existing file; false when there is none or that failed.
bool MakeReadWrite(std::string_view path) noexcept;
/// Modification time, 0 for a missing file.
[[nodiscard]] DateTime FileDate(std::string_view path) noexcept;
/// Length in bytes. Raises 53 for a missing file.
[[nodiscard]] std::uintmax_t FileLength(std::string_view path);
/// Deletes a file if it exists, read-only or not. Failures go to the ring.
void EraseFile(std::string_view path) noexcept;

/// A new file for output in place of `path`, or null when it is read-only and can't be made writable: then one line
/// "{path} is read only, can't change it to read write, can't update it" stands in the log. Raises as ReplacingFile.
[[nodiscard]] std::unique_ptr<ReplacingFile> createoutputfile(std::string_view path);
/// Writes `text` exactly as it stands through createoutputfile. Failures go to the ring.
void WriteTextFile(std::string_view path, std::string_view text) noexcept;

/// The number of lines of a text file, by reading through them; 0 if it doesn't exist. Raises as InputFile does.
[[nodiscard]] std::int32_t LinesInFile(std::string_view path);
/// The whole file as one text; empty if it doesn't exist. Raises what opening and reading meet, with an empty text.
void LoadTextFile(std::string_view path, std::string& text);
/// The same as LoadTextFile.
void ReadWholeFile(std::string_view path, std::string& text);

/// Appends the immediate subfolders of `folder`, each name followed by "\", ascending without regard to case. A
/// folder that can't be searched gives nothing.
void listsubfolders(std::string_view folder, std::vector<std::string>& list) noexcept;
/// Refills `result` with root + subfolder + "\" and, with `addcfg`, "aircraft.cfg" for each subfolder of `root`.
void fillfolders(std::string_view root, std::vector<std::string>& result, bool addcfg) noexcept;

} // namespace vantor
