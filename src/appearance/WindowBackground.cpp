#include "WindowBackground.h"

#include "BackgroundPictures.h"
#include "BgrColor.h"
#include "Contrast.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <vector>

namespace {

// The tone curve is worked out on this many steps of luminance, then looked up per pixel.
constexpr int Steps = 1024;

// 8-bit sRGB level to linear light, and back from linear light on 4096 steps.
const std::array<float, 256> &linearOfLevel()
{
    static const std::array<float, 256> table = [] {
        std::array<float, 256> t {};
        for (int i = 0; i < 256; ++i) {
            const double c = i / 255.0;
            t[std::size_t(i)] =
                float(c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4));
        }
        return t;
    }();
    return table;
}

const std::array<uchar, 4096> &levelOfLinear()
{
    static const std::array<uchar, 4096> table = [] {
        std::array<uchar, 4096> t {};
        for (int i = 0; i < 4096; ++i) {
            const double l = i / 4095.0;
            const double c = l <= 0.0031308 ? l * 12.92 : 1.055 * std::pow(l, 1 / 2.4) - 0.055;
            t[std::size_t(i)] = uchar(std::clamp(qRound(c * 255), 0, 255));
        }
        return t;
    }();
    return table;
}

// The luminance of the text that is hardest to read on this scheme's kind of ground: the lightest
// text of a light scheme, the darkest of a dark one.
double hardestTextLuminance(const SchemePalette &palette)
{
    const bool dark = palette.isDark();
    double hardest = dark ? 1.0 : 0.0;
    for (std::uint32_t text : { palette.title, palette.caption, palette.value, palette.weekday,
                                palette.link, palette.linkHover, palette.cellText }) {
        const double l = Contrast::luminanceOfBgr(text);
        hardest = dark ? std::min(hardest, l) : std::max(hardest, l);
    }
    return hardest;
}

// How far a luminance lies on the legible side of the bound, as the log of its contrast ratio
// to the bound: 0 on the bound, negative where text would not read.
struct Legibility
{
    bool dark;
    double bound;

    double of(double l) const
    {
        return dark ? std::log((bound + 0.05) / (l + 0.05)) : std::log((l + 0.05) / (bound + 0.05));
    }
    double luminance(double s) const
    {
        return dark ? (bound + 0.05) / std::exp(s) - 0.05 : (bound + 0.05) * std::exp(s) - 0.05;
    }
    // Tones at least Knee inside the bound stay as they are; the rest are pressed softly into the
    // gap between the bound and the knee, keeping their order and never reaching the bound.
    static constexpr double Knee = 0.25;
    static double squeeze(double s) { return s >= Knee ? s : Knee * std::exp((s - Knee) / Knee); }
};

// The luminance of a sample of the pixels under the text areas (the whole image without any).
std::vector<double> sampleLuminances(const QImage &image, const QList<QRect> &logicalAreas)
{
    const qreal dpr = image.devicePixelRatio();
    QList<QRect> areas;
    for (const QRect &a : logicalAreas) {
        areas.append(QRect(QPoint(qFloor(a.x() * dpr), qFloor(a.y() * dpr)),
                           QSize(qCeil(a.width() * dpr), qCeil(a.height() * dpr)))
                         .intersected(image.rect()));
    }
    if (areas.isEmpty())
        areas.append(image.rect());
    std::vector<double> sample;
    const int step = qMax(2, qRound(3 * dpr));
    for (const QRect &area : areas) {
        for (int y = area.top(); y <= area.bottom(); y += step) {
            const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
            for (int x = area.left(); x <= area.right(); x += step)
                sample.push_back(Contrast::luminance(line[x]));
        }
    }
    return sample;
}

