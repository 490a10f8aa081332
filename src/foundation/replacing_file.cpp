#include "foundation/replacing_file.h"

#include "foundation/disk.h"
#include "foundation/error.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"

#include <cerrno>
#include <set>
#include <system_error>
#include <utility>
#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace vantor {

namespace {

#ifdef _WIN32

// The file that is replaced, under the name by which its folder knows it: the case of the old name stays.
std::filesystem::path targetOf(std::string_view path) {
    std::filesystem::path target = nativePath(path);
    WIN32_FIND_DATAW entry{};
    if (target.filename().native().find_first_of(L"*?") == std::wstring::npos) {
        const HANDLE search = FindFirstFileW(target.c_str(), &entry);
        if (search != INVALID_HANDLE_VALUE) {
            FindClose(search);
            target.replace_filename(entry.cFileName);
        }
    }
    return target;
}

// Renames over the target and waits until the disk has it. A virus scanner or an indexer may hold either file for a
// moment; whoever holds one for longer keeps the old file as it is.
void moveOver(const std::filesystem::path& temporary, const std::filesystem::path& target) {
    constexpr int attempts = 6;
    constexpr DWORD pause = 50; // milliseconds
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
            return;
        }
        const DWORD failure = GetLastError();
        const bool held = failure == ERROR_ACCESS_DENIED || failure == ERROR_SHARING_VIOLATION;
        if (!held || attempt == attempts) {
            throw Error(failure == ERROR_DISK_FULL ? ErrorCode::DiskFull : ErrorCode::PathFileAccess);
        }
        Sleep(pause);
    }
}

// A new file gets its rights from the folder, and one that is read-only is never replaced: nothing is to be kept.
void keepMode(const std::filesystem::path& /*temporary*/, const std::filesystem::path& /*target*/) {}

#else

// The file that is really replaced: behind links, so that a link stays a link.
std::filesystem::path targetOf(std::string_view path) {
    std::filesystem::path target = nativePath(path);
    std::error_code failure;
    for (int links = 0; links < 40 && std::filesystem::is_symlink(target, failure); ++links) {
        const std::filesystem::path next = std::filesystem::read_symlink(target, failure);
        if (failure) {
            break;
        }
        target = target.parent_path() / next; // an absolute link replaces the folder
    }
    return target;
}

// Renames over the target and makes that last. The new file stands already when the folder can't be flushed, so that
// is no failure of the save.
void moveOver(const std::filesystem::path& temporary, const std::filesystem::path& target) {
    std::filesystem::rename(temporary, target);
    const std::string folder = target.has_parent_path() ? target.parent_path().native() : std::string(".");
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle);
        ::close(handle);
    }
}

// The old file's mode, as far as it can be kept.
void keepMode(const std::filesystem::path& temporary, const std::filesystem::path& target) {
    std::error_code ignored;
    const std::filesystem::file_status old = std::filesystem::status(target, ignored);
    if (std::filesystem::exists(old)) {
        std::filesystem::permissions(temporary, old.permissions(), ignored);
    }
}

#endif

// Beside the target, under a name that no reader takes for traffic.
std::filesystem::path temporaryOf(const std::filesystem::path& target) {
    std::filesystem::path temporary = target;
    temporary += ".~new";
    return temporary;
}

std::set<std::filesystem::path>& backedUp() {
    static std::set<std::filesystem::path> files;
    return files;
}

std::filesystem::path backupOf(const std::filesystem::path& target) {
    std::filesystem::path backup = target;
    backup += ".bak";
    return backup;
}

// The old file under its backup's name as well; false where the file system knows no second names.
bool linkBackup(const std::filesystem::path& target) {
    const std::filesystem::path backup = backupOf(target);
    const std::filesystem::path link = temporaryOf(backup); // a backup that is there stays until the new one is
    std::error_code failure;
    std::filesystem::remove(link, failure);
    std::filesystem::create_hard_link(target, link, failure);
    if (failure) {
        return false;
    }
    std::filesystem::rename(link, backup, failure);
    if (failure) {
        const std::error_code why = failure;
        std::filesystem::remove(link, failure);
        throw std::filesystem::filesystem_error("backup", why);
    }
    std::filesystem::remove(link, failure); // renaming one name of a file to another of its names does nothing
    return true;
}

