#include "core/leg_text.h"

#include "foundation/clock.h"
#include "foundation/numbers.h"

#include <memory>
#include <string>

namespace vantor {

namespace {

// Where the texts that are not known ahead stand: their numbers, searched from a text's own place on.
struct Others {
    std::vector<std::uint32_t> slots = std::vector<std::uint32_t>(1024); // a power of two, half of them free (0)
    std::vector<std::unique_ptr<LegText::Text[]>> pieces;
    std::uint32_t next = 0; // the number of the next new text
};

Others& others() {
    static Others all;
    return all;
}

std::size_t placeOf(const LegText::Text& text) noexcept {
    std::uint64_t first = 0;
    std::uint32_t last = 0;
    std::memcpy(&first, text.raw().data(), sizeof(first));
    std::memcpy(&last, text.raw().data() + sizeof(first), sizeof(last));
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15ULL; // 2^64 over the golden ratio: mixes upwards
    const std::uint64_t mixed = (first ^ last * spread) * spread;
    return static_cast<std::size_t>(mixed >> 32U);
}

} // namespace

std::vector<LegText::Text*> LegText::texts = makeTexts();

std::vector<LegText::Text*> LegText::makeTexts() {
    Others& all = others();
    Text* const piece = all.pieces.emplace_back(std::make_unique<Text[]>(pieceSize)).get();
    for (std::uint32_t minute = 0; minute < firstPlain - firstTime; ++minute) {
        piece[firstTime + minute] = formatHHMM(minute / 1440.0) + ":00";
    }
    for (std::uint32_t number = 0; number < plainNumbers; ++number) {
        piece[firstPlain + number] = std::to_string(number);
    }
    all.next = firstOther;
    return {piece};
}

std::uint32_t LegText::search(std::string_view value) {
    const Text text(value);
    const std::string_view bare = value.substr(0, text.raw().size());
    const std::string_view padded = bare.substr(0, bare.find_last_not_of(' ') + 1);
    if (padded.empty()) {
        return blank;
    }
    if (padded.size() != value.size()) {
        return numberOf(padded); // one text has one number
    }
    Others& all = others();
    const auto slotOf = [&](const Text& wanted) -> std::uint32_t& {
        const std::size_t mask = all.slots.size() - 1;
        std::size_t at = placeOf(wanted) & mask;
        while (all.slots[at] != 0 && texts[all.slots[at] / pieceSize][all.slots[at] % pieceSize] != wanted) {
            at = (at + 1) & mask;
        }
        return all.slots[at];
    };
    if (const std::uint32_t known = slotOf(text); known != 0) {
        return known;
    }
    const std::uint32_t number = all.next;
    if (number % pieceSize == 0) {
        texts.push_back(all.pieces.emplace_back(std::make_unique<Text[]>(pieceSize)).get());
    }
    texts.back()[number % pieceSize] = text;
    slotOf(text) = all.next++;
    if (2 * (number - firstOther) > all.slots.size()) {
        all.slots.assign(2 * all.slots.size(), 0);
        for (std::uint32_t other = firstOther; other < all.next; ++other) {
            slotOf(texts[other / pieceSize][other % pieceSize]) = other;
        }
    }
    return number;
}

} // namespace vantor
