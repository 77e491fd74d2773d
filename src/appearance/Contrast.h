#pragma once

#include <QRgb>

#include <cstdint>

// Legibility arithmetic of the web's accessibility guidelines: relative luminance of an sRGB
// colour and the contrast ratio of two colours (1 to 21).
namespace Contrast {

double luminance(QRgb rgb);
double luminanceOfBgr(std::uint32_t bgr);
double ratio(double luminanceA, double luminanceB);
double ratioOfBgr(std::uint32_t a, std::uint32_t b);

} // namespace Contrast
