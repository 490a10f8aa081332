#include "foundation/text.h"

#include "foundation/code_page.h"

#include <algorithm>
#include <array>

namespace vantor {

namespace {

// The table is looked up once for a whole text.
struct Capital {
    const std::array<char, 256>& table = caseTables().toUpper;
    unsigned char operator()(char c) const noexcept {
        return static_cast<unsigned char>(table[static_cast<unsigned char>(c)]);
    }
};

} // namespace

void upperInPlace(std::span<char> text) noexcept {
    // Traffic is ASCII but for a few names, and without a table the compiler takes many bytes at a time.
    unsigned char all = 0;
    for (const char c : text) {
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(c));
    }
    if (all < 0x80) {
        for (char& c : text) {
            c = static_cast<char>(c - (c >= 'a' && c <= 'z' ? 'a' - 'A' : 0));
        }
        return;
    }
    const auto& capitals = caseTables().toUpper;
    for (char& c : text) {
        c = capitals[static_cast<unsigned char>(c)];
    }
}

std::string upper(std::string_view text) {
    std::string result(text);
    upperInPlace(result);
    return result;
}

std::string lower(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        c = lowerChar(c);
    }
    return result;
}

bool equalNoCase(std::string_view a, std::string_view b) noexcept {
    return std::ranges::equal(a, b, {}, Capital(), Capital());
}

bool lessNoCase(std::string_view a, std::string_view b) noexcept {
    return std::ranges::lexicographical_compare(a, b, {}, Capital(), Capital());
}

bool containsNoCase(std::string_view text, std::string_view part) noexcept {
    // Not the search of ranges, whose result clang 14 can't make.
    const auto alike = [capital = Capital()](char x, char y) { return capital(x) == capital(y); };
    return part.empty() || std::search(text.begin(), text.end(), part.begin(), part.end(), alike) != text.end();
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    if (from.empty()) {
        result = text;
        return result;
    }
    std::size_t start = 0;
    for (std::size_t at = text.find(from); at != std::string_view::npos; at = text.find(from, start)) {
        result.append(text.substr(start, at - start)).append(to);
        start = at + from.size();
    }
    result.append(text.substr(start));
    return result;
}

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> pieces;
    std::size_t start = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator, start)) {
        pieces.push_back(text.substr(start, at - start));
        start = at + separator.size();
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

std::vector<std::string_view> splitLines(std::string_view text) {
    if (contains(text, "\r\n")) {
        return split(text, "\r\n");
    }
    std::vector<std::string_view> lines;
    for (std::size_t end = text.find_first_of("\r\n"); end != std::string_view::npos;
         end = text.find_first_of("\r\n")) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    lines.push_back(text);
    return lines;
}

std::string counted(std::int64_t count, std::string_view one, std::string_view many) {
    std::string text = std::to_string(count) + " ";
    text += count == 1 || many.empty() ? one : many;
    return count == 1 || !many.empty() ? text : text + "s";
}

} // namespace vantor
