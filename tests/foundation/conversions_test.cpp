// Texts of the code page, numbers and times.
#include "foundation/clock.h"
#include "foundation/numbers.h"
#include "foundation/text.h"
#include "support/expect_error.h"
#include "support/fixture.h"

#include <limits>

namespace vantor {
namespace {

using test::errorOf;

TEST(Text, CapitalsFollowTheCodePage) {
    EXPECT_EQ(upper("az\xFC\xE9\xFF\x9A\x9C\x9E"), "AZ\xDC\xC9\x9F\x8A\x8C\x8E");
    EXPECT_EQ(upper("\xF7\xDF\xD7"), "\xF7\xDF\xD7"); // the division sign and the sharp s have no capital
    EXPECT_EQ(lower("\xDC\x9F\xD7"), "\xFC\xFF\xD7");
    EXPECT_TRUE(equalNoCase("M\xFCnchen", "M\xDCNCHEN"));
    EXPECT_TRUE(lessNoCase("b", "C"));
    EXPECT_FALSE(lessNoCase("B", "b"));
    EXPECT_TRUE(lessNoCase("Z", "\xC4")); // bytes above 127 come last
    EXPECT_TRUE(lessNoCase("ab", "abc"));
    EXPECT_TRUE(containsNoCase("Z\xFCrich", "\xDCRIC"));
    EXPECT_TRUE(containsNoCase("", ""));
    EXPECT_FALSE(containsNoCase("ab", "abc"));
}

TEST(Text, ReplaceSplitAndTrim) {
    EXPECT_EQ(replaceAll("aaa", "aa", "a"), "aa"); // what was put in is not looked at again
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(split("", ","), std::vector<std::string_view>{""});
    EXPECT_EQ(split("a\r\nb\rc\nd\r\n", "\r\n"), (std::vector<std::string_view>{"a", "b\rc\nd", ""}));
    EXPECT_EQ(trim(" \t a  "), "\t a");
}

TEST(Text, LinesEndAtCrLfAloneOrElseAtWhateverEndsThereAre) {
    using Lines = std::vector<std::string_view>;
    EXPECT_EQ(splitLines("a\nb\rc\r\nd\r\n"), (Lines{"a\nb\rc", "d", ""}));
    EXPECT_EQ(splitLines("a\n\nb\n"), (Lines{"a", "", "b", ""}));
    EXPECT_EQ(splitLines("a\rb\nc"), (Lines{"a", "b", "c"}));
    EXPECT_EQ(splitLines(""), Lines{""});
}

TEST(Text, PositionsOfACharacter) {
    // Words of eight bytes and a rest, neighbours, and bytes that differ from the wanted one in a single bit.
    std::string marked = ",a,,\xAC-.4lmnop,,\x2D\x2B\x0C\x3C\x24,,,x,";
    const std::string expected = replaceAll(marked, ",", "#");
    forEachPosition(marked, ',', [&](std::size_t at) { marked.at(at) = '#'; });
    EXPECT_EQ(marked, expected);
    forEachPosition("", ',', [](std::size_t) { ADD_FAILURE(); });
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
    EXPECT_EQ(FixedText<4>(" x").text(), "x");
    EXPECT_EQ(FixedText<4>().text(), "");
}

TEST(Numbers, TheNumberAtTheFrontOfAText) {
    constexpr double most = std::numeric_limits<double>::max();
    for (const auto& [text, value] : {std::pair{"12abc", 12.0},
                                      {" 1 2 . 5 x", 12.5},
                                      {"-.5", -0.5},
                                      {"+7", 7},
                                      {"1e3", 1000},
                                      {"1e", 1},
                                      {"1d3", 1},
                                      {"3/06", 3},
                                      {"1-2", 1},
                                      {"&H10", 0},
                                      {"1.2.3", 1.2},
                                      {".", 0},
                                      {"", 0},
                                      {"1e999", most},
                                      {"-1e999", -most},
                                      {"123456789012345 67", 12345678901234567.0}}) {
        EXPECT_EQ(val(text), value) << text;
    }
    const std::string zeros(1000, '0'); // however many stand ahead of the digits that count
    EXPECT_EQ(val(zeros + " 12.5") + val("0." + zeros + "5e1001"), 17.5);
}

TEST(Numbers, TheWholeTextAsANumber) {
    for (const char* bad : {"", " ", "1 2", "1,5", "abc", "0x10", "1e", "--1", "inf", "nan", "\t1"}) {
        EXPECT_EQ(errorOf([&] { (void)parseNumber(bad); }), 13) << bad;
    }
    EXPECT_EQ(parseNumber("  -2.5E1 "), -25);
    EXPECT_EQ(parseNumber("1.5E-400"), 0);
    EXPECT_EQ(parseNumber("12345678901234567890"), 12345678901234567890.0);
    EXPECT_EQ(errorOf([] { (void)parseNumber("-1.5E400"); }), 6);
    EXPECT_EQ(parseSingle("3.4028235E+38"), std::numeric_limits<float>::max()); // its own shortest text lies above it
    EXPECT_EQ(errorOf([] { (void)parseSingle("3.4028236E+38"); }), 6);
    EXPECT_EQ(parseInt16(" 2 "), 2); // as a number comes back from a settings file
    EXPECT_EQ(parseInt16("32767"), 32767);
    EXPECT_EQ(errorOf([] { (void)parseInt16("32768"); }), 6);
}

TEST(Numbers, WholeNumbersTakeHalvesToEven) {
    for (const auto& [value, whole] : {std::pair{0.5, 0}, {1.5, 2}, {-1.5, -2}, {32767.4, 32767}, {-32768.5, -32768}}) {
        EXPECT_EQ(toInt16(value), whole) << value;
    }
    EXPECT_EQ(errorOf([] { (void)toInt16(32767.5); }), 6);
    EXPECT_EQ(errorOf([] { (void)toInt32(2147483648.0); }), 6);
    EXPECT_EQ(errorOf([] { (void)toInt32(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(Numbers, Printing) {
    EXPECT_EQ(printNumber(2), " 2 ");
    EXPECT_EQ(printNumber(-2), "-2 ");
    for (const auto& [value, text] : {std::pair{0.1F, "0.1"}, {250.0F, "250"}, {-0.0F, "0"}, {1e20F, "1E+20"}}) {
        EXPECT_EQ(shortestSingle(value), text);
    }
    EXPECT_EQ(generalNumber(0.1 + 0.2), "0.3");
    EXPECT_EQ(generalNumber(1234567), "1234567");
    EXPECT_EQ(fixedNumber(0.125, 2), "0.12");
    EXPECT_EQ(twoDigits(7), "07");
    EXPECT_EQ(twoDigits(123), "123");
}

TEST(Times, ReadStrictly) {
    EXPECT_EQ(parseTime(" 6:05 "), timeSerial(6, 5, 0));
    EXPECT_EQ(parseTime("23:59:59"), timeSerial(23, 59, 59));
    for (const char* bad : {"", "6", "24:00", "6:5", "12:60", "12:00:60", "12:00:", ":30", "1:00:00:00", "-1:00",
                            "006:00", "6 :00", "6:00PM"}) {
        EXPECT_EQ(errorOf([&] { (void)parseTime(bad); }), 13) << bad;
    }
}

TEST(Times, ShownToTheSecond) {
    EXPECT_EQ(formatHHMMSS(timeSerial(9, 8, 7)), "09:08:07");
    EXPECT_EQ(formatHMM(timeSerial(9, 8, 7)), "9:08");
    EXPECT_EQ(formatHHMM(0.999999999), "00:00"); // rounded to the second first, past midnight
    EXPECT_EQ(formatHHMMSS(-0.25), "06:00:00");
    for (int second = 0; second < 86400; ++second) {
        ASSERT_EQ(secondsOfDay(37000 + second / 86400.0), second);
    }
}

TEST(Times, Calendar) {
    EXPECT_EQ(dayNumber({1899, 12, 30}), 0);
    EXPECT_EQ(dayNumber({2004, 2, 29}), 38046);
    EXPECT_EQ(dateOf(38046.99), (Date{2004, 2, 29}));
    EXPECT_EQ(dateOf(-1), (Date{1899, 12, 29}));
    test::FakeClock clock;
    useClock(&clock);
    clock.setTimer(3600.5);
    EXPECT_NEAR(timer(), 3600.5F, 0.01F);
    EXPECT_EQ(today(), dayNumber({2004, 6, 1}));
    useClock(nullptr);
    EXPECT_GT(today(), dayNumber({2020, 1, 1}));
}

} // namespace
} // namespace vantor
