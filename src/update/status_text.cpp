#include "update/status_text.h"

#include "foundation/progress.h"
#include "foundation/text.h"

#include <string>
#include <vector>

namespace vantor {

namespace {

std::vector<std::string> brokenToWidth(const Canvas& box, std::string_view text) {
    std::vector<std::string> lines;
    for (const std::string_view word : split(text, " ")) {
        const std::string longer = lines.empty() ? std::string(word) : lines.back() + " " + std::string(word);
        if (lines.empty() || box.textWidth(longer) > box.innerWidth()) {
            lines.emplace_back(word);
        } else {
            lines.back() = longer;
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
