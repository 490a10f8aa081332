// The keyed tables: slots, chains, growth and misses.
#include "core/tables.h"
#include "support/expect_error.h"
#include "support/fixture.h"

#include <string>

namespace vantor {
namespace {

using HashTableTest = test::Fixture;

AirportRec airport(std::string_view code, std::string_view title) {
    AirportRec record;
    record.icao = code;
    record.title = title;
    return record;
}

ScheduleRec schedule(std::int32_t number) {
    ScheduleRec record;
    record.recnum = number;
    record.acnum = "AC#" + std::to_string(number);
    return record;
}

TEST_F(HashTableTest, FindsByTrimmedKeyWithCaseAndHandsOutCopies) {
    airports.HashAdd(airport("KSEA", "Seattle")); // the first add makes the table by itself
    airports.HashAdd(airport("KPDX", "Portland"));
    AirportRec found = airports.HashFind("  KPDX ");
    EXPECT_EQ(found.slot, 2);
    EXPECT_EQ(found.title.text(), "Portland");
    found.title = "changed";
    EXPECT_EQ(airports.HashFind("KPDX").title.text(), "Portland");
    airports.HashAdd(airport("KPDX", "newest")); // of equal keys it is found, and both keep their slots
    EXPECT_EQ(airports.HashFind("KPDX").slot, 3);
    EXPECT_EQ(airports.HashGetSlot(2).title.text(), "Portland");

    const AirportRec miss = airports.HashFind("kpdx");
    EXPECT_EQ(miss.slot, -1);
    EXPECT_EQ(miss.icao.text(), "-1");
    EXPECT_EQ(airports.findInPlace("kpdx"), nullptr);
}

TEST_F(HashTableTest, GrowsByHalfAndKeepsEverySlot) {
    schedules.Init();
    EXPECT_EQ(schedules.RecordCount(), 150000);
    for (std::int32_t number = 1; number <= 150001; ++number) {
        schedules.HashAdd(schedule(number));
    }
    EXPECT_EQ(schedules.RecordCount(), 225000);
    for (const std::int32_t number : {1, 777, 149999, 150000, 150001}) {
        EXPECT_EQ(schedules.HashGetSlot(number).recnum, number);
        EXPECT_EQ(schedules.HashFind(std::to_string(number)).recnum, number);
    }
    EXPECT_EQ(schedules.HashGetSlot(150002).recnum, 0);
    EXPECT_THROW((void)schedules.HashGetSlot(225001), Error);
    EXPECT_THROW((void)schedules.HashGetSlot(0), Error);
}

TEST_F(HashTableTest, DeleteFreesTheSlotForTheNextAdd) {
    for (const char* const code : {"AAAA", "BBBB", "CCCC"}) {
        airports.HashAdd(airport(code, code));
    }
    airports.HashDelete("BBBB");
    EXPECT_EQ(airports.HashFind("BBBB").slot, -1);
    EXPECT_EQ(airports.HashGetSlot(2).icao.text(), "");
    airports.HashAdd(airport("DDDD", "d"));
    EXPECT_EQ(airports.HashFind("DDDD").slot, 2);
    EXPECT_EQ(airports.HashFind("AAAA").slot, 1);
    EXPECT_EQ(airports.HashFind("CCCC").slot, 3);
    EXPECT_EQ(test::faultOf([] { airports.HashDelete("BBBB"); }), "-2147220991 Key not found: cHashSC.Delete ");
}

TEST_F(HashTableTest, PutSlotOverwritesAndInitDropsEverything) {
    schedules.HashAdd(schedule(1));
    ScheduleRec changed = schedules.HashGetSlot(1);
    changed.legs.append(LegRec());
    changed.legcount = 1;
    EXPECT_EQ(schedules.HashGetSlot(1).legcount, 0);
    schedules.HashPutSlot(1, changed);
    EXPECT_EQ(schedules.HashGetSlot(1).legs.size(), 1);
    schedules.Init();
    EXPECT_EQ(schedules.HashGetSlot(1).recnum, 0);
}

} // namespace
} // namespace vantor
