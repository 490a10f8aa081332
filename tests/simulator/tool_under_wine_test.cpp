// Drives of a real Wine prefix, and the traffic tool as a real Windows program that runs through Wine.
#include "foundation/disk.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/text.h"
#include "foundation/text_files.h"
#include "simulator/traffic_tool.h"
#include "support/fixture.h"
#include "support/stand_in_tool.h"

#include <cstdlib>

namespace vantor::test {
namespace {

namespace fs = std::filesystem;

// A TrafficTools folder on drive C: of the prefix.
class ToolUnderWine : public Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        const char* const prefix = std::getenv("WINEPREFIX");
        ASSERT_NE(prefix, nullptr);
        const std::string name = folder().filename().string();
        native = fs::path(prefix) / "drive_c" / name / "Traffic Tools";
        onDrive = "C:\\" + name + "\\Traffic Tools";
        copyStandInTool(native / "TTools.exe");
    }
    void TearDown() override {
        std::error_code ignored;
        fs::remove_all(native.parent_path(), ignored);
        Fixture::TearDown();
    }
    static std::string text(const std::string& file) {
        std::string text;
        LoadTextFile(file, text);
        return text;
    }

    fs::path native;
    std::string onDrive;
};

TEST_F(ToolUnderWine, APathWithADriveLetterLeadsIntoThePrefix) {
    EXPECT_EQ(fs::canonical(nativePath(onDrive)), fs::canonical(native));
    EXPECT_TRUE(FileExists(upper(onDrive) + "\\ttools.EXE"));
    EXPECT_TRUE(FolderExists("C:\\WINDOWS\\system32"));
    EXPECT_FALSE(FolderExists("Q:\\windows"));
    WriteTextFile(onDrive + "\\Flightplans.txt", "AC#1\r\n");
    EXPECT_EQ(text(onDrive + "\\FLIGHTPLANS.TXT"), "AC#1\r\n");
    EXPECT_TRUE(fs::is_regular_file(native / "Flightplans.txt"));
    EXPECT_EQ(newestAction(), "");
}

TEST_F(ToolUnderWine, TheToolRunsToItsEnd) {
    EXPECT_EQ(ExecCmd(onDrive + "\\ttools.exe /co030528 /t4"), 7U);
    const std::string call = recordedCalls(native);
    EXPECT_TRUE(call.ends_with(folder().filename().string() + " [/co030528] [/t4]\n"))
        << call; // its working folder is ours
    EXPECT_EQ(text(onDrive + "\\Flightplans.txt"), "new Flightplans\r\n");
    EXPECT_TRUE(recorder.messages.empty());

    // A folder of Debian's own, with an argument that has a blank and letters beyond ASCII.
    copyStandInTool(folder() / "TTools.exe");
    EXPECT_EQ(ExecCmd(path("TTools") + " \"/deA \xFC\""), 7U);
    EXPECT_TRUE(recordedCalls(folder()).ends_with(" [/deA \xFC]\n")) << recordedCalls(folder());
}

} // namespace
} // namespace vantor::test
