// What only Windows does: drives, names of any case, files that someone else holds open.
#include "foundation/channels.h"
#include "foundation/disk.h"
#include "foundation/native_path.h"
#include "foundation/replacing_file.h"
#include "support/test.h"

#include <io.h>
#include <thread>
#include <windows.h>

namespace vantor {
namespace {

constexpr DWORD readAndWrite = FILE_SHARE_READ | FILE_SHARE_WRITE;

struct CloseHandleOf {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Held = std::unique_ptr<HANDLE, CloseHandleOf>;

class OnWindows : public Fixture {
  protected:
    void SetUp() override { writeFile("plans.txt", "old"); }
    // A file that another program holds open, with what it lets others do meanwhile.
    Held hold(std::string_view name, DWORD shared) const {
        const HANDLE handle =
            CreateFileW((folder() / name).c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr);
        return Held(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
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
            ReplacingFile file(path("PLANS.txt"));
            file.write("new");
            meanwhile();
            file.commit();
        });
    }
};

TEST_F(OnWindows, DrivesFoldersAndNamesOfAnyCase) {
    const std::string drive = path("").substr(0, 2);
    EXPECT_TRUE(FolderExists(drive) && FolderExists(drive + "\\") && FolderExists("Q:")); // a bare drive is there
    EXPECT_FALSE(FolderExists("Q:\\TrafficTools"));
    EXPECT_EQ(nativePath(path("dir\\")), folder() / "dir"); // the run-time knows no folder by such a name
    EXPECT_EQ(nativePath(drive + "\\").native(), std::filesystem::path(drive + "\\").native());
    writeFile("M\xFCnchen Tools\\Pl\xE4ne.txt", "x");
    EXPECT_TRUE(FileExists(path("M\xDCNCHEN TOOLS\\PL\xC4NE.TXT")) && FileExists(path("m\xFCnchen tools/pl\xE4*.txt")));
    EXPECT_EQ(programPath(folder() / L"M\u00FCnchen Tools"), path("M\xFCnchen Tools"));
    setProgramFile(folder() / "Vantor.exe");
    EXPECT_EQ(programFolder() + "\\" + programName(), path("Vantor"));
}

TEST_F(OnWindows, ReadOnlyIsAnAttribute) {
    const std::filesystem::path file = folder() / "plans.txt";
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(isReadOnly(path("PLANS.TXT")));
    EXPECT_EQ(save([] {}), 75);
    expectUntouched();
    EXPECT_TRUE(MakeReadWrite(path("plans.txt")));
    EXPECT_EQ(GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EraseFile(path("plans.txt"));
    EXPECT_FALSE(exists("plans.txt"));
}

TEST_F(OnWindows, ASaveWaitsAMomentForWhoHoldsTheTargetAndElseTheOldFileStays) {
    for (const DWORD shared : {DWORD{0}, DWORD{FILE_SHARE_READ}, readAndWrite}) {
        Held held = hold("plans.txt", shared);
        ASSERT_TRUE(held);
        EXPECT_EQ(save([] {}), 75) << shared;
        held.reset();
        expectUntouched();
    }
    // A scanner takes the new file as soon as that is closed, ahead of the rename or after a first attempt.
    std::jthread scanner;
    Held target = hold("plans.txt", readAndWrite);
    const auto scan = [&] {
        Held fresh;
        while (!fresh && exists("plans.txt.~new")) {
            fresh = hold("plans.txt.~new", 0);
        }
        EXPECT_TRUE(fresh);
        fresh.reset();
        target.reset();
    };
    EXPECT_EQ(save([&] { scanner = std::jthread(scan); }), 0);
    EXPECT_EQ(readFile("plans.txt"), "new");
    EXPECT_EQ(std::filesystem::directory_iterator(folder())->path().filename(), "plans.txt"); // the name as it stood
}

TEST_F(OnWindows, AWriteThatFailsHalfwayLeavesTheOldFile) {
    struct Pulled : ReplacingFile { // its disk is gone
        using ReplacingFile::ReplacingFile;
        void pull() const { EXPECT_EQ(_close(_fileno(file())), 0); }
    };
    for (const std::size_t length : {100000U, 1U}) { // more than the buffer, and less
        EXPECT_EQ(errorOf([&] {
                      Pulled file(path("plans.txt"));
                      file.write(std::string(length, 'x'));
                      file.pull();
                      file.write(std::string(length, 'x'));
                      file.commit();
                  }),
                  52);
        expectUntouched();
    }
}

TEST_F(OnWindows, FilesThatAnotherProgramHolds) {
    writeFile("log.txt", "earlier\r\n");
    {
        const Held editor = hold("log.txt", readAndWrite);
        writelogline(path("log.txt"), "x", true); // can't be erased: appended to without a header
    }
    EXPECT_EQ(readFile("log.txt"), "earlier\r\n12:00:00       1            x\r\n");
    EXPECT_EQ(newestAction(), "Path/File access error(75) in sub erasefile of module mSHAREDFileSubs");
    const Held alone = hold("plans.txt", 0);
    EXPECT_EQ(errorOf([&] { InputFile in(path("plans.txt")); }), 75);
    EXPECT_EQ(errorOf([&] { OutputFile out(path("plans.txt"), OutputFile::Open::Append); }), 75);
    EXPECT_TRUE(FileExists(path("plans.txt")));
    EXPECT_EQ(FileLength(path("plans.txt")), 3U);
}

} // namespace
} // namespace vantor