// The picture is toned towards the scheme as a whole, by one curve of luminance, rather than
// patched where text stands. Each pixel is mixed in linear light towards a tone of the scheme:
// first all of them by one share, which keeps the picture's contrast ratios, then whatever is
// still too near the text's luminance by a share that grows the nearer it is. The first share
// is the one that leaves the most of the picture's light and shade; a dark night sky under a
// light scheme is lifted only where it must be, and its stars stay bright.
void toneToScheme(QImage &image, const SchemePalette &palette, const QList<QRect> &areas)
{
    const bool dark = palette.isDark();
    const double text = hardestTextLuminance(palette);
    const Legibility legible { dark,
                               dark ? (text + 0.05) / WindowBackground::ToneTarget - 0.05
                                    : WindowBackground::ToneTarget * (text + 0.05) - 0.05 };
    const std::vector<double> sample = sampleLuminances(image, areas);
    if (std::all_of(sample.begin(), sample.end(),
                    [&](double l) { return legible.of(l) >= Legibility::Knee; }))
        return;

    // A dark scheme dims towards its ground. A light one pales towards its ground whitened, which
    // keeps the most of a light picture's own colours; a night picture would only turn grey that
    // way, so it is tinted towards the ground itself, and reads as the same scene in the scheme's
    // colour.
    const QColor ground = colorFromBgr(palette.ground);
    QColor tone = ground;
    if (!dark) {
        std::vector<double> sorted = sample;
        const auto middle = sorted.begin() + std::ptrdiff_t(sorted.size() / 2);
        std::nth_element(sorted.begin(), middle, sorted.end());
        const bool night = legible.of(*middle) < -1;
        if (!night || legible.of(Contrast::luminance(ground.rgb())) < Legibility::Knee * 1.1)
            tone = QColor::fromRgbF(0.8 + 0.2 * ground.redF(), 0.8 + 0.2 * ground.greenF(),
                                    0.8 + 0.2 * ground.blueF());
    }
    const double toneL = Contrast::luminance(tone.rgb());

    // The share of the first mix: the one that keeps the most detail, judged by the steps in
    // legibility between neighbouring samples; in tenths. Samples fall into levels on a square
    // root scale (fine in the darks), so each share works out one table rather than a logarithm
    // per sample.
    constexpr int Levels = 512;
    std::vector<int> levelOf(sample.size());
    for (std::size_t i = 0; i < sample.size(); ++i)
        levelOf[i] = qRound(std::sqrt(std::clamp(sample[i], 0.0, 1.0)) * (Levels - 1));
    double share = 0;
    double mostDetail = -1;
    std::array<double, Levels> seen {};
    for (int tenth = 0; tenth <= 10; ++tenth) {
        const double m = tenth / 10.0;
        for (int i = 0; i < Levels; ++i) {
            const double l = double(i) * i / ((Levels - 1) * (Levels - 1));
            seen[std::size_t(i)] = Legibility::squeeze(legible.of(l + (toneL - l) * m));
        }
        double detail = 0;
        for (std::size_t i = 1; i < levelOf.size(); ++i)
            detail += std::abs(seen[std::size_t(levelOf[i])] - seen[std::size_t(levelOf[i - 1])]);
        if (detail > mostDetail * 1.001) {
            mostDetail = detail;
            share = m;
        }
    }

    // The mix each luminance needs towards the tone, in 256ths, rounded up so that rounding
    // never leaves a pixel short of its target.
    std::array<int, Steps> mixOf {};
    for (int i = 0; i < Steps; ++i) {
        const double l = (i + 0.5) / Steps;
        const double target =
            legible.luminance(Legibility::squeeze(legible.of(l + (toneL - l) * share)));
        const double m = std::abs(toneL - l) < 1e-6 ? 0.0 : (target - l) / (toneL - l);
        mixOf[std::size_t(i)] = int(std::ceil(std::clamp(m, 0.0, 1.0) * 256));
    }
    // Per pixel in whole numbers: linear light in 4096ths, the luminance weights in 4096ths.
    const auto &lin = linearOfLevel();
    std::array<int, 256> linear {};
    for (std::size_t i = 0; i < linear.size(); ++i)
        linear[i] = qRound(lin[i] * 4095);
    const auto &level = levelOfLinear();
    const int toneLinear[3] = { linear[std::size_t(tone.red())], linear[std::size_t(tone.green())],
                                linear[std::size_t(tone.blue())] };
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = line[x];
            const int r = linear[std::size_t(qRed(p))];
            const int g = linear[std::size_t(qGreen(p))];
            const int b = linear[std::size_t(qBlue(p))];
            const int l = (r * 871 + g * 2929 + b * 296) >> 12;
            const int m = mixOf[std::size_t(l * Steps >> 12)];
            if (m == 0)
                continue;
            const auto out = [m, &level](int c, int t) {
                return level[std::size_t(c + ((t - c) * m >> 8))];
            };
            line[x] = qRgb(out(r, toneLinear[0]), out(g, toneLinear[1]), out(b, toneLinear[2]));
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
