// The progress bar, the throttled pumps and the delays, by a clock that the test sets.
#include "foundation/progress.h"
#include "support/test.h"

namespace vantor {
namespace {

using Calls = std::vector<CanvasCall>;

class Progress : public Fixture {
  protected:
    void SetUp() override { clock.setTimer(1000); }
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
    EXPECT_EQ(drawn([&] { showprogressstring(&box, -5, 100, "Start", 0xFF, 0xAA); }), // nothing done clears the box
              (Calls{SystemColours{}, Cleared{}, BackColour{0xAA}, TextColour{0xFF}, DrawnText{1275, 200, "Start"}}));
    EXPECT_EQ(drawn([&] { showprogress(&box, 1, 2, "", false, false, 0); }), // without a text the given colour holds
              (Calls{SystemColours{}, FilledBox{0, 0, 1500, 600, 0}}));
    EXPECT_EQ(drawn([&] { PrintCentered(&box, "No data", true, 0, 0); }),
              (Calls{Cleared{}, DrawnText{1185, 200, "No data"}}));
    EXPECT_EQ(actionCount(), 0);
    showprogressstring(nullptr, 50, 100, "x"); // a missing box is one entry
    EXPECT_EQ(newestAction(),
              "Object variable or With block variable not set(91) in sub showprogress of module modProgressIndicator");
    PrintCentered(nullptr, "x", true, 0, 0);
    EXPECT_EQ(actionCount(), 2);
}

TEST_F(Progress, DrawingsAndPumpsAreThrottled) {
    // By the clock, how far it is, whether it is forced, and how many drawings and pumps there were until then.
    struct Step {
        double timer;
        double value;
        bool force;
        std::size_t drawings;
        int pumps;
    };
    for (const auto& [timer, value, force, drawings, pumps] : {Step{1000, 1, false, 1, 1},
                                                               {1000.1, 2, false, 1, 1},
                                                               {1000.1, 100, false, 2, 1}, // the final state always
                                                               {1000.1, 2, true, 3, 1},
                                                               {1000.2, 2, false, 3, 1},
                                                               {1000.3, 3, false, 4, 2},
                                                               {10, 4, false, 4, 2}, // silent past midnight
                                                               {86000, 4, false, 5, 3}}) {
        clock.setTimer(timer);
        showprogress(&box, value, 100, "x", false, force);
        EXPECT_EQ(box.all<DrawnText>().size(), drawings) << timer;
        EXPECT_EQ(recorder.paintPumps, pumps) << timer;
    }
    checkevents();
    recorder.pendingInput = true;
    checkevents();
    EXPECT_EQ(recorder.fullPumps, 1);
    clock.advance(1);
    pumpEverything();
    timedevents(); // has nothing left to do
    EXPECT_EQ(recorder.fullPumps, 2);
    EXPECT_EQ(recorder.paintPumps, 3);
}

TEST_F(Progress, Delays) {
    recorder.pendingInput = true;
    delay(1); // in one piece
    delay(0.25F);
    delayms(1000);
    delay(-1);
    EXPECT_EQ(recorder.fullPumps, 0);
    delay(2.25F);
    delayms(2000);
    EXPECT_EQ(recorder.sleeps, (std::vector{1000, 250, 1000, 0, 500, 500, 500, 500, 250, 500, 500, 500, 500}));
    EXPECT_EQ(recorder.fullPumps, 8);
}

} // namespace
} // namespace vantor
