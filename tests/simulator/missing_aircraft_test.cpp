// The list of the traffic's aircraft that the simulator lacks.
#include "foundation/log.h"
#include "simulator/missing_aircraft.h"
#include "support/fixture.h"
#include "support/traffic.h"

namespace vantor::test {
namespace {

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
