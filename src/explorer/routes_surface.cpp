#include "explorer/routes_surface.h"

namespace vantor {

const MapColours& mapColours(bool dark) noexcept {
    static constexpr MapColours onLight{
        .outside = 0xC9D6DF,
        .sea = 0xDCE8F0,
        .land = 0xF7F4EB,
        .shore = 0x9FAAB0,
        .grid = 0xC8D5DE,
        .text = 0x1B2226,
        .halo = 0xFFFFFF,
        .dot = 0x30383D,
        .highlight = 0x000000,
        .routes = {0x1B6CB3, 0xC24E00, 0x007A5A, 0x9C3F86, 0x7A5C00, 0x5B4BC4, 0xB3223F, 0x5E666B, 0x30383D},
    };
    static constexpr MapColours onDark{
        .outside = 0x10161B,
        .sea = 0x18222A,
        .land = 0x2D363C,
        .shore = 0x59666E,
        .grid = 0x26333C,
        .text = 0xEEF3F6,
        .halo = 0x10161B,
        .dot = 0xD5DDE2,
        .highlight = 0xFFFFFF,
        .routes = {0x5AB4F2, 0xFF9148, 0x3FD0A0, 0xF08CCB, 0xF0CC4B, 0xAFA2FF, 0xFF7A8C, 0xA8B2B8, 0xD5DDE2},
    };
    return dark ? onDark : onLight;
}

} // namespace vantor
