// What the program makes of the way a locale writes things.
#include "foundation/error.h"
#include "foundation/locale_words.h"
#include "foundation/log.h"
#include "support/fixture.h"

namespace vantor {
namespace {

using Lines = std::vector<std::string>;

class LocaleWords : public test::Fixture {};

TEST_F(LocaleWords, PatternsOfSamples) {
    EXPECT_EQ(flocaldateformatstring("25/12/2001"), "DD/MM/YYYY");
    EXPECT_EQ(flocaldateformatstring("12/25/2001"), "MM/DD/YYYY");
    EXPECT_EQ(flocaldateformatstring("25.12.2001"), "DD.MM.YYYY");
    EXPECT_EQ(flocaldateformatstring("25/12/01"), "DD/MM/YY");
    EXPECT_EQ(flocaldateformatstring("2001-12-25"), "YYYY-MM-DD");
    EXPECT_EQ(flocaldateformatstring("01-12-25"), "YY-MM-DD");
    EXPECT_EQ(flocaldateformatstring("2001-25-12"), ""); // known, and stays
    EXPECT_EQ(flocaldateformatstring("2001. 12. 25."), "YYYY.MM.DD");
    EXPECT_EQ(flocaldateformatstring(""), "MM/DD/YY");
    EXPECT_EQ(flocaldateformatstring("2001"), "");
    EXPECT_EQ(flocalfulldateformat("25.12.2001"), "DD.MMM.YYYY");
    EXPECT_EQ(flocalfulldateformat("25-12.2001"), "DD.MMM.YYYY"); // the dot is put in first
    EXPECT_EQ(fdateseparator("25-12-2001"), "-");
    EXPECT_EQ(fdateseparator("25.12.2001"), ".");
    EXPECT_EQ(fdateseparator("25-12/2001"), "/");
    EXPECT_EQ(fdateseparator("20011225"), "/");
}

TEST_F(LocaleWords, WorkedOutOnceAndLogged) {
    recorder.dateSample = "25.12.2001";
    recorder.trueWord = "Wahr";
    recorder.falseWord = "Fals\xE7h";
    EXPECT_EQ(gettruestring(), "WAHR");
    EXPECT_EQ(getfalsestring(), "FALS\xC7H");
    checkinitialised();
    EXPECT_EQ(logTexts(), (Lines{"Date format: DD.MM.YYYY", "Full date format: DD.MMM.YYYY",
                                 "Full date format plus time: DD.MMM.YYYY HH:MM", "Date separator: .",
                                 "True string: WAHR False string: FALS\xC7H"}));
    recorder.trueWord = "Vrai"; // a change during the run has no effect
    EXPECT_EQ(gettruestring(), "WAHR");
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
