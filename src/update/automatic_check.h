// Update: asks the update server for newer versions and fetches the setup program.
// When the program asks by itself: about once a week, if the user allowed it.
#pragma once

#include <cstdint>
#include <string>

namespace vantor {

/// Days from one automatic check to the next.
inline constexpr std::int32_t daysBetweenChecks = 7;

/// Whether the user switched the automatic check off (key DisableAutoUpdateCheck); logged if so. It is off until the
/// user switches it on, and also while the store holds no flag there.
[[nodiscard]] bool CheckDisabled() noexcept;
/// Whether the last check that got an answer (key LastUpdateCheck, a day number or a date text) is at least a week
/// old, or whether there was none.
[[nodiscard]] bool CheckDue() noexcept;

/// A day in the pattern DD/MMM/YYYY with English months, as in 01/Jun/2004.
[[nodiscard]] std::string checkDateText(std::int32_t day);

} // namespace vantor
