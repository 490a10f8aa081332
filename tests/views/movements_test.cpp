// Views: the counts of departures and arrivals for each hour.
#include "foundation/log.h"
#include "support/fixture.h"
#include "support/traffic.h"
#include "views/movements.h"

namespace vantor::test {
namespace {

class MovementsTest : public Fixture {
  protected:
    // "departures / arrivals" of AAAA.
    static std::string movements(std::int16_t day) {
        MovementHours departures{};
        MovementHours arrivals{};
        countflights(departures, arrivals, "aaaa - Somewhere", day);
        return countedHours(departures) + "/ " + countedHours(arrivals);
    }

    static std::int32_t addRound(std::string_view dep, std::string_view arr, std::string_view period) {
        LegRec back = makeLeg("BBBB", "AAAA");
        back.arr = arr;
        return addSchedule("AC#1,N1,100%," + std::string(period) + ",IFR", {makeLeg("AAAA", "BBBB", dep), back});
    }
};

TEST_F(MovementsTest, RepeatingSchedulesCountDailyWithoutAWrap) {
    addRound("02:10:00", "17:30:00", "8HR");
    EXPECT_EQ(movements(dailyView), "2:1 10:1 18:1 / 17:1 ");
    addRound("06:00:00", "14:00:00", "12HR");
    EXPECT_EQ(movements(dailyView), "2:1 6:1 10:1 18:2 / 14:1 17:1 ");
    addRound("00:00:00", "23:59:59", "24HR");
    EXPECT_EQ(movements(dailyView), "0:1 2:1 6:1 10:1 18:2 / 14:1 17:1 23:1 ");
    EXPECT_EQ(movements(0), "/ ");
    gmtoffset = 0.5F; // hours are GMT whatever the display
    EXPECT_EQ(movements(dailyView), "0:1 2:1 6:1 10:1 18:2 / 14:1 17:1 23:1 ");
}

TEST_F(MovementsTest, WeeklySchedulesCountOnTheirDay) {
    LegRec back = makeWeeklyLeg(0, "BBBB", "AAAA", "23:00:00");
    back.arrday = 1;
    back.arr = "00:30:00";
    addSchedule("AC#1,N1,100%,WEEK,IFR", {makeWeeklyLeg(0, "AAAA", "BBBB", "08:00:00"), back});
    EXPECT_EQ(movements(dailyView), "/ ");
    EXPECT_EQ(movements(0), "8:1 / ");
    EXPECT_EQ(movements(1), "/ 0:1 ");
}

TEST_F(MovementsTest, DeletedOnesDoNotCountAndARoundLegIsADeparture) {
    changeSchedule(addRound("02:00:00", "03:00:00", "24HR"), [](ScheduleRec& s) { s.deleted = true; });
    changeSchedule(addRound("04:00:00", "05:00:00", "24HR"), [](ScheduleRec& s) { s.legs[1].deleted = true; });
    addLegs({makeLeg("AAAA", "AAAA", "07:00:00")});
    countDroppedLine();
    EXPECT_EQ(movements(dailyView), "7:1 / 5:1 ");
}

TEST_F(MovementsTest, APeriodThatLeadsNowhereCountsOnce) {
    for (const char* period : {"0HR", "HR", "-6HR", "0.4", "1E99"}) {
        resetTables();
        resetLogging();
        addRound("14:00:00", "nil", period);
        EXPECT_EQ(movements(dailyView), "14:1 / ") << period;
        EXPECT_TRUE(actionText(1).find(" in sub countflights of module modCountFlights") != std::string::npos);
        EXPECT_EQ(actionText(2), "Type mismatch(13) in sub countflights of module modCountFlights");
    }
}

TEST_F(MovementsTest, ACountStaysWithinSixteenBits) {
    for (int i = 0; i < 37; ++i) {
        addLegs(std::vector<LegRec>(900, makeLeg("AAAA", "BBBB", "01:00:00")));
    }
    EXPECT_EQ(movements(dailyView), "1:32767 / ");
    EXPECT_EQ(newestAction(), "Overflow(6) in sub countflights of module modCountFlights");
}

} // namespace
} // namespace vantor::test
