// Tests of the version file and of the order of versions.
#include "foundation/log.h"
#include "support/fixture.h"
#include "update/version_file.h"

#include <ostream>

namespace vantor {

void PrintTo(const VersionFile& file, std::ostream* out) {
    *out << file.version.text() << " suffix [" << file.version.suffix << "] url [" << file.url << ']';
}

namespace {

struct VersionCase {
    std::string text;
    VersionFile file;
};

class VersionFiles : public test::Fixture {};

TEST_F(VersionFiles, AreReadAsFarAsTheyGo) {
    const std::string url = "http://u.invalid/";
    const std::vector<VersionCase> cases = {
        {"1.2.14b\r\n" + url + "V@@@.exe\r\n", {{1, 2, 14, "b"}, url + "V1214b.exe"}},
        {"1.2.14b\n" + url + "V@@@.exe\n", {{1, 2, 14, "b"}, url + "V1214b.exe"}},
        {"10.20.30\n" + url + "@@@/@@@", {{10, 20, 30, ""}, url + "102030/102030"}},
        {"1.2.0\n" + url, {{1, 2, 0, ""}, url}}, // "0" is a number, not a letter
        {"1.2.3\r\n", {{1, 2, 3, ""}, ""}},
        {"1.2.3", {{1, 2, 3, ""}, ""}},
        {"1.2.3B", {{1, 2, 3, "B"}, ""}},
        {"1.2.b", {{1, 2, 0, "b"}, ""}},
        {"1.2.", {{1, 2, 0, ""}, ""}},
        {"1.2.3-\xE9", {{1, 2, 3, "\xE9"}, ""}},
        // Missing numbers are 0, and the address lends none.
        {"1.5\nhttp://10.20.30.40/x", {{1, 5, 0, ""}, "http://10.20.30.40/x"}},
        {"7\nhttp://10.20.30.40/x", {{7, 0, 0, ""}, "http://10.20.30.40/x"}},
        {"\nhttp://a.b.c/x", {{}, "http://a.b.c/x"}},
        {"no version here", {}},
        {"", {}},
    };
    for (const VersionCase& one : cases) {
        EXPECT_EQ(ExtractVersion(one.text), one.file) << one.text;
    }
    EXPECT_EQ(ExtractVersion("1.2.14b").version.text(), "1.2.14B");
    EXPECT_FALSE(newestAction().starts_with("Overflow"));
}

TEST_F(VersionFiles, TellTheAddressInTheRing) {
    (void)ExtractVersion("1.2.3\r\nhttp://u.invalid/@@@");
    EXPECT_EQ(newestAction(), "DBG: Url set to http://u.invalid/123 in sub extractversion of module fSharedUpdater");
}

TEST_F(VersionFiles, NumbersBeyond32BitsAreFaultsInTheRing) {
    EXPECT_EQ(ExtractVersion("2147483647.40000.20261121").version, (Version{2147483647, 40000, 20261121, ""}));
    EXPECT_TRUE(newestAction().empty());
    EXPECT_EQ(ExtractVersion("1.2147483648.3").version, (Version{1, 0, 3, ""}));
    EXPECT_EQ(newestAction(), "Overflow(6) in sub extractversion of module fSharedUpdater");
    EXPECT_EQ(ExtractVersion(std::string(1000, '9') + ".1e400.2").version, (Version{0, 0, 2, ""}));
}

TEST_F(VersionFiles, NewerGoesByNumbersFromTheLeftThenByTheSuffixByte) {
    const std::vector<std::string> ascending = {"0.9.99", "1.0.0", "1.0.1", "1.0.1B", "1.0.1a",
                                                "1.0.1b", "1.0.2", "1.1.0", "2.0.0",  "10.0.0"};
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            EXPECT_EQ(isNewer(ExtractVersion(ascending[i]).version, ExtractVersion(ascending[j]).version), i > j)
                << ascending[i] << " over " << ascending[j];
        }
    }
    EXPECT_TRUE(isNewer({1, 0, 1, "\xE9"}, {1, 0, 1, "z"})) << "bytes have no sign";
}

} // namespace
} // namespace vantor
