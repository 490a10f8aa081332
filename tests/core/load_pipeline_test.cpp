// The order of a load, its log and its file names.
#include "core/load_pipeline.h"
#include "core/tables.h"
#include "foundation/settings_store.h"
#include "support/fixture.h"

#include <string>
#include <vector>

namespace vantor {
namespace {

using LoadPipelineTest = test::Fixture;

// Notes each step with the count of log lines that stood when it ran.
class NotingSteps final : public LoadSteps {
  public:
    Canvas* progress() override { return nullptr; }
    void loadSimulatorAircraft() override { notes.emplace_back("simulator"); }
    void listMissingAircraft() override { notes.emplace_back("missing"); }
    void fillAircraftList() override { notes.emplace_back("aircraft"); }
    void fillAirportList() override { notes.emplace_back("airports"); }
    std::vector<std::string> notes;
};

TEST_F(LoadPipelineTest, SuffixKeepsItsFolderInCapitals) {
    EXPECT_EQ(GetSuffix("Flightplans.txt"), "");
    EXPECT_EQ(GetSuffix("flightPlans030528.txt"), "030528");
    EXPECT_EQ(GetSuffix("C:\\tt\\Flightplans030528.txt"), "C:\\TT\\030528");
    EXPECT_EQ(GetSuffix("myplans.txt"), "MYPLANS");
}

TEST_F(LoadPipelineTest, ConfiguredFilesGoByTheMode) {
    LoadSettings(path("Vantor2.ini"));
    sset("AircraftTxt2k4", "other.txt");
    const TrafficFiles defaults{"a", "p", "f"};
    fsmode = 4;
    EXPECT_EQ(configuredFiles(defaults).aircraft, "other.txt");
    EXPECT_EQ(configuredFiles(defaults).flightplans, "f");
    fsmode = 2;
    EXPECT_EQ(configuredFiles(defaults).aircraft, "a");
}

TEST_F(LoadPipelineTest, LogsEachStepInOrder) {
    writeFile("a.txt", "AC#1,100,x\r\n");
    writeFile("p.txt", "KSEA,N1* 1.1',E1* 1.1',5\r\n");
    writeFile("f.txt", "AC#1,N,1%,6H,IFR,06:00:00,07:00:00,1,F,1,KSEA\r\n");
    aircraftfile = path("a.txt");
    airportsfile = path("p.txt");
    flightplansfile = path("f.txt");
    NotingSteps steps;
    loadAllTraffic(steps);
    EXPECT_EQ(steps.notes, (std::vector<std::string>{"simulator", "missing", "aircraft", "airports"}));
    EXPECT_EQ(logTexts(),
              (std::vector<std::string>{"Loading " + aircraftfile, "Sorting Aircraft", "Loading " + airportsfile,
                                        "Loading FS ICAO names", "Loading " + flightplansfile, "Loading FS aircraft",
                                        "Scanning FS aircraft", "Filling aircraft list", "Filling airport list"}));
}

} // namespace
} // namespace vantor
