#include "core/aircraft_table.h"
#include "foundation/log.h"
#include "simulator/aircraft_changes.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <gtest/gtest.h>

namespace vantor::test {
namespace {

class AircraftChangesTest : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        resetAircraftNumbers();
    }

    static std::vector<std::string> codes() {
        std::vector<std::string> all;
        for (std::int32_t i = 1; i <= aircraftcount; ++i) {
            all.emplace_back(aircraft[i].acnum.text());
        }
        return all;
    }
};

TEST_F(AircraftChangesTest, NewAircraftTakeTheFreeCodes) {
    for (const char* code : {"AC#1", "AC#2", "AC#3", "AC#4", "AC#6"}) {
        addAircraft(code, std::string("\"") + code + "\"");
    }
    addSimulatorAircraft("\"New\"", 310.5F);
    addSimulatorAircraft("\"AC#2\"");
    addSimulatorAircraft("\"New\"");
    aircraft.append({}); // a blank row past the count, as a load leaves them
    EXPECT_EQ(addnewfsaircraft(), "");
    EXPECT_EQ(codes(), (std::vector<std::string>{"AC#1", "AC#2", "AC#3", "AC#4", "AC#6", "AC#5", "AC#7"}));
    EXPECT_EQ(aircraft[6].title.text(), "\"New\"");
    EXPECT_EQ(aircraft[6].cruisespeed, 310.5F);
    EXPECT_EQ(aircraft[7].title.text(), "\"New\"");
    SortAircraft();
    EXPECT_EQ(aircraftrecord("AC#5"), 5);

    EXPECT_EQ(addnewfsaircraft(), "No new aircraft found");
    EXPECT_EQ(aircraftcount, 7);
    // Numbering goes on in the run, over reloads as well.
    aircraft.clear();
    aircraftcount = 0;
    EXPECT_EQ(addnewfsaircraft(), "");
    EXPECT_EQ(codes(), (std::vector<std::string>{"AC#8", "AC#9", "AC#10"}));
}

TEST_F(AircraftChangesTest, AnAircraftIsKnownByTheEightyCharactersThatAreKept) {
    const std::string eighty(80, 'x');
    addAircraft("AC#1", eighty);
    addAircraft("AC#2", "A");
    addAircraft("AC#3", "\"A\"");
    aircraft[2].deleted = true; // is known all the same
    for (const std::string& title : {eighty, eighty + "a", std::string("A"), std::string("\"A\"")}) {
        addSimulatorAircraft(title);
    }
    EXPECT_EQ(addnewfsaircraft(), "No new aircraft found");
    const std::vector<std::string> unknown{eighty.substr(1), "", "\"a\"", " \"A\""}; // case, quotes and blanks count
    for (const std::string& title : unknown) {
        addSimulatorAircraft(title);
    }
    EXPECT_EQ(addnewfsaircraft(), "");
    ASSERT_EQ(aircraftcount, 7);
    for (std::int32_t i = 0; i < 4; ++i) {
        EXPECT_EQ(aircraft[4 + i].title, FixedText<80>(unknown[static_cast<std::size_t>(i)]));
    }
}

TEST_F(AircraftChangesTest, WithoutNumbersLeftTheTableKeepsAllItHas) {
    for (int i = 1; i <= 32765; ++i) {
        addAircraft("AC#" + std::to_string(i + (i > 5 ? 1 : 0)), "\"" + std::to_string(i) + "\"");
    }
    for (const char* title : {"\"A\"", "\"B\""}) {
        addSimulatorAircraft(title);
    }
    EXPECT_EQ(addnewfsaircraft(), "");
    ASSERT_EQ(aircraftcount, 32767);
    EXPECT_EQ(aircraft[32766].acnum.text(), "AC#6");
    EXPECT_EQ(aircraft[32767].acnum.text(), "AC#32767");

    addSimulatorAircraft("\"C\"");
    EXPECT_EQ(addnewfsaircraft(), "");
    EXPECT_EQ(aircraftcount, 32767);
    EXPECT_EQ(aircraft[1].title.text(), "\"1\"");
    EXPECT_EQ(aircraft[32767].title.text(), "\"B\"");
    EXPECT_EQ(newestAction(), "Overflow(6) in sub addnewfsaircraft of module modAddNewFSAircraft");

    // Nor is there one in an empty table: none is given out a second time.
    aircraft.clear();
    aircraftcount = 0;
    resetLogging();
    EXPECT_EQ(addnewfsaircraft(), "");
    EXPECT_EQ(aircraftcount, 0);
    EXPECT_EQ(newestAction(), "Overflow(6) in sub addnewfsaircraft of module modAddNewFSAircraft");
}

TEST_F(AircraftChangesTest, DeletesByCode) {
    addAircraft("AC#1", "\"One\"");
    addAircraft("AC#2", "\"Two\"");
    deleteaircraft("ac#2 - \"Two\"");
    deleteaircraft("AC#7");
    EXPECT_FALSE(aircraft[1].deleted);
    EXPECT_TRUE(aircraft[2].deleted);
}

TEST_F(AircraftChangesTest, FilterOffersRowsWithoutRegardToCase) {
    const ListRows all{{"AC#1 - \"Boeing 737-400\"", 1}, {"AC#2 - \"Airbus \xC4rger\"", 2}};
    EXPECT_EQ(filterAircraftRows(all, ""), (ListRows{{all[0].text, 0}, {all[1].text, 0}, {"", 0}}));
    EXPECT_EQ(filterAircraftRows(all, "boeing"), (ListRows{{all[0].text, 0}}));
    EXPECT_EQ(filterAircraftRows(all, "\xE4RG"), (ListRows{{all[1].text, 0}}));
    EXPECT_EQ(filterAircraftRows(all, "ac#").size(), 2U); // no closing row under a filter
    EXPECT_EQ(filterAircraftRows(all, "MD-80"), ListRows{});
    EXPECT_EQ(filterAircraftRows({}, ""), (ListRows{{"", 0}}));
}

TEST_F(AircraftChangesTest, SubstituteKeepsTheCode) {
    addAircraft("AC#1", "\"Gone\"");
    aircraft[1].missing = true;
    const std::string answer = substituteText("AC#1 - \"Gone\"", "AC#2 - \"Boeing 737-400\"");
    EXPECT_EQ(answer, "AC#1 - \"Boeing 737-400\"");
    EXPECT_TRUE(substituteAircraft(answer));
    EXPECT_EQ(aircraft[1].acnum.text(), "AC#1");
    EXPECT_EQ(aircraft[1].title.text(), "\"Boeing 737-400\"");
    EXPECT_TRUE(aircraft[1].missing);
    EXPECT_FALSE(substituteAircraft("AC#9 - x"));
    EXPECT_EQ(substituteText("AC#1 - \"Gone\"", ""), "AC#1 - ");
    EXPECT_EQ(substituteText("AC#1", "AC#2 - x"), "AC#1 - x");
}

} // namespace
} // namespace vantor::test
