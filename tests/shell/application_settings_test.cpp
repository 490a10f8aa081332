// Tests of the settings that the program reads at its start, and of the GMT offset as the user types it.
#include "core/tables.h"
#include "foundation/log.h"
#include "foundation/settings_store.h"
#include "shell/application_settings.h"
#include "support/fixture.h"

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
    logit("Vantor starts.", true);
    const std::size_t header = logTexts().size();
    LoadSettings(settingsFile());
    EXPECT_FALSE(modeChosen());
    readsettings();

    EXPECT_EQ(gmtoffset, 0.0F);
    EXPECT_EQ(compiletool, path("TTools.exe"));
    EXPECT_EQ(decompiletool, path("TTools.exe"));
    EXPECT_EQ(defaultFiles().flightplans, path("Flightplans.txt"));

    std::vector<std::string> lines = logTexts();
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(header));
    EXPECT_EQ(lines, (std::vector<std::string>{
                         "Flight Sim 2002 path set to C:\\Program Files\\Microsoft Games\\FS2002\\",
                         "Flight Sim 2004 path set to C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\",
                         "FS mode: 2", "FS Path: C:\\Program Files\\Microsoft Games\\FS2002\\",
                         "FS ICAO File: C:\\Program Files\\Microsoft Games\\FS2002\\weather\\icao name.cfg",
                         "FS Aircraft Path: C:\\Program Files\\Microsoft Games\\FS2002\\aircraft\\"}));
    EXPECT_FALSE(exists("Vantor2.ini")) << "reading must not write";
}

TEST_F(ApplicationSettings, ReadsWhatASaveWroteWhateverTheSpellingOfItsKeys) {
    LoadSettings(settingsFile());
    sset("Fs2k2Path", "D:\\FS2002\\");
    sset("fs2k4PATH", "D:\\FS9\\");
    sset("FSMode", std::int16_t{4});
    sset("GMTOffset", -0.1875F);
    savesettings(settingsFile());
    LoadSettings(settingsFile());
    EXPECT_TRUE(modeChosen());
    readsettings();
    EXPECT_EQ(fs2k2path, "D:\\FS2002\\");
    EXPECT_EQ(fspath, "D:\\FS9\\");
    EXPECT_EQ(fsmode, 4);
    EXPECT_EQ(gmtoffset, -0.1875F);
    EXPECT_EQ(defaultFiles().aircraft, path("Aircraft030528.txt"));
}

TEST_F(ApplicationSettings, AnyModeButTwoActsAsFs2004) {
    read("FS2K4PATH,E:\\FS9\r\nFSMODE, 3 \r\n");
    EXPECT_EQ(fsmode, 3);
    EXPECT_EQ(fspath, "E:\\FS9");
    EXPECT_EQ(fsicaofile, "E:\\FS9weather\\icao name.cfg") << "no backslash is added";
    EXPECT_EQ(defaultFiles().airports, path("Airports030528.txt"));
    EXPECT_EQ(configuredFiles(defaultFiles()).airports, path("Airports030528.txt"));
}

TEST_F(ApplicationSettings, AValueOfTheWrongFormLeavesItsGlobalAndTheRestIsRead) {
    read("FSMODE, 4 \r\nGMTOFFSET,.25\r\n");
    ASSERT_EQ(gmtoffset, 0.25F);
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

struct GmtCase {
    const char* hour;
    const char* minute;
    float hours; ///< the offset in hours
    const char* shownHour;
    const char* shownMinute;
};

TEST(GmtOffset, MinutesAreAlwaysAddedAndTheBoxesShowTheMagnitude) {
    for (const GmtCase& one : {GmtCase{"05", "30", 5.5F, "05", "30"}, GmtCase{"-05", "30", -4.5F, "-04", "30"},
                               GmtCase{"-12", "00", -12, "-12", "00"}, GmtCase{"12", "59", 12 + 59 / 60.0F, "12", "59"},
                               GmtCase{"-00", "30", 0.5F, "00", "30"}, GmtCase{"-1", "20", -40 / 60.0F, "-00", "40"},
                               GmtCase{" 3", "1", 3 + 1 / 60.0F, "03", "01"}, GmtCase{"x", "y", 0, "00", "00"}}) {
        SCOPED_TRACE(std::string(one.hour) + ":" + one.minute);
        const GmtBoxes typed{one.hour, one.minute};
        EXPECT_FALSE(gmtFault(typed));
        const float offset = gmtOffsetOf(typed);
        EXPECT_NEAR(offset * 24, one.hours, 1e-5);
        EXPECT_EQ(gmtBoxes(offset).hour, one.shownHour);
        EXPECT_EQ(gmtBoxes(offset).minute, one.shownMinute);
    }
}

TEST(GmtOffset, EmptyBoxesAreFilledAndSingleCharactersPadded) {
    const auto completed = [](const char* hour, const char* minute) {
        GmtBoxes boxes{hour, minute};
        completeGmtBoxes(boxes);
        return boxes.hour + ":" + boxes.minute;
    };
    EXPECT_EQ(completed("  ", "7"), "00:07");
    EXPECT_EQ(completed("-5", ""), "-5:00") << "two characters get no 0";
}

TEST(GmtOffset, ChecksTheHourFirst) {
    const auto message = [](const char* hour, const char* minute) {
        const std::optional<GmtFault> fault = gmtFault({hour, minute});
        return fault ? std::string(fault->message) : std::string();
    };
    EXPECT_EQ(message("13", "60"), "Hour offset can be -12 to +12 only");
    EXPECT_EQ(message("-13", "00"), "Hour offset can be -12 to +12 only");
    EXPECT_EQ(message("12", "60"), "Minute offset can be 0 to 59 only");
    EXPECT_EQ(message("-12", "-1"), "Minute offset can be 0 to 59 only");
    EXPECT_EQ(message("1E300", "00"), "Hour offset can be -12 to +12 only");
}

} // namespace
} // namespace vantor
