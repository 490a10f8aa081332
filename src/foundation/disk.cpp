#include "foundation/disk.h"

#include "foundation/native_path.h"
#include "foundation/path_text.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <system_error>

namespace vantor {

namespace {

constexpr std::string_view fileModule = "mSHAREDFileSubs";

constexpr std::filesystem::perms anyWrite =
    std::filesystem::perms::owner_write | std::filesystem::perms::group_write | std::filesystem::perms::others_write;

// Whether a name fits a pattern of * and ?, without regard to case.
bool matches(std::string_view name, std::string_view pattern) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    while (at < name.size()) {
        if (in < pattern.size() &&
            (pattern[in] == '?' || (pattern[in] != '*' && equalNoCase(name.substr(at, 1), pattern.substr(in, 1))))) {
            ++at;
            ++in;
        } else if (in < pattern.size() && pattern[in] == '*') {
            star = in++;
            resume = at;
        } else if (star != std::string_view::npos) {
            in = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

// The search's own rule: ".*" at the end also fits a name without a dot.
bool matchesSearch(std::string_view name, std::string_view pattern) {
    return matches(name, pattern) || (pattern.ends_with(".*") && name.find('.') == std::string_view::npos &&
                                      matches(name, pattern.substr(0, pattern.size() - 2)));
}

// Whether the first match of a search is a folder; nothing when nothing matches. Matches come in the order of sorted
// lists, "." and ".." among them, as the search of the system gives them.
std::optional<bool> firstMatchIsFolder(std::string_view path) {
    std::error_code ignored;
    const std::string pattern = fileonly(path);
    if (pattern.empty() || path.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    if (pattern.find_first_of("*?") == std::string::npos) {
        const std::filesystem::file_status status = std::filesystem::status(nativePath(path), ignored);
        return std::filesystem::exists(status) ? std::optional(std::filesystem::is_directory(status)) : std::nullopt;
    }
    const std::filesystem::path folder = nativePath(pathonly(path));
    if (!std::filesystem::is_directory(folder, ignored)) {
        return std::nullopt;
    }
    if (matchesSearch(".", pattern) || matchesSearch("..", pattern)) {
        return true;
    }
    std::optional<bool> isFolder;
    std::string first;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::string name = programPath(entry->path().filename());
        if (matchesSearch(name, pattern) && (!isFolder || lessNoCase(name, first))) {
            isFolder = entry->is_directory(ignored);
            first = std::move(name);
        }
    }
    return isFolder;
}

void removeFile(const std::filesystem::path& path) {
    std::filesystem::remove(path);
}

} // namespace

bool FileExists(std::string_view path) noexcept {
    const StandardTrap trap{"function fileexists", fileModule};
    std::optional<bool> isFolder;
    trap.set(isFolder, firstMatchIsFolder, path);
    return isFolder == false;
}

bool FolderExists(std::string_view path) noexcept {
    const StandardTrap trap{"function folderexists", fileModule};
    bool exists = false;
    trap([&] {
        if (path.starts_with("\\\\")) {
            std::error_code ignored;
            exists = std::filesystem::is_directory(nativePath(path), ignored);
        } else if (path.size() >= 2 && path.size() < 4 && path[1] == ':') {
            exists = true; // Quirk: a bare drive is taken for granted
        } else {
            if (path.ends_with('\\')) {
                path.remove_suffix(1);
            }
            exists = firstMatchIsFolder(path) == true;
        }
    });
    return exists;
}

bool isReadOnly(std::string_view path) noexcept {
    const StandardTrap trap{"function isreadonly", fileModule};
    bool readOnly = false;
    trap([&] {
        std::error_code ignored;
        const std::filesystem::file_status status = std::filesystem::status(nativePath(path), ignored);
        readOnly = std::filesystem::exists(status) && (status.permissions() & anyWrite) == std::filesystem::perms::none;
    });
    return readOnly;
}

bool MakeReadWrite(std::string_view path) noexcept {
    const StandardTrap trap{"function makereadwrite", fileModule};
    bool done = false;
    trap([&] {
        if (FileExists(path)) {
            std::error_code failure;
            std::filesystem::permissions(nativePath(path), std::filesystem::perms::owner_write,
                                         std::filesystem::perm_options::add, failure);
            done = !failure;
        }
    });
    return done;
}

DateTime FileDate(std::string_view path) noexcept {
    const StandardTrap trap{"function filedate", fileModule};
    DateTime date = 0;
    trap([&] {
        if (FileExists(path)) {
            const auto written = std::filesystem::last_write_time(nativePath(path));
            const auto inSystem = std::chrono::file_clock::to_sys(written);
            date = localDateTime(std::chrono::floor<std::chrono::seconds>(inSystem));
        }
    });
    return date;
}

std::uintmax_t FileLength(std::string_view path) {
    return std::filesystem::file_size(nativePath(path));
}

std::string fileStamp(std::string_view path) {
    const std::filesystem::path file = nativePath(path);
    std::error_code missing;
    const std::uintmax_t size = std::filesystem::file_size(file, missing);
    const auto written = std::filesystem::last_write_time(file, missing);
    return missing ? std::string() : std::to_string(size) + " " + std::to_string(written.time_since_epoch().count());
}

void EraseFile(std::string_view path) noexcept {
    const StandardTrap trap{"sub erasefile", fileModule};
    if (FileExists(path)) {
        MakeReadWrite(path);
        trap(removeFile, nativePath(path));
    }
}

void listsubfolders(std::string_view folder, std::vector<std::string>& list) noexcept {
    const StandardTrap trap{"sub listsubfolders", fileModule};
    trap([&] {
        std::error_code failure;
        std::vector<std::string> found;
        std::filesystem::directory_iterator entry(nativePath(addbackslash(folder)), failure);
        if (failure) {
            return;
        }
        for (const std::filesystem::directory_iterator end; !failure && entry != end; entry.increment(failure)) {
            std::error_code ignored;
            if (entry->is_directory(ignored)) {
                found.push_back(stripnull(programPath(entry->path().filename())));
            }
        }
        std::ranges::sort(found); // one order for names that differ in case alone
        std::ranges::stable_sort(found, lessNoCase);
        for (std::string& name : found) { // "\" goes behind the sorted names: "737\" would follow "737-400\"
            list.push_back(std::move(name.append("\\")));
        }
    });
}

} // namespace vantor
