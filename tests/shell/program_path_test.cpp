// Tests of where the program stands when it was started through a link or as a copy.
#include "shell/program_path.h"
#include "support/test.h"

namespace vantor {
namespace {

using ProgramPath = test::Fixture;

TEST_F(ProgramPath, ALinkToTheExecutableCountsAsTheProgram) {
    writeFile("bin\\Vantor", "program");
    writeFile("TrafficTools\\Aircraft.txt", "");
    writeFile("TrafficTools\\other", "program");
    const std::filesystem::path real = std::filesystem::canonical(folder());
    const std::filesystem::path executable = real / "bin" / "Vantor";
    const std::filesystem::path link = real / "TrafficTools" / "Vantor";
    std::filesystem::create_symlink(executable, link);

    EXPECT_EQ(startedProgram(link, executable), link);
    EXPECT_EQ(startedProgram(real / "TrafficTools" / "." / ".." / "TrafficTools" / "Vantor", executable), link);
    EXPECT_EQ(startedProgram(link.lexically_relative(std::filesystem::current_path()), executable), link);
    EXPECT_EQ(startedProgram(executable, executable), executable);
    // A name that leads elsewhere, or nowhere, says nothing.
    EXPECT_EQ(startedProgram(real / "TrafficTools" / "other", executable), executable);
    EXPECT_EQ(startedProgram("no such program", executable), executable);
    EXPECT_EQ(startedProgram({}, executable), executable);
}

} // namespace
} // namespace vantor
