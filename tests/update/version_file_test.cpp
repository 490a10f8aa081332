// Tests of the version file and of the order of versions.
#include "support/test.h"
#include "update/version_file.h"

#include <ostream>

namespace vantor {

void PrintTo(const VersionFile& file, std::ostream* out) {
    *out << file.version.text() << " suffix [" << file.version.suffix << "] url [" << file.url << ']';
}

namespace {

class VersionFiles : public Fixture {};

TEST_F(VersionFiles, AreReadAsFarAsTheyGo) {
    const std::vector<std::pair<std::string, VersionFile>> cases = {
        {"1.2.14b\r\nhttp://u/V@@@.exe\r\n", {{1, 2, 14, "b"}, "http://u/V1214b.exe"}},
        {"10.20.30\nhttp://u/@@@/@@@\n", {{10, 20, 30, ""}, "http://u/102030/102030"}},
        {"1.2.0\nhttp://u", {{1, 2, 0, ""}, "http://u"}}, // "0" is a number, not a letter
        {"1.2.3\r\n", {{1, 2, 3, ""}, ""}},
        {"1.2.b", {{1, 2, 0, "b"}, ""}},
        {"1.2.3-\xE9", {{1, 2, 3, "\xE9"}, ""}},
        // Missing numbers are 0, and the address lends none.
        {"1.5\nhttp://10.20.30.40/x", {{1, 5, 0, ""}, "http://10.20.30.40/x"}},
        {"\nhttp://a.b.c/x", {{}, "http://a.b.c/x"}},
        {"no version here", {}},
        {"", {}},
    };
    for (const auto& [text, file] : cases) {
        EXPECT_EQ(ExtractVersion(text), file) << text;
    }
    EXPECT_EQ(ExtractVersion("1.2.14b").version.text(), "1.2.14B");
    (void)ExtractVersion("1.2.3\r\nhttp://u/@@@");
    EXPECT_EQ(newestAction(), "DBG: Url set to http://u/123 in sub extractversion of module fSharedUpdater");
}

TEST_F(VersionFiles, NumbersBeyond32BitsAreFaultsInTheRing) {
    EXPECT_EQ(ExtractVersion("2147483647.40000.20261121").version, (Version{2147483647, 40000, 20261121, ""}));
    EXPECT_TRUE(newestAction().empty());
    EXPECT_EQ(ExtractVersion("1.2147483648.3").version, (Version{1, 0, 3, ""}));
    EXPECT_EQ(newestAction(), "Overflow(6) in sub extractversion of module fSharedUpdater");
    EXPECT_EQ(ExtractVersion(std::string(1000, '9') + ".1e400.2").version, (Version{0, 0, 2, ""}));
}

TEST_F(VersionFiles, NewerGoesByNumbersFromTheLeftThenByTheSuffixByte) {
    const std::vector<std::string> ascending = {"0.9.99", "1.0.0",     "1.0.1", "1.0.1B", "1.0.1a", "1.0.1b",
                                                "1.0.1z", "1.0.1\xE9", "1.0.2", "1.1.0",  "10.0.0"};
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            EXPECT_EQ(isNewer(ExtractVersion(ascending[i]).version, ExtractVersion(ascending[j]).version), i > j)
                << ascending[i] << " over " << ascending[j];
        }
    }
}

} // namespace
} // namespace vantor
