// Foundation: what the whole program stands on and that knows nothing of traffic.
// The search for one byte in a text, eight bytes at a time.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vantor {

/// Calls take(position) for each `wanted` in `text`, in order. It looks at eight bytes at a time, which for fields of a
/// few characters takes a third of the time of as many searches.
template <class Take>
void forEachPosition(std::string_view text, char wanted, const Take& take) {
    static_assert(std::endian::native == std::endian::little, "the first byte of a word is its lowest");
    constexpr std::uint64_t low7 = 0x7F7F7F7F7F7F7F7FULL;
    const std::uint64_t pattern = 0x0101010101010101ULL * static_cast<unsigned char>(wanted);
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof(word) <= text.size(); at += sizeof(word)) {
        std::memcpy(&word, text.data() + at, sizeof(word));
        word ^= pattern; // the wanted ones become zero bytes, and the line below marks just these by their top bits
        for (std::uint64_t hits = ~(((word & low7) + low7) | word | low7); hits != 0; hits &= hits - 1) {
            take(at + static_cast<std::size_t>(std::countr_zero(hits)) / 8);
        }
    }
    for (; at < text.size(); ++at) {
        if (text[at] == wanted) {
            take(at);
        }
    }
}

} // namespace vantor
