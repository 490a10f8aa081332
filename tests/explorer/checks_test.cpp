// Explorer: what the checks find.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/airports_file.h"
#include "core/flightplans_reader.h"
#include "core/tables.h"
#include "explorer/checks.h"
#include "simulator/fs_aircraft.h"
#include "simulator/missing_aircraft.h"
#include "support/test.h"

namespace vantor::test {
namespace {

using enum CheckKind;
using Change = std::function<void(ScheduleRec&)>;

Checks checked(int turnaround = 20) {
    Checks checks;
    checks.start({.turnaroundMinutes = turnaround});
    while (!checks.step([] { return true; })) {
    }
    return checks;
}

// All findings as "title 1.2: reason".
std::string textOf(const Checks& checks) {
    std::string text;
    for (std::size_t i = 0; i < checkKinds; ++i) {
        const auto kind = static_cast<CheckKind>(i);
        for (const CheckFinding& finding : checks.of(kind)) {
            const LegId id = legAt(finding.where);
            text += (text.empty() ? "" : "; ") + std::string(checkTitle(kind)) + " " + std::to_string(id.recnum) + "." +
                    std::to_string(id.leg) + ": " + checkReason(kind, finding);
        }
    }
    return text;
}

class ChecksTest : public Fixture {
  protected:
    void SetUp() override {
        addAircraft("AC#1", "Boeing", 100);
        addAircraft("AC#2", "Gone", 100);
        changeAircraft(2, [](AircraftRec& record) { record.missing = true; });
        for (const char* code : {"AAAA", "BBBB", "CCCC"}) {
            addAirport(code, code);
        }
    }
};

TEST_F(ChecksTest, EachFaultIsToldOnce) {
    struct Case {
        std::string_view period;
        std::string_view legs;
        Change change;
        std::string findings;
    };
    const std::string_view day = "AAAA-BBBB 09:00:00 10:00:00, BBBB-AAAA 11:00:00 12:00:00";
    const std::string_view weekly = "AAAA-BBBB 3/23:00:00 4/00:30:00, BBBB-AAAA 5/11:00:00 5/12:00:00";
    const auto fixed = [](std::int16_t leg, std::int16_t arrday) {
        return [=](ScheduleRec& schedule) {
            schedule.legs[leg].atflag = true;
            schedule.legs[leg].arrday = arrday;
        };
    };
    const Change nothing = [](ScheduleRec&) {};
    for (const Case& test : {
             Case{"24HR", day, nothing, ""}, Case{"WEEK", weekly, nothing, ""},
             Case{"24HR", day, [](auto& s) { s.acnum = "AC#9"; },
                  "Aircraft not in the table 1.0: AC#9 is not in the aircraft table"},
             Case{"24HR", day, [](auto& s) { s.acnum = "AC#2"; },
                  "Aircraft missing from the simulator 1.0: The simulator has no Gone"},
             Case{"24HR", "AAAA-XXXX 09:00:00 10:00:00, XXXX-AAAA 11:00:00 12:00:00", nothing,
                  "Airport not in the table 1.1: XXXX is not in the airport table"},
             Case{"24HR", "AAAA-BBBB 09:00:00 10:00:00, xBBBB-CCCC 11:00:00 12:00:00, CCCC-AAAA 13:00:00 14:00:00",
                  nothing, "Loop that does not close 1.3: Departs from CCCC, where the leg before does not arrive"},
             Case{"24HR", "AAAA-AAAA 09:00:00 10:00:00", nothing,
                  "Leg from an airport to itself 1.1: From AAAA to itself without a touch and go"},
             Case{"24HR", "AAAA-AAAA 09:00:00 10:00:00", [](auto& s) { s.legs[1].tng = true; }, ""},
             Case{"24HR", "AAAA-AAAA 09:00:00 10:00:00, AAAA-AAAA 10:00:00 10:30:00",
                  [](auto& s) { s.legs[1].tng = true; }, ""}, // the landing behind it
             Case{"24HR", "AAAA-BBBB noon 10:00:00, BBBB-AAAA 11:00:00 12:00:00", nothing,
                  "Time that can't be read 1.1: Departure noon, arrival 10:00:00"},
             Case{"24HR", "AAAA-BBBB 09:00:00 13:00:00, BBBB-AAAA 14:00:00 15:00:00", nothing,
                  "Leg that takes too long 1.1: Takes 4:00 for 100 nm at 100 knots"},
             Case{"WEEK", weekly, fixed(1, 6),
                  "Leg that takes too long 1.1: Takes 49:30 for 100 nm at 100 knots; "
                  "Departure ahead of the arrival 1.2: Departs 13:30 ahead of the arrival before it"},
             Case{"48HR", day, [](auto& s) { s.legs[1].distance = 2400; },
                  "Leg that takes too long 1.1: Takes 25:00 for 2400 nm at 100 knots"},
             Case{"24HR", "AAAA-BBBB 09:00:00 10:00:00, BBBB-AAAA 09:45:00 10:45:00", nothing,
                  "Departure ahead of the arrival 1.2: Departs 0:15 ahead of the arrival before it"},
             Case{"48HR", "AAAA-BBBB 09:00:00 10:00:00, BBBB-AAAA 09:45:00 10:45:00", nothing, ""}, // of the next day
             Case{"2HR", "AAAA-BBBB 09:00:00 10:00:00, BBBB-AAAA 10:30:00 11:30:00", nothing,
                  "Departure ahead of the arrival 1.1: Departs 0:30 ahead of the arrival before it"},
             Case{"WEEK", "AAAA-BBBB 6/23:00:00 0/00:15:00, BBBB-AAAA 0/00:00:00 0/01:00:00", fixed(1, 0),
                  "Departure ahead of the arrival 1.2: Departs 0:15 ahead of the arrival before it"}, // over the week's
                                                                                                      // end
             Case{"WEEK",
                  "AAAA-BBBB 2/09:00:00 2/10:00:00, BBBB-CCCC 1/09:00:00 1/10:00:00, CCCC-AAAA 3/09:00:00 3/10:00:00",
                  nothing, "Departure ahead of the arrival 1.2: Departs 25:00 ahead of the arrival before it"},
             Case{"24HR", "AAAA-BBBB 09:00:00 10:00:00, BBBB-AAAA 10:19:00 11:19:00", nothing,
                  "Short turn-around 1.2: 19 minutes on the ground"},
             Case{"24HR", "AAAA-BBBB 09:00:00 10:00:00, BBBB-AAAA 10:00:00 11:00:00",
                  [](auto& s) { s.legs[1].tng = true; }, ""},
             Case{"1HR", day, nothing, "Repeat too short 1.0: The legs take 2:00, the repeat is 1HR"},
             Case{"OFT", day, nothing, "Repeat too short 1.0: Repeat OFT is no number of hours"},
             Case{"24HR", day, [](auto& s) { s.percent = "101%"; }, "Percent out of range 1.0: Percent 101%"},
             Case{"24HR", day, [](auto& s) { s.percent = "0%"; }, "Percent out of range 1.0: Percent 0%"},
             Case{"24HR", day, [](auto& s) { s.legs[2].flightlevel = 0; }, "Level out of range 1.2: Flight level 0"},
             Case{"24HR", day, [](auto& s) { s.legs[2].flightlevel = 601; },
                  "Level out of range 1.2: Flight level 601"},
             Case{"24HR", day, [](auto& s) { s.rules = "XFR"; }, "Rules unknown 1.0: Rules XFR"},
             Case{"24HR", day, [](auto& s) { s.rules = "vfr"; }, ""},
             Case{"WEEK", weekly, [](auto& s) { s.legs[1].depday = 9; },
                  "Day out of range 1.1: Departure on day 9, arrival on day 4"},
             Case{"WEEK", weekly, fixed(2, -1), "Day out of range 1.2: Departure on day 5, arrival on day -1"},
             Case{"24HR", "xAAAA-BBBB, xBBBB-AAAA", nothing, "All legs deleted 1.0: All of its legs are deleted"},
             Case{"x1HR", day, nothing, ""}, // a deleted schedule is gone
         }) {
        schedules = {};
        schedulecount = 0;
        addPlan(test.period, test.legs);
        changeSchedule(1, test.change);
        EXPECT_EQ(textOf(checked()), test.findings) << test.period << " " << test.legs;
    }
}

TEST_F(ChecksTest, SchedulesAreHeldAgainstEachOther) {
    const std::string_view legs = "AAAA-BBBB 09:00:00 10:00:00, BBBB-AAAA 11:00:00 12:00:00";
    const std::int32_t first = addPlan("24HR", legs);
    addPlan("x24HR", legs);
    addPlan("24HR", legs);
    changeSchedule(3, [](ScheduleRec& schedule) { schedule.legs[2].flightlevel = 210; });
    addPlan("24HR", legs);
    changeSchedule(4, [](ScheduleRec& schedule) { schedule.tailnumber = "N2"; });
    changeSchedule(first, [](ScheduleRec& schedule) { schedule.tailnumber = "n1"; });
    addSchedule("AC#1,N3,100%,24HR,IFR", {});
    countDroppedLine();
    EXPECT_EQ(textOf(checked()), "Call sign in two schedules 3.0: N1 is also that of schedule 1 (AC#1 n1); "
                                 "Equal but for the call sign 4.0: Flies the same as schedule 1 (AC#1 n1); "
                                 "Schedule without legs 5.0: It has no legs; "
                                 "Schedule without legs 0.0: Lines of the file without a leg, not loaded: 1");
    EXPECT_EQ(checksReport(checked()),
              "Checks: 4 findings\r\n\r\nCall sign in two schedules (1)\r\n"
              "  3  AC#1 N1  N1 is also that of schedule 1 (AC#1 n1)\r\n\r\n"
              "Equal but for the call sign (1)\r\n  4  AC#1 N2  Flies the same as schedule 1 (AC#1 n1)\r\n\r\n"
              "Schedule without legs (2)\r\n  5  AC#1 N3  It has no legs\r\n"
              "  Lines of the file without a leg, not loaded: 1\r\n");
}

// What is found in the demo, a line for each kind: call signs with the number of the leg, aircraft that are missing.
std::string foundInDemo() {
    const Checks checks = checked(15);
    std::string text;
    for (std::size_t i = 0; i < checkKinds; ++i) {
        const auto kind = static_cast<CheckKind>(i);
        std::set<std::string> places;
        for (const CheckFinding& finding : checks.of(kind)) {
            const LegId id = legAt(finding.where);
            const ScheduleRec* const schedule = scheduleOf(finding.where); // none for lines that were not loaded
            const std::string sign(schedule == nullptr ? "-" : schedule->tailnumber.text());
            const std::string leg = id.leg == 0 ? "" : "." + std::to_string(id.leg);
            places.emplace(kind == MissingAircraft ? schedule->acnum.text() : sign + leg);
        }
        for (const std::string& place : places) {
            text += place + " ";
        }
        text += "\n";
    }
    return text;
}

TEST_F(ChecksTest, DemoHasTheFaultsThatItTells) {
    std::filesystem::copy(VANTOR_DEMO, folder(), std::filesystem::copy_options::recursive);
    for (const bool old : {true, false}) {
        const std::string ending = old ? ".txt" : "030528.txt";
        fsaircraftpath = path(old ? "FS2002\\Aircraft\\" : "FS2004\\Aircraft\\");
        LoadAircraft(path("TrafficTools\\Aircraft" + ending), nullptr);
        SortAircraft();
        LoadAirports(path("TrafficTools\\Airports" + ending), nullptr);
        LoadSched(nullptr, path("TrafficTools\\Flightplans" + ending));
        LoadFSAircraft(nullptr);
        EXPECT_EQ(checkmissing().size(), 5U);
        EXPECT_EQ(foundInDemo(),
                  std::string(old ? "F-GGXB G-HQVT N842SL \nAC#64 AC#78 AC#90 AC#91 AC#92 \n\n"
                                  : "F-GVWT G-HKLA N930SL \nAC#26 AC#71 AC#85 AC#86 AC#87 \nG-SOAA.1 \n") +
                      "\nG-SOBB.1 \nG-SOCC.1 \nG-SODD.1 \nG-SOEE.2 \nG-SOFF.2 \nG-SOGG \nG-SOHH \n"
                      "G-SOJJ \nG-SOKK \nG-SOLL.1 \nG-SOMM \nG-SONN.1 \n- \n\n");
    }
}

} // namespace
} // namespace vantor::test
