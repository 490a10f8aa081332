// What the program makes of the way a locale writes things.
#include "foundation/locale_words.h"
#include "support/test.h"

namespace vantor {
namespace {

using namespace std::string_view_literals;

class LocaleWords : public Fixture {};

TEST_F(LocaleWords, PatternsAndSeparatorsOfSamples) {
    const auto samples = {"25/12/2001"sv, "12/25/2001"sv, "25.12.2001"sv, "25/12/01"sv,   "2001-12-25"sv,
                          "01-12-25"sv,   "2001-25-12"sv, "25-12.2001"sv, "25.12/2001"sv, ""sv};
    EXPECT_EQ(each(flocaldateformatstring, samples), // none for the seventh
              "DD/MM/YYYY|MM/DD/YYYY|DD.MM.YYYY|DD/MM/YY|YYYY-MM-DD|YY-MM-DD||DD.MM.YYYY|DD.MM.YYYY|MM/DD/YY|");
    EXPECT_EQ(each(fdateseparator, samples), "/|/|.|/|-|-|-|.|/|/|");
}

TEST_F(LocaleWords, WorkedOutOnceAndLogged) {
    recorder.dateSample = "25.12.2001";
    recorder.trueWord = "Wahr";
    recorder.falseWord = "Fals\xE7h";
    EXPECT_EQ(gettruestring() + getfalsestring(), "WAHRFALS\xC7H");
    recorder.trueWord = "Vrai"; // a change during the run has no effect
    EXPECT_EQ(gettruestring(), "WAHR");
    EXPECT_EQ(logTexts(), (Texts{"Date format: DD.MM.YYYY", "Full date format: DD.MMM.YYYY",
                                 "Full date format plus time: DD.MMM.YYYY HH:MM", "Date separator: .",
                                 "True string: WAHR False string: FALS\xC7H"}));
}

} // namespace
} // namespace vantor
