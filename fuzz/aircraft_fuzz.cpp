// The aircraft file: what was read is written, sorted, and comes back.
#include "core/aircraft_file.h"
#include "core/aircraft_table.h"
#include "core/tables.h"
#include "foundation/text.h"
#include "fuzz.h"

#include <algorithm>

namespace vantor::fuzz {

namespace {

constexpr std::initializer_list<ErrorCode> refusals = {ErrorCode::Overflow, ErrorCode::TypeMismatch, ErrorCode::Loader};

int load() {
    return errorOf(refusals, [] {
        LoadAircraft(folder().path("Aircraft.txt"), bar());
        SortAircraft();
    });
}

std::string saved() {
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(folder().native()); // where saveaircraft writes
    saveaircraft();
    std::filesystem::current_path(here);
    return folder().get("Aircraft.txt");
}

std::vector<std::string> linesOf(std::string_view text) {
    const auto lines = split(text, "\r\n");
    std::vector<std::string> result(lines.begin(), lines.end());
    std::ranges::sort(result);
    return result;
}

std::int32_t expectedRows(std::string_view input) {
    return static_cast<std::int32_t>(std::ranges::count_if(splitLines(input), [](std::string_view line) {
        const auto columns = split(line, ",");
        return columns.size() > 2 && !contains(columns[0], "//") && !contains(columns[0], ";");
    }));
}

} // namespace

void check(std::string_view input) {
    folder().put("Aircraft.txt", input);
    if (load() != 0) {
        return;
    }
    require(aircraftcount == expectedRows(input), "every aircraft line is a row");
    for (std::int32_t row = 1; row <= aircraftcount; ++row) {
        const std::string_view code = aircraft[row].acnum.raw();
        require(row == 1 || trueacnum(aircraft[row - 1].acnum.raw()) <= trueacnum(code), "rows are sorted");
        require(trueacnum(aircraft[aircraftrecord(code)].acnum.raw()) == trueacnum(code), "each row is found");
    }
    const std::string first = saved();
    require(first.empty() == (load() != 0), "what was saved loads again");
    // Blanks ahead of a code go with the first save, and with them its number and place may change.
    const std::string second = first.empty() ? first : saved();
    require(linesOf(first) == linesOf(second), "no line is lost");
    require(first.empty() || (load() == 0 && saved() == second), "saved lines stay as they are");
}

} // namespace vantor::fuzz
