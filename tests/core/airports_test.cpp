// The airports file and the simulator's names of airports.
#include "core/airports_file.h"
#include "core/codes.h"
#include "core/tables.h"
#include "foundation/text.h"
#include "support/expect_error.h"
#include "support/fixture.h"

#include <string>

namespace vantor {
namespace {

class AirportsTest : public test::Fixture {
  protected:
    void load(std::string_view bytes) {
        writeFile("Airports.txt", bytes);
        LoadAirports(path("Airports.txt"), nullptr);
    }
    std::string fault(std::string_view bytes) {
        return test::faultOf([&] { load(bytes); });
    }
};

constexpr std::string_view threeAirports =
    "; comment\r\nKSEA,N47* 26.56',W122* 18.34',429\r\nshort,N1* 1.1',E1* 1.1'\r\na//b,N1* 1.1',E1* 1.1',5\r\n"
    "YPPHXYZ,S31* 56.40',E115* 58.1', 67 ,extra\r\nksea,N1* 1.1',E1* 1.1',5\r\n";

TEST_F(AirportsTest, ReadsPositionsAndWidths) {
    load(threeAirports);
    ASSERT_EQ(airportcount, 3);
    const AirportRec seattle = airports.HashGetSlot(1);
    EXPECT_EQ(seattle.lattext.text(), "N47* 26.56'");
    EXPECT_EQ(seattle.longtext.text(), "W122* 18.34'");
    EXPECT_EQ(seattle.latdeg, static_cast<float>(47 + 26 / 60.0 + 56 / 3600.0));
    EXPECT_EQ(seattle.longdeg, static_cast<float>(-(122 + 18 / 60.0 + 34 / 3600.0)));
    EXPECT_EQ(seattle.altitude, 429);
    EXPECT_EQ(airports.HashFind("YPPHXY").altitude, 67);
    load(replaceAll(threeAirports, "\r\n", "\n"));
    EXPECT_EQ(airportcount, 3);
}

TEST_F(AirportsTest, FaultsCountTheAcceptedLines) {
    EXPECT_EQ(fault(""), "23000 " + path("Airports.txt") +
                             " missing or empty.  Please run this program in the TrafficTools path AFTER you have "
                             "decompiled Traffic.BGL in line 0 of airports.txt.  Error on: ");
    EXPECT_EQ(fault("KSEA,N1* 1.1',E1* 1.1',5\r\n//x,a,b,c\r\nKPDX,N1* 1.1',E1* 1.1',40000\r\n"),
              "6 Overflow in line 2 of airports.txt.  Error on: ");
    EXPECT_EQ(airports.HashFind("KSEA").slot, 1) << "what was added before the fault stays";
    EXPECT_EQ(fault("KSEA,N1* 1.1',E1* 1.1',high\r\n" + std::string(30000, '\n')),
              "13 Type mismatch in line 1 of airports.txt.  Error on: ");
    EXPECT_EQ(airports.peek(airportcount).icao.text(), "") << "every slot that counts can be read";
}

TEST_F(AirportsTest, NamesComeFromTheSimulatorsFileElseFromTheCode) {
    load(threeAirports);
    fsicaofile = path("icao name.cfg");
    LoadAirportTitles(nullptr);
    EXPECT_EQ(airporttitle("KSEA"), "KSEA");
    EXPECT_EQ(airports.HashGetSlot(4).title.text(), "");

    load(threeAirports);
    writeFile("icao name.cfg", "no equals\r\n ksea =Seattle=Tacoma\nXXXX=unknown\rYPPHXY=" + std::string(70, 'n'));
    LoadAirportTitles(nullptr);
    EXPECT_EQ(airporttitle(" KSEA "), "Seattle=Tacoma");
    EXPECT_EQ(airporttitle("YPPHXY"), std::string(60, 'n'));
    EXPECT_EQ(airporttitle("ksea"), "") << "in small letters it can't be named";
    EXPECT_EQ(airporttitle(" KPDX "), "KPDX") << "unknown";
}

} // namespace
} // namespace vantor
