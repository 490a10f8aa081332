#include "foundation/native_path.h"

#include "foundation/code_page.h"
#include "foundation/text.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

namespace vantor {

namespace {

std::string& folderInUse() {
    static std::string folder = ".";
    return folder;
}

std::string& nameInUse() {
    static std::string name;
    return name;
}

std::string utf8Of(const std::filesystem::path& native) {
    const std::u8string text = native.u8string();
    return {text.begin(), text.end()};
}

std::filesystem::path fromUtf8Path(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

#ifndef _WIN32

// Whether something stands there, a link that leads nowhere among it.
bool standsThere(const std::filesystem::path& native) {
    std::error_code ignored;
    return std::filesystem::symlink_status(native, ignored).type() != std::filesystem::file_type::not_found && !ignored;
}

// The entry of `folder` that is `name` (bytes of the code page) but for its case; the first of them by its bytes, so
// that the answer does not hang on the order of the folder. Empty when there is none.
std::filesystem::path entryWithoutCase(const std::filesystem::path& folder, std::string_view name) {
    std::filesystem::path found;
    std::error_code failure;
    const std::filesystem::path listed = folder.empty() ? std::filesystem::path(".") : folder;
    for (std::filesystem::directory_iterator entry(listed, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::filesystem::path candidate = entry->path().filename();
        if (equalNoCase(fromUtf8(candidate.native()), name) && (found.empty() || candidate.native() < found.native())) {
            found = candidate;
        }
    }
    return found;
}

// The folder that stands for a drive letter in the user's Wine prefix.
std::filesystem::path driveFolder(char letter) {
    std::filesystem::path prefix;
    if (const char* chosen = std::getenv("WINEPREFIX"); chosen != nullptr && *chosen != '\0') {
        prefix = chosen;
    } else if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        prefix = std::filesystem::path(home) / ".wine";
    } else {
        prefix = "/.wine";
    }
    return prefix / "dosdevices" / (std::string(1, lowerChar(letter)) + ":");
}

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::filesystem::path resolve(std::filesystem::path root, std::string_view rest) {
    std::filesystem::path straight = root / fromUtf8Path(toUtf8(rest));
    if (standsThere(straight)) {
        return straight;
    }
    bool reachable = true; // false once a component stands under no spelling: nothing below it is looked up
    for (const std::string_view component : split(rest, "/")) {
        if (component.empty()) {
            continue;
        }
        std::filesystem::path next = root / fromUtf8Path(toUtf8(component));
        if (reachable && !standsThere(next)) {
            const std::filesystem::path found = entryWithoutCase(root, component);
            reachable = !found.empty();
            if (reachable) {
                next = root / found;
            }
        }
        root = std::move(next);
    }
    return root;
}

#endif

} // namespace

#ifdef _WIN32

std::filesystem::path nativePath(std::string_view path) {
    // The run-time asks after a folder by its bare name; only a root ("C:\", "\") ends in a separator.
    while (path.size() > 1 && (path.back() == '\\' || path.back() == '/') && path[path.size() - 2] != ':') {
        path.remove_suffix(1);
    }
    return fromUtf8Path(toUtf8(path));
}

#else

std::filesystem::path nativePath(std::string_view path) {
    std::string slashed(path);
    std::ranges::replace(slashed, '\\', '/');
    std::string_view rest = slashed;
    std::filesystem::path root;
    if (rest.size() >= 2 && isLetter(rest[0]) && rest[1] == ':') {
        root = driveFolder(rest[0]);
        rest.remove_prefix(2);
    } else if (!rest.empty() && rest.front() == '/') {
        root = "/";
    }
    while (!rest.empty() && rest.front() == '/') {
        rest.remove_prefix(1);
    }
    if (rest.empty()) {
        return root;
    }
    return resolve(std::move(root), rest);
}

#endif

std::string programPath(const std::filesystem::path& native) {
    std::string path = fromUtf8(utf8Of(native));
    std::ranges::replace(path, '/', '\\');
    return path;
}

const std::string& programFolder() {
    return folderInUse();
}

const std::string& programName() {
    return nameInUse();
}

void setProgramFile(const std::filesystem::path& executable) {
    std::string folder = programPath(executable.parent_path());
    while (!folder.empty() && folder.back() == '\\') {
        folder.pop_back();
    }
    folderInUse() = std::move(folder);
    nameInUse() = programPath(executable.stem());
}

} // namespace vantor
