#include "WindowBackground.h"

#include "BackgroundPictures.h"
#include "BgrColor.h"
#include "Contrast.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <vector>

namespace {

double toLinear(int level)
{
    const double c = level / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

int toLevel(double linear)
{
    const double c =
        linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
    return std::clamp(qRound(c * 255), 0, 255);
}

// The luminance of the text that is hardest to read on this scheme's kind of ground: the lightest
// text of a light scheme, the darkest of a dark one.
double hardestTextLuminance(const SchemePalette &palette)
{
    const bool dark = palette.isDark();
    double hardest = dark ? 1.0 : 0.0;
    for (std::uint32_t text : { palette.title, palette.caption, palette.value, palette.weekday,
                                palette.link, palette.cellText }) {
        const double l = Contrast::luminanceOfBgr(text);
        hardest = dark ? std::min(hardest, l) : std::max(hardest, l);
    }
    return hardest;
}

// The luminance of the `percent`-th worst pixel of `area` for text on a light (`dark` false) or
// dark scheme: among the darkest pixels for the one, the lightest for the other.
double worstLuminance(const QImage &image, const QRect &area, bool dark, int percent)
{
    std::vector<double> levels;
    levels.reserve(static_cast<std::size_t>(area.width() * area.height()));
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = area.left(); x <= area.right(); ++x)
            levels.push_back(dark ? -Contrast::luminance(line[x]) : Contrast::luminance(line[x]));
    }
    const auto worst = levels.begin() + static_cast<std::ptrdiff_t>(levels.size() * percent / 100);
    std::nth_element(levels.begin(), worst, levels.end());
    return dark ? -*worst : *worst;
}

// The picture is toned towards the scheme as a whole rather than patched where text stands: a
// light scheme pales it towards a whitened ground, a dark one dims it towards its ground. Mixing
// in linear light moves every luminance by the same affine step, so the one mix that brings the
// worst text area up to the target brings every other one there too.
void toneToScheme(QImage &image, const SchemePalette &palette, const QList<QRect> &areas)
{
    const bool dark = palette.isDark();
    const QColor ground = colorFromBgr(palette.ground);
    const double text = hardestTextLuminance(palette);
    // The luminance a pixel may reach at most (dark schemes) or must reach at least (light ones).
    const double bound = dark ? (text + 0.05) / WindowBackground::ToneTarget - 0.05
                              : WindowBackground::ToneTarget * (text + 0.05) - 0.05;
    const qreal dpr = image.devicePixelRatio();
    const QRect bounds = image.rect();
    // The mix needed grows with how far the worst area's worst pixels are from the bound.
    double worst = dark ? 0.0 : 1.0;
    for (const QRect &logical : areas) {
        const QRect area = QRect(QPoint(qFloor(logical.x() * dpr), qFloor(logical.y() * dpr)),
                                 QSize(qCeil(logical.width() * dpr), qCeil(logical.height() * dpr)))
                               .intersected(bounds);
        if (area.isEmpty())
            continue;
        const double w = worstLuminance(image, area, dark, WindowBackground::WorstPercent);
        worst = dark ? std::max(worst, w) : std::min(worst, w);
    }
    if (dark ? worst <= bound : worst >= bound)
        return;
    const auto mixTowards = [&](const QColor &tone) {
        const double l = Contrast::luminance(tone.rgb());
        return std::clamp((bound - worst) / (l - worst), 0.0, 1.0);
    };
    // A light scheme pales a picture towards its ground whitened, which keeps the most of a light
    // picture's own colours. A dark picture would only turn grey that way; it is tinted towards
    // the ground itself instead, and so reads as the same scene in the scheme's colour.
    QColor tone = ground;
    double mix = mixTowards(ground);
    if (!dark) {
        const QColor whitened = QColor::fromRgbF(
            0.8 + 0.2 * ground.redF(), 0.8 + 0.2 * ground.greenF(), 0.8 + 0.2 * ground.blueF());
        const double paler = mixTowards(whitened);
        if (paler <= 0.35 || Contrast::luminance(ground.rgb()) <= bound) {
            tone = whitened;
            mix = paler;
        }
    }
    std::array<std::array<uchar, 256>, 3> levels {};
    const double toneLinear[3] = { toLinear(tone.red()), toLinear(tone.green()),
                                   toLinear(tone.blue()) };
    for (int c = 0; c < 3; ++c) {
        for (int i = 0; i < 256; ++i) {
            // Rounding to a level may lose a hair of the mix; lean the right way.
            const double linear = toLinear(i) * (1 - mix) + toneLinear[c] * mix;
            levels[std::size_t(c)][std::size_t(i)] = static_cast<uchar>(toLevel(linear));
        }
    }
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = line[x];
            line[x] = qRgb(levels[0][std::size_t(qRed(p))], levels[1][std::size_t(qGreen(p))],
                           levels[2][std::size_t(qBlue(p))]);
        }
    }
}

} // namespace

namespace WindowBackground {

QImage render(const QString &picture, const SchemePalette &palette, QSize logical, qreal dpr,
              const QList<QRect> &textAreas)
{
    QImage image(logical * dpr, QImage::Format_RGB32);
    image.setDevicePixelRatio(dpr);
    if (!BackgroundPictures::paint(picture, image)) {
        image.fill(colorFromBgr(palette.ground));
        return image;
    }
    toneToScheme(image, palette, textAreas);
    return image;
}

} // namespace WindowBackground

bool BackgroundCache::holds(const QString &picture, const SchemePalette &palette, QSize logical,
                            qreal dpr, const QList<QRect> &textAreas) const
{
    return !m_image.isNull() && picture == m_picture && palette.name == m_scheme
        && logical == m_size && qFuzzyCompare(dpr, m_dpr) && textAreas == m_areas;
}

const QImage &BackgroundCache::image(const QString &picture, const SchemePalette &palette,
                                     QSize logical, qreal dpr, const QList<QRect> &textAreas)
{
    if (!holds(picture, palette, logical, dpr, textAreas)) {
        // Drop the old picture first: only the one on screen is kept.
        m_image = QImage();
        m_image = WindowBackground::render(picture, palette, logical, dpr, textAreas);
        m_picture = picture;
        m_scheme = palette.name;
        m_size = logical;
        m_dpr = dpr;
        m_areas = textAreas;
    }
    return m_image;
}
