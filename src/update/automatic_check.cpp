#include "update/automatic_check.h"

#include "core/settings_keys.h"
#include "foundation/clock.h"
#include "foundation/error.h"
#include "foundation/log.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "foundation/trap.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace vantor {

namespace {

constexpr std::string_view module = "mSHAREDUpdater";

constexpr std::array<std::string_view, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// The day number of a text in the pattern DD/MMM/YYYY, as a text; error 13 for anything else.
std::string dayNumberText(std::string_view text) {
    const std::vector<std::string_view> parts = split(text, "/");
    if (parts.size() != 3) {
        throw Error(ErrorCode::TypeMismatch);
    }
    const auto month =
        std::ranges::find_if(monthNames, [&](std::string_view name) { return equalNoCase(name, trim(parts[1])); });
    if (month == monthNames.end()) {
        throw Error(ErrorCode::TypeMismatch);
    }
    const Date date{parseInt16(parts[2]), static_cast<int>(month - monthNames.begin()) + 1, parseInt16(parts[0])};
    if (dateOf(dayNumber(date)) != date) { // no such day
        throw Error(ErrorCode::TypeMismatch);
    }
    return std::to_string(dayNumber(date));
}

} // namespace

bool CheckDisabled() noexcept {
    const StandardTrap trap{"function checkdisabled", module};
    bool disabled = true;
    trap.set(disabled, setting<bool>, keys::disableAutoUpdateCheck);
    if (disabled) {
        trap(logit, "Automatic update check is disabled");
    }
    return disabled;
}

bool CheckDue() noexcept {
    const StandardTrap trap{"function checkdue", module};
    const std::int32_t latest = today() - daysBetweenChecks;
    std::string last = sget(keys::lastUpdateCheck, latest).text();
    if (contains(last, "/")) {
        trap.set(last, dayNumberText, last);
    }
    // Quirk: texts of digits are compared as texts, which is right for as long as both have the same length.
    return trim(last) <= std::to_string(latest);
}

std::string checkDateText(std::int32_t day) {
    const Date date = dateOf(day);
    return twoDigits(date.day) + "/" + std::string(monthNames.at(static_cast<std::size_t>(date.month) - 1)) + "/" +
           std::to_string(date.year);
}

} // namespace vantor
