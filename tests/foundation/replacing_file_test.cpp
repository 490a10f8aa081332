// Files that take an old one's place only when they are whole.
#include "foundation/files.h"
#include "foundation/native_path.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/full_disk.h"
#include "support/system_files.h"

namespace vantor {
namespace {

using test::errorOf;

class Replacing : public test::Fixture {
  protected:
    void SetUp() override {
        Fixture::SetUp();
        writeFile("plans.txt", "old");
    }
    void save(std::string_view name) const {
        ReplacingFile file(path(name));
        file.write("new");
        file.commit();
    }
    // The old file stands byte for byte, and nothing lies beside it.
    void expectUntouched() const {
        EXPECT_EQ(readFile("plans.txt"), "old");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder()), {}), 1);
    }
};

TEST_F(Replacing, TakesTheOldFilesPlaceOnCommitAlone) {
    writeFile("plans.txt.~new", "longer rest of a run that broke off");
    {
        ReplacingFile file(path("plans.txt"));
        file.write("n");
        EXPECT_EQ(readFile("plans.txt"), "old");
        ReplacingFile moved(std::move(file));
        moved.write("ew");
        moved.commit();
        EXPECT_EQ(readFile("plans.txt"), "new");
        EXPECT_FALSE(moved.isOpen());
        moved.commit(); // a second time does nothing
        EXPECT_EQ(errorOf([&] { moved.write("more"); }), 52);
    }
    EXPECT_EQ(readFile("plans.txt"), "new");
    EXPECT_FALSE(exists("plans.txt.~new"));
    save("PLANS2.txt");
    EXPECT_EQ(readFile("PLANS2.txt"), "new");
}

TEST_F(Replacing, WithoutCommitNothingHappened) {
    { ReplacingFile(path("plans.txt")).write("half"); }
    expectUntouched();
    {
        ReplacingFile file(path("plans.txt"));
        const ReplacingFile moved(std::move(file));
    }
    expectUntouched();
}

TEST_F(Replacing, WhatCantBeReplaced) {
    std::filesystem::create_directory(folder() / "dir");
    EXPECT_EQ(errorOf([&] { ReplacingFile file(path("dir")); }), 75);
    EXPECT_EQ(errorOf([&] { ReplacingFile file(path("none\\plans.txt")); }), 76);
#ifndef _WIN32 // no devices among the folders there
    EXPECT_EQ(errorOf([&] { ReplacingFile file(test::fullDevice); }), 75);
    EXPECT_TRUE(std::filesystem::is_character_file(nativePath(test::fullDevice)));
#endif
    std::filesystem::remove(folder() / "dir");
    std::filesystem::permissions(folder() / "plans.txt", std::filesystem::perms(0444));
    EXPECT_EQ(errorOf([&] { ReplacingFile file(path("plans.txt")); }), 75);
    expectUntouched();
}

#ifndef _WIN32 // names of any case lead to the same file there; no links and modes, and no way to fill a disk

TEST_F(Replacing, NameModeAndLinksAreKept) {
    std::filesystem::permissions(folder() / "plans.txt", std::filesystem::perms(0640));
    std::filesystem::create_symlink("plans.txt", folder() / "link.txt");
    std::filesystem::create_symlink(folder() / "link.txt", folder() / "second.txt");
    save("SECOND.TXT");
    EXPECT_EQ(readFile("plans.txt"), "new");
    EXPECT_FALSE(exists("SECOND.TXT"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder() / "link.txt"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder() / "second.txt"));
    EXPECT_EQ(std::filesystem::status(folder() / "plans.txt").permissions(), std::filesystem::perms(0640));
}

TEST_F(Replacing, AFullDiskIsToldOnceAndTheOldFileStays) {
    {
        const test::FullDisk full(100000);
        ReplacingFile file(path("plans.txt"));
        EXPECT_EQ(errorOf([&] {
                      for (int i = 0; i < 1000; ++i) {
                          file.write(std::string(1000, 'x'));
                      }
                  }),
                  61);
        EXPECT_EQ(errorOf([&] { file.write("later"); }), 0);
        EXPECT_EQ(errorOf([&] { file.commit(); }), 0);
        expectUntouched();
    }
    const test::FullDisk full(10);
    ReplacingFile file(path("plans.txt"));
    file.write("eleven bytes"); // waits in the buffer
    EXPECT_EQ(errorOf([&] { file.commit(); }), 61);
    expectUntouched();
}

#endif

} // namespace
} // namespace vantor
