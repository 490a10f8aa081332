#include "explorer/routes_labels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace vantor {

namespace {

// Boxes found by the cells of a grid that they lie in. The grid is as wide as the world, whose ends meet.
class TakenBoxes {
  public:
    TakenBoxes(double cell, double scale)
        : m_columns(std::max(1L, std::lround(scale / cell))), m_cell(scale / static_cast<double>(m_columns)),
          m_scale(scale) {}

    [[nodiscard]] bool isFree(const FlatBox& box) const {
        bool free = true;
        forEachCell(box, [&](std::int64_t cell) {
            const auto found = m_cells.find(cell);
            free = free &&
                   (found == m_cells.end() || std::ranges::none_of(found->second, [&](const FlatBox& taken) {
                        const double shift = std::round((box.left - taken.left) / m_scale) * m_scale;
                        return FlatBox{taken.left + shift, taken.top, taken.right + shift, taken.bottom}.meets(box);
                    }));
        });
        return free;
    }

    void take(const FlatBox& box) {
        forEachCell(box, [&](std::int64_t cell) { m_cells[cell].push_back(box); });
    }

  private:
    template <class Visit>
    void forEachCell(const FlatBox& box, const Visit& visit) const {
        const auto cellOf = [this](double at) { return static_cast<std::int64_t>(std::floor(at / m_cell)); };
        for (std::int64_t row = cellOf(box.top); row <= cellOf(box.bottom); ++row) {
            for (std::int64_t column = cellOf(box.left); column <= cellOf(box.right); ++column) {
                visit(row * m_columns + (column % m_columns + m_columns) % m_columns);
            }
        }
    }

    std::int64_t m_columns;
    double m_cell;
    double m_scale;
    std::unordered_map<std::int64_t, std::vector<FlatBox>> m_cells;
};

FlatBox movedTo(const FlatBox& box, FlatPoint place) {
    return {box.left + place.x, box.top + place.y, box.right + place.x, box.bottom + place.y};
}

} // namespace

std::vector<MapLabel> placeLabels(std::span<const FlatPoint> places, std::span<const LabelSize> sizes, double height,
                                  double scale) {
    constexpr double gap = 2;
    double room = scale * scale * 2 * halfWorldHeight / 10;
    std::vector<MapLabel> labels;
    TakenBoxes taken(2 * height, scale);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto [width, radius] = sizes[i];
        if (width <= 0 || room < 0) {
            continue;
        }
        const double away = radius + gap;
        const std::array<FlatBox, 4> sides{{{away, -height / 2, away + width, height / 2},
                                            {-away - width, -height / 2, -away, height / 2},
                                            {-width / 2, -away - height, width / 2, -away},
                                            {-width / 2, away, width / 2, away + height}}};
        const FlatPoint pixel{places[i].x * scale, places[i].y * scale};
        const auto* const side =
            std::ranges::find_if(sides, [&](const FlatBox& box) { return taken.isFree(movedTo(box, pixel)); });
        if (side != sides.end()) {
            labels.push_back({i, *side});
            room -= width * height;
            taken.take(movedTo(*side, pixel));
            taken.take({pixel.x - radius, pixel.y - radius, pixel.x + radius, pixel.y + radius});
        }
    }
    return labels;
}

} // namespace vantor
