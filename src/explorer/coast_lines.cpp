#include "explorer/coast_lines.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace vantor {

namespace {

#include "explorer/coast_lines.inc"

// Whole numbers of either sign in printable characters; scripts/coast-lines writes them.
class NumberReader {
  public:
    explicit NumberReader(std::string_view text) : m_text(text) {}

    [[nodiscard]] bool ended() const { return m_at == m_text.size(); }

    std::int32_t next() {
        constexpr std::int32_t ends = 60;     // digits below it end a number
        constexpr std::int32_t furthers = 31; // of those that don't
        std::int32_t value = 0;
        for (std::int32_t weight = 1;; weight *= furthers) {
            const std::int32_t digit = digitOf(m_text.at(m_at++));
            value += weight * digit;
            if (digit < ends) {
                return value % 2 == 0 ? value / 2 : -(value + 1) / 2;
            }
        }
    }

  private:
    // Three characters of the printable ones would not stand in a string literal as they are.
    static std::int32_t digitOf(char c) { return c - '!' - (c > '"') - (c > '?') - (c > '\\'); }

    std::string_view m_text;
    std::size_t m_at = 0;
};

CoastLines decode(std::string_view text) {
    constexpr double stepsPerDegree = 100;
    CoastLines rings;
    for (NumberReader numbers(text); !numbers.ended();) {
        const std::int32_t count = numbers.next();
        CoastRing ring;
        ring.lake = count < 0;
        ring.points.reserve(static_cast<std::size_t>(std::abs(count)));
        std::int32_t x = 0;
        std::int32_t y = 0;
        for (std::int32_t i = 0; i < std::abs(count); ++i) {
            x += numbers.next();
            y += numbers.next();
            ring.points.push_back(project({y / stepsPerDegree, x / stepsPerDegree}));
        }
        ring.box = {ring.points[0].x, ring.points[0].y, ring.points[0].x, ring.points[0].y};
        for (const FlatPoint& point : ring.points) {
            ring.box.add(point);
        }
        rings.push_back(std::move(ring));
    }
    return rings;
}

} // namespace

const CoastLines& coastLines(double scale) {
    static const CoastLines coarse = decode(land110m);
    if (constexpr double fineFrom = 1800; scale < fineFrom) {
        return coarse;
    }
    static const CoastLines fine = decode(land50m);
    return fine;
}

bool isShore(FlatPoint from, FlatPoint to) noexcept {
    constexpr double tiny = 1e-6;
    const bool dateLine = std::abs(from.x - to.x) < tiny && std::abs(from.x - std::round(from.x)) < tiny;
    return !dateLine && (from.y < halfWorldHeight - tiny || to.y < halfWorldHeight - tiny);
}

} // namespace vantor
