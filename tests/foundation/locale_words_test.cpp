// What the program makes of the way a locale writes things.
#include "foundation/error.h"
#include "foundation/locale_words.h"
#include "foundation/log.h"
#include "support/fixture.h"

namespace vantor {
namespace {

class LocaleWords : public test::Fixture {};

TEST_F(LocaleWords, PatternsOfSamples) {
    // The empty pattern is known, and stays.
    for (const auto& [sample, pattern] : {std::pair{"25/12/2001", "DD/MM/YYYY"},
                                          {"12/25/2001", "MM/DD/YYYY"},
                                          {"25.12.2001", "DD.MM.YYYY"},
                                          {"25/12/01", "DD/MM/YY"},
                                          {"2001-12-25", "YYYY-MM-DD"},
                                          {"01-12-25", "YY-MM-DD"},
                                          {"2001-25-12", ""},
                                          {"", "MM/DD/YY"},
                                          {"2001", ""}}) {
        EXPECT_EQ(flocaldateformatstring(sample), pattern) << sample;
    }
    EXPECT_EQ(flocalfulldateformat("25-12.2001"), "DD.MMM.YYYY"); // the dot is put in first
    for (const auto& [sample, separator] :
         {std::pair{"25-12-2001", "-"}, {"25-12.2001", "."}, {"25.12/2001", "/"}, {"20011225", "/"}}) {
        EXPECT_EQ(fdateseparator(sample), separator) << sample;
    }
}

TEST_F(LocaleWords, WorkedOutOnceAndLogged) {
    recorder.dateSample = "25.12.2001";
    recorder.trueWord = "Wahr";
    recorder.falseWord = "Fals\xE7h";
    EXPECT_EQ(gettruestring(), "WAHR");
    EXPECT_EQ(getfalsestring(), "FALS\xC7H");
    recorder.trueWord = "Vrai"; // a change during the run has no effect
    EXPECT_EQ(gettruestring(), "WAHR");
    EXPECT_EQ(logTexts(), (std::vector<std::string>{"Date format: DD.MM.YYYY", "Full date format: DD.MMM.YYYY",
                                                    "Full date format plus time: DD.MMM.YYYY HH:MM",
                                                    "Date separator: .", "True string: WAHR False string: FALS\xC7H"}));
}

TEST_F(LocaleWords, FaultsAreSwallowed) {
    struct Mute : test::RecordingHost {
        std::string shortDate(const Date& /*date*/) override { throw Error(ErrorCode::InvalidCall); }
    } mute;
    useHost(&mute);
    std::filesystem::create_directory(folder() / "log.txt");
    EXPECT_EQ(gettruestring(), "TRUE");
    EXPECT_EQ(newestAction(), "");
}

} // namespace
} // namespace vantor
