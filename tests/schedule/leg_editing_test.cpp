#include "core/tables.h"
#include "foundation/log.h"
#include "schedule/leg_editing.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <tuple>

namespace vantor::test {
namespace {

class LegEditingTest : public Fixture {
  protected:
    static ScheduleDraft draftOf(const std::vector<LegRec>& legs) {
        ScheduleDraft draft;
        for (const LegRec& leg : legs) {
            draft.sched.legs.append(leg);
        }
        draft.sched.legcount = static_cast<std::int16_t>(legs.size());
        return draft;
    }

    // All legs as "A-B B-A".
    static std::string loop(const ScheduleDraft& draft) {
        std::string text;
        for (const ListRow& row : legrows(draft.sched)) {
            text += (text.empty() ? "" : " ") + replaceAll(row.text, " - ", "-");
        }
        return text;
    }

    ScheduleDraft draft = draftOf(loopOver({"A", "B", "C"})); // C-A A-B B-C
};

TEST_F(LegEditingTest, ChangingAnAirportKeepsTheLoopClosed) {
    using enum LegEnd;
    for (const auto& [leg, end, code, result] : {std::tuple{2, Destination, "X", "C-A A-X X-C"},
                                                 {2, Departure, "Y", "C-Y Y-X X-C"},
                                                 {3, Destination, "Z", "Z-Y Y-X X-Z"},
                                                 {1, Departure, "W", "W-Y Y-X X-W"},
                                                 {0, Destination, "V", "V-Y Y-X X-W"}}) { // no leg is current
        changeairport(caller, draft, static_cast<std::int16_t>(leg), end, code);
        EXPECT_EQ(loop(draft), result);
    }
    EXPECT_EQ(draft.sched.legs[2].distance, 100.0F); // computed when the leg itself is stored
    ScheduleDraft single = draftOf({makeLeg("A", "B")});
    changeairport(caller, single, 1, LegEnd::Destination, "X");
    EXPECT_EQ(loop(single), "X-X");
    ScheduleDraft none;
    changeairport(caller, none, 1, LegEnd::Destination, "X");
    EXPECT_EQ(newestAction(), "");

    // The leg before leg 0 is none.
    changeairport(caller, draft, 0, LegEnd::Departure, "U");
    EXPECT_EQ(loop(draft), "V-Y Y-X X-W");
    EXPECT_EQ(std::string(draft.leg0.fromicao.text()) + "-" + std::string(draft.leg0.toicao.text()), "U-V");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub caller of module test");
}

TEST_F(LegEditingTest, ANewLegClosesTheGapAndTakesAfterTheLegBefore) {
    LegRec& last = draft.sched.legs[3];
    last.dep = "07:15:00";
    last.arr = "09:00:00";
    last.atflag = true;
    last.flightnum = "42";
    last.legtype = "R";
    last.flightlevel = 310;
    last.hashindex = 1003;
    addlegtosched(caller, draft, true, 3, 0, true);
    EXPECT_EQ(loop(draft), "C-A A-B B-C C-C");
    // The arrival is midnight even behind a fixed one.
    EXPECT_EQ(textOf(draft.sched.legs[4]), "C-C 0/07:15:00 TNG0/00:00:00 310 R42 0nm 0.00h 0");

    // One inserted takes the place of the current row; without one it goes ahead of the last.
    draft = draftOf(loopOver({"A", "B", "C"}));
    addlegtosched(caller, draft, false, 3, 1, false);
    EXPECT_EQ(loop(draft), "C-A A-A A-B B-C");
    addlegtosched(caller, draft, false, 4, 0, false);
    EXPECT_EQ(loop(draft), "C-C C-A A-A A-B B-C");
    addlegtosched(caller, draft, false, 5, -1, false);
    EXPECT_EQ(loop(draft), "C-C C-A A-A A-B B-B B-C");

    ScheduleDraft single = draftOf({makeLeg("A", "B")});
    addlegtosched(caller, single, true, 1, 0, false);
    EXPECT_EQ(loop(single), "A-B B-A");
    ScheduleDraft none; // the first leg of all has only the blank leg 0 before it
    addlegtosched(caller, none, false, 0, -1, false);
    ASSERT_EQ(none.sched.legcount, 1);
    EXPECT_EQ(textOf(none.sched.legs[1]), "- 0/ 0/00:00:00 0  0nm 0.00h 0");
    EXPECT_EQ(newestAction(), "");

    // There are no more legs than the count holds.
    draft.sched.legs.resize(32767);
    draft.sched.legcount = 32767;
    addlegtosched(caller, draft, true, 32767, 0, false);
    EXPECT_EQ(draft.sched.legcount, 32767);
    EXPECT_EQ(newestAction(), "Overflow(6) in sub caller of module test");
}

TEST_F(LegEditingTest, DeletesLegsAndLeavesTheLoopOpen) {
    deleteleg(draft.sched, 0); // no leg has that number: none is lost
    deleteleg(draft.sched, 4);
    EXPECT_EQ(loop(draft), "C-A A-B B-C");
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub deleteleg of module modLegDelete");
    draft.sched.legs[3].hashindex = 1003;
    deleteleg(draft.sched, 2);
    EXPECT_EQ(loop(draft), "C-A B-C");
    EXPECT_EQ(draft.sched.legs[2].hashindex, 1003);
    deleteleg(draft.sched, 2);
    EXPECT_EQ(loop(draft), "C-A");
    for (int i = 0; i < 2; ++i) { // the second finds none
        deleteleg(draft.sched, 1);
        EXPECT_EQ(draft.sched.legcount, 0);
        EXPECT_EQ(draft.sched.legs[1], LegRec{});
    }
    addlegtosched(caller, draft, true, 0, -1, false);
    EXPECT_EQ(draft.sched.legs.size(), 1);
}

TEST_F(LegEditingTest, TextsOfTheEditor) {
    draft.sched.legs[2].deleted = true;
    EXPECT_EQ(legrows(draft.sched), (ListRows{{"C - A", 1}, {"A - B (DEL) ", 2}, {"B - C", 3}}));

    const ListRows airportBox = {{"EGLL - London"}, {"egkk - Gatwick"}, {"EGKKX - Other"}};
    EXPECT_EQ(rowstartingwith(airportBox, "EGKK "), 1);
    EXPECT_EQ(rowstartingwith(airportBox, "eg"), 0);
    EXPECT_EQ(rowstartingwith(airportBox, "KSEA"), -1);
    EXPECT_EQ(rowstartingwith(airportBox, ""), 0);
    EXPECT_EQ(aircraftrow({{"ac#12 - Small"}, {"AC#123 - Long"}, {"AC#12 - Short"}}, "AC#12"), 2);

    LegRec leg;
    leg.distance = 112.5F;
    leg.flighthours = 23.99F;
    EXPECT_EQ(distancetext(leg), "112 NM");
    EXPECT_FALSE(isoveraday(leg));
    leg.flighthours = 24.0F;
    EXPECT_TRUE(isoveraday(leg));
}

} // namespace
} // namespace vantor::test
