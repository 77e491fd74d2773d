#include "SchemePalette.h"

#include <array>

namespace {

// Rows follow the fields: body and texts; lists; buttons; cells; shadow and tooltip. Blue keeps
// the grid's own cell colours, so under it a cell shows exactly what the grid chose.
const std::array<SchemePalette, 7> &palettes()
{
    static const std::array<SchemePalette, 7> table { {
        {
            QStringLiteral("Blue"),
            0xF5C487,
            0xC60000,
            0x501E0A,
            0x5F3214,
            0x3C1400,
            0x9A2800,
            0xA01E0A,
            0x500A8C,
            0xFFFFFF,
            0x3C1E0A,
            0xB4643A,
            0xFCF0E6,
            0xFFFFFF,
            0xECC4A4,
            0xB4643A,
            0x6E2A0A,
            0xA80000,
            0xB49078,
            0x3232D2,
            0xFFFFFF,
            0xC8D0D4,
            0xE0E0E0,
            0xFFFFFF,
            0xC0C0FF,
            0x80FFFF,
            0x101010,
            0x0000C8,
            0x525252,
            0xC6FFC6,
            0x0000FF,
            0x000000,
        },
        {
            QStringLiteral("Black"),
            0x28221E,
            0x78645A,
            0xF6F4F2,
            0xC8BCB4,
            0xF5F2F0,
            0xF0BE96,
            0xFFB478,
            0xFFD2B4,
            0x3C3430,
            0xF2EEEB,
            0x78645A,
            0x423834,
            0x60504A,
            0x241E1C,
            0x78645A,
            0xEEE6E1,
            0xFFFFFF,
            0x7E746E,
            0x3232D2,
            0xFFFFFF,
            0x2E2826,
            0x463E3A,
            0x665A54,
            0x3A2C7A,
            0x14586A,
            0xF0F0F0,
            0x40C4FF,
            0x000000,
            0xC6FFFF,
            0x0000FF,
            0x000000,
        },
        {
            QStringLiteral("White"),
            0xFAFAFA,
            0xAAA4A0,
            0x1C1918,
            0x68605A,
            0x1C1918,
            0x9A5A2E,
            0xBE5A00,
            0x5A148C,
            0xFFFFFF,
            0x1C1918,
            0xAAA4A0,
            0xF2F2F2,
            0xF8ECE4,
            0xDAD2CD,
            0xAAA4A0,
            0x322C28,
            0x9E4C00,
            0xA6A09C,
            0x3232D2,
            0xFFFFFF,
            0xDED9D6,
            0xEFEBE8,
            0xFFFFFF,
            0xD6D6FC,
            0x9EECFF,
            0x141414,
            0xDC6E00,
            0x606060,
            0xEAFFFF,
            0x0000FF,
            0x000000,
        },
        {
            QStringLiteral("Yellow"),
            0xA0ECFF,
            0x007CB0,
            0x002030,
            0x004060,
            0x002030,
            0x00466E,
            0x9E4600,
            0x50148C,
            0xF0FDFF,
            0x002030,
            0x007CB0,
            0xD2F6FF,
            0xFFFFFF,
            0x90D8F0,
            0x007CB0,
            0x00324A,
            0x9E4600,
            0x6090A8,
            0x3232D2,
            0xFFFFFF,
            0xA8DCEC,
            0xD6F8FF,
            0xFFFFFF,
            0xBAC4FF,
            0x96ECC4,
            0x001E28,
            0x005AC8,
            0x284A5A,
            0xFFFFFF,
            0x0000FF,
            0x000000,
        },
        {
            QStringLiteral("Green"),
            0xB4E4BE,
            0x327828,
            0x10280A,
            0x1E4614,
            0x10280A,
            0x1E5A14,
            0x9A4600,
            0x50148C,
            0xFAFFFB,
            0x10280A,
            0x327828,
            0xE2F6E6,
            0xFFFFFF,
            0x9CD4A8,
            0x327828,
            0x1A4A10,
            0x1E5A00,
            0x80A07C,
            0x3232D2,
            0xFFFFFF,
            0xA4CEAC,
            0xDCF2E2,
            0xFFFFFF,
            0xC8C8FF,
            0x8CF0FF,
            0x102010,
            0x287814,
            0x3A5034,
            0xC6FFFF,
            0x0000FF,
            0x000000,
        },
        {
            QStringLiteral("Pink"),
            0xE2D2FA,
            0x783CC8,
            0x281046,
            0x461E6E,
            0x281046,
            0x52148C,
            0x5A008C,
            0x8C0A3C,
            0xFCFAFF,
            0x281046,
            0x783CC8,
            0xF0E8FD,
            0xFFFFFF,
            0xCCB4F0,
            0x783CC8,
            0x34145A,
            0x5A00A0,
            0xA08CB4,
            0x3232D2,
            0xFFFFFF,
            0xD4C4EC,
            0xE8DCFA,
            0xFFFFFF,
            0xA0B0FF,
            0x96F0FF,
            0x1E0A32,
            0x6E28C8,
            0x483A5A,
            0xC6FFFF,
            0x0000FF,
            0x000000,
        },
        {
            QStringLiteral("GrayScale"),
            0xD0D0D0,
            0x505050,
            0x141414,
            0x383838,
            0x141414,
            0x282828,
            0x1E1E1E,
            0x000000,
            0xFAFAFA,
            0x141414,
            0x505050,
            0xE6E6E6,
            0xFAFAFA,
            0xA8A8A8,
            0x505050,
            0x1E1E1E,
            0x000000,
            0x8C8C8C,
            0x3C3C3C,
            0xFFFFFF,
            0xC4C4C4,
            0xE4E4E4,
            0xFFFFFF,
            0xA8A8A8,
            0x8C8C8C,
            0x101010,
            0x000000,
            0x282828,
            0xFFFFFF,
            0x585858,
            0x000000,
        },
    } };
    return table;
}

} // namespace

std::uint32_t SchemePalette::cellColor(std::uint32_t gridColor) const
{
    const SchemePalette &grid = palettes().front();
    if (gridColor == grid.cellOutside)
        return cellOutside;
    if (gridColor == grid.cellToday)
        return cellToday;
    if (gridColor == grid.cellSelectedPast)
        return cellSelectedPast;
    if (gridColor == grid.cellSelectedFuture)
        return cellSelectedFuture;
    return cellDay;
}

bool SchemePalette::isDark() const
{
    // Green weighs most in brightness; a body below the middle grey is a dark one.
    const int r = ground & 0xFF;
    const int g = (ground >> 8) & 0xFF;
    const int b = (ground >> 16) & 0xFF;
    return r * 2 + g * 7 + b < 128 * 10;
}

namespace SchemePalettes {

const SchemePalette *begin()
{
    return palettes().data();
}

const SchemePalette *end()
{
    return palettes().data() + palettes().size();
}

const SchemePalette &forScheme(const QString &scheme)
{
    for (const SchemePalette &p : palettes()) {
        if (p.name == scheme)
            return p;
    }
    return palettes().front();
}

} // namespace SchemePalettes
