// The quick distances of a load: they must round as the exact ones do.
#include "core/great_circle.h"
#include "core/leg_distances.h"
#include "foundation/fixed_text.h"
#include "foundation/numbers.h"
#include "support/fixture.h"
#include "support/traffic.h"

#include <random>
#include <string>
#include <vector>

namespace vantor {
namespace {

using LegDistancesTest = test::Fixture;

TEST_F(LegDistancesTest, RoundAsTheExactOnesDo) {
    // Unknown airports; then so many that room must be made, all over the globe, each with a neighbour and with one on
    // the other side.
    std::vector<FixedText<6>> codes = {{"KXXX"}, {"-1"}, {"a0"}};
    test::addAirport("-1", "", 1, 1);
    const auto add = [&](float latitude, float longitude) {
        codes.emplace_back("A" + std::to_string(codes.size()));
        test::addAirport(codes.back().text(), "", latitude, longitude);
    };
    std::mt19937 random(7);
    const auto degrees = [&](float most) {
        return most * (static_cast<float>(random() % 2'000'001) / 1'000'000.0F - 1);
    };
    add(90, 0);
    add(-90, 0);
    add(0, 0);
    for (int i = 0; i < 200; ++i) {
        const float latitude = degrees(90);
        const float longitude = degrees(180);
        add(latitude, longitude);
        add(latitude + degrees(0.02F), longitude + degrees(0.02F));
        add(-latitude + degrees(i % 2 == 0 ? 0.0F : 2.0F), longitude > 0 ? longitude - 180 : longitude + 180);
    }
    LegDistances distances;
    int differing = 0;
    for (const FixedText<6>& from : codes) {
        const GlobePoint start = distances.find(from);
        for (const FixedText<6>& to : codes) {
            const GlobePoint end = distances.find(to);
            const double exact = flightdistance(from.text(), to.text());
            for (const float speed : {0.7F, 120.0F, 487.3F}) {
                const double quick = LegDistances::between(from, start, to, end, speed);
                const auto knots = static_cast<double>(speed);
                differing += roundHalfEven(quick) != roundHalfEven(exact) ? 1 : 0;
                differing += roundHalfEven(quick / knots) != roundHalfEven(exact / knots) ? 1 : 0;
            }
        }
    }
    EXPECT_EQ(differing, 0);
}

} // namespace
} // namespace vantor
