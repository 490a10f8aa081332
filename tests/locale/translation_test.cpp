#include "locale/translation.h"
#include "support/test.h"

namespace vantor {

TEST(Translation, GivesBackEveryTextAndTakesLinesApartAtTheirFirstBreak) {
    EXPECT_EQ(gettranslation(" blanks || and a break, caf\xE9 "), " blanks || and a break, caf\xE9 ");
    for (const auto& [line, before, after] : {std::tuple{" Exit || Beenden ", "Exit", "Beenden"},
                                              {"a||b||c", "a", "b||c"},
                                              {"||b", "", "b"},
                                              {" alone ", "alone", ""}}) {
        EXPECT_EQ(beforebreak(line), before);
        EXPECT_EQ(afterbreak(line), after);
    }
}

} // namespace vantor
