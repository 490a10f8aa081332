// Channels, and files read line by line.
#include "foundation/files.h"
#include "support/expect_error.h"
#include "support/fixture.h"
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

} // namespace
} // namespace vantor
