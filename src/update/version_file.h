// Update: asks the update server for newer versions and fetches the setup program.
// The version file, and the order of versions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// A version: {major}.{minor}.{revision} with an optional letter directly behind.
struct Version {
    std::int32_t major = 0;
    std::int32_t minor = 0;
    std::int32_t revision = 0;
    std::string suffix; ///< one character, or empty

    /// As it is written, the suffix in capitals, as in 1.2.14B.
    [[nodiscard]] std::string text() const;
    friend bool operator==(const Version&, const Version&) = default;
};

/// What a version file tells.
struct VersionFile {
    Version version;
    std::string url; ///< of the setup file; empty when the text has one line only
    friend bool operator==(const VersionFile&, const VersionFile&) = default;
};

/// Reads a version file of two lines, the version and the address of the setup file, ended by LF or CR LF. In the
/// address "@@@" stands for the version without dots. A number that is missing is 0; so is one beyond 32 bits, with
/// error 6 in the ring.
[[nodiscard]] VersionFile ExtractVersion(std::string_view text) noexcept;

/// Whether `available` is newer than `own`: numbers from the left, then the suffix by its byte, with none first.
[[nodiscard]] bool isNewer(const Version& available, const Version& own) noexcept;

} // namespace vantor
