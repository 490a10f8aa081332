// Foundation: what the whole program stands on and that knows nothing of traffic.
// The system's code page: the capitals and small letters of its bytes, and its texts as UTF-8.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace vantor {

/// The capital and the small letter of each byte of the code page (the ANSI code page on Windows, Windows-1252
/// elsewhere).
struct CaseTables {
    std::array<char, 256> toUpper;
    std::array<char, 256> toLower;
};
[[nodiscard]] const CaseTables& caseTables() noexcept;
/// The capital of one byte of the code page.
[[nodiscard]] inline char upperChar(char c) noexcept {
    return caseTables().toUpper[static_cast<unsigned char>(c)];
}
/// The small letter of one byte of the code page.
[[nodiscard]] inline char lowerChar(char c) noexcept {
    return caseTables().toLower[static_cast<unsigned char>(c)];
}

/// The UTF-8 form of a text of the code page, and back ('?' for what the code page lacks).
[[nodiscard]] std::string toUtf8(std::string_view text);
[[nodiscard]] std::string fromUtf8(std::string_view utf8);

} // namespace vantor
