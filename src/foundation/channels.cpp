#include "foundation/channels.h"

#include "foundation/error.h"
#include "foundation/native_path.h"

#include <algorithm>
#include <bitset>
#include <cerrno>
#include <cstring>
#include <system_error>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#endif

namespace vantor {

namespace {

constexpr std::size_t mostChannels = 255;
constexpr std::size_t largestFirstBuffer = std::size_t{256} * 1024;
constexpr std::size_t smallestBuffer = 4096;
// A lone CR is looked for in pieces of this size ahead of the next LF, so that neither kind of line end is searched
// for through the whole buffer again and again.
constexpr std::size_t searchPiece = 4096;

std::bitset<mostChannels>& takenChannels() {
    static std::bitset<mostChannels> taken; // channel n at n - 1
    return taken;
}

// What the system's call can't tell: a missing folder from a missing file.
Error openError(const std::filesystem::path& native, int code) {
    if (code == ENOENT) {
        // Windows says of a name that is too long that it is not there.
        constexpr std::size_t longestName = 255;
        if (native.filename().native().size() > longestName) {
            return Error(ErrorCode::BadFileName);
        }
        std::error_code ignored;
        const std::filesystem::path folder = native.parent_path();
        const bool hasFolder = folder.empty() || std::filesystem::is_directory(folder, ignored);
        return Error(hasFolder ? ErrorCode::FileNotFound : ErrorCode::PathNotFound);
    }
    return errorFromErrno(code);
}

// Refuses what opens well enough and then fails, or waits for ever.
void refuseWhatIsNoFile(const std::filesystem::path& native) {
    if (native.native().find(std::filesystem::path::value_type{}) != std::filesystem::path::string_type::npos) {
        throw Error(ErrorCode::BadFileName);
    }
    std::error_code ignored;
    switch (std::filesystem::status(native, ignored).type()) {
    case std::filesystem::file_type::directory:
    case std::filesystem::file_type::fifo:
    case std::filesystem::file_type::socket:
        throw Error(ErrorCode::PathFileAccess);
    default:
        break;
    }
    if (native.empty()) {
        throw Error(ErrorCode::PathFileAccess);
    }
}

const char* findLineEnd(const char* first, const char* last) {
    while (first != last) {
        const std::size_t piece = std::min(searchPiece, static_cast<std::size_t>(last - first));
        const void* lineFeed = std::memchr(first, '\n', piece);
        const char* const pieceEnd = lineFeed != nullptr ? static_cast<const char*>(lineFeed) : first + piece;
        const void* carriage = std::memchr(first, '\r', static_cast<std::size_t>(pieceEnd - first));
        if (carriage != nullptr) {
            return static_cast<const char*>(carriage);
        }
        if (lineFeed != nullptr) {
            return pieceEnd;
        }
        first = pieceEnd;
    }
    return nullptr;
}

} // namespace

void Channel::Close::operator()(std::FILE* file) const noexcept {
    std::fclose(file);
    takenChannels().reset(static_cast<std::size_t>(number - 1));
}

Channel::Channel(const std::filesystem::path& native, Mode mode) {
    refuseWhatIsNoFile(native);
    std::bitset<mostChannels>& taken = takenChannels();
    std::size_t lowest = 0;
    while (lowest < mostChannels && taken.test(lowest)) {
        ++lowest;
    }
    if (lowest == mostChannels) {
        throw Error(ErrorCode::TooManyFiles);
    }
    errno = 0;
    // A tool that the program starts does not inherit the file: O_NOINHERIT here, "e" there.
#ifdef _WIN32
    const int access = mode == Mode::Input     ? _O_RDONLY
                       : mode == Mode::Replace ? _O_WRONLY | _O_CREAT | _O_TRUNC
                                               : _O_WRONLY | _O_CREAT | _O_APPEND;
    std::FILE* file = nullptr;
    const int handle = _wopen(native.c_str(), access | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
    if (handle != -1) {
        file = _wfdopen(handle, mode == Mode::Input ? L"rb" : mode == Mode::Replace ? L"wb" : L"ab");
        if (file == nullptr) {
            _close(handle);
        }
    }
#else
    const char* const modeText = mode == Mode::Input ? "rbe" : mode == Mode::Replace ? "wbe" : "abe";
    std::FILE* const file = std::fopen(native.c_str(), modeText);
#endif
    if (file == nullptr) {
        throw openError(native, errno);
    }
    taken.set(lowest);
    m_file = std::unique_ptr<std::FILE, Close>(file, Close{static_cast<int>(lowest) + 1});
}

void Channel::closeChecked() {
    if (!m_file) {
        return;
    }
    errno = 0;
    int failure = std::fflush(file()) == 0 ? 0 : errno;
    takenChannels().reset(static_cast<std::size_t>(number() - 1));
    if (std::fclose(m_file.release()) != 0 && failure == 0) {
        failure = errno;
    }
    if (failure != 0) {
        throw errorFromErrno(failure);
    }
}

void Channel::writeBytes(std::string_view bytes) {
    std::FILE* const open = file();
    if (open == nullptr) {
        throw Error(ErrorCode::BadFileName);
    }
    errno = 0;
    if (!bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), open) != bytes.size()) {
        throw errorFromErrno(errno);
    }
}

