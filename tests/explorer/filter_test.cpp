// Explorer: what a filter leaves, the order of columns, and rows as text.
#include "explorer/leg_export.h"
#include "explorer/leg_index.h"
#include "explorer/leg_sort.h"
#include "support/test.h"

namespace vantor::test {
namespace {

// Rows as "1.2" for leg 2 of schedule 1, "1" for the schedule.
std::string textOf(std::span<const LegNumber> rows) {
    std::string text;
    for (const LegNumber row : rows) {
        const LegId id = legAt(row);
        text +=
            (text.empty() ? "" : " ") + std::to_string(id.recnum) + (id.leg == 0 ? "" : "." + std::to_string(id.leg));
    }
    return text;
}

class FlightsTest : public Fixture {
  protected:
    void SetUp() override {
        addAircraft("AC#1", "Boeing 737-400 Skylark");
        addAircraft("AC#12", "Fokker 50 L\xFCtece"); // a small letter of the code page
        changeAircraft(2, [](AircraftRec& record) { record.missing = true; });
        addAirport("EGLL", "London Heathrow");
        addAirport("EGKK", "London Gatwick");
        addAirport("LFPG", "Paris");
        addPlan("24HR", "EGLL-LFPG 09:00:00 10:05:00 159, LFPG-EGLL 23:10:00 00:15:00 1590");
        addPlan("WEEK", "EGLL-EGKK 1/22:00:00 1/22:40:00 7, xEGKK-EGLL 2/06:00:00 2/06:40:00 BA7");
        addPlan("x8HR", "LFPG-XXXX noon 13:00:00 20, XXXX-LFPG 14:00:00 15:00:00 3");
        addSchedule("AC#77,NOLEGS,50%,24HR,VFR", {});
        countDroppedLine();
        changeSchedule(2, [](ScheduleRec& schedule) {
            schedule.acnum = "AC#12";
            schedule.tailnumber = "G-ABCD";
            schedule.percent = "20%";
            schedule.legs[1].flightlevel = 90;
            schedule.legs[1].distance = 1000;
            schedule.legs[1].atflag = true;
            schedule.legs[2].tng = true;
        });
    }

