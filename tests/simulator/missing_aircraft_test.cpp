#include "foundation/log.h"
#include "simulator/missing_aircraft.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class MissingAircraftTest : public Fixture {};

TEST_F(MissingAircraftTest, ListsWhatTheSimulatorLacks) {
    addSimulatorAircraft("\"Boeing 737\"");
    addSimulatorAircraft("\"Boeing 737\"");
    addSimulatorAircraft("\"Airbus\"");
    addAircraft(" AC#1", "\"Boeing 737\"");
    addAircraft("AC#2", "\"BOEING 737\""); // case counts
    addAircraft("AC#3", "Boeing 737");     // and so do the quotes
    addAircraft("AC#4", " \"Airbus\" ");   // and a blank ahead
    addAircraft("AC#5", "\"Gone\"");
    aircraft[5].deleted = true;
    EXPECT_EQ(checkmissing(),
              (ListRows{{"AC#2 - \"BOEING 737\"", 0}, {"AC#3 - Boeing 737", 0}, {"AC#4 - \"Airbus\"", 0}}));
    EXPECT_FALSE(aircraft[1].missing);
    EXPECT_TRUE(aircraft[2].missing && aircraft[3].missing && aircraft[4].missing);
    EXPECT_FALSE(aircraft[5].missing);

    // A row that has a match now leaves the list and keeps its flag.
    addSimulatorAircraft("\"BOEING 737\"");
    EXPECT_EQ(checkmissing().size(), 2U);
    EXPECT_TRUE(aircraft[2].missing);
}

TEST_F(MissingAircraftTest, ComparesTheEightyCharactersThatAreKept) {
    const std::string eighty(80, 'x');
    addSimulatorAircraft(eighty + "a");
    addAircraft("AC#1", eighty + "b");
    addAircraft("AC#2", eighty.substr(1));
    EXPECT_EQ(checkmissing(), (ListRows{{"AC#2 - " + eighty.substr(1), 0}}));
}

TEST_F(MissingAircraftTest, ListsAllWithoutASimulator) {
    addAircraft("AC#1", "");
    addAircraft("AC#2", "\"B\"");
    EXPECT_EQ(checkmissing(), (ListRows{{"AC#1 - ", 0}, {"AC#2 - \"B\"", 0}}));
}

TEST_F(MissingAircraftTest, SurvivesACountBeyondTheTable) {
    addAircraft("AC#1", "\"B\"");
    aircraftcount = 2;
    fsaircraftcount = 1;
    EXPECT_EQ(checkmissing().size(), 1U);
    EXPECT_EQ(newestAction(), "Subscript out of range(9) in sub checkmissing of module modMissingAircraft");
}

} // namespace
} // namespace vantor::test