InputFile::InputFile(std::string_view path) : Channel(nativePath(path), Mode::Input) {
    // Many small files are read: the first buffer is no larger than the file, as far as its length is known.
    std::error_code unknown;
    const std::uintmax_t length = std::filesystem::file_size(nativePath(path), unknown);
    const std::uintmax_t wanted = unknown ? smallestBuffer : length + 1;
    m_buffer.resize(static_cast<std::size_t>(
        std::clamp(wanted, std::uintmax_t{smallestBuffer}, std::uintmax_t{largestFirstBuffer})));
}

bool InputFile::fill() {
    if (m_atEnd) {
        return false;
    }
    if (file() == nullptr) {
        throw Error(ErrorCode::BadFileName);
    }
    if (m_begin > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
    }
    if (m_end == m_buffer.size()) {
        m_buffer.resize(m_buffer.size() * 2);
    }
    errno = 0;
    const std::size_t count = std::fread(m_buffer.data() + m_end, 1, m_buffer.size() - m_end, file());
    if (count == 0) {
        if (std::ferror(file()) != 0) {
            throw errorFromErrno(errno);
        }
        m_atEnd = true;
        return false;
    }
    m_end += count;
    return true;
}

bool InputFile::readLine(std::string_view& line) {
    std::size_t searched = 0; // bytes of the line that are known to hold no line end
    for (;;) {
        if (m_skipLineFeed && m_begin < m_end) {
            m_begin += m_buffer[m_begin] == '\n' ? 1 : 0;
            m_skipLineFeed = false;
        }
        const char* const begin = m_buffer.data() + m_begin;
        const char* const end = m_buffer.data() + m_end;
        if (const char* const stop = findLineEnd(begin + searched, end); stop != nullptr) {
            line = std::string_view(begin, static_cast<std::size_t>(stop - begin));
            m_begin += line.size() + 1;
            m_skipLineFeed = *stop == '\r'; // the LF of a CR LF may lie beyond the buffer
            return true;
        }
        searched = m_end - m_begin;
        if (!fill()) {
            line = std::string_view(m_buffer.data() + m_begin, m_end - m_begin);
            m_begin = m_end;
            return !line.empty();
        }
    }
}

bool InputFile::readLines(std::span<char>& lines) {
    for (;;) {
        const bool more = fill();
        const std::string_view read(m_buffer.data() + m_begin, m_end - m_begin);
        std::size_t length = read.size(); // at the end of the file the last line needs no end
        if (more) {
            // Of lone CRs the last may be the half of a CR LF.
            const std::size_t lineFeed = read.rfind('\n');
            length = 1 + (lineFeed != std::string_view::npos ? lineFeed : read.substr(0, length - 1).rfind('\r'));
        }
        if (length != 0 || !more) {
            lines = std::span(m_buffer).subspan(m_begin, length);
            m_begin += length;
            return !lines.empty();
        }
    }
}

OutputFile::OutputFile(std::string_view path, Open how)
    : Channel(nativePath(path), how == Open::Append ? Mode::Append : Mode::Replace) {}

} // namespace vantor
