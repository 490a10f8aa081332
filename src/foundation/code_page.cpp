#include "foundation/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#ifdef _WIN32
#include <windows.h>
#endif

namespace vantor {

namespace {

char byteAt(std::size_t code) {
    return static_cast<char>(static_cast<unsigned char>(code));
}

CaseTables makeCaseTables() {
    CaseTables tables{};
    for (std::size_t code = 0; code < 256; ++code) {
        tables.toUpper[code] = tables.toLower[code] = byteAt(code);
    }
#ifdef _WIN32
    // Where a letter may take several bytes, only ASCII has capitals byte by byte.
    CPINFO codePage{};
    const bool oneByteEach = GetCPInfo(CP_ACP, &codePage) != 0 && codePage.MaxCharSize == 1;
    const DWORD count = oneByteEach ? 256 : 128;
    CharUpperBuffA(tables.toUpper.data(), count);
    CharLowerBuffA(tables.toLower.data(), count);
#else
    // Windows-1252: the letters of ASCII, the Latin letters (less the multiplication and division signs), and the
    // four pairs that stand apart.
    const auto pair = [&tables](std::size_t capital, std::size_t small) {
        tables.toUpper[small] = byteAt(capital);
        tables.toLower[capital] = byteAt(small);
    };
    for (std::size_t c = 'A'; c <= 'Z'; ++c) {
        pair(c, c + 32);
    }
    for (std::size_t c = 0xC0; c <= 0xDE; ++c) {
        if (c != 0xD7) {
            pair(c, c + 32);
        }
    }
    pair(0x8A, 0x9A);
    pair(0x8C, 0x9C);
    pair(0x8E, 0x9E);
    pair(0x9F, 0xFF);
#endif
    return tables;
}

// Bytes 0x80 to 0x9F of Windows-1252; the five unused ones map to the control codes of the same value.
constexpr std::array<std::uint16_t, 32> cp1252High = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

const CaseTables& caseTables() noexcept {
    static const CaseTables tables = makeCaseTables();
    return tables;
}

#ifdef _WIN32

namespace {

std::string recode(std::string_view text, unsigned from, unsigned to) {
    if (text.empty()) {
        return {};
    }
    const int wideLength = MultiByteToWideChar(from, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(wideLength), L'\0');
    MultiByteToWideChar(from, 0, text.data(), static_cast<int>(text.size()), wide.data(), wideLength);
    const int length = WideCharToMultiByte(to, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(to, 0, wide.data(), wideLength, result.data(), length, nullptr, nullptr);
    return result;
}

} // namespace

std::string toUtf8(std::string_view text) {
    return recode(text, CP_ACP, CP_UTF8);
}

std::string fromUtf8(std::string_view utf8) {
    return recode(utf8, CP_UTF8, CP_ACP);
}

#else

std::string toUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        std::uint32_t code = static_cast<unsigned char>(c);
        if (code >= 0x80 && code < 0xA0) {
            code = cp1252High[code - 0x80];
        }
        if (code < 0x80) {
            result.push_back(c);
        } else if (code < 0x800) {
            result.push_back(static_cast<char>(0xC0 | (code >> 6)));
            result.push_back(static_cast<char>(0x80 | (code & 0x3F)));
        } else {
            result.push_back(static_cast<char>(0xE0 | (code >> 12)));
            result.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
            result.push_back(static_cast<char>(0x80 | (code & 0x3F)));
        }
    }
    return result;
}

namespace {

// The next code point of a UTF-8 text; a malformed byte stands for itself.
std::uint32_t nextCodePoint(std::string_view utf8, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(utf8[i])); };
    const std::uint32_t lead = byte(at++);
    const std::size_t extra = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    if (extra == 0 || at + extra > utf8.size()) {
        return lead;
    }
    std::uint32_t code = lead & (0x3FU >> extra);
    for (std::size_t i = 0; i < extra; ++i) {
        if ((byte(at + i) & 0xC0U) != 0x80U) {
            return lead;
        }
        code = (code << 6) | (byte(at + i) & 0x3FU);
    }
    at += extra;
    return code;
}

char codePageByte(std::uint32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
        return static_cast<char>(static_cast<unsigned char>(code));
    }
    const auto* const found = std::ranges::find(cp1252High, code);
    return found == cp1252High.end()
               ? '?'
               : static_cast<char>(static_cast<unsigned char>(0x80 + (found - cp1252High.begin())));
}

} // namespace

std::string fromUtf8(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        result.push_back(codePageByte(nextCodePoint(utf8, at)));
    }
    return result;
}

#endif

} // namespace vantor
