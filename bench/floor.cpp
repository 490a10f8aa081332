#include "floor.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string_view>

namespace vantor::bench {

namespace {

constexpr double pi = 3.141592;

std::string readFile(const std::filesystem::path& file) {
    std::string text(std::filesystem::file_size(file), '\0');
    std::ifstream(file, std::ios::binary).read(text.data(), static_cast<std::streamsize>(text.size()));
    return text;
}

void splitAtCommas(std::string_view line, std::vector<std::string_view>& fields) {
    fields.clear();
    for (std::size_t comma = line.find(','); comma != std::string_view::npos; comma = line.find(',')) {
        fields.push_back(line.substr(0, comma));
        line.remove_prefix(comma + 1);
    }
    fields.push_back(line);
}

template <std::size_t N>
void put(std::array<char, N>& field, std::string_view value) {
    const std::size_t length = std::min(value.size(), N);
    std::fill(std::copy_n(value.data(), length, field.begin()), field.end(), ' ');
}

int number(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

double degrees(std::string_view text) {
    const std::size_t star = text.find('*');
    const std::size_t dot = text.find('.');
    const double value =
        number(text.substr(1)) + number(text.substr(star + 1)) / 60.0 + number(text.substr(dot + 1)) / 3600.0;
    return text[0] == 'S' || text[0] == 'W' ? -value : value;
}

// The haversine formula.
double distanceBetween(const PlainPosition& a, const PlainPosition& b) {
    const double s = std::sin((a.longitude - b.longitude) / 2);
    const double t = std::sin((a.latitude - b.latitude) / 2);
    const double h = t * t + std::cos(a.latitude) * std::cos(b.latitude) * s * s;
    return 2 * std::asin(std::sqrt(h)) * 180 * 60 / pi;
}

// The origin of the first leg is the destination of the last.
void chainLegs(PlainSchedule& schedule, const std::vector<std::string_view>& fields, const PlainAirports& airports) {
    const auto find = [&](std::string_view code) {
        const auto found = airports.find(std::string(code));
        return found == airports.end() ? nullptr : &found->second;
    };
    std::string_view from = fields.back();
    const PlainPosition* start = find(from);
    for (std::size_t i = 0; i < schedule.legs.size(); ++i) {
        PlainLeg& leg = schedule.legs[i];
        const std::string_view to = fields[5 + 6 * i + 5];
        const PlainPosition* const end = find(to);
        put(leg.to, to);
        put(leg.from, from);
        leg.distance =
            start != nullptr && end != nullptr ? static_cast<float>(std::round(distanceBetween(*start, *end))) : 0;
        from = to;
        start = end;
    }
}

PlainSchedule scheduleOf(const std::vector<std::string_view>& fields, const PlainAirports& airports) {
    PlainSchedule schedule;
    put(schedule.aircraft, fields[0]);
    put(schedule.tail, fields[1]);
    put(schedule.percent, fields[2]);
    put(schedule.period, fields[3]);
    put(schedule.rules, fields[4]);
    schedule.legs.resize((fields.size() - 5) / 6);
    for (std::size_t i = 0; i < schedule.legs.size(); ++i) {
        PlainLeg& leg = schedule.legs[i];
        const std::size_t at = 5 + 6 * i;
        put(leg.dep, fields[at]);
        put(leg.arr, fields[at + 1]);
        leg.level = static_cast<std::int16_t>(number(fields[at + 2]));
        leg.type = fields[at + 3].empty() ? ' ' : fields[at + 3].front();
        put(leg.flight, fields[at + 4]);
    }
    chainLegs(schedule, fields, airports);
    return schedule;
}

// Calls take(line) for each line, its CR LF taken off.
template <class Take>
void forEachLine(std::string_view text, const Take& take) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        take(line);
    }
}

} // namespace

PlainAirports readPlainAirports(const std::filesystem::path& file) {
    PlainAirports airports;
    const std::string text = readFile(file);
    std::vector<std::string_view> fields;
    forEachLine(text, [&](std::string_view line) {
        splitAtCommas(line, fields);
        airports[std::string(fields[0])] = {degrees(fields[1]) * pi / 180, degrees(fields[2]) * pi / 180};
    });
    return airports;
}

std::vector<PlainSchedule> runFloor(const std::filesystem::path& file, const PlainAirports& airports) {
    std::vector<PlainSchedule> schedules;
    std::string text = readFile(file);
    std::array<char, 256> capitals{};
    for (std::size_t c = 0; c < capitals.size(); ++c) {
        const bool small = (c >= 'a' && c <= 'z') || (c >= 0xE0 && c != 0xF7 && c != 0xFF);
        capitals[c] = static_cast<char>(small ? c - 32 : c);
    }
    std::ranges::transform(text, text.begin(), [&](char c) { return capitals[static_cast<unsigned char>(c)]; });
    std::vector<std::string_view> fields;
    forEachLine(text, [&](std::string_view line) {
        splitAtCommas(line, fields);
        if (fields.size() >= 11) {
            schedules.push_back(scheduleOf(fields, airports));
        }
    });
    return schedules;
}

} // namespace vantor::bench
