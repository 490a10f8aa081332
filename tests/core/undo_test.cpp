#include "core/undo.h"
#include "support/table_invariants.h"
#include "support/test.h"

namespace vantor::test {
namespace {

/// All that the next command would look at.
struct Snapshot {
    Traffic tables = trafficNow();
    std::int32_t aircraftcount = vantor::traffic.aircraftcount;
    std::int32_t lastacnum = vantor::traffic.lastacnum;
    std::int64_t state = journal().state();
    friend bool operator==(const Snapshot&, const Snapshot&) = default;
};

class Undo : public Fixture {
  protected:
    void SetUp() override {
        for (int i = 1; i <= 9; ++i) {
            addAircraft("AC#" + std::to_string(i), "Title " + std::to_string(i));
            addSchedule("AC#" + std::to_string(i) + ",N1,50%,24HR,IFR", loopOver({"EDDF", "EGLL", "KSEA"}));
        }
        countDroppedLine();
        traffic.journal = Journal();
    }

    // One of the things that commands do to the tables, at random.
    void changeSomething() {
        const std::int32_t recnum = pick(schedulecount);
        const std::vector<std::function<void()>> changes = {
            [&] { changeSchedule(recnum, [&](ScheduleRec& s) { s.deleted = !s.deleted; }); },
            [&] { changeSchedule(recnum, [&](ScheduleRec& s) { s.tailnumber = std::to_string(random()); }); },
            [&] {
                changeSchedule(recnum, [&](ScheduleRec& s) {
                    for (LegRec& leg : s.flown()) {
                        leg.flightlevel = static_cast<std::int16_t>(pick(400));
                        leg.toicao = std::to_string(pick(9));
                    }
                });
            },
            [&] {
                changeSchedule(recnum, [](ScheduleRec& s) {
                    s.legs.append(makeLeg("EDDF", "EDDM"));
                    s.legcount = static_cast<std::int16_t>(s.legs.size());
                });
            },
            [&] {
                addLegs(loopOver({"EDDF", "EDDM"}));
            },
            [&] { changeAircraft(pick(aircraftcount), [&](AircraftRec& a) { a.title = std::to_string(random()); }); },
            [&] {
                addAircraft("AC#" + std::to_string(traffic.lastacnum = pick(99)), "New");
                SortAircraft();
            },
        };
        changes[static_cast<std::size_t>(pick(static_cast<std::int32_t>(changes.size()))) - 1]();
    }

    std::int32_t pick(std::int32_t last) {
        return static_cast<std::int32_t>(random() % static_cast<unsigned>(last)) + 1;
    }

    std::mt19937 random{20261121};
};

TEST_F(Undo, BringsEachStateBackBitForBit) {
    std::vector<Snapshot> states{Snapshot()};
    for (int i = 0; i < 300; ++i) {
        {
            const Step step("Step " + std::to_string(i));
            const Step nested("unheard");
            for (std::int32_t n = pick(4); n > 0; --n) {
                changeSomething();
            }
        }
        if (Snapshot now = Snapshot(); now != states.back()) { // a change to what stands is no step
            states.push_back(std::move(now));
        }
        // Some steps back and forward, and now and then on from there.
        const std::size_t back = random() % 3 == 0 ? random() % std::min<std::size_t>(states.size(), 5) : 0;
        for (std::size_t n = 1; n <= back; ++n) {
            const auto undone = undo();
            ASSERT_TRUE(undone && undone->name.starts_with("Step "));
            ASSERT_EQ(Snapshot(), states[states.size() - 1 - n]);
        }
        if (random() % 2 == 0) {
            states.resize(states.size() - back);
            continue;
        }
        for (std::size_t n = back; n > 0; --n) {
            ASSERT_TRUE(redo());
            ASSERT_EQ(Snapshot(), states[states.size() - n]);
        }
    }
    ASSERT_GT(states.size(), 100U);
    for (; states.size() > 1; states.pop_back()) {
        ASSERT_EQ(Snapshot(), states.back());
        ASSERT_TRUE(undo());
    }
    EXPECT_EQ(Snapshot(), states.front());
    EXPECT_FALSE(undo());
}

TEST_F(Undo, LeadsBackToAnEmptyTableOfAircraft) {
    aircraft.replace({});
    {
        const Step step("Add 1 aircraft");
        OneBased<AircraftRec> rows;
        rows.resize(1);
        aircraft.replace(rows);
    }
    ASSERT_TRUE(undo());
    EXPECT_EQ(aircraft.size(), 0);
    ASSERT_TRUE(redo());
    EXPECT_EQ(aircraft.size(), 1);
}

TEST_F(Undo, KeepsNamesAndForgetsWhatCannotBeTakenBack) {
    const auto remove = [](std::string name, std::int32_t recnum) {
        const Step step("Delete");
        nameStep(std::move(name));
        changeSchedule(recnum, [](ScheduleRec& s) { s.deleted = true; });
        EXPECT_EQ(undo(), std::nullopt) << "inside a step";
    };
    remove("Delete N1", 3);
    remove("Delete it again", 3); // changes nothing
    EXPECT_EQ(undoName() + "/" + redoName(), "Delete N1/");
    EXPECT_EQ(undo()->recnums, std::vector<std::int32_t>{3});
    EXPECT_EQ(undoName() + "/" + redoName(), "/Delete N1");
    remove("Delete N2", 4);
    EXPECT_EQ(undoName() + "/" + redoName(), "Delete N2/") << "a new step takes the undone ones' place";
    const std::int64_t state = journal().state();
    markDeleted(1); // outside any step, as a load writes
    EXPECT_EQ(undoName(), "");
    EXPECT_NE(journal().state(), state);
    {
        const Step load("Load");
        schedules.Init();
        addLegs(loopOver({"EDDF", "EDDM"}));
    }
    EXPECT_EQ(undoName(), "");
}

TEST_F(Undo, DropsTheOldestStepsBeyondAThirdOfTheTables) {
    while (schedulecount < 20000) {
        addLegs(loopOver({"EDDF", "EGLL", "KSEA"}));
    }
    for (std::int16_t level = 1; level <= 12; ++level) {
        const Step step("Level " + std::to_string(level));
        for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
            changeSchedule(recnum, [&](ScheduleRec& s) {
                for (LegRec& leg : s.legs) {
                    leg.flightlevel = level;
                }
            });
        }
    }
    EXPECT_LE(journal().bytes(), 20000 * (sizeof(ScheduleRec) + 3 * sizeof(LegRec)) / 3);
    EXPECT_EQ(undoName(), "Level 12");
    ASSERT_TRUE(undo());
    EXPECT_EQ(schedules.peek(100).legs[1].flightlevel, 11);
}

} // namespace
} // namespace vantor::test
