// The load of all files: its order, its log and its file names, and the demo's traffic there and back.
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "core/load_pipeline.h"
#include "simulator/fs_aircraft.h"
#include "simulator/missing_aircraft.h"
#include "support/test.h"

namespace vantor {
namespace {

// Every look at it takes a second: the bar is drawn each time.
class TickingClock final : public Clock {
  public:
    DateTime now() override { return m_now += 1 / 86400.0; }

  private:
    DateTime m_now = 38139;
};

// A load without a window, which notes its steps.
class HeadlessSteps final : public LoadSteps {
  public:
    Canvas* progress() override { return &bar; }
    void loadSimulatorAircraft() override { LoadFSAircraft(&bar); }
    void listMissingAircraft() override { notes += std::to_string(checkmissing().size()) + " missing "; }
    void fillAircraftList() override { notes += "aircraft "; }
    void fillAirportList() override { notes += "airports "; }

    std::string notes;
    test::RecordingCanvas bar;
};

// The demo's files in both modes.
class DemoTest : public test::Fixture, public ::testing::WithParamInterface<std::int16_t> {
  protected:
    void SetUp() override {
        std::filesystem::copy(VANTOR_DEMO, folder(), std::filesystem::copy_options::recursive);
        fsmode = GetParam();
        const std::string simulator = path(fsmode == 2 ? "FS2002\\" : "FS2004\\");
        fsicaofile = simulator + "WEATHER\\ICAO name.cfg";
        fsaircraftpath = simulator + "Aircraft\\";
        const std::string suffix = fsmode == 2 ? ".txt" : "030528.txt";
        aircraftfile = path("TrafficTools\\aircraft" + suffix);
        airportsfile = path("TrafficTools\\AIRPORTS" + suffix);
        flightplansfile = path("TrafficTools\\Flightplans" + suffix);
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

TEST_P(DemoTest, LoadsStepByStepAndRoundTrips) {
    HeadlessSteps steps;
    TickingClock ticking;
    useClock(&ticking);
    loadAllTraffic(steps);
    EXPECT_EQ(steps.notes, "5 missing aircraft airports ");
    useClock(&clock);
    std::string texts; // of the bar, each once
    for (const test::DrawnText& drawn : steps.bar.all<test::DrawnText>()) {
        texts += texts.ends_with(drawn.text + "|") ? "" : drawn.text + "|";
    }
    const std::string plans = "Loading Data: FS200" + std::to_string(fsmode) + " Flight Plans - ";
    // Each five hundred lines, counted with those that are no schedules.
    EXPECT_EQ(texts, "Loading Data: Aircraft|Sorting Aircraft|Loading Data: Airports|" + plans +
                         (fsmode == 2 ? "445|" : "449|") + plans + (fsmode == 2 ? "891|" : "887|") +
                         "Loading FS Aircraft|Listing missing aircraft|Finished|Filling Aircraft list|"
                         "Filling Airport list|");
    EXPECT_EQ(logTexts(),
              (std::vector<std::string>{"Loading " + aircraftfile, "Sorting Aircraft", "Loading " + airportsfile,
                                        "Loading FS ICAO names", "Loading " + flightplansfile, "Loading FS aircraft",
                                        "Scanning FS aircraft", "Filling aircraft list", "Filling airport list"}));
    EXPECT_GE(aircraftcount, 60);
    EXPECT_GE(airportcount, 150);
    EXPECT_GE(schedulecount, 800);
    EXPECT_GE(fsaircraftcount, 60);

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
