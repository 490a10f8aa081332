#include "locale/translation.h"

#include "foundation/text.h"

namespace vantor {

namespace {
constexpr std::string_view phraseBreak = "||";
} // namespace

std::string gettranslation(std::string_view text) {
    return std::string(text);
}

std::string_view beforebreak(std::string_view line) noexcept {
    return trim(line.substr(0, line.find(phraseBreak)));
}

std::string_view afterbreak(std::string_view line) noexcept {
    const std::size_t at = line.find(phraseBreak);
    return at == std::string_view::npos ? std::string_view() : trim(line.substr(at + phraseBreak.size()));
}

void translateform(QWidget& form) noexcept {
    ChangeFont(form);
}

void ChangeFont(QWidget& /*form*/) noexcept {}

} // namespace vantor
