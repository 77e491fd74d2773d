#include "SchemePalette.h"

#include <array>

namespace {

// Blue keeps the grid's own cell colours, so under it a cell shows exactly what the grid chose.
// The texts that stand on the body are all of about one lightness, at the dark end for a light
// scheme and the light end for a dark one: the palest of them sets how far a picture must be
// toned, so captions differ from values by hue rather than by lightness.
const std::array<SchemePalette, 7> &palettes()
{
    static const std::array<SchemePalette, 7> table { {
        {
            .name = QStringLiteral("Blue"),
            .ground = 0xF5C487,
            .frame = 0xC60000,
            .title = 0x501E0A,
            .caption = 0x5F3214,
            .value = 0x3C1400,
            .weekday = 0x9A2800,
            .link = 0xA01E0A,
            .linkHover = 0x40006E,
            .listBack = 0xFFFFFF,
            .listText = 0x3C1E0A,
            .listBorder = 0xB4643A,
            .buttonFace = 0xFCF0E6,
            .buttonHover = 0xFFFFFF,
            .buttonPressed = 0xECC4A4,
            .buttonEdge = 0xB4643A,
            .buttonInk = 0x6E2A0A,
            .buttonHoverInk = 0xA80000,
            .buttonDisabledInk = 0xB49078,
            .closeHover = 0x3232D2,
            .closeHoverInk = 0xFFFFFF,
            .cellOutside = 0xC8D0D4,
            .cellDay = 0xE0E0E0,
            .cellToday = 0xFFFFFF,
            .cellSelectedPast = 0xC0C0FF,
            .cellSelectedFuture = 0x80FFFF,
            .cellText = 0x101010,
            .todayMark = 0x0000C8,
            .shadow = 0x525252,
            .tipBack = 0xC6FFC6,
            .tipBorder = 0x0000FF,
            .tipText = 0x000000,
        },
        {
            .name = QStringLiteral("Black"),
            .ground = 0x28221E,
            .frame = 0x78645A,
            .title = 0xF6F4F2,
            .caption = 0xDED4CD,
            .value = 0xF5F2F0,
            .weekday = 0xFAD4AF,
            .link = 0xFFD7A0,
            .linkHover = 0xFFF0E6,
            .listBack = 0x3C3430,
            .listText = 0xF2EEEB,
            .listBorder = 0x78645A,
            .buttonFace = 0x423834,
            .buttonHover = 0x60504A,
            .buttonPressed = 0x241E1C,
            .buttonEdge = 0x78645A,
            .buttonInk = 0xEEE6E1,
            .buttonHoverInk = 0xFFFFFF,
            .buttonDisabledInk = 0x7E746E,
            .closeHover = 0x3232D2,
            .closeHoverInk = 0xFFFFFF,
            .cellOutside = 0x2E2826,
            .cellDay = 0x463E3A,
            .cellToday = 0x665A54,
            .cellSelectedPast = 0x3A2C7A,
            .cellSelectedFuture = 0x14586A,
            .cellText = 0xF0F0F0,
            .todayMark = 0x40C4FF,
            .shadow = 0x000000,
            .tipBack = 0xC6FFFF,
            .tipBorder = 0x0000FF,
            .tipText = 0x000000,
        },
        {
            .name = QStringLiteral("White"),
            .ground = 0xFAFAFA,
            .frame = 0xAAA4A0,
            .title = 0x1C1918,
            .caption = 0x3C3632,
            .value = 0x1C1918,
            .weekday = 0x6E3418,
            .link = 0x8C3000,
            .linkHover = 0x460A6E,
            .listBack = 0xFFFFFF,
            .listText = 0x1C1918,
            .listBorder = 0xAAA4A0,
            .buttonFace = 0xF2F2F2,
            .buttonHover = 0xF8ECE4,
            .buttonPressed = 0xDAD2CD,
            .buttonEdge = 0xAAA4A0,
            .buttonInk = 0x322C28,
            .buttonHoverInk = 0x9E4C00,
            .buttonDisabledInk = 0xA6A09C,
            .closeHover = 0x3232D2,
            .closeHoverInk = 0xFFFFFF,
            .cellOutside = 0xDED9D6,
            .cellDay = 0xEFEBE8,
            .cellToday = 0xFFFFFF,
            .cellSelectedPast = 0xD6D6FC,
            .cellSelectedFuture = 0x9EECFF,
            .cellText = 0x141414,
            .todayMark = 0xDC6E00,
            .shadow = 0x606060,
            .tipBack = 0xEAFFFF,
            .tipBorder = 0x0000FF,
            .tipText = 0x000000,
        },
        {
            .name = QStringLiteral("Yellow"),
            .ground = 0xA0ECFF,
            .frame = 0x007CB0,
            .title = 0x002030,
            .caption = 0x004060,
            .value = 0x002030,
            .weekday = 0x003050,
            .link = 0x823200,
            .linkHover = 0x460A6E,
            .listBack = 0xF0FDFF,
            .listText = 0x002030,
            .listBorder = 0x007CB0,
            .buttonFace = 0xD2F6FF,
            .buttonHover = 0xFFFFFF,
            .buttonPressed = 0x90D8F0,
            .buttonEdge = 0x007CB0,
            .buttonInk = 0x00324A,
            .buttonHoverInk = 0x9E4600,
            .buttonDisabledInk = 0x6090A8,
            .closeHover = 0x3232D2,
            .closeHoverInk = 0xFFFFFF,
            .cellOutside = 0xA8DCEC,
            .cellDay = 0xD6F8FF,
            .cellToday = 0xFFFFFF,
            .cellSelectedPast = 0xBAC4FF,
            .cellSelectedFuture = 0x96ECC4,
            .cellText = 0x001E28,
            .todayMark = 0x005AC8,
            .shadow = 0x284A5A,
            .tipBack = 0xFFFFFF,
            .tipBorder = 0x0000FF,
            .tipText = 0x000000,
        },
        {
            .name = QStringLiteral("Green"),
            .ground = 0xB4E4BE,
            .frame = 0x327828,
            .title = 0x10280A,
            .caption = 0x1A3E12,
            .value = 0x10280A,
            .weekday = 0x1E5A14,
            .link = 0x823200,
            .linkHover = 0x460A6E,
            .listBack = 0xFAFFFB,
            .listText = 0x10280A,
            .listBorder = 0x327828,
            .buttonFace = 0xE2F6E6,
            .buttonHover = 0xFFFFFF,
            .buttonPressed = 0x9CD4A8,
            .buttonEdge = 0x327828,
            .buttonInk = 0x1A4A10,
            .buttonHoverInk = 0x1E5A00,
            .buttonDisabledInk = 0x80A07C,
            .closeHover = 0x3232D2,
            .closeHoverInk = 0xFFFFFF,
            .cellOutside = 0xA4CEAC,
            .cellDay = 0xDCF2E2,
            .cellToday = 0xFFFFFF,
            .cellSelectedPast = 0xC8C8FF,
            .cellSelectedFuture = 0x8CF0FF,
            .cellText = 0x102010,
            .todayMark = 0x287814,
            .shadow = 0x3A5034,
            .tipBack = 0xC6FFFF,
            .tipBorder = 0x0000FF,
            .tipText = 0x000000,
        },
        {
            .name = QStringLiteral("Pink"),
            .ground = 0xE2D2FA,
            .frame = 0x783CC8,
            .title = 0x281046,
            .caption = 0x3E1A62,
            .value = 0x281046,
            .weekday = 0x400E6E,
            .link = 0x4A0070,
            .linkHover = 0x8C0A3C,
            .listBack = 0xFCFAFF,
            .listText = 0x281046,
            .listBorder = 0x783CC8,
            .buttonFace = 0xF0E8FD,
            .buttonHover = 0xFFFFFF,
            .buttonPressed = 0xCCB4F0,
            .buttonEdge = 0x783CC8,
            .buttonInk = 0x34145A,
            .buttonHoverInk = 0x5A00A0,
            .buttonDisabledInk = 0xA08CB4,
            .closeHover = 0x3232D2,
            .closeHoverInk = 0xFFFFFF,
            .cellOutside = 0xD4C4EC,
            .cellDay = 0xE8DCFA,
            .cellToday = 0xFFFFFF,
            .cellSelectedPast = 0xA0B0FF,
            .cellSelectedFuture = 0x96F0FF,
            .cellText = 0x1E0A32,
            .todayMark = 0x6E28C8,
            .shadow = 0x483A5A,
            .tipBack = 0xC6FFFF,
            .tipBorder = 0x0000FF,
            .tipText = 0x000000,
        },
        {
            .name = QStringLiteral("GrayScale"),
            .ground = 0xD0D0D0,
            .frame = 0x505050,
            .title = 0x141414,
            .caption = 0x383838,
            .value = 0x141414,
            .weekday = 0x282828,
            .link = 0x1E1E1E,
            .linkHover = 0x000000,
            .listBack = 0xFAFAFA,
            .listText = 0x141414,
            .listBorder = 0x505050,
            .buttonFace = 0xE6E6E6,
            .buttonHover = 0xFAFAFA,
            .buttonPressed = 0xA8A8A8,
            .buttonEdge = 0x505050,
            .buttonInk = 0x1E1E1E,
            .buttonHoverInk = 0x000000,
            .buttonDisabledInk = 0x8C8C8C,
            .closeHover = 0x3C3C3C,
            .closeHoverInk = 0xFFFFFF,
            .cellOutside = 0xC4C4C4,
            .cellDay = 0xE4E4E4,
            .cellToday = 0xFFFFFF,
            .cellSelectedPast = 0xA8A8A8,
            .cellSelectedFuture = 0x8C8C8C,
            .cellText = 0x101010,
            .todayMark = 0x000000,
            .shadow = 0x282828,
            .tipBack = 0xFFFFFF,
            .tipBorder = 0x585858,
            .tipText = 0x000000,
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
