#include "foundation/text_files.h"

#include "foundation/byte_search.h"
#include "foundation/disk.h"
#include "foundation/error.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/trap.h"

#include <cerrno>
#include <cstdio>
#include <span>
#include <system_error>

namespace vantor {

namespace {

constexpr std::string_view fileModule = "mSHAREDFileSubs";

// A file read in one go.
class BinaryFile : public Channel {
  public:
    explicit BinaryFile(const std::filesystem::path& native) : Channel(native, Mode::Input) {}

    void readAll(std::size_t expected, std::string& text) {
        text.resize(expected + 1); // one more, so that the end of the file shows in the first read
        std::size_t length = 0;
        errno = 0;
        while (const std::size_t count = std::fread(text.data() + length, 1, text.size() - length, file())) {
            length += count;
            if (length == text.size()) { // it is growing, or of no known length
                text.resize(text.size() * 2);
            }
        }
        const bool failed = std::ferror(file()) != 0;
        text.resize(failed ? 0 : length);
        if (failed) {
            throw errorFromErrno(errno);
        }
    }
};

} // namespace

std::unique_ptr<ReplacingFile> createoutputfile(std::string_view path) {
    if (FileExists(path) && isReadOnly(path) && !MakeReadWrite(path)) {
        logit(std::string(path) + " is read only, can't change it to read write, can't update it");
        return nullptr;
    }
    return std::make_unique<ReplacingFile>(path);
}

void WriteTextFile(std::string_view path, std::string_view text) noexcept {
    const StandardTrap trap{"sub writetextfile", fileModule};
    std::unique_ptr<ReplacingFile> file;
    trap.set(file, createoutputfile, path);
    if (file) {
        trap(&ReplacingFile::write, file, text);
        trap(&ReplacingFile::commit, file, OldFile::Drop);
    }
}

std::int32_t LinesInFile(std::string_view path) {
    if (!FileExists(path)) {
        return 0;
    }
    InputFile file(path);
    std::size_t count = 0;
    char last = '\n';
    for (std::span<char> lines; file.readLines(lines);) {
        count += lineEnds({lines.data(), lines.size()});
        last = lines.back();
    }
    return static_cast<std::int32_t>(count + (last != '\n' && last != '\r' ? 1 : 0)); // the last line needs no end
}

void LoadTextFile(std::string_view path, std::string& text) {
    text.clear();
    if (FileExists(path)) {
        const std::filesystem::path native = nativePath(path);
        std::error_code unknown;
        const std::uintmax_t length = std::filesystem::file_size(native, unknown);
        BinaryFile(native).readAll(unknown ? 0 : static_cast<std::size_t>(length), text);
    }
}

void ReadWholeFile(std::string_view path, std::string& text) {
    LoadTextFile(path, text);
}

} // namespace vantor
