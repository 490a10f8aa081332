// What the simulator lacks of the traffic's aircraft, and the addition of those that it has beyond them.
#include "core/aircraft_table.h"
#include "simulator/aircraft_changes.h"
#include "simulator/missing_aircraft.h"
#include "support/test.h"

namespace vantor::test {
namespace {

class AircraftChangesTest : public Fixture {
  protected:
    // The aircraft with their titles, after those that are new in the simulator were added.
    static std::string afterAddition(std::string_view message = "") {
        EXPECT_EQ(addnewfsaircraft().message, message);
        std::string all;
        for (std::int32_t i = 1; i <= aircraftcount; ++i) {
            all.append(aircraft[i].acnum.text()).append(" ").append(aircraft[i].title.text()).append("|");
        }
        return all;
    }
    static void dropAircraft() {
        aircraft.clear();
        aircraftcount = 0;
    }
};

TEST_F(AircraftChangesTest, NewAircraftTakeTheFreeCodes) {
    for (const char* code : {"AC#1", "AC#2", "AC#4"}) {
        addAircraft(code, code);
    }
    addSimulatorAircraft("New", 310.5F);
    addSimulatorAircraft("AC#2");
    addSimulatorAircraft("New");
    OneBased<AircraftRec> rows = aircraft.rows();
    rows.append({}); // a blank row past the count, as a load leaves them
    aircraft.replace(std::move(rows));
    EXPECT_EQ(afterAddition(), "AC#1 AC#1|AC#2 AC#2|AC#4 AC#4|AC#3 New|AC#5 New|");
    EXPECT_EQ(aircraft[4].cruisespeed, 310.5F);
    SortAircraft();
    EXPECT_EQ(aircraftrecord("AC#3"), 3);
    EXPECT_EQ(afterAddition("No new aircraft found"), "AC#1 AC#1|AC#2 AC#2|AC#3 New|AC#4 AC#4|AC#5 New|");
    // Numbering goes on in the run, over reloads as well.
    dropAircraft();
    EXPECT_EQ(afterAddition(), "AC#6 New|AC#7 AC#2|AC#8 New|");
}

TEST_F(AircraftChangesTest, AnAircraftIsKnownByTheEightyCharactersThatAreKept) {
    const std::string eighty(80, 'x');
    addAircraft("AC#1", eighty);
    addAircraft("AC#2", "\"A\"");
    markDeleted(2); // is known all the same
    addSimulatorAircraft(eighty + "a");
    addSimulatorAircraft("\"A\"");
    const std::string known = "AC#1 " + eighty + "|AC#2 \"A\"|";
    EXPECT_EQ(afterAddition("No new aircraft found"), known);
    for (const std::string& title : {eighty.substr(1), std::string(), std::string("\"a\""), std::string(" \"A\"")}) {
        addSimulatorAircraft(title); // case, quotes and blanks count
    }
    EXPECT_EQ(afterAddition(), known + "AC#3 " + eighty.substr(1) + "|AC#4 |AC#5 \"a\"|AC#6 \"A\"|");
}

TEST_F(AircraftChangesTest, WithoutNumbersLeftTheTableKeepsAllItHas) {
    OneBased<AircraftRec> rows;
    rows.resize(32765);
    for (std::int32_t i = 1; AircraftRec & row : rows) {
        row.acnum = "AC#" + std::to_string(i + (i > 5 ? 1 : 0));
        row.title = std::to_string(i++);
    }
    aircraft.replace(std::move(rows));
    aircraftcount = aircraft.size();
    addSimulatorAircraft("A");
    addSimulatorAircraft("B");
    const std::string full = afterAddition();
    EXPECT_TRUE(full.starts_with("AC#1 1|")) << full.substr(0, 20);
    EXPECT_TRUE(full.ends_with("|AC#32766 32765|AC#6 A|AC#32767 B|")) << full.substr(full.size() - 40);
    EXPECT_EQ(newestAction(), "");
    addSimulatorAircraft("C");
    const NewAircraft refused = addnewfsaircraft();
    EXPECT_EQ(std::pair(refused.found, refused.added), std::pair(1, 0));
    EXPECT_EQ(afterAddition(), full);
    EXPECT_EQ(newestAction(), "Overflow(6) in sub addnewfsaircraft of module modAddNewFSAircraft");
    // None is given out a second time, also when the table has room.
    test::forgetActions();
    dropAircraft();
    EXPECT_EQ(afterAddition(), "");
    EXPECT_EQ(newestAction(), "Overflow(6) in sub addnewfsaircraft of module modAddNewFSAircraft");
}

using MissingAircraftTest = Fixture;

TEST_F(MissingAircraftTest, ListsWhatTheSimulatorLacks) {
    const std::string eighty(80, 'x');
    addAircraft(" AC#1", "\"Boeing 737\"");
    addAircraft("AC#2", "\"BOEING 737\""); // case counts
    addAircraft("AC#3", "Boeing 737");     // and so do the quotes
    addAircraft("AC#4", " \"Airbus\" ");   // and a blank ahead
    addAircraft("AC#5", "\"Gone\"");
    addAircraft("AC#6", eighty + "b"); // beyond eighty characters nothing counts
    addAircraft("AC#7", eighty.substr(1));
    markDeleted(5);
    EXPECT_EQ(checkmissing().size(), 6U) << "all without a simulator, but for the deleted one";
    for (std::int32_t row = 1; row <= aircraftcount; ++row) {
        changeAircraft(row, [](AircraftRec& record) { record.missing = false; });
    }

    for (const std::string& title : {std::string("\"Boeing 737\""), std::string("\"Airbus\""), eighty + "a"}) {
        addSimulatorAircraft(title);
    }
    EXPECT_EQ(checkmissing(), (ListRows{{"AC#2 - \"BOEING 737\"", 0},
                                        {"AC#3 - Boeing 737", 0},
                                        {"AC#4 - \"Airbus\"", 0},
                                        {"AC#7 - " + eighty.substr(1), 0}}));
    std::string flags;
    for (const AircraftRec& record : aircraft) {
        flags += record.missing ? "x" : "-";
    }
    EXPECT_EQ(flags, "-xxx--x");

    // A row that has a match now leaves the list and keeps its flag.
    addSimulatorAircraft("\"BOEING 737\"");
    EXPECT_EQ(checkmissing().size(), 3U);
    EXPECT_TRUE(aircraft[2].missing);

    aircraftcount = 8;
    ++fsaircraftcount;
    EXPECT_EQ(checkmissing().size(), 3U) << "survives counts beyond the tables";
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub checkmissing of module modMissingAircraft");
}

} // namespace
} // namespace vantor::test
