// Rows, codes, leg numbers and the time zone.
#include "core/codes.h"
#include "core/leg_text.h"
#include "core/tables.h"
#include "foundation/log.h"
#include "support/fixture.h"

#include <map>
#include <string>
#include <vector>

namespace vantor {
namespace {

using CodesTest = test::Fixture;

TEST_F(CodesTest, RowsSplitAtTheFirstHyphen) {
    struct Case {
        const char* row;
        const char* code;
        const char* title;
    };
    for (const Case& c : {Case{"ksea - seattle - tacoma", "KSEA", "seattle - tacoma"},
                          {" se a ", "SE A", " se a "},
                          {"-x y", "-X Y", "-x y"},
                          {"x-", "X", ""},
                          {"m\xFCnchen - x", "M\xDCNCHEN", "x"}}) {
        EXPECT_EQ(extractcode(c.row), c.code);
        EXPECT_EQ(extracttitle(c.row), c.title);
    }
}

TEST_F(CodesTest, AircraftCodeEndsAtABlankOrIsAFault) {
    EXPECT_EQ(extractaircraft("Boeing AC#12 - x"), "AC#12");
    EXPECT_EQ(extractaircraft("Boeing ac#12 - x"), "");
    EXPECT_EQ(newestAction(), "");
    EXPECT_EQ(extractaircraft("x AC#12-y"), "AC#12-y");
    EXPECT_EQ(newestAction(), "Invalid procedure call or argument(5) in function extractaircraft of module modSubs");
}

TEST_F(CodesTest, IndexesOfALegAndOfARowWithoutOne) {
    EXPECT_EQ(hashindex(12, 3), 12003);
    EXPECT_EQ(extractindexes(0), std::nullopt);
    EXPECT_EQ(extractindexes(12003), (LegId{12, 3}));
    EXPECT_EQ(extractindexes(13000), (LegId{13, 0}));
}

TEST_F(CodesTest, ZoneLabelAndShiftedTimes) {
    struct Case {
        double hours;
        const char* label;
        const char* time;
        const char* shifted;
        bool onTheSameDay; // a wrap below zero is brought back, one above is not
    };
    for (const Case& c : {Case{0, "GMT", "12:00", "12:00:00", true},
                          {-6, "(GMT-6)", "06:00", "00:00:00", true},
                          {-0.5, "(GMT-0:30)", "00:10", "23:40:00", true},
                          {6.5, "(GMT+6:30)", "10:00", "16:30:00", true},
                          {2, "(GMT+2)", "23:00", "01:00:00", false}}) {
        SCOPED_TRACE(c.label);
        gmtoffset = static_cast<float>(c.hours / 24);
        EXPECT_EQ(gmtstring(), c.label);
        const DateTime shifted = applygmtoffset(38139 + parseTime(c.time));
        EXPECT_EQ(formatHHMMSS(shifted), c.shifted);
        EXPECT_EQ(shifted < 1.0, c.onTheSameDay);
        EXPECT_GE(shifted, 0);
    }
}

TEST(LegTextTest, IsTheFieldOfTwelveThatItStandsFor) {
    std::vector<std::string> texts = {
        "",         "0",        "00",       "007",      "9999",      "10000",   " 12",
        "12:30:00", "12:30:01", "23:59:00", "24:00:00", "12:60:00",  "1:00:00", "12-30-00",
        "12:3a:00", "/2:00:00", ":2:00:00", "12:00:0:", "12:30:00 ", "7 ",      "99991"};
    for (int i = 0; i < 40000; ++i) { // more than stand in one piece
        texts.push_back("text " + std::to_string(i) + " is cut");
    }
    std::map<std::string, std::uint32_t> numbers;
    for (const std::string& text : texts) {
        const LegText kept(text);
        EXPECT_EQ(kept.raw(), FixedText<12>(text).raw());
        EXPECT_EQ(numbers.emplace(kept.raw(), kept.number()).first->second, kept.number());
        EXPECT_EQ(kept.minute(), kept.text() == "12:30:00" ? 750 : kept.text() == "23:59:00" ? 1439 : -1) << text;
    }
    for (const auto& [text, number] : numbers) {
        EXPECT_EQ(LegText(text).number(), number);
    }
}

} // namespace
} // namespace vantor
