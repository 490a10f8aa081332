// Rows, codes, leg numbers and the time zone.
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/clock.h"
#include "foundation/log.h"
#include "support/fixture.h"

namespace vantor {
namespace {

using CodesTest = test::Fixture;

TEST_F(CodesTest, RowsSplitAtTheFirstHyphen) {
    EXPECT_EQ(extractcode("ksea - seattle - tacoma"), "KSEA");
    EXPECT_EQ(extracttitle("ksea - seattle - tacoma"), "seattle - tacoma");
    EXPECT_EQ(extractcode(" ksea "), "KSEA");
    EXPECT_EQ(extracttitle(" seattle "), " seattle ");
    EXPECT_EQ(extractcode("-x y"), "-X Y");
    EXPECT_EQ(extracttitle("-x y"), "-x y");
    EXPECT_EQ(extractcode("m\xFCnchen - x"), "M\xDCNCHEN");
}

TEST_F(CodesTest, AircraftCodeEndsAtABlankOrIsAFault) {
    EXPECT_EQ(extractaircraft("Boeing AC#12 - x"), "AC#12");
    EXPECT_EQ(extractaircraft("Boeing ac#12 - x"), "");
    EXPECT_EQ(newestAction(), "");
    EXPECT_EQ(extractaircraft("x AC#12-y"), "AC#12-y");
    EXPECT_EQ(newestAction(), "Invalid procedure call or argument(5) in function extractaircraft of module modSubs");
}

TEST_F(CodesTest, IndexesLeaveTheCallersValuesForARowWithoutAny) {
    EXPECT_EQ(hashindex(12, 3), 12003);
    std::int32_t recnum = 7;
    std::int32_t legnum = 8;
    extractindexes(0, recnum, legnum);
    EXPECT_EQ(recnum, 7);
    EXPECT_EQ(legnum, 8);
    extractindexes(12003, recnum, legnum);
    EXPECT_EQ(recnum, 12);
    EXPECT_EQ(legnum, 3);
    extractindexes(12000, recnum, legnum);
    EXPECT_EQ(recnum, 12);
    EXPECT_EQ(legnum, 0);
}

TEST_F(CodesTest, ZoneLabel) {
    const auto label = [](double hours) {
        gmtoffset = static_cast<float>(hours / 24);
        return gmtstring();
    };
    EXPECT_EQ(label(0), "GMT");
    EXPECT_EQ(label(-6), "(GMT-6)");
    EXPECT_EQ(label(6.5), "(GMT+6:30)");
    EXPECT_EQ(label(-0.5), "(GMT-0:30)");
}

TEST_F(CodesTest, OffsetWrapsBelowZeroOnly) {
    gmtoffset = static_cast<float>(2.0 / 24);
    EXPECT_GT(applygmtoffset(parseTime("23:00")), 1.0);
    EXPECT_EQ(formatHHMMSS(applygmtoffset(parseTime("23:00"))), "01:00:00");
    gmtoffset = static_cast<float>(-2.0 / 24);
    EXPECT_LT(applygmtoffset(parseTime("01:00")), 1.0);
    EXPECT_EQ(formatHHMMSS(applygmtoffset(parseTime("01:00"))), "23:00:00");
    EXPECT_EQ(formatHHMMSS(applygmtoffset(parseTime("02:00"))), "00:00:00");
}

TEST_F(CodesTest, AirportTitleOrCode) {
    AirportRec known;
    known.icao = "KSEA";
    airports.HashAdd(known);
    EXPECT_EQ(airporttitle(" KSEA "), ""); // known, but not named
    EXPECT_EQ(airporttitle(" KPDX "), "KPDX");
}

} // namespace
} // namespace vantor
