#include "update/status_text.h"

#include "foundation/progress.h"
#include "foundation/text.h"

#include <string>
#include <vector>

namespace vantor {

namespace {

std::vector<std::string> brokenToWidth(const Canvas& box, std::string_view text) {
    std::vector<std::string> lines(1);
    const auto fits = [&box](const std::string& line) { return box.textWidth(line) <= box.innerWidth(); };
    for (const std::string_view word : split(text, " ")) {
        const std::string longer = lines.back().empty() ? std::string(word) : lines.back() + " " + std::string(word);
        if (fits(longer)) {
            lines.back() = longer;
            continue;
        }
        if (!lines.back().empty()) {
            lines.emplace_back();
        }
        for (const char letter : word) { // a long path has no blank
            if (!lines.back().empty() && !fits(lines.back() + letter)) {
                lines.emplace_back();
            }
            lines.back() += letter;
        }
    }
    return lines;
}

} // namespace

void printStatusText(Canvas& box, std::string_view text) {
    box.useSystemColours();
    if (box.textWidth(text) <= box.innerWidth()) {
        PrintCentered(&box, text, true, 0, 0);
        return;
    }
    const std::vector<std::string> lines = brokenToWidth(box, text);
    const double lineHeight = box.textHeight(text);
    double y = (box.innerHeight() - lineHeight * static_cast<double>(lines.size())) / 2;
    box.clear();
    for (const std::string& line : lines) {
        box.drawText((box.innerWidth() - box.textWidth(line)) / 2, y, line);
        y += lineHeight;
    }
}

} // namespace vantor
