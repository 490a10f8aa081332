// The report on the simulator's aircraft folders.
#include "foundation/native_path.h"
#include "simulator/aircraft_report.h"
#include "support/test.h"

namespace vantor::test {
namespace {

namespace fs = std::filesystem;

class AircraftReportTest : public Fixture {
  protected:
    void SetUp() override { fsaircraftpath = path(root); }
    void addAircraftFolder(const std::string& name, const std::string& cfg,
                           std::initializer_list<const char*> folders = {}) const {
        writeFile(root + name + "\\aircraft.cfg", cfg);
        for (const char* const one : folders) {
            fs::create_directories(nativePath(at(name) + one));
        }
    }
    [[nodiscard]] std::string at(const std::string& name) const { return fsaircraftpath + name + "\\"; }
    [[nodiscard]] std::string report() const {
        modACReport();
        return readFile("ACLOG.TXT");
    }

    std::string root = "FS\\aircraft\\";
};

TEST_F(AircraftReportTest, TellsEachKindOfFault) {
    addAircraftFolder("A",
                      "[fltsim.0]\r\ntitle=x\r\nSim= Good \r\nTexture=\\Red\\\r\n[fltsim.1]\r\nsim=Bad\r\n"
                      "texture= Gone \r\n; texture=off\r\n[fltsim.2]\r\nSIM=bad\r\ntexture=gone\r\ntexture=RED\r\n"
                      "texture=\r\n",
                      {"texture.red", "TEXTURE.Old", "mytexture.B\xFCro", "texture", "panel"});
    writeFile("FS\\aircraft\\A\\gOOD.air", "");
    addAircraftFolder("B", "nothing here\r\n");
    addAircraftFolder("C", "xsim=none texture=two", {"texture.two"}); // one line is both keys, each to its end
    fs::create_directories(nativePath(at("no cfg") + "texture.x"));
    fs::create_directories(nativePath(at("folder") + "aircraft.cfg"));

    EXPECT_EQ(report(), at("A") + " air file BAD.AIR is missing.\r\n" +                   //
                            at("A") + " texture folder 'textures.gone' is missing.\r\n" + //
                            at("A") + " texture folder 'textures.off' is missing.\r\n" +  //
                            at("A") + " air file BAD.AIR is missing.\r\n" +               //
                            at("A") + " texture folder 'textures.gone' is missing.\r\n" + //
                            at("A") + "texture.b\xFCro folder found but B\xDCRO variant not in AIRCRAFT.CFG file.\r\n" +
                            at("A") + "texture.old folder found but OLD variant not in AIRCRAFT.CFG file.\r\n\r\n" +
                            at("C") + " air file NONE TEXTURE=TWO.AIR is missing.\r\n");
}

TEST_F(AircraftReportTest, AFolderAboveThatHoldsTheWordShiftsTheNames) {
    writeFile("ACLOG.TXT", "an old report");
    EXPECT_EQ(report(), "") << "no simulator, nothing to tell";
    root = "My Texture.Sim\\aircraft\\";
    fsaircraftpath = path(root);
    addAircraftFolder("A", "texture=red\r\n", {"texture.red"});
    EXPECT_EQ(report(), at("A") + " texture folder 'textures.red' is missing.\r\n" + at("A") +
                            "texture.simaircraftatexture.red folder found but SIMAIRCRAFTATEXTURE.RED variant not in "
                            "AIRCRAFT.CFG file.\r\n\r\n");
}

} // namespace
} // namespace vantor::test
