#include "explorer/leg_export.h"

#include "foundation/code_page.h"
#include "foundation/replacing_file.h"
#include "foundation/text.h"

namespace vantor {

namespace {

constexpr std::size_t rowsBetweenLooks = 1000;

std::string csvCell(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        return std::string(text);
    }
    return '"' + replaceAll(text, "\"", "\"\"") + '"';
}

// Calls cell(column) for each column and puts `between` between what it gives.
template <class Cell>
void appendLine(std::string& text, std::span<const LegColumn> columns, char between, const Cell& cell) {
    bool first = true;
    for (const LegColumn column : columns) {
        if (!first) {
            text += between;
        }
        first = false;
        text += cell(column);
    }
    text += "\r\n";
}

} // namespace

std::string rowsAsText(std::span<const LegNumber> rows, std::span<const LegColumn> columns) {
    std::string text;
    appendLine(text, columns, '\t', columnTitle);
    for (const LegNumber row : rows) {
        appendLine(text, columns, '\t', [&](LegColumn column) { return cellText(row, column); });
    }
    return text;
}

bool exportCsv(std::string_view path, std::span<const LegNumber> rows, std::span<const LegColumn> columns,
               const ExportProgress& progress) {
    ReplacingFile file(path);
    std::string text;
    appendLine(text, columns, ',', [](LegColumn column) { return csvCell(columnTitle(column)); });
    for (std::size_t at = 0; at < rows.size(); ++at) {
        appendLine(text, columns, ',', [&](LegColumn column) { return csvCell(toUtf8(cellText(rows[at], column))); });
        if (at % rowsBetweenLooks == 0) {
            if (!progress(at)) {
                return false;
            }
            file.write(text);
            text.clear();
        }
    }
    file.write(text);
    file.commit();
    return true;
}

} // namespace vantor
