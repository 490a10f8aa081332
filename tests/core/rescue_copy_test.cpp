#include "core/aircraft_file.h"
#include "core/flightplans_reader.h"
#include "core/rescue_copy.h"
#include "support/test.h"

namespace vantor::test {
namespace {

class RescueCopy : public Fixture {
  protected:
    void SetUp() override {
        clock.set(45982 + 16.0 / 24 + 40.0 / 1440); // 21 November 2025, 16:40
        addAircraft("AC#1", "\"A\"", 300);
        addAircraft("AC#2", "\"B\"", 300);
        for (int number = 1; number <= 2500; ++number) {
            addSchedule("AC#1,N" + std::to_string(number) + ",50%,6H,IFR", loopOver({"KSEA", "KPDX"}));
        }
        m_note.flightplans = "C:\\Flightplans.txt";
        m_note.mode = 4;
        m_note.flightplansChanged = true;
    }
    [[nodiscard]] std::string home() const { return path(""); }
    [[nodiscard]] RescueWriter writer() const { return {home(), m_note}; }
    // Writes to the end and gives the number of steps.
    int write() const {
        RescueWriter copy = writer();
        int steps = 1;
        for (; !copy.step(); ++steps) {
        }
        return steps;
    }
    static void rename(std::string_view tail) {
        changeSchedule(2500, [&](ScheduleRec& s) { s.tailnumber = tail; });
    }
    // What is read from the copy with ".1" or nothing behind its names.
    [[nodiscard]] std::string lastTail(const std::string& behind = {}) const {
        LoadSched(nullptr, rescuedFlightplans(home()) + behind);
        return std::string(schedules.peek(schedulecount).tailnumber.text());
    }

    RescueNote m_note;
};

TEST_F(RescueCopy, HoldsTheTablesAndWhatTheyStandFor) {
    const std::string last = textOf(schedules.peek(2500));
    markDeleted(1);
    EXPECT_EQ(readRescueNote(home()), std::nullopt);
    EXPECT_EQ(write(), 3 + 2 + 4) << "schedules, aircraft and note, their places and a look whether that was all";
    m_note.when = "21 Nov 16:40";
    EXPECT_EQ(readRescueNote(home()), m_note);
    LoadAircraft(rescuedAircraft(home()), nullptr);
    LoadSched(nullptr, rescuedFlightplans(home()));
    EXPECT_EQ(aircraftcount, 1);
    EXPECT_EQ(aircraft[1].title.text(), "\"B\"");
    EXPECT_EQ(schedulecount, 2500);
    EXPECT_EQ(textOf(schedules.peek(2500)).substr(0, 40), last.substr(0, 40));
    EXPECT_EQ(lastTail(), "N2500");
    removeRescue(home());
    EXPECT_EQ(readRescueNote(home()), std::nullopt);
}

TEST_F(RescueCopy, BeginsAnewWhenTheTablesChangeAndLeavesNothingHalf) {
    write();
    {
        RescueWriter copy = writer();
        EXPECT_FALSE(copy.step());
        rename("NEW");
        EXPECT_FALSE(copy.step());
        EXPECT_FALSE(copy.step());
        EXPECT_TRUE(exists("Flightplans.rescue.~new"));
    }
    EXPECT_FALSE(exists("Flightplans.rescue.~new"));
    EXPECT_EQ(lastTail(), "N2500") << "the copy before it stands";
    rename("NEWER");
    write();
    EXPECT_EQ(lastTail(), "NEWER");
}

TEST_F(RescueCopy, GoesOnWhereAKilledRunBrokeOff) {
    write();
    m_note.setAside = true;
    rename("NEW");
    write();
    // As it stood when the first of the three files had taken its place.
    for (const std::string name : {"Aircraft.rescue", "Vantor2.rescue"}) {
        std::filesystem::rename(folder() / name, folder() / (name + ".~new"));
        std::filesystem::rename(folder() / (name + ".1"), folder() / name);
    }
    EXPECT_TRUE(readRescueNote(home())->setAside);
    EXPECT_EQ(lastTail(), "NEW");
    EXPECT_EQ(lastTail(".1"), "N2500");
    EXPECT_TRUE(exists("Aircraft.rescue.1"));
    EXPECT_FALSE(exists("Aircraft.rescue.~new"));
    // One whose note broke off is none.
    writeFile("Flightplans.rescue.~new", "half");
    writeFile("Vantor2.rescue.~new", "21 Nov 16:40\r\n4\r\n");
    EXPECT_TRUE(readRescueNote(home()));
    EXPECT_EQ(lastTail(), "NEW");
}

} // namespace
} // namespace vantor::test
