// Files on channels: read line by line, written, and put in an old one's place only when they are whole.
#include "foundation/channels.h"
#include "foundation/native_path.h"
#include "foundation/replacing_file.h"
#include "foundation/text_files.h"
#include "support/test.h"

#include <sys/stat.h>

namespace vantor {
namespace {

class Channels : public Fixture {
  protected:
    // The lines of a file with these bytes.
    Texts linesOf(std::string_view bytes) const {
        writeFile("lines", bytes);
        InputFile file(path("lines"));
        Texts lines;
        for (std::string_view line; file.readLine(line);) {
            lines.emplace_back(line);
        }
        std::string all;
        InputFile again(path("lines"));
        for (std::span<char> whole; again.readLines(whole); all.append(whole.begin(), whole.end())) {
            EXPECT_TRUE(all.empty() || all.ends_with('\n') || (all.ends_with('\r') && whole.front() != '\n'));
        }
        EXPECT_TRUE(all == bytes);
        EXPECT_EQ(LinesInFile(path("lines")), std::ssize(lines));
        return lines;
    }
};

TEST_F(Channels, LowestFreeNumberUpTo255) {
    OutputFile first(path("1"));
    OutputFile second(path("2"));
    const ReplacingFile third(path("3"));
    EXPECT_EQ(std::tuple(first.number(), second.number(), third.number()), std::tuple(1, 2, 3));
    second.write("x");
    second.close();
    EXPECT_EQ(second.number(), 0);
    EXPECT_EQ(errorOf([&] { second.write("x"); }), 52);
    EXPECT_EQ(errorOf([&] { second.close(); }), 0);
    EXPECT_EQ(errorOf([&] { InputFile failed(path("none")); }), 53); // takes no channel along
    EXPECT_EQ(OutputFile(path("4")).number(), 2);
    EXPECT_EQ(InputFile(path("2")).number(), 2); // the one before is closed again
    std::vector<OutputFile> open;
    EXPECT_EQ(errorOf([&] {
                  while (open.size() < 300) {
                      open.emplace_back(path("same"), OutputFile::Open::Append);
                  }
              }),
              67);
    EXPECT_EQ(open.size(), 253U);
}

TEST_F(Channels, WhatCantBeOpenedOrRead) {
    std::filesystem::create_directory(folder() / "dir");
    writeFile("file", "");
    const auto error = [&](const std::string& name) { return errorOf([&] { InputFile in(name); }); };
    EXPECT_EQ(each<std::string>(error, {path("none"), path("none\\file"), path("file\\below"), path("dir"), "",
                                        path(std::string_view("fi\0le", 5)), path(std::string(300, 'x'))}),
              "53|76|76|75|75|52|52|");
    EXPECT_EQ(errorOf([&] { OutputFile out(path("none\\file")); }), 76);
    EXPECT_EQ(errorOf([&] { OutputFile out(path("dir"), OutputFile::Open::Append); }), 75);
    // A process's memory opens well and can't be read at address 0.
    EXPECT_EQ(errorOf([] { (void)LinesInFile(unreadable); }), unreadableError);
#ifndef _WIN32
    ASSERT_EQ(mkfifo((folder() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { InputFile in(path("pipe")); }), 75); // and does not wait for a writer
#endif
}

TEST_F(Channels, EveryKindOfLineEndAlsoAcrossTheBuffer) {
    EXPECT_EQ(linesOf("a\r\nb\rc\nd\n\re\r\r\nf"), (Texts{"a", "b", "c", "d", "", "e", "", "f"}));
    EXPECT_EQ(LinesInFile(path("lines")), 8);
    EXPECT_EQ(linesOf(""), Texts{});
    EXPECT_EQ(linesOf(std::string_view("a\0b\nc\0", 6)), (Texts{std::string("a\0b", 3), std::string("c\0", 2)}));
    EXPECT_EQ(LinesInFile(path("none")) + LinesInFile(path(".")), 0);
    // Lines of every length round the edges of the buffer, so that a CR LF is torn apart at each of them.
    Texts lines;
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
            bytes.erase(bytes.size() - end.size()); // the last needs no end
            ASSERT_EQ(linesOf(bytes), lines);
        }
    }
}

class Replacing : public Fixture {
  protected:
    void SetUp() override { writeFile("plans.txt", "old"); }
    // The old file stands byte for byte, and nothing lies beside it.
    void expectUntouched() const {
        EXPECT_EQ(readFile("plans.txt"), "old");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder()), {}), 1);
    }
};

TEST_F(Replacing, TakesTheOldFilesPlaceOnCommitAlone) {
    { ReplacingFile(path("plans.txt")).write("half"); }
    {
        ReplacingFile file(path("plans.txt"));
        const ReplacingFile moved(std::move(file));
    }
    expectUntouched();
    writeFile("plans.txt.~new", "longer rest of a run that broke off");
    ReplacingFile file(path("plans.txt"));
    file.write("n");
    EXPECT_EQ(readFile("plans.txt"), "old");
    ReplacingFile moved(std::move(file));
    moved.write("ew");
    moved.commit();
    moved.commit(); // a second time does nothing
    EXPECT_EQ(readFile("plans.txt"), "new");
    EXPECT_FALSE(moved.isOpen() || exists("plans.txt.~new"));
    EXPECT_EQ(errorOf([&] { moved.write("more"); }), 52);
}

TEST_F(Replacing, WhatCantBeReplaced) {
    std::filesystem::create_directory(folder() / "dir");
    EXPECT_EQ(errorOf([&] { ReplacingFile file(path("dir")); }), 75);
    EXPECT_EQ(errorOf([&] { ReplacingFile file(path("none\\plans.txt")); }), 76);
#ifndef _WIN32 // no devices among the folders there
    EXPECT_EQ(errorOf([&] { ReplacingFile file(fullDevice); }), 75);
    EXPECT_TRUE(std::filesystem::is_character_file(nativePath(fullDevice)));
#endif
    std::filesystem::remove(folder() / "dir");
    std::filesystem::permissions(folder() / "plans.txt", std::filesystem::perms(0444));
    EXPECT_EQ(errorOf([&] { ReplacingFile file(path("plans.txt")); }), 75);
    expectUntouched();
}

#ifndef _WIN32 // names of any case lead to the same file there; no links and modes

TEST_F(Replacing, NameModeAndLinksAreKept) {
    std::filesystem::permissions(folder() / "plans.txt", std::filesystem::perms(0640));
    std::filesystem::create_symlink("plans.txt", folder() / "link.txt");
    std::filesystem::create_symlink(folder() / "link.txt", folder() / "second.txt");
    ReplacingFile file(path("SECOND.TXT"));
    file.write("new");
    file.commit();
    EXPECT_EQ(readFile("plans.txt"), "new");
    EXPECT_FALSE(exists("SECOND.TXT"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder() / "link.txt"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder() / "second.txt"));
    EXPECT_EQ(std::filesystem::status(folder() / "plans.txt").permissions(), std::filesystem::perms(0640));
}

#endif

} // namespace
} // namespace vantor
