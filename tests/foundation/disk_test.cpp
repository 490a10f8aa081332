// Paths, as texts and on the system, and what the program asks of the disk: existence, dates, whole files, folders.
#include "foundation/files.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/system_files.h"

#include <chrono>
#include <cstdlib>

namespace vantor {
namespace {

using test::unwritable;
using Names = std::vector<std::string>;

TEST(PathText, Parts) {
    EXPECT_EQ(addbackslash(""), "");
    EXPECT_EQ(addbackslash("C:\\x"), "C:\\x\\");
    EXPECT_EQ(addbackslash("C:\\x\\"), "C:\\x\\");
    EXPECT_EQ(pathonly("file.txt"), ".\\");
    EXPECT_EQ(pathonly("C:/a\\b/file.txt"), "C:/a\\b/"); // as given, slashes too
    EXPECT_EQ(fileonly("C:/a\\b/file.txt"), "file.txt");
    EXPECT_EQ(fileonly("C:\\a\\"), "");
    EXPECT_EQ(fileexpath("plain"), "plain");
    EXPECT_EQ(filewithoutext("C:\\a.b\\file"), "C:\\a"); // the last dot lies in the folder
    EXPECT_EQ(fileroot("a.b.txt"), "a.b");
    EXPECT_EQ(fileroot("nodot"), "nodot");
    EXPECT_EQ(stripnull(std::string_view(" ab \0cd", 7)), "ab");
}

#ifndef _WIN32

class NativePaths : public test::Fixture {};

TEST_F(NativePaths, EachComponentIsFoundWithoutCase) {
    writeFile("Fs\\Aircraft\\B737.CFG", "x");
    EXPECT_EQ(nativePath(path("fs\\AIRCRAFT/b737.cfg")), folder() / "Fs/Aircraft/B737.CFG");
    EXPECT_EQ(nativePath(path("fs\\missing\\AIRCRAFT")), folder() / "Fs/missing/AIRCRAFT");
    EXPECT_EQ(nativePath(path("fs\\..\\fs\\aircraft")), folder() / "Fs/../Fs/Aircraft");
    writeFile("fs\\other", "y"); // an exact spelling goes first
    EXPECT_EQ(nativePath(path("fs")), folder() / "fs");
    EXPECT_EQ(nativePath(path("FS")), folder() / "Fs"); // of two that fit, the first by its bytes
    setProgramFile("/opt/vantor/Vantor.exe");
    EXPECT_EQ(programFolder(), "\\opt\\vantor");
    EXPECT_EQ(programName(), "Vantor");
}

TEST_F(NativePaths, NamesBeyondAscii) {
    writeFile("M\xFCnchen.txt", "x"); // stands as UTF-8 on the disk
    EXPECT_EQ(nativePath(path("M\xFCnchen.txt")), folder() / "M\xC3\xBCnchen.txt");
    EXPECT_EQ(nativePath(path("M\xDCNCHEN.TXT")), folder() / "M\xC3\xBCnchen.txt");
    EXPECT_EQ(programPath(folder() / "M\xC3\xBCnchen.txt"), path("M\xFCnchen.txt"));
    // A name that the code page can't hold, and one of single bytes, are found again by what the program makes of it.
    for (const char* const name : {"\xE4\xB8\xAD.txt", "Z\xFCrich.txt"}) {
        std::filesystem::create_directory(folder() / name);
        EXPECT_EQ(nativePath(programPath(folder() / name)), folder() / name);
    }
}

TEST_F(NativePaths, DriveLettersGoThroughTheWinePrefix) {
    writeFile("wine\\drive_c\\Games\\fs9.exe", "x");
    std::filesystem::create_directory(folder() / "wine/dosdevices");
    std::filesystem::create_symlink("../drive_c", folder() / "wine/dosdevices/c:");
    const char* const prefix = std::getenv("WINEPREFIX");
    const std::string before = prefix != nullptr ? prefix : "";
    setenv("WINEPREFIX", (folder() / "wine").c_str(), 1);
    EXPECT_TRUE(FileExists("C:\\games\\FS9.EXE"));
    EXPECT_TRUE(FolderExists("c:\\GAMES\\"));
    EXPECT_FALSE(FileExists("D:\\games\\fs9.exe"));
    EXPECT_TRUE(FolderExists("D:\\")); // a bare drive is taken for granted
    prefix != nullptr ? setenv("WINEPREFIX", before.c_str(), 1) : unsetenv("WINEPREFIX");
}

#endif

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
    // ".*" fits a name without a dot too; "." and folders are matches as well, and here they come first.
    for (const auto& [name, kind] : {std::pair{"DIR\\BETA.txt", File},
                                     {"dir\\Beta.txt\\", None},
                                     {"dir", Folder},
                                     {"dir\\", Folder},
                                     {"none", None},
                                     {"dir\\b*.TXT", File},
                                     {"dir\\?eta.*", File},
                                     {"dir\\b*t*x*t", File},
                                     {"dir\\b*t*y*t", None},
                                     {"dir\\noe*.*", File},
                                     {"dir\\*.txt", Folder},
                                     {"dir\\*.*", Folder},
                                     {"dir\\x*", None},
                                     {"none\\*", None}}) {
        EXPECT_EQ(FileExists(path(name)), kind == File) << name;
        EXPECT_EQ(FolderExists(path(name)), kind == Folder) << name;
    }
    for (const std::string& nowhere : {std::string(), std::string(1, '\0'), std::string("\\\\server\\share")}) {
        EXPECT_FALSE(FileExists(nowhere) || FolderExists(nowhere)) << nowhere;
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
    for (const char* const name : {"b", "C", "a-4", "a", "\xFCser"}) {
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
    EXPECT_EQ(list, (Names{"before", "a\\", "a-4\\", "b\\", "C\\", "d\\", "\xFCser\\"}));
    EXPECT_EQ(recorder.paintPumps, 1);

    fillfolders(path("none\\"), list, true);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(newestAction(), "");
}

} // namespace
} // namespace vantor
