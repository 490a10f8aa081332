// Foundation: what the whole program stands on and that knows nothing of traffic.
// Texts are 8-bit bytes of the system's code page; capitals and case-blind comparison follow that code page.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// `text` in capitals.
[[nodiscard]] std::string upper(std::string_view text);
/// `text` in small letters.
[[nodiscard]] std::string lower(std::string_view text);
/// Puts `text` into capitals in place.
void upperInPlace(std::span<char> text) noexcept;

/// `text` without blanks (32) at both ends; no other white space is taken off.
[[nodiscard]] constexpr std::string_view trim(std::string_view text) noexcept {
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    return text;
}

/// Equality without regard to case.
[[nodiscard]] bool equalNoCase(std::string_view a, std::string_view b) noexcept;
/// The order of sorted lists: capitals compared byte by byte.
[[nodiscard]] bool lessNoCase(std::string_view a, std::string_view b) noexcept;
/// Whether `text` holds `part`, both put into capitals. An empty part is held by every text.
[[nodiscard]] bool containsNoCase(std::string_view text, std::string_view part) noexcept;
/// Whether `text` holds `part` exactly.
[[nodiscard]] constexpr bool contains(std::string_view text, std::string_view part) noexcept {
    return text.find(part) != std::string_view::npos;
}

/// Every `from` in `text` replaced by `to`, left to right, what was put in not looked at again.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);
/// The pieces of `text` between each `separator`; one empty piece for an empty text.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, std::string_view separator);
/// The lines of a whole file. They end at CR LF alone when there is one, and else, as other systems' editors save, at
/// each lone LF or CR. What follows the last end is a line too, empty or not.
[[nodiscard]] std::vector<std::string_view> splitLines(std::string_view text);

/// A count with its noun, as in "1 leg" and "3 legs"; `many` where an s does not make the plural.
[[nodiscard]] std::string counted(std::int64_t count, std::string_view one, std::string_view many = {});

} // namespace vantor
