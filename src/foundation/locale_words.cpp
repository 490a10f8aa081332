#include "foundation/locale_words.h"

#include "foundation/host.h"
#include "foundation/log.h"
#include "foundation/text.h"
#include "foundation/trap.h"

namespace vantor {

namespace {

constexpr Date sampleDate{2001, 12, 25};

// Position of `part` in `text` from 1 upward, 0 when it is missing.
std::size_t position(std::string_view text, std::string_view part) {
    const std::size_t at = text.find(part);
    return at == std::string_view::npos ? 0 : at + 1;
}

// Quirk: both tests run. In a sample that holds both, the dots win, as no slash is left for the dashes.
std::string withSeparators(std::string pattern, std::string_view sample) {
    for (const std::string_view separator : {std::string_view("."), std::string_view("-")}) {
        if (contains(sample, separator)) {
            pattern = replaceAll(pattern, "/", separator);
        }
    }
    return pattern;
}

// A trap that goes on without a record: a locale that can't be asked is no fault worth telling.
template <class Statement>
void quietly(Statement&& statement) noexcept {
    try {
        statement();
    } catch (...) { // NOLINT(bugprone-empty-catch): see above
    }
}

} // namespace

std::string fdateseparator(std::string_view sample) {
    for (const std::string_view separator : {std::string_view("/"), std::string_view("."), std::string_view("-")}) {
        if (contains(sample, separator)) {
            return std::string(separator);
        }
    }
    return "/";
}

std::string flocaldateformatstring(std::string_view sample) {
    std::size_t year = position(sample, "2001");
    const bool shortYear = year == 0;
    if (shortYear) {
        year = position(sample, "01");
    }
    const std::size_t month = position(sample, "12");
    const std::size_t day = position(sample, "25");
    std::string pattern;
    if (year != 1) {
        pattern = month <= day ? "MM/DD/YYYY" : "DD/MM/YYYY";
    } else if (month > year && day > month) {
        pattern = "YYYY/MM/DD";
    } else if (month < day) {
        // Quirk: no sample with the year first and the day before the month comes here; its pattern stays empty.
        pattern = "YYYY/DD/MM";
    }
    pattern = withSeparators(std::move(pattern), sample);
    return shortYear ? replaceAll(pattern, "YYYY", "YY") : pattern;
}

std::string flocalfulldateformat(std::string_view sample) {
    return withSeparators("DD/MMM/YYYY", sample);
}

void checkinitialised() noexcept {
    if (!localeState().dateinitialised) {
        initdateformats();
    }
}

void initdateformats() noexcept {
    LocaleState& locale = localeState();
    if (locale.dateinitialised) {
        return;
    }
    std::string sample;
    quietly([&] { sample = host().shortDate(sampleDate); });
    quietly([&] { locale.localdateformat = flocaldateformatstring(sample); });
    quietly([&] { locale.localfulldateformat = flocalfulldateformat(sample); });
    quietly([&] { locale.localfulldatetimeformat = locale.localfulldateformat + " HH:MM"; });
    quietly([&] { locale.dateseparator = fdateseparator(sample); });
    quietly([&] { locale.truestring = upper(host().booleanWord(true)); });
    quietly([&] { locale.falsestring = upper(host().booleanWord(false)); });
    quietly([&] { logit("Date format: " + locale.localdateformat); });
    quietly([&] { logit("Full date format: " + locale.localfulldateformat); });
    quietly([&] { logit("Full date format plus time: " + locale.localfulldatetimeformat); });
    quietly([&] { logit("Date separator: " + locale.dateseparator); });
    quietly([&] { logit("True string: " + locale.truestring + " False string: " + locale.falsestring); });
    locale.dateinitialised = true;
}

std::string gettruestring() {
    checkinitialised();
    return localeState().truestring;
}

std::string getfalsestring() {
    checkinitialised();
    return localeState().falsestring;
}

LocaleState& localeState() noexcept {
    static LocaleState locale;
    return locale;
}

} // namespace vantor
