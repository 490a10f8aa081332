#include "foundation/error.h"
#include "foundation/files.h"
#include "foundation/native_path.h"

#include <cerrno>
#include <system_error>
#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace vantor {

namespace {

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

// Beside the target, under a name that no reader takes for traffic.
std::filesystem::path temporaryOf(const std::filesystem::path& target) {
    std::filesystem::path temporary = target;
    temporary += ".~new";
    return temporary;
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

// Makes the rename last. The new file stands already, so a failure here is no failure of the save.
void flushFolder(const std::filesystem::path& target) noexcept {
#ifndef _WIN32
    const std::string folder = target.has_parent_path() ? target.parent_path().native() : std::string(".");
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle);
        ::close(handle);
    }
#else
    static_cast<void>(target);
#endif
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

void ReplacingFile::commit() {
    if (m_done) {
        return;
    }
    if (m_failed) {
        discard();
        return;
    }
    try {
        if (file() == nullptr) { // closed with all other files: what was written may be incomplete
            throw Error(ErrorCode::BadFileName);
        }
        flushToDisk(file());
        std::error_code failure;
        const std::filesystem::file_status old = std::filesystem::status(m_target, failure);
        if (std::filesystem::exists(old)) {
            std::filesystem::permissions(m_temporary, old.permissions(), failure); // what can't be kept is let go
        }
        closeChecked();
        std::filesystem::rename(m_temporary, m_target);
    } catch (...) {
        m_failed = true;
        discard();
        throw;
    }
    m_done = true;
    flushFolder(m_target);
}

void ReplacingFile::discard() noexcept {
    closeSlot();
    if (m_done || m_temporary.empty()) { // empty: moved away
        return;
    }
    m_done = true;
    std::error_code ignored;
    std::filesystem::remove(m_temporary, ignored);
}

} // namespace vantor