void putBack(const std::filesystem::path& target) {
    std::filesystem::rename(backupOf(target), target);
}

// Replaces the target and keeps what it was.
void moveOverWithBackup(const std::filesystem::path& temporary, const std::filesystem::path& target) {
    const StandardTrap trap{"movewithbackup", "replacing_file"};
    bool moved = false;
    if (std::error_code ignored; !backedUp().contains(target) && std::filesystem::exists(target, ignored)) {
        trap([&] {
            if (!linkBackup(target)) {
                std::filesystem::rename(target, backupOf(target));
                moved = true;
            }
        });
    }
    try {
        moveOver(temporary, target);
    } catch (...) {
        if (moved) {
            trap(putBack, target);
        }
        throw;
    }
    backedUp().insert(target);
}

// The temporary's path, after everything that forbids replacing the target was asked.
std::filesystem::path freshTemporary(std::string_view path) {
    const std::filesystem::path target = targetOf(path);
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(target, ignored);
    // A device or a pipe must not be renamed over: only plain files are ever replaced.
    if (target.filename().empty() || (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) ||
        isReadOnly(path)) {
        throw Error(ErrorCode::PathFileAccess);
    }
    const std::filesystem::path folder = target.parent_path();
    if (!folder.empty() && !std::filesystem::is_directory(folder, ignored)) {
        throw Error(ErrorCode::PathNotFound);
    }
    std::filesystem::path temporary = temporaryOf(target);
    std::filesystem::remove(temporary, ignored); // left over from a run that broke off
    return temporary;
}

void flushToDisk(std::FILE* file) {
    errno = 0;
    if (std::fflush(file) != 0) {
        throw errorFromErrno(errno);
    }
#ifdef _WIN32
    const int result = _commit(_fileno(file));
#else
    const int result = ::fsync(::fileno(file));
#endif
    // EINVAL: a file system that has nothing to flush.
    if (result != 0 && errno != EINVAL) {
        throw errorFromErrno(errno);
    }
}

} // namespace

ReplacingFile::ReplacingFile(std::string_view path)
    : Channel(freshTemporary(path), Mode::Replace), m_target(targetOf(path)), m_temporary(temporaryOf(m_target)) {}

ReplacingFile::~ReplacingFile() {
    discard();
}

void ReplacingFile::write(std::string_view bytes) {
    if (m_failed) {
        return;
    }
    try {
        writeBytes(bytes);
    } catch (...) {
        m_failed = true;
        throw;
    }
}

void ReplacingFile::commit(OldFile old) {
    if (m_done) {
        return;
    }
    if (m_failed) {
        discard();
        return;
    }
    try {
        flushToDisk(file());
        keepMode(m_temporary, m_target);
        closeChecked();
        (old == OldFile::Backup ? moveOverWithBackup : moveOver)(m_temporary, m_target);
    } catch (...) {
        m_failed = true;
        discard();
        throw;
    }
    m_done = true;
}

void ReplacingFile::discard() noexcept {
    closeQuietly();
    if (m_done || m_temporary.empty()) { // empty: moved away
        return;
    }
    m_done = true;
    std::error_code ignored;
    std::filesystem::remove(m_temporary, ignored);
}

void forgetBackups() noexcept {
    backedUp().clear();
}

namespace {

/// A file that is open for one piece.
class Piece : public Channel {
  public:
    Piece(const std::string& path, Mode mode) : Channel(nativePath(path), mode) {}
    static void begin(const std::string& path) { Piece(path, Mode::Replace).closeChecked(); }
    static void append(const std::string& path, std::string_view bytes) {
        Piece piece(path, Mode::Append);
        piece.writeBytes(bytes);
        flushToDisk(piece.file());
        piece.closeChecked();
    }
};

} // namespace

GrowingFile::GrowingFile(std::string path) : m_path(std::move(path)) {
    Piece::begin(m_path);
}

GrowingFile::~GrowingFile() {
    if (!m_finished) {
        std::error_code ignored;
        std::filesystem::remove(nativePath(m_path), ignored);
    }
}

void GrowingFile::write(std::string_view bytes) {
    Piece::append(m_path, bytes);
}

void renameFile(std::string_view from, std::string_view to) {
    try {
        moveOver(nativePath(from), targetOf(to));
    } catch (...) {
        throw currentError();
    }
}

} // namespace vantor