    static std::string found(std::string_view filter, RowKind kind = RowKind::Legs) {
        LegIndex index;
        index.start(Filter(filter), kind, nullptr);
        EXPECT_TRUE(index.step([] { return false; }));
        return textOf(index.rows());
    }
};

TEST_F(FlightsTest, FilterLeavesTheLegsThatMeetAllTerms) {
    const std::string all = "1.1 1.2 2.1 2.2 3.1 3.2";
    for (const auto& [filter, legs] : std::initializer_list<std::pair<std::string_view, std::string_view>>{
             {"", all},
             {"london", "1.1 1.2 2.1 2.2"},
             {"London PARIS", "1.1 1.2"},
             {"\"london g\"", "2.1 2.2"},
             {"l\xDCtece", "2.1 2.2"},
             {"ac#1 -", "1.1 1.2 2.1 2.2 3.1 3.2"},
             {"22:0", "2.1"},
             {"monday", "2.1"},
             {"missing", "2.1 2.2"},
             {"touch", "2.2"},
             {"100", "1.1 1.2 2.1 2.2 3.1 3.2"}, // miles, and a percentage
             {"ac:1", "1.1 1.2 3.1 3.2"},
             {"ac:1*", all},
             {"AC:ac#12", "2.1 2.2"},
             {"tail:bc", "2.1 2.2"},
             {"tail=N1", "1.1 1.2 3.1 3.2"},
             {"flight:159", "1.1"},
             {"flight:159*", "1.1 1.2"},
             {"flight:ba7", "2.2"},
             {"from:eg", "1.1 2.1 2.2"},
             {"from=eg", ""},
             {"to:egll", "1.2 2.2"},
             {"at:egll", "1.1 1.2 2.1 2.2"},
             {"at:egll -from:egll", "1.2 2.2"},
             {"type:\"boeing 737\"", "1.1 1.2 3.1 3.2"},
             {"day:mon", "2.1"},
             {"day:2", "2.2"},
             {"rules:ifr", all},
             {"rules:v", ""},
             {"is:deleted", "2.2 3.1 3.2"},
             {"-is:deleted", "1.1 1.2 2.1"},
             {"is:missing", "2.1 2.2"},
             {"is:noairport", "3.1 3.2"},
             {"is:noaircraft", ""},
             {"is:weekly", "2.1 2.2"},
             {"is:fixed", "2.1"},
             {"is:tng", "2.2"},
             {"dist>999", "2.1"},
             {"dist<=100 level=200", "1.1 1.2 2.2 3.1 3.2"},
             {"level<100", "2.1"},
             {"dep>22:00", "1.2"},
             {"dep>=2200", "1.2 2.1"},
             {"dep:22", "2.1"},
             {"arr<00:30", "1.2"},
             {"repeat<9", "3.1 3.2"},
             {"repeat=week", "2.1 2.2"},
             {"percent<50%", "2.1 2.2"},
             {"ac: from: dep>", all}, // nothing typed yet
             {"bogus:egll", ""},
             {"dist>many", ""},
             {"is:grand", ""},
         }) {
        EXPECT_EQ(found(filter), legs) << filter;
    }
}

TEST_F(FlightsTest, FilterFoldsToSchedules) {
    EXPECT_EQ(found("", RowKind::Schedules), "1 2 3 4");
    EXPECT_EQ(found("rules:vfr", RowKind::Schedules), "4"); // one without legs
    EXPECT_EQ(found("at:LFPG", RowKind::Schedules), "1 3");
    EXPECT_EQ(found("-is:deleted", RowKind::Schedules), "1 2 4");
}

TEST_F(FlightsTest, ShownTimesAreFiltered) {
    gmtoffset = 3.0F / 24.0F;
    EXPECT_EQ(found("dep<3:00"), "1.2 2.1");
    EXPECT_EQ(found("01:00"), "2.1");
}

TEST_F(FlightsTest, TermsAreAddedAndTakenOut) {
    EXPECT_EQ(narrowedFilter("", "at=EGLL"), "at=EGLL");
    EXPECT_EQ(narrowedFilter("boeing at=egll ", "at=EGLL"), "boeing at=egll");
    EXPECT_EQ(narrowedFilter("boeing", "at=EGLL"), "boeing at=EGLL");
    EXPECT_EQ(filterWithout("a ac: \"b c\" d", 1), "a ac: d");
}

TEST_F(FlightsTest, SliceAfterSliceFindsTheSame) {
    for (int i = 0; i < 2000; ++i) {
        addPlan("24HR", "EGLL-LFPG, LFPG-EGLL");
    }
    LegIndex index;
    index.start(Filter("from:lfpg"), RowKind::Legs, nullptr);
    int slices = 0;
    std::size_t rows = 0;
    while (!index.step([] { return true; })) {
        EXPECT_GE(index.rows().size(), rows);
        rows = index.rows().size();
        ++slices;
    }
    EXPECT_GT(slices, 2);
    EXPECT_EQ(index.rows().size(), 2002U);
}

TEST_F(FlightsTest, ColumnsSortByTheirValues) {
    using enum LegColumn;
    const auto sorted = [](std::vector<SortKey> keys, RowKind kind = RowKind::Legs) {
        return textOf(sortedRows(kind, keys));
    };
    for (const auto& [column, legs] : std::initializer_list<std::pair<LegColumn, std::string_view>>{
             {Aircraft, "1.1 1.2 3.1 3.2 2.1 2.2"},
             {CallSign, "2.1 2.2 1.1 1.2 3.1 3.2"},
             {Flight, "3.2 2.1 3.1 1.1 1.2 2.2"}, // numbers, then texts
             {From, "2.2 1.1 2.1 1.2 3.1 3.2"},
             {To, "2.1 1.2 2.2 1.1 3.2 3.1"},
             {Departure, "2.2 1.1 3.2 2.1 1.2 3.1"}, // no time at the end
             {Arrival, "1.2 2.2 1.1 3.1 3.2 2.1"},
             {Days, "2.1 2.2 1.1 1.2 3.1 3.2"},
             {Distance, "1.1 1.2 2.2 3.1 3.2 2.1"},
             {Level, "2.1 1.1 1.2 2.2 3.1 3.2"},
             {Repeat, "3.1 3.2 1.1 1.2 2.1 2.2"},
             {Percent, "2.1 2.2 1.1 1.2 3.1 3.2"},
             {Rules, "1.1 1.2 2.1 2.2 3.1 3.2"},
             {Status, "2.2 3.1 3.2 2.1 1.1 1.2"},
         }) {
        EXPECT_EQ(sorted({{column, false}}), legs) << columnTitle(column);
    }
    EXPECT_EQ(sorted({{Departure, true}}), "1.2 2.1 3.2 1.1 2.2 3.1");
    EXPECT_EQ(sorted({{Rules, false}, {Distance, true}}), "2.1 1.1 1.2 2.2 3.1 3.2");
    EXPECT_EQ(sorted({{Distance, true}}, RowKind::Schedules), "2 1 3 4");
    EXPECT_EQ(sorted({{Rules, true}}, RowKind::Schedules), "4 1 2 3");
}

TEST_F(FlightsTest, ExportIsCsvInUtf8) {
    aircraft.put(2, [&] {
        AircraftRec record = aircraft[2];
        record.title = "L\xFCtece, \"old\"";
        return record;
    }());
    using enum LegColumn;
    const std::vector<LegColumn> columns{Aircraft, Flight, Departure, Days, Status};
    const std::vector<LegNumber> rows{legNumber({2, 1}), legNumber({3, 1}), legNumber({4, 0}), legNumber({9, 9})};
    EXPECT_TRUE(exportCsv(path("list.csv"), rows, columns, [](std::size_t) { return true; }));
    const std::string csv = "Aircraft,Flight,Departure,Days,Status\r\n"
                            "\"AC#12 - L\xC3\xBCtece, \"\"old\"\"\",7,22:00,Monday,missing aircraft\r\n"
                            "AC#1 - Boeing 737-400 Skylark,20,noon,,\"schedule deleted, unknown airport\"\r\n"
                            "AC#77,0 legs,,,unknown aircraft\r\n"
                            ",,,,\r\n"; // a row that is no more
    EXPECT_EQ(readFile("list.csv"), csv);
    EXPECT_FALSE(exportCsv(path("list.csv"), {}, columns, [](std::size_t) { return true; }) &&
                 exportCsv(path("list.csv"), rows, columns, [](std::size_t) { return false; }));
    EXPECT_EQ(rowsAsText(std::span(rows).first(1), std::vector{Flight, From, To}),
              "Flight\tFrom\tTo\r\n7\tEGLL\tEGKK\r\n");
}

} // namespace
} // namespace vantor::test
