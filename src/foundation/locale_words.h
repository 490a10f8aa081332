// Foundation: what the whole program stands on and that knows nothing of traffic.
// How the user's locale writes dates, booleans and decimals, worked out once a run by formatting known values.
#pragma once

#include <string>
#include <string_view>

namespace vantor {

/// The date separator of a sample (25 December 2001 in the system's short form): "/", "." or "-".
[[nodiscard]] std::string fdateseparator(std::string_view sample);
/// The pattern of a sample, as in "DD/MM/YYYY". Empty for a locale with the year
/// first and the day before the month.
[[nodiscard]] std::string flocaldateformatstring(std::string_view sample);
/// "DD/MMM/YYYY" with the sample's separators.
[[nodiscard]] std::string flocalfulldateformat(std::string_view sample);

/// Runs initdateformats unless it ran before.
void checkinitialised() noexcept;
/// Works the locale out and logs it.
void initdateformats() noexcept;
/// The locale's words for true and false, in capitals.
[[nodiscard]] std::string gettruestring();
[[nodiscard]] std::string getfalsestring();

/// What was worked out, once a run.
struct LocaleState {
    bool dateinitialised = false;
    std::string localdateformat;
    std::string localfulldateformat;
    std::string localfulldatetimeformat;
    std::string dateseparator;
    std::string truestring;
    std::string falsestring;
};
[[nodiscard]] LocaleState& localeState() noexcept;

} // namespace vantor
