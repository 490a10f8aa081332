#include "update/version_file.h"

#include "foundation/log.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <array>
#include <tuple>

namespace vantor {

namespace {

constexpr std::string_view module = "fSharedUpdater";
constexpr std::string_view procedure = "sub extractversion";

// The version line between its dots: what stands before the first, between the two, and behind the second. The
// address has dots as well, so they are looked for in this line alone.
std::array<std::string_view, 3> betweenDots(std::string_view line) {
    std::array<std::string_view, 3> parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t dot = i + 1 < parts.size() ? line.find('.') : std::string_view::npos;
        parts.at(i) = line.substr(0, dot);
        line.remove_prefix(dot == std::string_view::npos ? line.size() : dot + 1);
    }
    return parts;
}

// Quirk: whatever is no digit counts, a blank too.
std::string suffixOf(std::string_view revision) {
    if (revision.empty()) {
        return {};
    }
    const std::string_view last = revision.substr(revision.size() - 1);
    return val(last) == 0 && last != "0" ? std::string(last) : std::string();
}

} // namespace

std::string Version::text() const {
    return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(revision) + upper(suffix);
}

VersionFile ExtractVersion(std::string_view text) noexcept {
    const StandardTrap trap{procedure, module};
    VersionFile file;
    Version& version = file.version;
    const std::size_t lineEnd = text.find('\n');
    const std::string line = replaceAll(text.substr(0, lineEnd), "\r", "");
    const auto parts = betweenDots(line);
    trap.set(version.major, valInt32, parts[0]);
    trap.set(version.minor, valInt32, parts[1]);
    trap.set(version.revision, valInt32, parts[2]);
    version.suffix = suffixOf(parts[2]);
    if (lineEnd == std::string_view::npos) {
        return file;
    }
    // An address has no line ends; that of a file without CR may still have one.
    const std::string address = replaceAll(replaceAll(text.substr(lineEnd + 1), "\r", ""), "\n", "");
    file.url = replaceAll(address, "@@@",
                          std::to_string(version.major) + std::to_string(version.minor) +
                              std::to_string(version.revision) + version.suffix);
    trap(logdebug, "Url set to " + file.url, procedure, module);
    return file;
}

bool isNewer(const Version& available, const Version& own) noexcept {
    return std::tie(available.major, available.minor, available.revision, available.suffix) >
           std::tie(own.major, own.minor, own.revision, own.suffix);
}

} // namespace vantor
