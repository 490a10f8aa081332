// Tests of the translation calls.
#include "locale/translation.h"

#include <gtest/gtest.h>

namespace vantor {
namespace {

TEST(Translation, GivesBackEveryTextAndTakesLinesApartAtTheirFirstBreak) {
    EXPECT_EQ(gettranslation(" blanks || and a break, caf\xE9 "), " blanks || and a break, caf\xE9 ");
    EXPECT_EQ(beforebreak(" Exit || Beenden "), "Exit");
    EXPECT_EQ(afterbreak(" Exit || Beenden "), "Beenden");
    EXPECT_EQ(afterbreak("a||b||c"), "b||c");
    EXPECT_EQ(beforebreak("||b"), "");
    EXPECT_EQ(beforebreak(" alone "), "alone");
    EXPECT_EQ(afterbreak(" alone "), "");
}

} // namespace
} // namespace vantor
