// Tests of the settings that the program reads at its start, and of the GMT offset as the user types it.
#include "shell/application_settings.h"
#include "support/test.h"

namespace vantor {
namespace {

class ApplicationSettings : public test::Fixture {
  protected:
    /// Reads the settings from a settings file of these bytes.
    void read(std::string_view bytes) const {
        writeFile("Vantor2.ini", bytes);
        LoadSettings(settingsFile());
        readsettings();
    }
};

TEST_F(ApplicationSettings, WithoutAFileEveryValueIsItsDefault) {
    beginLog("Vantor starts.");
    const auto header = static_cast<std::ptrdiff_t>(logTexts().size());
    LoadSettings(settingsFile());
    EXPECT_FALSE(modeChosen());
    readsettings();
    EXPECT_EQ(gmtoffset, 0.0F);
    EXPECT_EQ(compiletool, path("TTools.exe"));
    EXPECT_EQ(decompiletool, path("TTools.exe"));
    EXPECT_EQ(defaultFiles().flightplans, path("Flightplans.txt"));
    std::vector<std::string> lines = logTexts();
    lines.erase(lines.begin(), lines.begin() + header);
    EXPECT_EQ(lines, (std::vector<std::string>{
                         "Flight Sim 2002 path set to C:\\Program Files\\Microsoft Games\\FS2002\\",
                         "Flight Sim 2004 path set to C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\",
                         "FS mode: 2", "FS Path: C:\\Program Files\\Microsoft Games\\FS2002\\",
                         "FS ICAO File: C:\\Program Files\\Microsoft Games\\FS2002\\weather\\icao name.cfg",
                         "FS Aircraft Path: C:\\Program Files\\Microsoft Games\\FS2002\\aircraft\\"}));
    EXPECT_FALSE(exists("Vantor2.ini")) << "reading must not write";
}

TEST_F(ApplicationSettings, AnyModeButTwoActsAsFs2004) {
    read("FS2K4PATH,E:\\FS9\r\nFSMODE, 3 \r\nGMTOFFSET,-.1875\r\n");
    EXPECT_TRUE(modeChosen());
    EXPECT_EQ(fsmode, 3);
    EXPECT_EQ(gmtoffset, -0.1875F);
    EXPECT_EQ(fspath, "E:\\FS9");
    EXPECT_EQ(fsicaofile, "E:\\FS9weather\\icao name.cfg") << "no backslash is added";
    EXPECT_EQ(defaultFiles().aircraft, path("Aircraft030528.txt"));
    EXPECT_EQ(configuredFiles(defaultFiles()).airports, path("Airports030528.txt"));
    sset("Fs2k4Path", "D:\\FS9\\"); // as the dialog spells it
    readsettings();
    EXPECT_EQ(fs2k4path, "D:\\FS9\\");
}

TEST_F(ApplicationSettings, AValueOfTheWrongFormLeavesItsGlobalAndTheRestIsRead) {
    read("AIRCRAFTTXT2K2,E:\\other.txt\r\nAIRCRAFTTXT2K4,E:\\mine.txt\r\nFSMODE, 4 \r\nGMTOFFSET,.25\r\n");
    EXPECT_EQ(configuredFiles(defaultFiles()).aircraft, "E:\\mine.txt");
    read("FSMODE,70000\r\nFS2K4PATH,F:\\FS9\\\r\nGMTOFFSET,noon\r\n");
    EXPECT_EQ(gmtoffset, 0.25F);
    EXPECT_EQ(fsmode, 4);
    EXPECT_EQ(fsaircraftpath, "F:\\FS9\\aircraft\\");
    EXPECT_EQ(actionText(1), "Type mismatch(13) in sub readsettings of module modSettingsLoadAndSave");
    EXPECT_EQ(actionText(2), "Overflow(6) in sub readsettings of module modSettingsLoadAndSave");
    EXPECT_FALSE(modeChosen()) << "a mode that can't be read is none";
    read("FSMODE, 0 \r\n");
    EXPECT_FALSE(modeChosen()) << "nor is 0, which gives the default";
    EXPECT_EQ(fsmode, 2);
}

TEST(GmtOffset, IsCompletedCheckedTheHourFirstAndShownAgain) {
    struct Case {
        GmtBoxes typed;
        const char* completed;
        const char* shown; ///< when the dialog opens again, or what is wrong
        double hours = 0;
    };
    const char* const badHour = "Hour offset can be -12 to +12 only";
    const char* const badMinute = "Minute offset can be 0 to 59 only";
    for (const Case& one : {Case{{"05", "30"}, "05:30", "05:30", 5.5},
                            {{"-05", "30"}, "-05:30", "-04:30", -4.5}, // minutes are always added
                            {{"-12", "00"}, "-12:00", "-12:00", -12},
                            {{"12", "59"}, "12:59", "12:59", 12 + 59 / 60.0},
                            {{"-00", "30"}, "-00:30", "00:30", 0.5},
                            {{"-1", "20"}, "-1:20", "-00:40", -40 / 60.0}, // two characters get no 0
                            {{" 3", "1"}, " 3:01", "03:01", 3 + 1 / 60.0},
                            {{"x", "y"}, "0x:0y", "00:00", 0},
                            {{"  ", "7"}, "00:07", "00:07", 7 / 60.0},
                            {{"-5", ""}, "-5:00", "-05:00", -5},
                            {{"13", "60"}, "13:60", badHour},
                            {{"-13", "00"}, "-13:00", badHour},
                            {{"1E300", "00"}, "1E300:00", badHour},
                            {{"12", "60"}, "12:60", badMinute},
                            {{"-12", "-1"}, "-12:-1", badMinute}}) {
        SCOPED_TRACE(one.completed);
        GmtBoxes boxes = one.typed;
        completeGmtBoxes(boxes);
        EXPECT_EQ(boxes.hour + ":" + boxes.minute, one.completed);
        if (const std::optional<GmtFault> fault = gmtFault(boxes)) {
            EXPECT_EQ(fault->message, one.shown);
            EXPECT_EQ(fault->inMinutes, one.shown == badMinute);
        } else {
            const float offset = gmtOffsetOf(boxes);
            EXPECT_NEAR(static_cast<double>(offset) * 24, one.hours, 1e-5);
            EXPECT_EQ(gmtBoxes(offset).hour + ":" + gmtBoxes(offset).minute, one.shown);
        }
    }
}

} // namespace
} // namespace vantor
