// Files on channels: read line by line, written, and put in an old one's place only when they are whole.
#include "foundation/files.h"
#include "foundation/native_path.h"
#include "support/expect_error.h"
#include "support/fixture.h"
#include "support/full_disk.h"
#include "support/system_files.h"

#include <sys/stat.h>

namespace vantor {
namespace {

using test::errorOf;
using Lines = std::vector<std::string>;

class Channels : public test::Fixture {
  protected:
    // The lines of a file with these bytes.
    Lines linesOf(std::string_view bytes) const {
        writeFile("lines", bytes);
        InputFile file(path("lines"));
        Lines lines;
        for (std::string_view line; file.readLine(line);) {
            lines.emplace_back(line);
        }
        return lines;
    }
};

TEST_F(Channels, LowestFreeNumber) {
    writeFile("a", "x");
    OutputFile first(path("1"));
    InputFile second(path("a"));
    ReplacingFile third(path("3"));
    EXPECT_EQ(first.number(), 1);
    EXPECT_EQ(second.number(), 2);
    EXPECT_EQ(third.number(), 3);
    second.close();
    EXPECT_EQ(second.number(), 0);
    EXPECT_EQ(errorOf([&] { InputFile failed(path("none")); }), 53); // takes no channel along
    EXPECT_EQ(OutputFile(path("4")).number(), 2);
    EXPECT_EQ(OutputFile(path("4")).number(), 2); // the one before is closed again
}

TEST_F(Channels, ClosingAllFilesReachesTheirHolders) {
    writeFile("in", "a\nb");
    writeFile("kept", "old");
    InputFile in(path("in"));
    OutputFile out(path("out"));
    ReplacingFile replacing(path("kept"));
    out.write("written");
    replacing.write("half");
    closeAllFiles();
    std::string_view line;
    EXPECT_FALSE(in.isOpen());
    EXPECT_EQ(errorOf([&] { (void)in.readLine(line); }), 52);
    EXPECT_EQ(errorOf([&] { out.write("x"); }), 52);
    EXPECT_EQ(errorOf([&] { replacing.commit(); }), 52);
    EXPECT_EQ(errorOf([&] { out.close(); }), 0);
    EXPECT_EQ(readFile("out"), "written");
    EXPECT_EQ(readFile("kept"), "old"); // never replaced by a half
    EXPECT_FALSE(exists("kept.~new"));
    EXPECT_EQ(OutputFile(path("new")).number(), 1);
}

TEST_F(Channels, TooManyFiles) {
    std::vector<OutputFile> open;
    const int error = errorOf([&] {
        for (int i = 0; i < 300; ++i) {
            open.emplace_back(path("same"), OutputFile::Open::Append);
        }
    });
    EXPECT_EQ(error, 67);
    EXPECT_EQ(open.size(), 255U);
}

TEST_F(Channels, WhatCantBeOpenedOrRead) {
    std::filesystem::create_directory(folder() / "dir");
    writeFile("file", "");
    const std::vector<std::pair<std::string, int>> inputs = {{path("none"), 53},
                                                             {path("none\\file"), 76},
                                                             {path("file\\below"), 76},
                                                             {path("dir"), 75},
                                                             {"", 75},
                                                             {path(std::string_view("fi\0le", 5)), 52}};
    for (const auto& [name, error] : inputs) {
        EXPECT_EQ(errorOf([&] { InputFile in(name); }), error) << name;
    }
    EXPECT_EQ(errorOf([&] { OutputFile out(path("none\\file")); }), 76);
    EXPECT_EQ(errorOf([&] { OutputFile out(path("dir"), OutputFile::Open::Append); }), 75);
    EXPECT_EQ(errorOf([&] { OutputFile out(path(std::string(300, 'x'))); }), 52);
    // A process's memory opens well and can't be read at address 0.
    EXPECT_EQ(errorOf([] { (void)LinesInFile(test::unreadable); }), test::unreadableError);
#ifndef _WIN32
    ASSERT_EQ(mkfifo((folder() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { InputFile in(path("pipe")); }), 75); // and does not wait for a writer
#endif
}

TEST_F(Channels, EveryKindOfLineEnd) {
    EXPECT_EQ(linesOf("a\r\nb\rc\nd\n\re\r\r\nf"), (Lines{"a", "b", "c", "d", "", "e", "", "f"}));
    EXPECT_EQ(LinesInFile(path("lines")), 8);
    EXPECT_EQ(linesOf(""), Lines{});
    EXPECT_EQ(linesOf("\r\n"), Lines{""});
    EXPECT_EQ(linesOf("x\r"), Lines{"x"});
    EXPECT_EQ(linesOf(std::string_view("a\0b\nc\0", 6)), (Lines{std::string("a\0b", 3), std::string("c\0", 2)}));
    EXPECT_EQ(LinesInFile(path("none")), 0);
    EXPECT_EQ(LinesInFile(path(".")), 0);
}

TEST_F(Channels, LineEndsAndLongLinesAcrossTheBuffer) {
    // Lines of every length round the edges of the buffer, so that a CR LF is torn apart at each of them.
    Lines lines;
    for (std::size_t length :
         {4094U, 4095U, 4096U, 4097U, 262141U, 262142U, 262143U, 262144U, 262145U, 3000000U, 0U, 7U}) {
        lines.emplace_back(length, static_cast<char>('a' + lines.size()));
    }
    for (const std::string_view end : {"\r\n", "\r", "\n"}) {
        for (std::size_t shift = 0; shift < 3; ++shift) {
            lines[0].assign(shift, 'z');
            std::string bytes;
            for (const std::string& line : lines) {
                bytes.append(line).append(end);
            }
            ASSERT_EQ(linesOf(bytes), lines);
            bytes.resize(bytes.size() - end.size()); // the last needs no end
            ASSERT_EQ(linesOf(bytes), lines);
        }
    }
}

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
    const test::FullDisk full(100000);
    ReplacingFile file(path("plans.txt"));
    const auto fill = [&] {
        for (int i = 0; i < 1000; ++i) {
            file.write(std::string(1000, 'x'));
        }
    };
    EXPECT_EQ(errorOf(fill), 61);
    EXPECT_EQ(errorOf(fill), 0);
    EXPECT_EQ(errorOf([&] { file.commit(); }), 0);
    expectUntouched();
}

#endif

} // namespace
} // namespace vantor
