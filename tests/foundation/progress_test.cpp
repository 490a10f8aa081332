// The progress bar, the throttled pumps and the delays, by a clock that the test sets.
#include "foundation/error.h"
#include "foundation/log.h"
#include "foundation/progress.h"
#include "support/fixture.h"

namespace vantor {
namespace {

using namespace test;
using Calls = std::vector<CanvasCall>;

class Progress : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        clock.setTimer(1000);
    }
    // What `draw` draws, a second later.
    template <class Draw>
    Calls drawn(Draw draw) {
        clock.advance(1);
        box.calls.clear();
        draw();
        return box.calls;
    }
    RecordingCanvas box; // 3000 by 600
};

TEST_F(Progress, BarTextsAndColours) {
    EXPECT_EQ(drawn([&] { showprogressstring(&box, 25, 100, "Loading"); }),
              (Calls{SystemColours{}, FilledBox{0, 0, 750, 600, 0x80FF80}, DrawnText{1185, 200, "Loading"}}));
    EXPECT_EQ(recorder.paintPumps, 1);
    EXPECT_EQ(drawn([&] { showprogressstring(&box, 1, 3, ""); }), // an empty text shows the percentage
              (Calls{SystemColours{}, FilledBox{0, 0, 1000, 600, 0x80FF80}, DrawnText{1365, 200, "33%"}}));
    EXPECT_EQ(drawn([&] { showprogressstring(&box, 3, 0, ""); }), // a total of 0 counts as 1; nothing stops at the edge
              (Calls{SystemColours{}, FilledBox{0, 0, 9000, 600, 0x80FF80}, DrawnText{1320, 200, "300%"}}));
    EXPECT_EQ(drawn([&] { showprogressstring(&box, 0, 100, "Start", 0xFF, 0xAA); }), // nothing done clears the box
              (Calls{SystemColours{}, Cleared{}, BackColour{0xAA}, TextColour{0xFF}, DrawnText{1275, 200, "Start"}}));
    EXPECT_EQ(drawn([&] { showprogressstring(&box, -5, 100, "x"); }).at(1), CanvasCall{Cleared{}});
    EXPECT_EQ(drawn([&] { showprogress(&box, 1, 2, "", false, false, 0); }), // without a text the given colour holds
              (Calls{SystemColours{}, FilledBox{0, 0, 1500, 600, 0}}));
    EXPECT_EQ(drawn([&] { PrintCentered(&box, "No data", true, 0, 0); }),
              (Calls{Cleared{}, DrawnText{1185, 200, "No data"}}));
}

TEST_F(Progress, RedrawnAtMostEveryFifteenHundredths) {
    showprogressstring(&box, 1, 100, "x");
    clock.setTimer(1000.1);
    showprogressstring(&box, 2, 100, "x");
    EXPECT_EQ(box.all<DrawnText>().size(), 1U);
    showprogressstring(&box, 100, 100, "x"); // the final state always
    EXPECT_EQ(box.all<DrawnText>().size(), 2U);
    showprogress(&box, 2, 100, "x", false, true);
    EXPECT_EQ(box.all<DrawnText>().size(), 3U);
    clock.setTimer(1000.3);
    showprogressstring(&box, 3, 100, "x");
    EXPECT_EQ(box.all<DrawnText>().size(), 4U);
    clock.setTimer(10); // past midnight: silent until the clock catches up
    showprogressstring(&box, 4, 100, "x");
    timedevents();
    EXPECT_EQ(box.all<DrawnText>().size(), 4U);
    EXPECT_EQ(recorder.paintPumps, 2);
}

TEST_F(Progress, AMissingBoxIsOneEntryInTheRing) {
    showprogressstring(nullptr, 50, 100, "x");
    EXPECT_EQ(actionText(1),
              "Object variable or With block variable not set(91) in sub showprogress of module modProgressIndicator");
    EXPECT_EQ(actionText(2), "");
    PrintCentered(nullptr, "x", true, 0, 0);
    EXPECT_NE(actionText(2), "");
}

TEST_F(Progress, PumpsAreThrottled) {
    timedevents();
    clock.setTimer(1000.2);
    timedevents();
    EXPECT_EQ(recorder.paintPumps, 1);
    clock.setTimer(1000.3);
    timedevents();
    EXPECT_EQ(recorder.paintPumps, 2);
    checkevents();
    EXPECT_EQ(recorder.fullPumps, 0);
    recorder.pendingInput = true;
    checkevents();
    EXPECT_EQ(recorder.fullPumps, 1);
    clock.setTimer(1001);
    pumpEverything();
    timedevents(); // has nothing left to do
    EXPECT_EQ(recorder.fullPumps, 2);
    EXPECT_EQ(recorder.paintPumps, 2);
}

TEST_F(Progress, Delays) {
    recorder.pendingInput = true;
    delay(1); // in one piece
    delay(0.25F);
    delayms(1000);
    delay(-1);
    EXPECT_EQ(recorder.sleeps, (std::vector{1000, 250, 1000, 0}));
    EXPECT_EQ(recorder.fullPumps, 0);
    recorder.sleeps.clear();
    delay(2.25F);
    delayms(2000);
    EXPECT_EQ(recorder.sleeps, (std::vector{500, 500, 500, 500, 250, 500, 500, 500, 500}));
    EXPECT_EQ(recorder.fullPumps, 8);
}

} // namespace
} // namespace vantor
