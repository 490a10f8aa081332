// What the program asks of the disk: existence, attributes, dates, whole files, folders.
#include "foundation/files.h"
#include "foundation/log.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/system_files.h"

#include <chrono>

namespace vantor {
namespace {

using test::unwritable;
using Names = std::vector<std::string>;

class Disk : public test::Fixture {
  protected:
    void makeReadOnly(std::string_view name) const {
        std::filesystem::permissions(folder() / name, std::filesystem::perms(0444));
    }
};

TEST_F(Disk, FilesFoldersAndTheFirstMatchOfAPattern) {
    writeFile("dir\\Beta.txt", "x");
    writeFile("dir\\noext", "x");
    std::filesystem::create_directory(folder() / "dir/alpha.txt");
    enum Kind { None, File, Folder };
    const std::pair<std::string, Kind> cases[] = {{path("DIR\\BETA.txt"), File}, {path("dir\\Beta.txt\\"), None},
                                                  {path("dir"), Folder},         {path("dir\\"), Folder},
                                                  {path("none"), None},          {"", None},
                                                  {std::string(1, '\0'), None},  {"\\\\server\\share", None},
                                                  {path("dir\\b*.TXT"), File},   {path("dir\\?eta.*"), File},
                                                  {path("dir\\b*t*x*t"), File},  {path("dir\\b*t*y*t"), None},
                                                  {path("dir\\noe*.*"), File},  // ".*" fits a name without a dot too
                                                  {path("dir\\*.txt"), Folder}, // which comes first
                                                  {path("dir\\*.*"), Folder},   // "." comes first
                                                  {path("dir\\x*"), None},       {path("none\\*"), None}};
    for (const auto& [name, kind] : cases) {
        EXPECT_EQ(FileExists(name), kind == File) << name;
        EXPECT_EQ(FolderExists(name), kind == Folder) << name;
    }
}

TEST_F(Disk, ReadOnlyFiles) {
    writeFile("file", "x");
    makeReadOnly("file");
    EXPECT_TRUE(isReadOnly(path("file")));
    EXPECT_TRUE(MakeReadWrite(path("file")));
    EXPECT_FALSE(isReadOnly(path("file")));
    EXPECT_FALSE(isReadOnly(path("none")));
    EXPECT_FALSE(MakeReadWrite(path("none")));
    EXPECT_TRUE(isReadOnly(unwritable));
    EXPECT_FALSE(MakeReadWrite(unwritable));

    makeReadOnly("file");
    createoutputfile(path("file"))->commit();
    EXPECT_EQ(readFile("file"), "");
    EXPECT_TRUE(logLines().empty());
    makeReadOnly("file");
    EraseFile(path("file"));
    EXPECT_FALSE(exists("file"));
    EraseFile(path("file"));
    EXPECT_EQ(newestAction(), "");
}

TEST_F(Disk, AFileThatCantBeMadeWritableIsLogged) {
    EXPECT_EQ(createoutputfile(unwritable), nullptr);
    const Names line{unwritable + " is read only, can't change it to read write, can't update it"};
    EXPECT_EQ(logTexts(), line);
    WriteTextFile(unwritable, "x");
    EXPECT_EQ(logTexts().size(), 2U);
    EXPECT_EQ(newestAction(), "");
}

TEST_F(Disk, WholeFiles) {
    const std::string bytes("a\r\nb\0\xFF", 6);
    WriteTextFile(path("text"), bytes);
    EXPECT_EQ(readFile("text"), bytes);
    EXPECT_EQ(FileLength(path("text")), 6U);
    EXPECT_EQ(test::errorOf([&] { (void)FileLength(path("none")); }), 53);
    std::string text = "before";
    ReadWholeFile(path("text"), text);
    EXPECT_EQ(text, bytes);
    LoadTextFile(path("none"), text);
    EXPECT_EQ(text, "");
    LoadTextFile(test::systemFile("\\proc\\self\\status"), text); // tells a length of 0
    EXPECT_NE(text.find("VmPeak"), std::string::npos);

    WriteTextFile(path("none\\text"), "x");
    EXPECT_EQ(newestAction(), "Path not found(76) in sub writetextfile of module mSHAREDFileSubs");
}

TEST_F(Disk, DatesAreLocalTime) {
    EXPECT_EQ(FileDate(path("none")), 0);
    writeFile("file", "x");
    useClock(nullptr);
    EXPECT_NEAR(FileDate(path("file")), now(), 1.0 / 24);
    const std::chrono::sys_seconds then =
        std::chrono::sys_days(std::chrono::year(2003) / 5 / 28) + std::chrono::hours(12);
    std::filesystem::last_write_time(folder() / "file", std::chrono::file_clock::from_sys(then));
    EXPECT_EQ(FileDate(path("file")), localDateTime(then));
}

TEST_F(Disk, SubfoldersAscendWithoutRegardToCase) {
    for (const char* const name : {"b", "C", "a", "\xFCser"}) {
        writeFile(std::string("root\\") + name + "\\x", "");
    }
    writeFile("root\\file", "");
#ifdef _WIN32 // the run-time there makes no links
    std::filesystem::create_directory(folder() / "root/d");
#else
    std::filesystem::create_directory_symlink("a", folder() / "root/d");
#endif
    Names list{"before"};
    listsubfolders(path("root"), list);
    EXPECT_EQ(list, (Names{"before", "a\\", "b\\", "C\\", "d\\", "\xFCser\\"}));
    EXPECT_EQ(recorder.paintPumps, 1);

    const std::string root = path("root\\");
    fillfolders(root, list, true);
    EXPECT_EQ(list.front(), root + "a\\aircraft.cfg");
    EXPECT_EQ(list.size(), 5U);
    fillfolders(root, list, false);
    EXPECT_EQ(list.back(), root + "\xFCser\\");
    fillfolders(path("none\\"), list, true);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(newestAction(), "");
}

} // namespace
} // namespace vantor
