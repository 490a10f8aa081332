// Texts of paths, and the way from the program's paths to native ones.
#include "foundation/files.h"
#include "foundation/native_path.h"
#include "support/fixture.h"

#include <cstdlib>
#include <optional>

namespace vantor {
namespace {

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

class NativePaths : public test::Fixture {
  protected:
    void TearDown() override {
        if (m_prefix) {
            setenv("WINEPREFIX", m_prefix->c_str(), 1);
        } else {
            unsetenv("WINEPREFIX");
        }
        Fixture::TearDown();
    }

  private:
    std::optional<std::string> m_prefix =
        std::getenv("WINEPREFIX") != nullptr ? std::optional<std::string>(std::getenv("WINEPREFIX")) : std::nullopt;
};

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
    setenv("WINEPREFIX", (folder() / "wine").c_str(), 1);
    EXPECT_TRUE(FileExists("C:\\games\\FS9.EXE"));
    EXPECT_TRUE(FolderExists("c:\\GAMES\\"));
    EXPECT_FALSE(FileExists("D:\\games\\fs9.exe"));
    EXPECT_TRUE(FolderExists("D:\\")); // a bare drive is taken for granted
}

#endif

} // namespace
} // namespace vantor
