#include "Contrast.h"

#include <QtMath>

#include <algorithm>
#include <array>

namespace Contrast {

namespace {

// The linear light of each 8-bit sRGB level, worked out once: pictures ask for it per pixel.
const std::array<double, 256> &linearLevels()
{
    static const std::array<double, 256> levels = [] {
        std::array<double, 256> t {};
        for (int i = 0; i < 256; ++i) {
            const double c = i / 255.0;
            t[static_cast<std::size_t>(i)] =
                c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        }
        return t;
    }();
    return levels;
}

} // namespace

double luminance(QRgb rgb)
{
    const auto &lin = linearLevels();
    return 0.2126 * lin[static_cast<std::size_t>(qRed(rgb))]
        + 0.7152 * lin[static_cast<std::size_t>(qGreen(rgb))]
        + 0.0722 * lin[static_cast<std::size_t>(qBlue(rgb))];
}

double luminanceOfBgr(std::uint32_t bgr)
{
    return luminance(qRgb(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                          static_cast<int>((bgr >> 16) & 0xFF)));
}

double ratio(double luminanceA, double luminanceB)
{
    const auto [dark, light] = std::minmax(luminanceA, luminanceB);
    return (light + 0.05) / (dark + 0.05);
}

double ratioOfBgr(std::uint32_t a, std::uint32_t b)
{
    return ratio(luminanceOfBgr(a), luminanceOfBgr(b));
}

} // namespace Contrast
