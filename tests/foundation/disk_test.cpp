// Paths, as texts and on the system, and what the program asks of the disk: existence, dates, whole files, folders.
#include "foundation/disk.h"
#include "foundation/native_path.h"
#include "foundation/path_text.h"
#include "foundation/text_files.h"
#include "support/test.h"

#include <chrono>

namespace vantor {
namespace {

TEST(PathText, Parts) {
    EXPECT_EQ(addbackslash("") + addbackslash("C:\\x") + addbackslash("y\\"), "C:\\x\\y\\");
    EXPECT_EQ(pathonly("file.txt"), ".\\");
    EXPECT_EQ(pathonly("C:/a\\b/file.txt"), "C:/a\\b/"); // as given, slashes too
    EXPECT_EQ(fileonly("C:/a\\b/file.txt") + fileonly("C:\\a\\") + fileexpath("|plain"), "file.txt|plain");
    EXPECT_EQ(filewithoutext("C:\\a.b\\file"), "C:\\a"); // the last dot lies in the folder
    EXPECT_EQ(fileroot("a.b.txt") + fileroot("|nodot"), "a.b|nodot");
    EXPECT_EQ(stripnull(std::string_view(" ab \0cd", 7)), "ab");
}

class Disk : public Fixture {
  protected:
    void makeReadOnly(std::string_view name) const {
        std::filesystem::permissions(folder() / name, std::filesystem::perms(0444));
    }
};

#ifndef _WIN32

TEST_F(Disk, EachComponentOfAPathIsFoundWithoutCase) {
    writeFile("Fs\\Aircraft\\B737.CFG", "x");
    writeFile("M\xFCnchen.txt", "x"); // stands as UTF-8 on the disk
    for (const auto& [name, native] : {std::pair{"fs\\AIRCRAFT/b737.cfg", "Fs/Aircraft/B737.CFG"},
                                       {"fs\\missing\\AIRCRAFT", "Fs/missing/AIRCRAFT"},
                                       {"fs\\..\\fs\\aircraft", "Fs/../Fs/Aircraft"},
                                       {"M\xDCNCHEN.TXT", "M\xC3\xBCnchen.txt"}}) {
        EXPECT_EQ(nativePath(path(name)), folder() / native);
    }
    writeFile("fs\\other", "y"); // an exact spelling goes first
    EXPECT_EQ(nativePath(path("fs")), folder() / "fs");
    EXPECT_EQ(nativePath(path("FS")), folder() / "Fs"); // of two that fit, the first by its bytes
    EXPECT_EQ(programPath(folder() / "M\xC3\xBCnchen.txt"), path("M\xFCnchen.txt"));
    // A name that the code page can't hold, and one of single bytes, are found again by what the program makes of it.
    for (const char* const name : {"\xE4\xB8\xAD.txt", "Z\xFCrich.txt"}) {
        std::filesystem::create_directory(folder() / name);
        EXPECT_EQ(nativePath(programPath(folder() / name)), folder() / name);
    }
    setProgramFile("/opt/vantor/Vantor.exe");
    EXPECT_EQ(programFolder() + "\\" + programName(), "\\opt\\vantor\\Vantor");
}

TEST_F(Disk, DriveLettersGoThroughTheWinePrefix) {
    writeFile("wine\\drive_c\\Games\\fs9.exe", "x");
    std::filesystem::create_directory(folder() / "wine/dosdevices");
    std::filesystem::create_symlink("../drive_c", folder() / "wine/dosdevices/c:");
    const char* const prefix = std::getenv("WINEPREFIX");
    const std::string before = prefix != nullptr ? prefix : "";
    setenv("WINEPREFIX", (folder() / "wine").c_str(), 1);
    EXPECT_TRUE(FileExists("C:\\games\\FS9.EXE") && !FileExists("D:\\games\\fs9.exe"));
    EXPECT_TRUE(FolderExists("c:\\GAMES\\") && FolderExists("D:\\")); // a bare drive is taken for granted
    prefix != nullptr ? setenv("WINEPREFIX", before.c_str(), 1) : unsetenv("WINEPREFIX");
}

#endif

TEST_F(Disk, FilesFoldersAndTheFirstMatchOfAPattern) {
    writeFile("dir\\Beta.txt", "x");
    writeFile("dir\\noext", "x");
    std::filesystem::create_directory(folder() / "dir/alpha.txt");
    const auto kind = [&](std::string_view name) {
        return std::string(FileExists(path(name)) ? "file" : "") + (FolderExists(path(name)) ? "folder" : "");
    };
    EXPECT_EQ(each(kind, {"DIR\\BETA.txt", "dir\\Beta.txt\\", "dir", "dir\\", "none", "dir\\b*.TXT", "dir\\?eta.*",
                          "dir\\b*t*x*t", "dir\\b*t*y*t", "dir\\x*", "none\\*"}),
              "file||folder|folder||file|file|file||||");
    // ".*" fits a name without a dot too; "." and folders are matches as well, and here they come first.
    EXPECT_EQ(each(kind, {"dir\\noe*.*", "dir\\*.txt", "dir\\*.*"}), "file|folder|folder|");
    for (const std::string& nowhere : {std::string(), std::string(1, '\0'), std::string("\\\\server\\share")}) {
        EXPECT_FALSE(FileExists(nowhere) || FolderExists(nowhere)) << nowhere;
    }
}

TEST_F(Disk, ReadOnlyFilesAreMadeWritableWhereThatCanBe) {
    writeFile("file", "x");
    for (const bool write : {false, true}) {
        makeReadOnly("file");
        EXPECT_TRUE(isReadOnly(path("file")));
        write ? createoutputfile(path("file"))->commit() : (void)MakeReadWrite(path("file"));
        EXPECT_FALSE(isReadOnly(path("file")));
        EXPECT_EQ(readFile("file"), write ? "" : "x");
    }
    makeReadOnly("file");
    EraseFile(path("file"));
    EXPECT_FALSE(exists("file") || isReadOnly(path("file")) || MakeReadWrite(path("file")));
    EraseFile(path("file"));
    EXPECT_TRUE(isReadOnly(unwritable) && !MakeReadWrite(unwritable));
    EXPECT_TRUE(logLines().empty());
    EXPECT_EQ(createoutputfile(unwritable), nullptr);
    WriteTextFile(unwritable, "x");
    const std::string line = unwritable + " is read only, can't change it to read write, can't update it";
    EXPECT_EQ(logTexts(), (Texts{line, line}));
    EXPECT_EQ(newestAction(), "");
}

TEST_F(Disk, WholeFilesAndTheirDates) {
    const std::string bytes("a\r\nb\0\xFF", 6);
    WriteTextFile(path("text"), bytes);
    EXPECT_EQ(readFile("text"), bytes);
    EXPECT_EQ(FileLength(path("text")), 6U);
    EXPECT_EQ(errorOf([&] { (void)FileLength(path("none")); }), 53);
    std::string text = "before";
    ReadWholeFile(path("text"), text);
    EXPECT_EQ(text, bytes);
    LoadTextFile(path("none"), text);
    EXPECT_EQ(text, "");
    LoadTextFile(systemRoot + "\\proc\\self\\status", text); // tells a length of 0
    EXPECT_NE(text.find("VmPeak"), std::string::npos);
    WriteTextFile(path("none\\text"), "x");
    EXPECT_EQ(newestAction(), "Path not found(76) in sub writetextfile of module mSHAREDFileSubs");

    using namespace std::chrono;
    const sys_seconds then = sys_days(year(2003) / 5 / 28) + 12h;
    std::filesystem::last_write_time(folder() / "text", file_clock::from_sys(then));
    EXPECT_EQ(FileDate(path("text")), localDateTime(then));
    EXPECT_EQ(FileDate(path("none")), 0);
}

TEST_F(Disk, SubfoldersAscendByTheirBareNamesWithoutRegardToCase) {
    for (const char* const name : {"b", "C", "a-4", "a", "\xFCser"}) {
        writeFile(std::string("root\\") + name + "\\x", "");
    }
    writeFile("root\\file", "");
#ifdef _WIN32 // the run-time there makes no links
    std::filesystem::create_directory(folder() / "root/d");
#else
    std::filesystem::create_directory_symlink("a", folder() / "root/d");
#endif
    Texts list{"before"};
    listsubfolders(path("root"), list);
    listsubfolders(path("none\\"), list);
    EXPECT_EQ(list, (Texts{"before", "a\\", "a-4\\", "b\\", "C\\", "d\\", "\xFCser\\"}));
    EXPECT_EQ(newestAction(), "");
}

} // namespace
} // namespace vantor
