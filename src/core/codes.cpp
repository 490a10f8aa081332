#include "core/codes.h"

#include "core/tables.h"
#include "foundation/text.h"
#include "foundation/trap.h"

namespace vantor {

namespace {

constexpr std::string_view module = "modSubs";

// Position of the hyphen that ends the code; none when the text has no hyphen or begins with one.
std::size_t separator(std::string_view text) {
    const std::size_t at = text.find('-');
    return at == 0 ? std::string_view::npos : at;
}

} // namespace

std::string extractcode(std::string_view text) {
    return upper(trim(text.substr(0, separator(text))));
}

std::string extracttitle(std::string_view text) {
    const std::size_t at = separator(text);
    // Quirk: a text without a hyphen is not trimmed.
    return std::string(at == std::string_view::npos ? text : trim(text.substr(at + 1)));
}

std::string extractaircraft(std::string_view text) {
    const StandardTrap trap{"function extractaircraft", module};
    std::string result;
    const std::size_t at = text.find("AC#");
    if (at == std::string_view::npos) {
        return result;
    }
    result = trim(text.substr(at));
    trap([&] {
        const std::size_t blank = result.find(' ');
        if (blank == std::string::npos) {
            throw Error(ErrorCode::InvalidCall); // a cut of negative length; the whole text is returned
        }
        result.resize(blank);
    });
    return result;
}

std::int32_t hashindex(std::int32_t recnum, std::int16_t legnum) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(recnum) * 1000U +
                                     static_cast<std::uint32_t>(static_cast<std::int32_t>(legnum)));
}

std::optional<LegId> extractindexes(std::int32_t itemData) noexcept {
    const std::int32_t leg = itemData % 1000;
    return itemData == 0 ? std::nullopt : std::optional(LegId{(itemData - leg) / 1000, leg});
}

std::string gmtstring() {
    if (gmtoffset == 0) {
        return "GMT";
    }
    const auto offset = static_cast<DateTime>(gmtoffset);
    const std::string time = minuteOf(offset) == 0 ? std::to_string(hourOf(offset)) : formatHMM(offset);
    return (gmtoffset < 0 ? "(GMT-" : "(GMT+") + time + ")";
}

DateTime applygmtoffset(DateTime value) {
    const DateTime shifted = static_cast<DateTime>(gmtoffset) + timeOfDay(value);
    const auto single = static_cast<float>(shifted);
    // Quirk: only the wrap below zero is handled, and through a 32-bit value.
    return single < 0 ? static_cast<DateTime>(single) + 1.0 : shifted;
}

const AirportRec* knownAirport(std::string_view code) {
    const AirportRec* const airport = airports.findInPlace(code);
    return airport != nullptr && airport->known() ? airport : nullptr;
}

std::string airporttitle(std::string_view code) {
    const AirportRec* const airport = knownAirport(code);
    return std::string(airport == nullptr ? trim(code) : airport->title.text());
}

} // namespace vantor
