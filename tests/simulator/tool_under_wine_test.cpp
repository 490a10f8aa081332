// A check of packaging: the traffic tool as a real Windows program, run through Wine from a drive of its prefix.
#include "foundation/native_path.h"
#include "simulator/traffic_tool.h"
#include "support/stand_in_tool.h"
#include "support/test.h"

namespace vantor {
namespace {

class ToolUnderWine : public Fixture {};

TEST_F(ToolUnderWine, RunsToItsEndFromADriveOfThePrefix) {
    const char* const prefix = std::getenv("WINEPREFIX");
    ASSERT_NE(prefix, nullptr);
    const std::string name = folder().filename().string();
    const std::filesystem::path native = std::filesystem::path(prefix) / "drive_c" / name / "Traffic Tools";
    copyStandInTool(native / "TTools.exe");
    EXPECT_EQ(std::filesystem::canonical(nativePath("C:\\" + name + "\\TRAFFIC TOOLS")),
              std::filesystem::canonical(native));
    EXPECT_EQ(ExecCmd("C:\\" + name + "\\Traffic Tools\\ttools.exe /co030528 \"/deA \xFC\""), 7U);
    EXPECT_TRUE(recordedCalls(native).ends_with(name + " [/co030528] [/deA \xFC]\n")) << recordedCalls(native);
    EXPECT_TRUE(std::filesystem::is_regular_file(native / "Flightplans.txt"));
    std::filesystem::remove_all(native.parent_path());
}

} // namespace
} // namespace vantor
