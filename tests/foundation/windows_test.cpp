// What only Windows does: drives, names of any case, its code page, files that someone else holds open.
#include "foundation/files.h"
#include "foundation/log.h"
#include "foundation/native_path.h"
#include "foundation/text.h"
#include "support/expect_error.h"
#include "support/fixture.h"

#include <io.h>
#include <iterator>
#include <optional>
#include <thread>
#include <utility>
#include <windows.h>

namespace vantor {
namespace {

using test::errorOf;

// A file that another program holds open, and what it lets others do meanwhile.
class Held {
  public:
    Held(const std::filesystem::path& file, DWORD shared)
        : m_handle(CreateFileW(file.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(m_handle, INVALID_HANDLE_VALUE);
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() { release(); }
    void release() {
        if (m_handle != INVALID_HANDLE_VALUE) {
            CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE));
        }
    }

  private:
    HANDLE m_handle;
};

constexpr DWORD readAndWrite = FILE_SHARE_READ | FILE_SHARE_WRITE;

class OnWindows : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        writeFile("plans.txt", "old");
    }
    // The old file stands byte for byte, and nothing lies beside it.
    void expectUntouched() const {
        EXPECT_EQ(readFile("plans.txt"), "old");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder()), {}), 1);
    }
    // The error of a save to plans.txt, done as all saves are; `meanwhile` runs ahead of the rename.
    template <class Action>
    int save(Action meanwhile) const {
        return errorOf([&] {
            ReplacingFile file(path("plans.txt"));
            file.write("new");
            meanwhile();
            file.commit();
        });
    }
};

TEST_F(OnWindows, DrivesFoldersAndNamesOfAnyCase) {
    const std::string drive = path("").substr(0, 2);
    ASSERT_EQ(drive[1], ':');
    EXPECT_TRUE(FolderExists(drive));
    EXPECT_TRUE(FolderExists(drive + "\\"));
    EXPECT_TRUE(FolderExists("Q:")); // a bare drive is taken for granted
    EXPECT_FALSE(FolderExists("Q:\\TrafficTools"));
    EXPECT_EQ(nativePath(path("dir\\")), folder() / "dir"); // the run-time knows no folder by such a name
    EXPECT_EQ(nativePath(drive + "\\").native(), std::filesystem::path(drive + "\\").native());
    writeFile("M\xFCnchen Tools\\Pl\xE4ne.txt", "x");
    EXPECT_TRUE(FileExists(path("M\xDCNCHEN TOOLS\\PL\xC4NE.TXT")));
    EXPECT_TRUE(FileExists(path("m\xFCnchen tools/pl\xE4*.txt")));
    EXPECT_EQ(programPath(folder() / L"M\u00FCnchen Tools"), path("M\xFCnchen Tools"));
    setProgramFile(folder() / "Vantor.exe");
    EXPECT_EQ(programFolder() + "\\plans.txt", path("plans.txt"));
    EXPECT_EQ(programName(), "Vantor");
}

TEST_F(OnWindows, CapitalsFollowTheCodePage) {
    ASSERT_EQ(GetACP(), 1252U) << "these bytes are letters of Windows-1252";
    EXPECT_EQ(upper("\xE4\xF6\xFC\x9A\x9E\xFF\xDF\xF7"), "\xC4\xD6\xDC\x8A\x8E\x9F\xDF\xF7");
    EXPECT_EQ(lower("\xC4\xD6\xDC\x8A\x8E\x9F\xD7"), "\xE4\xF6\xFC\x9A\x9E\xFF\xD7");
}

