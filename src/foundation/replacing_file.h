// Foundation: what the whole program stands on and that knows nothing of traffic.
// A file that is saved whole or not at all.
#pragma once

#include "foundation/channels.h"

#include <filesystem>
#include <string_view>

namespace vantor {

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

} // namespace vantor
