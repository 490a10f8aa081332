// The flight plan file: what the reader makes of lines and what the writer puts back.
#include "core/flightplans_reader.h"
#include "core/flightplans_writer.h"
#include "support/test.h"

namespace vantor {
namespace {

class FlightplansTest : public test::Fixture {
  protected:
    void SetUp() override {
        // Along the equator: sixty miles to a degree.
        test::addAirport("AAAA", "");
        test::addAirport("BBBB", "", 0, 1);
        test::addAirport("CCCC", "", 0, 10);
        test::addAircraft("AC#1", "", 100);
        test::addAircraft("AC#2", "", 600);
    }

    void load(std::string_view bytes) {
        writeFile("Flightplans.txt", bytes);
        LoadSched(nullptr, path("Flightplans.txt"));
    }

    std::string fault(std::string_view bytes) {
        return test::faultOf([&] { load(bytes); });
    }

    std::string saved() {
        savesc(path("saved.txt"));
        return readFile("saved.txt");
    }
};

TEST_F(FlightplansTest, ReadsHeaderAndClosedLoop) {
    load("ac#1,n1,50%,24hr,ifr,06:00:00,07:00:00,350,f,101,aaaa,08:00:00,09:00:00, 80 ,r,102,cccc\r\n"
         "AC#12345678,N123456789012345,100.5%,WEEKLY,VFRX,3/06:00:00,3/07:00:00,1,FX,1234567890123,AAAAAAA\r\n");
    ASSERT_EQ(schedulecount, 2);
    EXPECT_EQ(test::textOf(schedules.peek(1)), "1 AC#1 N1 50% 24HR IFR"
                                               " | CCCC-AAAA -1/06:00:00 0/07:00:00 350 F101 600nm 6.00h 1001"
                                               " | AAAA-CCCC -1/08:00:00 0/09:00:00 80 R102 600nm 6.00h 1002");
    // Wide values are cut.
    EXPECT_EQ(test::textOf(schedules.peek(2)), "2 AC#1234567 N12345678901 100. WEEK VFR weekly"
                                               " | AAAAAA-AAAAAA 3/06:00:00 3/07:00:00 1 F123456789012 0nm 0.00h 2001");
}

TEST_F(FlightplansTest, CommentsBlanksAndShortLines) {
    const std::string rest = ",50%,6H,IFR,06:00:00,07:00:00,1,F,1,";
    load("// all comment\r\n   \r\n;x\r\nAC#1,N1,50%,6H,IFR,1,2,3,4,5\r\nAC#1,N1" + rest + "AAAA // end; of day\r\n" +
         "AC#1,N;2" + rest + "AAAA\r\nAC#1,N3" + rest + "BBBB,\nAC#2,N4" + rest + "CCCC");
    EXPECT_EQ(schedulecount, 5) << "ten fields and the cut line are counted and dropped";
    const std::string leg = "-1/06:00:00 0/07:00:00 1 F1 0nm 0.00h "; // from an airport to itself
    EXPECT_EQ(test::textOf(schedules.peek(1)), "1 AC#1 N1 50% 6H IFR | AAAA-AAAA " + leg + "1001");
    EXPECT_EQ(test::textOf(schedules.peek(2)), "2 AC#1 N3 50% 6H IFR | BBBB-BBBB " + leg + "2001");
    EXPECT_EQ(test::textOf(schedules.peek(3)), "3 AC#2 N4 50% 6H IFR | CCCC-CCCC " + leg + "3001");
    EXPECT_EQ(schedules.peek(4).legcount, 0);
}

TEST_F(FlightplansTest, DroppedLinesMayRunBeyondTheTable) {
    const std::string line = "AC#1,N1,1%,6H,IFR,01:00:00,02:00:00, 1 ,F,1,AAAA\r\n";
    load(replaceAll(std::string(150000, 'x'), "x", "x\r\n") + line);
    EXPECT_EQ(schedulecount, 150001);
    EXPECT_EQ(schedules.peek(schedulecount).legcount, 0); // every number that counts can be read
    EXPECT_EQ(saved(), line);
    EXPECT_EQ(newestAction().find("savesc"), std::string::npos);
    EXPECT_EQ(fault("AC#1,N,1%,6H,IFR,06:00:00,07:00:00,40000,F,1,AAAA\r\n"), "6 Overflow in LoadSched");
    EXPECT_EQ(schedulecount, 150001) << "the former count stays";
    EXPECT_EQ(schedules.peek(schedulecount).legcount, 0);
}

TEST_F(FlightplansTest, UnknownAircraftInheritTheSpeedAbove) {
    const std::string rest = ",N,1%,6H,IFR,06:00:00,07:00:00,1,F,1,AAAA,06:00:00,07:00:00,1,F,1,CCCC\r\n";
    load("AC#77" + rest + "AC#2" + rest + "AC#78" + rest);
    EXPECT_EQ(schedules.peek(1).legs[1].flighthours, 2.0F); // 600 nm at 250 knots: 2.4 hours
    EXPECT_EQ(schedules.peek(2).legs[1].flighthours, 1.0F);
    EXPECT_EQ(schedules.peek(3).legs[1].flighthours, 1.0F);
    EXPECT_EQ(actionCount(), 0);
    // Each line with a code that is no number tells it.
    load("AC#9E99" + rest + "AC#1" + rest + "AC#9E99" + rest + "AC#77" + rest);
    EXPECT_EQ(actionCount(), 2);
    EXPECT_EQ(newestAction(), "Overflow(6) in function trueacnum of module modSubs");
}

TEST_F(FlightplansTest, ArrivalMarksAndDays) {
    test::addAircraft("AC#3", "", 120);
    load("AC#1,N,1%,WEEK,IFR,6/23:00:00,TNG@6/23:30:00,1,F,1,BBBB,0/06:00:00,4/07:00:00,1,F,1,AAAA,"
         "6/10:00:00,12:00:00,1,F,1,CCCC,2/10:00:00,@12:00:00,1,F,1,AAAA,4/00:00:00,5/07:00:00,1,F,1,BBBB\r\n"
         "AC#3,N,1%,WEEK,IFR,3/23:00:00,3/23:30:00,1,F,1,BBBB,5/00:00:00,5/07:00:00,1,F,1,AAAA\r\n");
    // Without "@" the file's day gives way to a computed one: an hour or more goes to the next day. Sixty miles at 100
    // knots round to an hour, and 1 + 6:00 is above 1, but 1 + 0:00 is not; the third flies six hours from a Saturday;
    // the fourth is fixed, and no day is told. At 120 knots they are half an hour, which rounds to the even hour, 0.
    EXPECT_EQ(test::textOf(schedules.peek(1)), "1 AC#1 N 1% WEEK IFR weekly"
                                               " | BBBB-BBBB 6/23:00:00 @TNG6/23:30:00 1 F1 0nm 0.00h 1001"
                                               " | BBBB-AAAA 0/06:00:00 1/07:00:00 1 F1 60nm 1.00h 1002"
                                               " | AAAA-CCCC 6/10:00:00 0/12:00:00 1 F1 600nm 6.00h 1003"
                                               " | CCCC-AAAA 2/10:00:00 @0/12:00:00 1 F1 600nm 6.00h 1004"
                                               " | AAAA-BBBB 4/00:00:00 4/07:00:00 1 F1 60nm 1.00h 1005");
    EXPECT_EQ(test::textOf(schedules.peek(2)), "2 AC#3 N 1% WEEK IFR weekly"
                                               " | AAAA-BBBB 3/23:00:00 3/23:30:00 1 F1 60nm 0.00h 2001"
                                               " | BBBB-AAAA 5/00:00:00 5/07:00:00 1 F1 60nm 0.00h 2002");
}

TEST_F(FlightplansTest, EmptyMissingAndUnreadable) {
    EXPECT_EQ(fault(""), "23000 " + path("Flightplans.txt") +
                             " missing or empty.   Please run this program in the TrafficTools path AFTER you have "
                             "decompiled Traffic.BGL");
    EXPECT_EQ(test::faultOf([&] { LoadSched(nullptr, path("absent.txt")); }), "53 File not found in LoadSched");
    EXPECT_EQ(fault("AC#1,N,1%,6H,IFR,06:00:00,07:00:00,40000,F,1,AAAA\r\n"), "6 Overflow in LoadSched");
}

TEST_F(FlightplansTest, MismatchNamesPlanLegAndPreviousCallSign) {
    schedulecount = 99;
    const std::string good = "AC#2,GOOD,1%,6H,IFR,06:00:00,07:00:00,1,F,1,AAAA\r\n";
    const std::string start = "Error in " + path("Flightplans.txt") + ".\rFlightplan number ";
    EXPECT_EQ(fault(good + "AC#1,BAD,1%,WEEK,IFR,1/06:00:00,1/07:00:00,1,F,7,BBBB,1/nine,1/10:00:00,1,F,8,AAAA\r\n"),
              "13 " + start +
                  "2 is invalid. \rAC#1 Call sign: BAD aircraft: AC#1  Leg: 2 Flight No: 8            From: BBBB   To: "
                  "AAAA   ETD: NINE         Previous call sign: GOOD");
    EXPECT_EQ(schedulecount, 99); // keeps its former value
    EXPECT_EQ(schedules.peek(1).tailnumber.text(), "GOOD");
    EXPECT_NE(logLines().back().find("Flightplan number 2 is invalid."), std::string::npos);

    // In a line's first pass the leg index is that of the line before, one past its last leg.
    const std::string bad = "AC#1,BAD,1%,6H,IFR,06:00:00,07:00:00,high,F,7,BBBB\r\n";
    EXPECT_EQ(fault(good + bad),
              "13 " + start + "2 is invalid. \rAC#1 Call sign: BAD aircraft: AC#1  Leg: 2 Flight No: " +
                  std::string(12, ' ') + " From: " + std::string(6, ' ') + " To: " + std::string(6, ' ') +
                  " ETD: " + std::string(12, ' ') + " Previous call sign: GOOD");
    EXPECT_EQ(fault(bad), "13 " + start + "1 is invalid. \rAC#1 Call sign: BAD aircraft: AC#1");
}

TEST_F(FlightplansTest, LinesBeyondTheFormatAreRefused) {
    const std::string head = "AC#1,N,1%,6H,IFR";
    const std::string leg = ",06:00:00,07:00:00,1,F,1,AAAA";
    const std::string wide = head + replaceAll(std::string(166, 'x'), "x", leg);
    load(wide); // 1001 fields
    EXPECT_EQ(schedules.peek(1).legcount, 166);
    EXPECT_EQ(fault(head + leg + ",06:00:00"), "none"); // one field more is ignored like a trailing comma
    for (const std::string& line : {wide + ",x", head + leg + ",06:00:00,07:00:00", head + leg + leg.substr(0, 24)}) {
        EXPECT_EQ(fault(line).substr(0, 3), "13 ") << line;
        EXPECT_EQ(schedules.peek(1).legcount, 0);
    }
}

TEST_F(FlightplansTest, WritesTheFormThatItReads) {
    load("ac#1,n1, 50% ,WEEK,IFR,1/06:00:00,@tng3/07:30:00,350,F,101,AAAA,1/09:00:00,1/10:00:00,-5,r,,CCCC\r\n"
         "AC#2,N2,100%,6H,VFR,12:00:00,TNG00:00:00,80,F,123,AAAA,12:30:00,@00:00:00,80,R,124,BBBB // c\r\n");
    const std::string expected =
        "AC#1,N1,50%,WEEK,IFR,1/06:00:00,@TNG3/07:30:00, 350 ,F,101,AAAA,1/09:00:00,2/10:00:00,-5 ,R,,CCCC\r\n"
        "AC#2,N2,100%,6H,VFR,12:00:00,TNG00:00:00, 80 ,F,123,AAAA,12:30:00,@00:00:00, 80 ,R,124,BBBB\r\n";
    EXPECT_EQ(saved(), expected);
    load(expected);
    EXPECT_EQ(saved(), expected);
}

TEST_F(FlightplansTest, NoTimeIsWrittenAsACommentMark) {
    // Behind a day of two digits, and where a mark stood between slashes.
    const std::string twoDigits = "AC#1,N1,1%,WEEK,IFR,12/06:00:00,@11/07:30:00, 350 ,F,101,AAAA\r\n";
    load(twoDigits + "AC#2,N2,1%,6H,IFR,06:00:00,/@/07:30:00,350,F,101,AAAA\r\n");
    EXPECT_EQ(saved(), twoDigits + "AC#2,N2,1%,6H,IFR,06:00:00,@/07:30:00, 350 ,F,101,AAAA\r\n");
}

TEST_F(FlightplansTest, DeletedLegsAndTheirCommas) {
    const std::string head = "AC#1,N1,1%,6H,IFR,";
    const std::vector<std::string> legs = {"01:00:00,02:00:00, 1 ,F,1,AAAA,", "03:00:00,04:00:00, 2 ,F,2,BBBB,",
                                           "05:00:00,06:00:00, 3 ,F,3,CCCC"};
    load(head + legs[0] + legs[1] + legs[2] + "\r\n");
    const auto savedWithout = [&](std::initializer_list<std::int32_t> deleted) {
        test::changeSchedule(1, [&](ScheduleRec& record) {
            for (std::int32_t leg = 1; leg <= 3; ++leg) {
                record.legs[leg].deleted = std::ranges::find(deleted, leg) != deleted.end();
            }
        });
        return saved();
    };
    // The comma goes by the count of all legs, so one stands behind the last leg written as well.
    EXPECT_EQ(savedWithout({}), head + legs[0] + legs[1] + legs[2] + "\r\n");
    EXPECT_EQ(savedWithout({2}), head + legs[0] + legs[2] + ",\r\n");
    EXPECT_EQ(savedWithout({3}), head + legs[0] + legs[1] + "\r\n");
    EXPECT_EQ(savedWithout({1, 2, 3}), head + "\r\n");
    test::changeSchedule(1, [](ScheduleRec& record) { record.deleted = true; });
    EXPECT_EQ(saved(), "");
    load(head + "\r\n" + head + legs[2]);
    EXPECT_EQ(schedulecount, 2) << "the bare header is counted and dropped";
    EXPECT_EQ(schedules.peek(1).legcount, 1);
}

TEST(LegTextTest, IsTheFieldOfTwelveThatItStandsFor) {
    std::vector<std::string> texts = {
        "",         "0",        "00",       "007",      "9999",      "10000",   " 12",
        "12:30:00", "12:30:01", "23:59:00", "24:00:00", "12:60:00",  "1:00:00", "12-30-00",
        "12:3a:00", "/2:00:00", ":2:00:00", "12:00:0:", "12:30:00 ", "7 ",      "99991"};
    for (int i = 0; i < 40000; ++i) { // more than stand in one piece
        texts.push_back("text " + std::to_string(i) + " is cut");
    }
    std::map<std::string, std::uint32_t> numbers;
    for (const std::string& text : texts) {
        const LegText kept(text);
        EXPECT_EQ(kept.raw(), FixedText<12>(text).raw());
        EXPECT_EQ(numbers.emplace(kept.raw(), kept.number()).first->second, kept.number());
        EXPECT_EQ(kept.minute(), kept.text() == "12:30:00" ? 750 : kept.text() == "23:59:00" ? 1439 : -1) << text;
    }
    for (const auto& [text, number] : numbers) {
        EXPECT_EQ(LegText(text).number(), number);
    }
}

} // namespace
} // namespace vantor