TEST_F(OnWindows, ReadOnlyIsAnAttribute) {
    const std::filesystem::path file = folder() / "plans.txt";
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(isReadOnly(path("PLANS.TXT")));
    EXPECT_TRUE(MakeReadWrite(path("plans.txt")));
    EXPECT_EQ(GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EraseFile(path("plans.txt"));
    EXPECT_FALSE(exists("plans.txt"));
}

TEST_F(OnWindows, ASaveKeepsTheNameAsItStands) {
    ReplacingFile file(path("PLANS.TXT"));
    file.write("new");
    file.commit();
    EXPECT_EQ(readFile("plans.txt"), "new");
    EXPECT_EQ(std::filesystem::directory_iterator(folder())->path().filename(), "plans.txt");
}

TEST_F(OnWindows, ASaveWhoseTargetIsHeldFailsAndTheOldFileStays) {
    const std::filesystem::path file = folder() / "plans.txt";
    for (const DWORD shared : {DWORD{0}, DWORD{FILE_SHARE_READ}, readAndWrite}) {
        Held held(file, shared);
        EXPECT_EQ(save([] {}), 75) << shared;
        held.release();
        expectUntouched();
    }
    EXPECT_EQ(save([] {}), 0);
    EXPECT_EQ(readFile("plans.txt"), "new");
}

TEST_F(OnWindows, AScannerThatLetsGoInTimeDoesNotSpoilTheSave) {
    // It takes the new file as soon as that is closed, ahead of the rename or after a first attempt.
    std::jthread scanner;
    std::optional<Held> target(std::in_place, folder() / "plans.txt", readAndWrite);
    const auto scan = [&] {
        const std::filesystem::path fresh = folder() / "plans.txt.~new";
        HANDLE handle = INVALID_HANDLE_VALUE;
        while (handle == INVALID_HANDLE_VALUE && exists("plans.txt.~new")) {
            handle = CreateFileW(fresh.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        }
        EXPECT_NE(handle, INVALID_HANDLE_VALUE);
        CloseHandle(handle);
        target.reset();
    };
    EXPECT_EQ(save([&] { scanner = std::jthread(scan); }), 0);
    EXPECT_EQ(readFile("plans.txt"), "new");
}

TEST_F(OnWindows, ASaveOverAReadOnlyTargetFailsAndTheOldFileStays) {
    SetFileAttributesW((folder() / "plans.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(save([] {}), 75);
    expectUntouched();
}

TEST_F(OnWindows, AWriteThatFailsHalfwayLeavesTheOldFile) {
    struct Pulled : ReplacingFile { // its disk is gone
        using ReplacingFile::ReplacingFile;
        void pull() const { EXPECT_EQ(_close(_fileno(file())), 0); }
    };
    EXPECT_EQ(errorOf([&] {
                  Pulled file(path("plans.txt"));
                  file.write(std::string(100000, 'x'));
                  file.pull();
                  file.write(std::string(100000, 'x'));
                  file.commit();
              }),
              52);
    expectUntouched();
    EXPECT_EQ(errorOf([&] {
                  Pulled file(path("plans.txt"));
                  file.write("x"); // waits in the buffer
                  file.pull();
                  file.commit();
              }),
              52);
    expectUntouched();
}

TEST_F(OnWindows, ALogThatAnotherProgramHoldsIsAppendedToWithoutAHeader) {
    writeFile("log.txt", "earlier\r\n");
    {
        const Held held(folder() / "log.txt", readAndWrite); // as an editor does
        writelogline(path("log.txt"), "x", true);
    }
    EXPECT_EQ(readFile("log.txt"), "earlier\r\n12:00:00       1            x\r\n");
    EXPECT_EQ(newestAction(), "Path/File access error(75) in sub erasefile of module mSHAREDFileSubs");
}

TEST_F(OnWindows, FilesThatAreHeldAloneCantBeOpened) {
    const Held held(folder() / "plans.txt", 0);
    EXPECT_EQ(errorOf([&] { InputFile in(path("plans.txt")); }), 75);
    EXPECT_EQ(errorOf([&] { OutputFile out(path("plans.txt"), OutputFile::Open::Append); }), 75);
    EXPECT_TRUE(FileExists(path("plans.txt")));
    EXPECT_EQ(FileLength(path("plans.txt")), 3U);
}

} // namespace
} // namespace vantor
