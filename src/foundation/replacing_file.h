// Foundation: what the whole program stands on and that knows nothing of traffic.
// A file that is saved whole or not at all.
#pragma once

#include "foundation/channels.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace vantor {

/// What becomes of the file that is replaced.
enum class OldFile {
    Drop,
    Backup, ///< before its first replacement in a run it is kept as "{name}.bak"
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
    /// Puts the new file in the old one's place; does nothing after a failed write, which was raised already. A backup
    /// costs no copy, and one that can't be made is a fault in the ring and keeps nobody from saving.
    void commit(OldFile old = OldFile::Drop);

  private:
    void discard() noexcept;

    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    bool m_failed = false;
    bool m_done = false;
};

/// A run begins: each file gets a new backup.
void forgetBackups() noexcept;

/// A file that is filled in pieces with time between them. It holds no channel meanwhile, since channel numbers are
/// seen in the log, and each piece reaches the disk by itself, so that none has to wait for those before it. Unless it
/// was finished it is removed when it goes.
class GrowingFile {
  public:
    /// Begins an empty file, in place of one that is there. Raises as Channel does.
    explicit GrowingFile(std::string path);
    GrowingFile(const GrowingFile&) = delete;
    GrowingFile& operator=(const GrowingFile&) = delete;
    ~GrowingFile();

    /// Adds a piece. Raises what the disk raises; the file can then only be removed.
    void write(std::string_view bytes);
    void finish() noexcept { m_finished = true; }

  private:
    std::string m_path;
    bool m_finished = false;
};

/// Renames a file, in place of one that has the new name; the disk has it when this returns. Raises as Channel does.
void renameFile(std::string_view from, std::string_view to);

} // namespace vantor
