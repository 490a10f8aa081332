// The demo's traffic through the whole pipeline and back: what is saved loads again to the same tables.
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/load_pipeline.h"
#include "core/tables.h"
#include "foundation/settings_store.h"
#include "simulator/fs_aircraft.h"
#include "simulator/missing_aircraft.h"
#include "support/fixture.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vantor {
namespace {

class HeadlessSteps final : public LoadSteps {
  public:
    Canvas* progress() override { return nullptr; }
    void loadSimulatorAircraft() override { LoadFSAircraft(nullptr); }
    void listMissingAircraft() override { missing = checkmissing(); }
    void fillAircraftList() override { order += "A"; }
    void fillAirportList() override { order += "P"; }

    ListRows missing;
    std::string order;
};

class DemoTest : public test::Fixture, public ::testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        std::filesystem::copy(VANTOR_DEMO, folder(), std::filesystem::copy_options::recursive);
        LoadSettings(path("Vantor2.ini"));
        fsmode = static_cast<std::int16_t>(GetParam());
        const std::string simulator = path(GetParam() == 2 ? "FS2002\\" : "FS2004\\");
        fsicaofile = simulator + "WEATHER\\ICAO name.cfg";
        fsaircraftpath = simulator + "Aircraft\\";
        const std::string suffix = GetParam() == 2 ? "" : "030528";
        aircraftfile = path("TrafficTools\\aircraft" + suffix + ".txt");
        airportsfile = path("TrafficTools\\AIRPORTS" + suffix + ".TXT");
        flightplansfile = path("TrafficTools\\Flightplans" + suffix + ".txt");
    }

    static std::vector<ScheduleRec> allSchedules() {
        std::vector<ScheduleRec> all;
        for (std::int32_t recnum = 1; recnum <= schedulecount; ++recnum) {
            if (schedules.peek(recnum).legcount > 0) {
                all.push_back(schedules.HashGetSlot(recnum));
            }
        }
        return all;
    }
};

TEST_P(DemoTest, LoadsWholeAndRoundTrips) {
    HeadlessSteps steps;
    loadAllTraffic(steps);
    EXPECT_EQ(steps.order, "AP");
    EXPECT_GE(aircraftcount, 60);
    EXPECT_GE(airportcount, 150);
    EXPECT_GE(schedulecount, 800);
    EXPECT_GE(fsaircraftcount, 60);
    EXPECT_EQ(steps.missing.size(), 5U);

    const std::vector<ScheduleRec> before = allSchedules();
    savesc(path("saved.txt"));
    LoadSched(nullptr, path("saved.txt"));
    EXPECT_EQ(schedulecount, static_cast<std::int32_t>(before.size()));
    EXPECT_EQ(allSchedules(), before);
    savesc(path("again.txt"));
    EXPECT_EQ(readFile("saved.txt"), readFile("again.txt"));
}

INSTANTIATE_TEST_SUITE_P(Modes, DemoTest, ::testing::Values(2, 4));

} // namespace
} // namespace vantor
