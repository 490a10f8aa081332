// The keyed tables: slots, chains, growth and misses.
#include "support/test.h"

namespace vantor {
namespace {

using HashTableTest = test::Fixture;

TEST_F(HashTableTest, FindsByTrimmedKeyWithCaseAndHandsOutCopies) {
    test::addAirport("KSEA", "Seattle"); // the first one makes the table by itself
    test::addAirport("KPDX", "Portland");
    AirportRec found = airports.HashFind("  KPDX ");
    EXPECT_EQ(found.slot, 2);
    EXPECT_EQ(found.title.text(), "Portland");
    found.title = "changed";
    EXPECT_EQ(airports.HashFind("KPDX").title.text(), "Portland");
    airports.HashPutSlot(2, found);
    EXPECT_EQ(airports.HashFind("KPDX").title.text(), "changed");
    test::addAirport("KPDX", "newest"); // of equal keys it is found, and both keep their slots
    EXPECT_EQ(airports.HashFind("KPDX").slot, 3);
    EXPECT_EQ(airports.HashGetSlot(2).title.text(), "changed");

    const AirportRec miss = airports.HashFind("kpdx");
    EXPECT_EQ(miss.slot, -1);
    EXPECT_EQ(miss.icao.text(), "-1");
    EXPECT_EQ(airports.findInPlace("kpdx"), nullptr);
}

TEST_F(HashTableTest, GrowsByHalfAndKeepsEverySlot) {
    schedules.Init();
    EXPECT_EQ(schedules.RecordCount(), 150000);
    ScheduleRec schedule;
    for (schedule.recnum = 1; schedule.recnum <= 150001; ++schedule.recnum) {
        schedules.HashAdd(schedule);
    }
    EXPECT_EQ(schedules.RecordCount(), 225000);
    for (const std::int32_t number : {1, 777, 149999, 150000, 150001}) {
        EXPECT_EQ(schedules.HashGetSlot(number).recnum, number);
        EXPECT_EQ(schedules.HashFind(std::to_string(number)).recnum, number);
    }
    EXPECT_EQ(schedules.HashGetSlot(150002).recnum, 0);
    for (const std::int32_t outside : {0, 225001}) {
        EXPECT_EQ(test::errorOf([&] { static_cast<void>(schedules.HashGetSlot(outside)); }), 9);
        EXPECT_EQ(test::errorOf([&] { schedules.HashPutSlot(outside, {}); }), 9);
    }
    schedules.Init();
    EXPECT_EQ(schedules.HashGetSlot(1).recnum, 0);
}

TEST_F(HashTableTest, DeleteFreesTheSlotForTheNextAdd) {
    for (const char* const code : {"AAAA", "BBBB", "CCCC", "BBBB"}) {
        test::addAirport(code, code);
    }
    airports.HashDelete("BBBB ");
    EXPECT_EQ(airports.HashFind("BBBB").slot, 2) << "the newest of two goes";
    airports.HashDelete("BBBB");
    EXPECT_EQ(airports.HashGetSlot(2).icao.text(), "");
    test::addAirport("DDDD", "");
    EXPECT_EQ(airports.HashFind("DDDD").slot, 2);
    EXPECT_EQ(airports.HashFind("AAAA").slot, 1);
    EXPECT_EQ(airports.HashFind("CCCC").slot, 3);
    EXPECT_EQ(test::faultOf([] { airports.HashDelete("BBBB"); }), "-2147220991 Key not found: cHashSC.Delete ");
    airports.HashClear();
    EXPECT_EQ(airports.findInPlace("AAAA"), nullptr);
    EXPECT_EQ(test::errorOf([] { static_cast<void>(airports.peek(1)); }), 9);
}

} // namespace
} // namespace vantor
