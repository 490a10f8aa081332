#include "views/movement_chart.h"

#include "views/movements.h"

#include <algorithm>
#include <string>

namespace vantor {

namespace {

// Margins in twips.
constexpr double marginLeft = 300;
constexpr double marginRight = 100;
constexpr double marginTop = 200;
constexpr double marginBottom = 350;

constexpr Colour red = 255;
constexpr Colour blue = 16711680;
constexpr int hoursPerDay = 24;

struct ChartScale {
    double base = 0;   // the line that the bars stand on
    double unit = 0;   // height of one movement
    double bar = 0;    // from one bar's left edge to the next
    double gap = 0;    // between two bars
    double height = 0; // of a digit
};

ChartScale scaleOf(const Canvas& canvas, int peak) {
    ChartScale scale;
    scale.unit = (canvas.innerHeight() - (marginTop + marginBottom)) / peak;
    scale.bar = (canvas.innerWidth() - (marginLeft + marginRight)) / (2 * hoursPerDay);
    scale.gap = scale.bar / 8;
    scale.base = canvas.outerHeight() - marginBottom;
    scale.height = canvas.textHeight("1");
    return scale;
}

void drawBar(Canvas& canvas, const ChartScale& scale, double left, int count, Colour colour) {
    canvas.fillBox(left, scale.base - scale.unit * count, left + scale.bar - scale.gap, scale.base, colour);
}

// Counts from 1 up, each at its height, those left out that would overlap the one printed last.
void drawCounts(Canvas& canvas, const ChartScale& scale, int peak) {
    constexpr double centre = 50;
    const auto height = static_cast<float>(scale.height);
    auto last = static_cast<float>(scale.base);
    for (int n = 1; n <= peak; ++n) {
        const auto position = static_cast<float>(scale.base - scale.unit * n - scale.height / 4);
        if (last - height > position) {
            const std::string text = std::to_string(n);
            canvas.drawText(centre - canvas.textWidth(text) / 2, static_cast<double>(position), text);
            last = position;
        }
    }
}

} // namespace

void drawMovementChart(Canvas& canvas, std::string_view icao, std::int16_t day) {
    MovementHours departures{};
    MovementHours arrivals{};
    countflights(departures, arrivals, icao, day);
    canvas.clear();
    int peak = 1;
    for (std::size_t h = 0; h < hoursPerDay; ++h) {
        peak = std::max<int>({peak, departures[h], arrivals[h]});
    }
    canvas.setFontSize(7);
    const ChartScale scale = scaleOf(canvas, peak);
    for (std::size_t h = 0; h < hoursPerDay; ++h) {
        const double left = marginLeft + 2 * scale.bar * static_cast<double>(h);
        drawBar(canvas, scale, left, departures[h], red);
        canvas.drawText(left, canvas.innerHeight() - scale.height, std::to_string(h));
    }
    for (std::size_t h = 0; h < hoursPerDay; ++h) {
        const double left = marginLeft + 2 * scale.bar * static_cast<double>(h) + scale.bar;
        drawBar(canvas, scale, left, arrivals[h], blue);
    }
    drawCounts(canvas, scale, peak);
}

} // namespace vantor
