// Texts of the code page, numbers and times, and what the program makes of the way a locale writes things.
#include "foundation/byte_search.h"
#include "foundation/clock.h"
#include "foundation/code_page.h"
#include "foundation/fixed_text.h"
#include "foundation/locale_words.h"
#include "support/test.h"

namespace vantor {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(Text, CapitalsFollowTheCodePage) {
    EXPECT_EQ(upper("az\xFC\xE9\xFF\x9A\x9C\x9E \xF7\xDF\xD7"), "AZ\xDC\xC9\x9F\x8A\x8C\x8E \xF7\xDF\xD7");
    EXPECT_EQ(lower("\xDC\x9F\xD7"), "\xFC\xFF\xD7");
    EXPECT_TRUE(equalNoCase("M\xFCnchen", "M\xDCNCHEN"));
    for (const auto& [less, more] : {std::pair{"b", "C"}, {"Z", "\xC4"}, {"ab", "abc"}}) {
        EXPECT_TRUE(lessNoCase(less, more) && !lessNoCase(more, less)) << less;
    }
    EXPECT_FALSE(lessNoCase("B", "b"));
    EXPECT_TRUE(containsNoCase("Z\xFCrich", "\xDCRIC") && containsNoCase("", "") && !containsNoCase("ab", "abc"));
}

TEST(Text, ReplacedSplitTrimmedAndSearched) {
    EXPECT_EQ(replaceAll("aaa", "aa", "a"), "aa"); // what was put in is not looked at again
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(split("", ","), Pieces{""});
    EXPECT_EQ(trim(" \t a  "), "\t a");
    // One CR LF, and lone ends are parts of lines; none, and the lines end wherever an editor ended them.
    for (const auto& [text, lines] : {std::pair{"a\nb\rc\r\nd\r\n", Pieces{"a\nb\rc", "d", ""}},
                                      {"a\n\nb\n", {"a", "", "b", ""}},
                                      {"a\rb\nc", {"a", "b", "c"}},
                                      {"", {""}}}) {
        EXPECT_EQ(splitLines(text), lines) << text;
    }
    // Words of eight bytes and a rest, neighbours, and bytes that differ from the wanted one in a single bit.
    std::string marked = ",a,,\xAC-.4lmnop,,\x2D\x2B\x0C\x3C\x24,,,x,";
    const std::string expected = replaceAll(marked, ",", "#");
    forEachPosition(marked, ',', [&](std::size_t at) { marked.at(at) = '#'; });
    EXPECT_EQ(marked, expected);
}

TEST(Text, Utf8AndTheCodePage) {
    EXPECT_EQ(toUtf8("\x80 \xFC"), "\xE2\x82\xAC \xC3\xBC");
    EXPECT_EQ(fromUtf8("\xE4\xB8\xAD"), "?"); // not in the code page
#ifdef _WIN32
    EXPECT_EQ(fromUtf8("\xFC"), "?"); // malformed
#else
    EXPECT_EQ(fromUtf8("\xFC"), "\xFC"); // malformed: stands for itself, as a name on the disk may be
#endif
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    EXPECT_EQ(fromUtf8(toUtf8(all)), all);
}

TEST(Text, FixedFieldsCutAndPadAndTakePiecesOfThemselves) {
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (std::size_t length = 0; length <= letters.size(); ++length) {
        const std::string_view value(letters.data(), length);
        EXPECT_EQ(FixedText<1>(value).text(), value.substr(0, 1));
        EXPECT_EQ(FixedText<6>(value).text(), value.substr(0, 6));
        EXPECT_EQ(FixedText<12>(value).raw(), (std::string(value) + std::string(12, ' ')).substr(0, 12));
        EXPECT_EQ(FixedText<20>(value).text(), value.substr(0, 20));
        const std::size_t piece = std::min<std::size_t>(length, 12);
        FixedText<12> field(letters);
        field = field.raw().substr(piece);
        EXPECT_EQ(field.text(), letters.substr(piece, 12 - piece));
    }
}

TEST(Numbers, TheNumberAtTheFrontOfAText) {
    EXPECT_EQ(each(val, {"12abc", " 1 2 . 5 x", "-.5", "+7", "1e3", "1e", "1d3", "1-2", "&H10", "1.2.3", ".", ""}),
              "12|12.5|-0.5|7|1000|1|1|1|0|1.2|0|0|");
    constexpr double most = std::numeric_limits<double>::max();
    EXPECT_EQ(std::tuple(val("1e999"), val("-1e999"), val("123456789012345 67")),
              std::tuple(most, -most, 12345678901234567.0));
    const std::string zeros(1000, '0'); // however many stand ahead of the digits that count
    EXPECT_EQ(val(zeros + " 12.5") + val("0." + zeros + "5e1001"), 17.5);
}

TEST(Numbers, TheWholeTextAsANumberWithHalvesToEven) {
    for (const char* bad : {"", " ", "1 2", "1,5", "abc", "0x10", "1e", "--1", "inf", "nan", "\t1"}) {
        EXPECT_EQ(errorOf([&] { (void)parseNumber(bad); }), 13) << bad;
    }
    EXPECT_EQ(parseNumber("  -2.5E1 "), -25);
    EXPECT_EQ(parseNumber("1.5E-400"), 0);
    EXPECT_EQ(parseNumber("12345678901234567890"), 12345678901234567890.0);
    EXPECT_EQ(parseSingle("3.4028235E+38"), std::numeric_limits<float>::max()); // its own shortest text lies above it
    EXPECT_EQ(parseInt16(" 2 "), 2); // as a number comes back from a settings file
    EXPECT_EQ(parseInt16("32767"), 32767);
    EXPECT_EQ(each(toInt16, {0.5, 1.5, -1.5, 32767.4, -32768.5}), "0|2|-2|32767|-32768|");
    EXPECT_EQ(errorOf([] { (void)parseNumber("-1.5E400"); }), 6);
    EXPECT_EQ(errorOf([] { (void)parseSingle("3.4028236E+38"); }), 6);
    EXPECT_EQ(errorOf([] { (void)parseInt16("32768"); }), 6);
    EXPECT_EQ(errorOf([] { (void)toInt16(32767.5); }), 6);
    EXPECT_EQ(errorOf([] { (void)toInt32(2147483648.0); }), 6);
    EXPECT_EQ(errorOf([] { (void)toInt32(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(Numbers, Printing) {
    EXPECT_EQ(printNumber(2) + printNumber(-2), " 2 -2 ");
    EXPECT_EQ(each(shortestSingle, {0.1F, 250.0F, -0.0F, 1e20F}), "0.1|250|0|1E+20|");
    EXPECT_EQ(generalNumber(0.1 + 0.2), "0.3");
    EXPECT_EQ(generalNumber(1234567), "1234567");
    EXPECT_EQ(fixedNumber(0.125, 2), "0.12");
    EXPECT_EQ(twoDigits(7) + twoDigits(123), "07123");
}

TEST(Times, ReadStrictlyAndShownToTheSecond) {
    EXPECT_EQ(parseTime(" 6:05 "), timeSerial(6, 5, 0));
    EXPECT_EQ(parseTime("23:59:59"), timeSerial(23, 59, 59));
    for (const char* bad : {"", "6", "24:00", "6:5", "12:60", "12:00:60", "12:00:", ":30", "1:00:00:00", "-1:00",
                            "006:00", "6 :00", "6:00PM"}) {
        EXPECT_EQ(errorOf([&] { (void)parseTime(bad); }), 13) << bad;
    }
    EXPECT_EQ(formatHHMMSS(timeSerial(9, 8, 7)) + " " + formatHMM(timeSerial(9, 8, 7)), "09:08:07 9:08");
    EXPECT_EQ(formatHHMM(0.999999999), "00:00"); // rounded to the second first, past midnight
    EXPECT_EQ(formatHHMMSS(-0.25), "06:00:00");
    for (int second = 0; second < 86400; ++second) {
        ASSERT_EQ(secondsOfDay(37000 + second / 86400.0), second);
    }
}

TEST(Times, Calendar) {
    for (const auto& [day, date] :
         {std::pair{0, Date{1899, 12, 30}}, {-1, {1899, 12, 29}}, {38046, {2004, 2, 29}}, {38047, {2004, 3, 1}}}) {
        EXPECT_EQ(dayNumber(date), day);
        EXPECT_EQ(dateOf(day + 0.99), date);
    }
    EXPECT_GT(today(), dayNumber({2020, 1, 1})); // the system's clock
}

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
