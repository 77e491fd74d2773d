#include "BackgroundPictures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QtMath>

#include <array>
#include <cmath>
#include <vector>

namespace BackgroundPictures {

namespace {

// A small fixed-seed generator: each picture scatters its stars and petals the same way on
// every run and at every scale.
class Scatter
{
public:
    explicit Scatter(quint32 seed)
        : m_state(seed)
    { }

    // A counter run through an integer hash: neighbouring draws show no lattice, which a plain
    // shift generator leaves in a field of stars.
    double next()
    {
        quint32 z = (m_state += 0x9E3779B9u);
        z = (z ^ (z >> 16)) * 0x85EBCA6Bu;
        z = (z ^ (z >> 13)) * 0xC2B2AE35u;
        z ^= z >> 16;
        return (z >> 8) / double(1 << 24);
    }
    double between(double low, double high) { return low + (high - low) * next(); }

private:
    quint32 m_state;
};

// Without SSE 4.1 the library's floor is a call; per pixel that is most of a picture's cost.
inline float floorOf(float x)
{
    const float t = static_cast<float>(static_cast<int>(x));
    return t > x ? t - 1 : t;
}

// Smooth value noise on a 64 x 64 lattice that wraps; one octave costs four look-ups.
class ValueNoise
{
public:
    explicit ValueNoise(quint32 seed)
    {
        Scatter s(seed);
        for (float &v : m_lattice)
            v = static_cast<float>(s.next());
    }

    float at(float x, float y) const
    {
        const float fx = floorOf(x);
        const float fy = floorOf(y);
        const int ix = static_cast<int>(fx) & 63;
        const int iy = static_cast<int>(fy) & 63;
        const int jx = (ix + 1) & 63;
        const int jy = (iy + 1) & 63;
        float u = x - fx;
        float v = y - fy;
        u = u * u * (3 - 2 * u);
        v = v * v * (3 - 2 * v);
        const float a = m_lattice[static_cast<std::size_t>(iy * 64 + ix)];
        const float b = m_lattice[static_cast<std::size_t>(iy * 64 + jx)];
        const float c = m_lattice[static_cast<std::size_t>(jy * 64 + ix)];
        const float d = m_lattice[static_cast<std::size_t>(jy * 64 + jx)];
        const float top = a + (b - a) * u;
        const float bottom = c + (d - c) * u;
        return top + (bottom - top) * v;
    }

    // Four octaves, 0..1.
    float turbulence(float x, float y) const
    {
        return (at(x, y) * 8 + at(x * 2, y * 2) * 4 + at(x * 4, y * 4) * 2 + at(x * 8, y * 8))
            / 15.0f;
    }

private:
    std::array<float, 64 * 64> m_lattice {};
};

// A sine from a table of 4096 steps to the turn, good to about 0.002: marble asks for two per
// pixel, and the library's sine is the larger part of its cost.
class SineTable
{
public:
    SineTable()
    {
        for (std::size_t i = 0; i < m_values.size(); ++i)
            m_values[i] = static_cast<float>(std::sin(i * 2 * M_PI / m_values.size()));
    }
    float operator()(float radians) const
    {
        constexpr float StepsPerRadian = 4096 / 6.2831853f;
        return m_values[static_cast<std::size_t>(static_cast<int>(radians * StepsPerRadian)
                                                 & 4095)];
    }

private:
    std::array<float, 4096> m_values {};
};

QColor mix(const QColor &a, const QColor &b, qreal t)
{
    return QColor::fromRgbF(
        a.redF() + (b.redF() - a.redF()) * t, a.greenF() + (b.greenF() - a.greenF()) * t,
        a.blueF() + (b.blueF() - a.blueF()) * t, a.alphaF() + (b.alphaF() - a.alphaF()) * t);
}

QColor withAlpha(QColor c, qreal alpha)
{
    c.setAlphaF(alpha);
    return c;
}

void fillVertical(QPainter &p, const QRectF &r, std::initializer_list<QGradientStop> stops)
{
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setStops(QGradientStops(stops));
    p.fillRect(r, g);
}

void glow(QPainter &p, QPointF centre, qreal radius, const QColor &core)
{
    QRadialGradient g(centre, radius);
    g.setColorAt(0, core);
    g.setColorAt(1, withAlpha(core, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawEllipse(centre, radius, radius);
}

// A four-pointed twinkle.
void sparkle(QPainter &p, QPointF c, qreal r, const QColor &colour)
{
    QPainterPath path;
    const qreal w = r * 0.18;
    path.moveTo(c.x(), c.y() - r);
    path.quadTo(c.x() + w, c.y() - w, c.x() + r, c.y());
    path.quadTo(c.x() + w, c.y() + w, c.x(), c.y() + r);
    path.quadTo(c.x() - w, c.y() + w, c.x() - r, c.y());
    path.quadTo(c.x() - w, c.y() - w, c.x(), c.y() - r);
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawPath(path);
}

// A heap of overlapping puffs with a lit top and a shaded belly.
void cloud(QPainter &p, QPointF base, qreal size, Scatter &s)
{
    QPainterPath puffs;
    puffs.setFillRule(Qt::WindingFill);
    const int count = 6;
    for (int i = 0; i < count; ++i) {
        const qreal t = (i + 0.5) / count;
        const qreal r = size * (0.22 + 0.16 * std::sin(t * M_PI)) * s.between(0.85, 1.15);
        const qreal x = base.x() + (t - 0.5) * size * 1.5;
        const qreal y = base.y() - r * 0.6 - size * 0.12 * std::sin(t * M_PI);
        puffs.addEllipse(QPointF(x, y), r * 1.2, r);
    }
    puffs.addRoundedRect(
        QRectF(base.x() - size * 0.72, base.y() - size * 0.2, size * 1.44, size * 0.22),
        size * 0.11, size * 0.11);
    const QRectF box = puffs.boundingRect();
    QLinearGradient g(box.topLeft(), box.bottomLeft());
    g.setColorAt(0, QColor(255, 255, 255));
    g.setColorAt(0.6, QColor(246, 249, 253));
    g.setColorAt(1, QColor(200, 214, 232));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    // The winding fill unites the puffs without working out their outline.
    p.drawPath(puffs);
}

void paintSky(QPainter &p, qreal w, qreal h)
{
    fillVertical(p, QRectF(0, 0, w, h),
                 { { 0, QColor(58, 128, 212) },
                   { 0.55, QColor(118, 176, 236) },
                   { 1, QColor(206, 230, 250) } });
    glow(p, QPointF(w * 0.86, h * 0.12), h * 0.55, QColor(255, 250, 222, 200));
    glow(p, QPointF(w * 0.86, h * 0.12), h * 0.09, QColor(255, 255, 246));
    Scatter s(7);
    const std::array<QPointF, 6> bases { { { 0.18, 0.30 },
                                           { 0.58, 0.20 },
                                           { 0.93, 0.52 },
                                           { 0.36, 0.62 },
                                           { 0.72, 0.80 },
                                           { 0.08, 0.92 } } };
    const std::array<qreal, 6> sizes { 0.26, 0.20, 0.24, 0.30, 0.28, 0.22 };
    for (std::size_t i = 0; i < bases.size(); ++i)
        cloud(p, QPointF(bases[i].x() * w, bases[i].y() * h), sizes[i] * w, s);
}

// Marble: a warm white stone clouded with grey, crossed by veins. A vein is where a stripe
// pattern's phase, pushed about by fractal noise, passes through zero: a sharp dark core inside a
// soft grey halo, strong in some places and fading out in others, as in cut stone.
void paintMarble(QImage &image, qreal dpr)
{
    static const ValueNoise noise(11);
    static const SineTable sine;
    const int width = image.width();
    const int height = image.height();
    const float step = static_cast<float>(1.0 / dpr);
    // The fields are smooth over a couple of pixels: work them out on a grid of Cell pixels and
    // interpolate between; only the veins' profile is worked out per pixel.
    constexpr int Cell = 4;
    struct Field
    {
        float phase, across, strength, cloud;
    };
    const int columns = width / Cell + 2;
    const auto fieldAt = [&](int gx, int gy) {
        const float x = static_cast<float>(gx * Cell) * step;
        const float y = static_cast<float>(gy * Cell) * step;
        // Fractal noise: each octave half as strong and twice as fine.
        const float fbm = noise.at(x / 150, y / 150) + noise.at(x / 64 + 7, y / 64 + 3) * 0.5f
            + noise.at(x / 28 + 1, y / 28 + 9) * 0.3f + noise.at(x / 12 + 5, y / 12 + 2) * 0.18f;
        return Field { (x * 0.55f + y * 0.85f) * 0.045f + fbm * 3.4f,
                       (x * 0.9f - y * 0.4f) * 0.05f + fbm * 9.0f
                           + noise.at(x / 9 + 4, y / 9 + 4) * 1.2f,
                       noise.at(x / 95 + 17, y / 95 + 17),
                       noise.at(x / 70 + 9, y / 110 + 9) * 0.7f + fbm * 0.3f - 0.25f };
    };
    std::vector<Field> upper(static_cast<std::size_t>(columns));
    std::vector<Field> lower(static_cast<std::size_t>(columns));
    std::vector<Field> row(static_cast<std::size_t>(columns));
    for (int gx = 0; gx < columns; ++gx)
        lower[std::size_t(gx)] = fieldAt(gx, 0);
    for (int y = 0; y < height; ++y) {
        if (y % Cell == 0) {
            upper.swap(lower);
            for (int gx = 0; gx < columns; ++gx)
                lower[std::size_t(gx)] = fieldAt(gx, y / Cell + 1);
        }
        const float fy = static_cast<float>(y % Cell) / Cell;
        for (std::size_t k = 0; k < row.size(); ++k) {
            const Field &t = upper[k];
            const Field &u = lower[k];
            row[k] = { t.phase + (u.phase - t.phase) * fy, t.across + (u.across - t.across) * fy,
                       t.strength + (u.strength - t.strength) * fy,
                       t.cloud + (u.cloud - t.cloud) * fy };
        }
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const Field &left = row[std::size_t(x / Cell)];
            const Field &right = row[std::size_t(x / Cell + 1)];
            const float fx = static_cast<float>(x % Cell) / Cell;
            const Field here { left.phase + (right.phase - left.phase) * fx,
                               left.across + (right.across - left.across) * fx,
                               left.strength + (right.strength - left.strength) * fx,
                               left.cloud + (right.cloud - left.cloud) * fx };
            // 1 on a vein's line, falling off to 0 half a stripe away.
            float a = 1.0f - std::fabs(sine(here.phase));
            const float a2 = a * a, a4 = a2 * a2, a8 = a4 * a4, a16 = a8 * a8;
            // The veins show where the strength field is high and fade out where it is low.
            const float strength = std::clamp((here.strength - 0.3f) * 2.2f, 0.0f, 1.0f);
            const float vein = (a16 * a16 * 0.7f + a8 * 0.2f + a4 * 0.1f) * strength;
            // A second, finer set across the first, faint and broken.
            a = 1.0f - std::fabs(sine(here.across));
            const float b4 = a * a * a * a;
            const float thread = b4 * b4 * b4 * 0.3f * (1.0f - strength);
            const float cloud = here.cloud;
            const float shade = std::min(1.0f, vein + thread);
            float r = 250 - 46 * cloud, g = 249 - 45 * cloud, b = 245 - 40 * cloud;
            r += (78 - r) * shade;
            g += (84 - g) * shade;
            b += (94 - b) * shade;
            line[x] = qRgb(static_cast<int>(r), static_cast<int>(g), static_cast<int>(b));
        }
    }
}

void ribbon(QPainter &p, const QPainterPath &path, qreal width, const QColor &a, const QColor &b)
{
    const QRectF box = path.boundingRect();
    QLinearGradient g(box.topLeft(), box.bottomRight());
    g.setColorAt(0, a);
    g.setColorAt(1, b);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QBrush(g), width, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(path);
}

void paintFancy(QPainter &p, qreal w, qreal h)
{
    QLinearGradient ground(0, 0, w, h);
    ground.setColorAt(0, QColor(255, 226, 238));
    ground.setColorAt(0.5, QColor(226, 222, 255));
    ground.setColorAt(1, QColor(206, 244, 238));
    p.fillRect(QRectF(0, 0, w, h), ground);

    QPainterPath first;
    first.moveTo(-20, h * 0.78);
    first.cubicTo(w * 0.25, h * 0.35, w * 0.55, h * 1.05, w + 20, h * 0.25);
    ribbon(p, first, h * 0.16, QColor(236, 92, 170, 120), QColor(150, 96, 230, 120));
    QPainterPath second;
    second.moveTo(-20, h * 0.2);
    second.cubicTo(w * 0.3, h * 0.02, w * 0.6, h * 0.6, w + 20, h * 0.7);
    ribbon(p, second, h * 0.09, QColor(40, 190, 196, 110), QColor(250, 190, 70, 120));
    QPainterPath third;
    third.moveTo(w * 0.1, h + 20);
    third.cubicTo(w * 0.35, h * 0.55, w * 0.75, h * 0.95, w * 0.95, -20);
    ribbon(p, third, h * 0.05, QColor(255, 160, 90, 130), QColor(236, 92, 170, 130));

    // Curls: logarithmic spirals drawn as fine lines.
    for (const auto &[cx, cy, turn] : { std::tuple { 0.22, 0.3, 1.0 }, { 0.8, 0.72, -1.0 } }) {
        QPainterPath curl;
        for (int i = 0; i <= 90; ++i) {
            const qreal a = i * 0.12;
            const qreal r = h * 0.012 * std::exp(a * 0.21);
            const QPointF pt(cx * w + turn * r * std::cos(a), cy * h + r * std::sin(a));
            i == 0 ? curl.moveTo(pt) : curl.lineTo(pt);
        }
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(120, 70, 200, 150), 1.6, Qt::SolidLine, Qt::RoundCap));
        p.drawPath(curl);
    }

    Scatter s(23);
    const std::array<QColor, 4> bubbles { QColor(255, 120, 190), QColor(130, 110, 240),
                                          QColor(60, 200, 200), QColor(255, 200, 80) };
    for (int i = 0; i < 26; ++i) {
        const QPointF c(s.between(0, w), s.between(0, h));
        const qreal r = s.between(3, h * 0.085);
        const QColor colour = bubbles[static_cast<std::size_t>(i) % bubbles.size()];
        QRadialGradient g(c, r);
        g.setColorAt(0, withAlpha(colour, 0.10));
        g.setColorAt(0.85, withAlpha(colour, 0.30));
        g.setColorAt(1, withAlpha(colour, 0.05));
        p.setBrush(g);
        p.setPen(QPen(withAlpha(colour.lighter(115), 0.55), 0.8));
        p.drawEllipse(c, r, r);
    }
    for (int i = 0; i < 14; ++i)
        sparkle(p, QPointF(s.between(0, w), s.between(0, h)), s.between(2.5, 7),
                QColor(255, 255, 255, 230));
}

// One band of the sea: a crested edge across the width, filled down to the bottom.
// One band of the sea: a crested edge across the width, filled down to the bottom, with a line
// of foam along the crest.
void waveBand(QPainter &p, qreal w, qreal bottom, qreal top, qreal amplitude, qreal length,
              qreal phase, const QColor &body, qreal foam)
{
    const int steps = 80;
    const qreal k = 2 * M_PI / length;
    QPolygonF crest;
    crest.reserve(steps + 1);
    for (int i = 0; i <= steps; ++i) {
        const qreal x = w * i / steps;
        // A sharpened sine: narrow crests, wide troughs, as on real swell.
        const qreal s = std::sin(k * x + phase);
        const qreal y = top - amplitude * (std::pow((s + 1) / 2, 2.2) * 2 - 0.6)
            - amplitude * 0.25 * std::sin(2.3 * k * x + phase * 1.7);
        crest.append(QPointF(x, y));
    }
    // Down to where the next, nearer band covers it: no deeper, so the sea is filled about once.
    QPolygonF fill = crest;
    fill << QPointF(w, bottom) << QPointF(0, bottom);
    QLinearGradient g(0, top - amplitude * 1.5, 0, top + amplitude * 3 + 6);
    g.setColorAt(0, body.lighter(128));
    g.setColorAt(1, body);
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawPolygon(fill);
    // The foam as a thin filled ribbon over the crest: a fill costs a fraction of a stroke.
    const qreal half = (0.8 + amplitude * 0.12) / 2;
    QPolygonF ribbon;
    ribbon.reserve(2 * crest.size());
    for (const QPointF &pt : crest)
        ribbon.append(pt - QPointF(0, half));
    for (auto it = crest.crbegin(); it != crest.crend(); ++it)
        ribbon.append(*it + QPointF(0, half));
    p.setBrush(mix(body.lighter(128), QColor(255, 255, 255), foam));
    p.drawPolygon(ribbon);
}

void paintWaves(QPainter &p, qreal w, qreal h)
{
    const qreal horizon = h * 0.34;
    fillVertical(p, QRectF(0, 0, w, horizon + 1),
                 { { 0, QColor(146, 196, 236) }, { 1, QColor(236, 242, 240) } });
    glow(p, QPointF(w * 0.72, horizon), h * 0.3, QColor(255, 244, 214, 220));
    Scatter s(5);
    const int bands = 8;
    const auto bandTop = [&](int band) {
        const qreal u = qreal(band) / (bands - 1);
        return horizon + (h - horizon) * (0.06 + 0.86 * std::pow(u, 1.25));
    };
    const auto amplitude = [&](int band) {
        const qreal u = qreal(band) / (bands - 1);
        return 1.2 + 10 * u * u;
    };
    // The open sea shows only above the farthest band, which covers the rest.
    QLinearGradient sea(0, horizon, 0, h);
    sea.setColorAt(0, QColor(96, 170, 196));
    sea.setColorAt(1, QColor(16, 72, 124));
    p.fillRect(QRectF(0, horizon, w, bandTop(0) + amplitude(0) * 3 - horizon), sea);
    for (int i = 0; i < bands; ++i) {
        const qreal t = qreal(i) / (bands - 1);
        // The next band's troughs dip below its top by under 0.9 of its amplitude.
        const qreal bottom = i + 1 < bands ? bandTop(i + 1) + amplitude(i + 1) * 0.9 + 2 : h;
        const QColor body = mix(QColor(70, 158, 190), QColor(14, 78, 134), t);
        waveBand(p, w, bottom, bandTop(i), amplitude(i), w * (0.12 + 0.3 * t), s.between(0, 6.28),
                 body, 0.35 + 0.45 * t);
    }
    // Glitter under the sun on the far water.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 252, 236, 200));
    for (int i = 0; i < 28; ++i) {
        const qreal y = horizon + s.between(2, h * 0.22);
        const qreal spread = (y - horizon) * 0.9 + 8;
        p.drawRoundedRect(QRectF(w * 0.72 + s.between(-spread, spread), y, s.between(2, 7), 1.1),
                          0.5, 0.5);
    }
}

void paintStars(QPainter &p, qreal w, qreal h)
{
    fillVertical(
        p, QRectF(0, 0, w, h),
        { { 0, QColor(6, 10, 34) }, { 0.6, QColor(18, 28, 72) }, { 1, QColor(40, 44, 100) } });
    Scatter s(3);
    // The Milky Way: a faint band of haze with the stars crowding into it. The haze has no edge
    // to keep sharp, so it is painted at a quarter of the size and laid on smoothly enlarged.
    {
        QImage haze(qCeil(w / 4), qCeil(h / 4), QImage::Format_ARGB32_Premultiplied);
        haze.fill(Qt::transparent);
        QPainter q(&haze);
        q.setRenderHint(QPainter::Antialiasing);
        q.scale(0.25, 0.25);
        q.translate(w * 0.5, h * 0.5);
        q.rotate(-28);
        for (int i = 0; i < 22; ++i) {
            const QPointF c(s.between(-w * 0.7, w * 0.7), s.between(-h * 0.09, h * 0.09));
            glow(q, c, s.between(h * 0.12, h * 0.25), QColor(150, 160, 230, 34));
        }
        q.end();
        p.save();
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(QRectF(0, 0, haze.width() * 4.0, haze.height() * 4.0), haze);
        p.restore();
    }
    p.save();
    p.translate(w * 0.5, h * 0.5);
    p.rotate(-28);
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 260; ++i) {
        const qreal spread = h * 0.16 * (s.next() + s.next() - 1);
        const qreal r = s.between(0.25, 0.65);
        // Dots this small look round anyway; a square is far cheaper to fill than an ellipse.
        const QPointF c(s.between(-w * 0.7, w * 0.7), spread);
        p.fillRect(QRectF(c.x() - r, c.y() - r, 2 * r, 2 * r),
                   QColor(230, 232, 255, static_cast<int>(s.between(90, 220))));
    }
    p.restore();
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 170; ++i) {
        const qreal r = s.between(0.35, 1.0);
        const int tint = static_cast<int>(s.between(0, 3));
        const QColor colour = tint == 0 ? QColor(255, 236, 210)
            : tint == 1                 ? QColor(214, 226, 255)
                                        : QColor(255, 255, 255);
        const QPointF c(s.between(0, w), s.between(0, h));
        const QRectF dot(c.x() - r, c.y() - r, 2 * r, 2 * r);
        if (r < 0.75) {
            p.fillRect(dot, withAlpha(colour, s.between(0.55, 1)));
        } else {
            p.setBrush(withAlpha(colour, s.between(0.55, 1)));
            p.drawEllipse(dot);
        }
    }
    // Bright stars, solid, so that they still shine when a light scheme lifts the night sky.
    p.setBrush(QColor(255, 255, 255));
    for (int i = 0; i < 36; ++i) {
        const QPointF c(s.between(0, w), s.between(0, h));
        const qreal r = s.between(1.0, 1.7);
        p.drawEllipse(c, r, r);
    }
    // A crescent moon: a lit disc with a darker one taken out of it. It rises in the free space
    // right of the date, where no text has to be read over it.
    const QPointF moon(w * 0.7, h * 0.065);
    const qreal mr = h * 0.042;
    glow(p, moon, mr * 2.4, QColor(240, 236, 200, 70));
    QPainterPath disc;
    disc.addEllipse(moon, mr, mr);
    QPainterPath bite;
    bite.addEllipse(moon + QPointF(mr * 0.45, -mr * 0.25), mr * 0.92, mr * 0.92);
    p.setBrush(QColor(252, 246, 214));
    p.drawPath(disc.subtracted(bite));
    for (int i = 0; i < 14; ++i) {
        const QPointF c(s.between(0, w), s.between(0, h * 0.95));
        const qreal r = s.between(4, 9);
        if (QLineF(c, moon).length() < mr * 3)
            continue; // the moon's own glow outshines a star beside it
        glow(p, c, r * 0.9, QColor(190, 210, 255, 90));
        sparkle(p, c, r, QColor(255, 255, 255));
    }
}

// A seed head: a soft ball of fine rays, each ending in a little tuft.
void puffball(QPainter &p, QPointF c, qreal r)
{
    glow(p, c, r * 1.05, QColor(255, 255, 255, 90));
    const int rays = 44;
    // Every ray and tuft in one call: thin lines drawn together cost little more than one.
    std::vector<QLineF> lines;
    lines.reserve(rays * 6);
    for (int i = 0; i < rays; ++i) {
        const qreal a = i * 2 * M_PI / rays + (i % 2) * 0.05;
        const qreal len = r * (i % 3 == 0 ? 0.86 : 0.95);
        const QPointF tip(c.x() + len * std::cos(a), c.y() + len * std::sin(a));
        lines.emplace_back(c, tip);
        for (int f = -2; f <= 2; ++f) {
            const qreal fa = a + f * 0.22;
            lines.emplace_back(tip,
                               tip + QPointF(r * 0.14 * std::cos(fa), r * 0.14 * std::sin(fa)));
        }
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(255, 255, 255, 190), qMax<qreal>(0.5, r * 0.018)));
    p.drawLines(lines.data(), int(lines.size()));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(138, 120, 70));
    p.drawEllipse(c, r * 0.1, r * 0.1);
}

void yellowFlower(QPainter &p, QPointF c, qreal r)
{
    p.setBrush(Qt::NoBrush);
    for (int ring = 0; ring < 3; ++ring) {
        const qreal len = r * (1.0 - ring * 0.28);
        p.setPen(QPen(ring == 2 ? QColor(240, 170, 10) : QColor(255, 206, 30), r * 0.16,
                      Qt::SolidLine, Qt::RoundCap));
        for (int i = 0; i < 18; ++i) {
            const qreal a = i * 2 * M_PI / 18 + ring * 0.17;
            p.drawLine(c + QPointF(std::cos(a), std::sin(a)) * len * 0.25,
                       c + QPointF(std::cos(a), std::sin(a)) * len);
        }
    }
}

void meadow(QPainter &p, qreal w, qreal h, qreal top, Scatter &s)
{
    QPainterPath hill;
    hill.moveTo(0, top + h * 0.02);
    hill.cubicTo(w * 0.3, top - h * 0.04, w * 0.6, top + h * 0.05, w, top - h * 0.01);
    hill.lineTo(w, h);
    hill.lineTo(0, h);
    hill.closeSubpath();
    QLinearGradient g(0, top, 0, h);
    g.setColorAt(0, QColor(134, 190, 84));
    g.setColorAt(1, QColor(58, 122, 44));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawPath(hill);
    // Blades of grass, each a thin tapering fill: a fill costs a fraction of a stroke.
    for (int i = 0; i < 150; ++i) {
        const qreal x = s.between(0, w);
        const qreal len = s.between(h * 0.04, h * 0.12);
        const qreal lean = s.between(-len * 0.5, len * 0.5);
        const QPointF bend(x + lean * 0.2, h - len * 0.6);
        QPainterPath blade;
        blade.moveTo(x - 0.8, h + 2);
        blade.quadTo(bend - QPointF(0.5, 0), QPointF(x + lean, h - len));
        blade.quadTo(bend + QPointF(0.5, 0), QPointF(x + 0.8, h + 2));
        p.setBrush(mix(QColor(46, 110, 40), QColor(150, 200, 90), s.next()));
        p.drawPath(blade);
    }
}

void paintDandelions(QPainter &p, qreal w, qreal h)
{
    fillVertical(p, QRectF(0, 0, w, h),
                 { { 0, QColor(150, 200, 236) },
                   { 0.62, QColor(222, 238, 236) },
                   { 1, QColor(222, 238, 236) } });
    Scatter s(17);
    struct Head
    {
        qreal x, y, r;
    };
    const std::array<Head, 4> heads {
        { { 0.15, 0.30, 0.085 }, { 0.50, 0.20, 0.07 }, { 0.84, 0.34, 0.08 }, { 0.34, 0.52, 0.05 } }
    };
    for (const Head &head : heads) {
        const QPointF c(head.x * w, head.y * h);
        QPainterPath stem;
        stem.moveTo(c);
        stem.quadTo(c.x() + head.r * w * 0.5, (c.y() + h) / 2, c.x() - head.r * w * 0.2, h);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(96, 146, 64), 1.8));
        p.drawPath(stem);
    }
    meadow(p, w, h, h * 0.74, s);
    for (const Head &head : heads)
        puffball(p, QPointF(head.x * w, head.y * h), head.r * w);
    for (const QPointF &f :
         { QPointF(0.08, 0.86), QPointF(0.43, 0.92), QPointF(0.66, 0.83), QPointF(0.93, 0.9) })
        yellowFlower(p, QPointF(f.x() * w, f.y() * h), h * 0.045);
    // Seeds on the wind.
    for (int i = 0; i < 9; ++i) {
        const QPointF c(s.between(w * 0.2, w), s.between(h * 0.05, h * 0.6));
        const qreal r = s.between(4, 7);
        const qreal a = s.between(-0.6, 0.2);
        const QPointF seed = c + QPointF(std::sin(a), std::cos(a)) * r * 1.4;
        p.setPen(QPen(QColor(255, 255, 255, 210), 0.7));
        p.drawLine(c, seed);
        for (int f = -3; f <= 3; ++f) {
            const qreal fa = a + M_PI + f * 0.3;
            p.drawLine(c, c + QPointF(std::sin(fa), std::cos(fa)) * r);
        }
        p.setPen(QPen(QColor(120, 100, 60), 1.4, Qt::SolidLine, Qt::RoundCap));
        p.drawPoint(seed);
    }
}

void camomile(QPainter &p, QPointF c, qreal r, qreal squash, qreal turn)
{
    p.save();
    p.translate(c);
    p.rotate(turn);
    p.scale(1, squash);
    const int petals = 17;
    p.setPen(Qt::NoPen);
    // Shaded towards the heart by one gradient about the flower's centre.
    QRadialGradient white(QPointF(0, 0), r);
    white.setColorAt(0.3, QColor(232, 236, 236));
    white.setColorAt(1, QColor(255, 255, 255));
    // Each petal's edge is a grey petal a little larger under it: a fill costs far less than a
    // stroke.
    const QBrush edge(QColor(190, 196, 198));
    const qreal e = 0.6;
    for (int i = 0; i < petals; ++i) {
        p.rotate(360.0 / petals);
        p.setBrush(edge);
        p.drawEllipse(QRectF(r * 0.22 - e, -r * 0.13 - e, r * 0.8 + 2 * e, r * 0.26 + 2 * e));
        p.setBrush(white);
        p.drawEllipse(QRectF(r * 0.22, -r * 0.13, r * 0.8, r * 0.26));
    }
    QRadialGradient disc(QPointF(-r * 0.08, -r * 0.1), r * 0.34);
    disc.setColorAt(0, QColor(255, 230, 80));
    disc.setColorAt(1, QColor(226, 150, 16));
    p.setPen(Qt::NoPen);
    p.setBrush(disc);
    p.drawEllipse(QPointF(0, 0), r * 0.3, r * 0.3);
    p.restore();
}

void paintCamomiles(QPainter &p, qreal w, qreal h)
{
    fillVertical(p, QRectF(0, 0, w, h),
                 { { 0, QColor(206, 230, 196) },
                   { 0.5, QColor(150, 196, 120) },
                   { 1, QColor(74, 132, 60) } });
    Scatter s(29);
    for (int i = 0; i < 6; ++i)
        glow(p, QPointF(s.between(0, w), s.between(0, h * 0.7)), s.between(h * 0.05, h * 0.14),
             QColor(250, 255, 220, 70));
    // Stems behind the flowers, each a thin tapering blade: a fill costs a fraction of a stroke.
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 46; ++i) {
        const qreal x = s.between(-10, w + 10);
        const qreal top = s.between(h * 0.35, h * 0.8);
        const QPointF bend(x + s.between(-20, 20), (top + h) / 2);
        const QPointF tip(x + s.between(-14, 14), top);
        QPainterPath stem;
        stem.moveTo(x - 1.2, h + 2);
        stem.quadTo(bend - QPointF(0.8, 0), tip);
        stem.quadTo(bend + QPointF(0.8, 0), QPointF(x + 1.2, h + 2));
        p.setBrush(mix(QColor(50, 110, 44), QColor(120, 176, 80), s.next()));
        p.drawPath(stem);
    }
    struct Flower
    {
        qreal x, y, r, squash, turn;
    };
    const std::array<Flower, 9> flowers { { { 0.12, 0.24, 0.07, 0.9, 10 },
                                            { 0.40, 0.14, 0.055, 0.7, -20 },
                                            { 0.74, 0.22, 0.075, 0.85, 35 },
                                            { 0.95, 0.06, 0.05, 0.6, 0 },
                                            { 0.27, 0.56, 0.065, 0.62, -8 },
                                            { 0.58, 0.50, 0.085, 0.92, 14 },
                                            { 0.88, 0.62, 0.06, 0.7, -30 },
                                            { 0.08, 0.86, 0.08, 0.8, 22 },
                                            { 0.46, 0.88, 0.07, 0.66, -12 } } };
    for (const Flower &f : flowers)
        camomile(p, QPointF(f.x * w, f.y * h), f.r * w, f.squash, f.turn);
}

// A ridge line across the width from a few summed sines, then filled down to the bottom.
QPainterPath ridge(qreal w, qreal h, qreal base, qreal height, std::initializer_list<qreal> waves,
                   qreal phase)
{
    QPainterPath path;
    const int steps = 60;
    for (int i = 0; i <= steps; ++i) {
        const qreal x = w * i / steps;
        qreal y = 0;
        qreal n = 1;
        for (qreal f : waves) {
            y += std::sin(x / w * f * 2 * M_PI + phase * n) / n;
            n += 1;
        }
        const QPointF pt(x, base - height * y);
        i == 0 ? path.moveTo(pt) : path.lineTo(pt);
    }
    path.lineTo(w, h);
    path.lineTo(0, h);
    path.closeSubpath();
    return path;
}

void fillRidge(QPainter &p, const QPainterPath &path, const QColor &top, const QColor &bottom)
{
    const QRectF box = path.boundingRect();
    QLinearGradient g(box.topLeft(), box.bottomLeft());
    g.setColorAt(0, top);
    g.setColorAt(1, bottom);
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawPath(path);
}

void paintLandscape(QPainter &p, qreal w, qreal h)
{
    fillVertical(p, QRectF(0, 0, w, h),
                 { { 0, QColor(128, 184, 236) },
                   { 0.45, QColor(204, 226, 240) },
                   { 0.6, QColor(250, 232, 200) },
                   { 1, QColor(250, 232, 200) } });
    glow(p, QPointF(w * 0.74, h * 0.3), h * 0.3, QColor(255, 240, 200, 170));
    glow(p, QPointF(w * 0.74, h * 0.3), h * 0.06, QColor(255, 252, 236));

    // Mountains: sharp peaks from a jagged polyline, hazed by distance.
    Scatter s(41);
    QPainterPath peaks;
    peaks.moveTo(0, h * 0.5);
    for (qreal x = 0; x <= w + 20; x += w / 14) {
        const qreal ridgeTop = h * (0.28 + 0.16 * std::abs(std::sin(x / w * 5.3)));
        peaks.lineTo(x + w / 28, ridgeTop + s.between(-h * 0.04, h * 0.04));
        peaks.lineTo(x + w / 14, h * 0.46 + s.between(-h * 0.03, h * 0.02));
    }
    peaks.lineTo(w, h);
    peaks.lineTo(0, h);
    peaks.closeSubpath();
    fillRidge(p, peaks, QColor(150, 168, 204), QColor(206, 214, 228));

    fillRidge(p, ridge(w, h, h * 0.56, h * 0.04, { 1.3, 3.1 }, 0.7), QColor(150, 190, 172),
              QColor(176, 204, 184));
    // A lake in the valley, holding the sky.
    QLinearGradient water(0, h * 0.6, 0, h * 0.7);
    water.setColorAt(0, QColor(206, 228, 242));
    water.setColorAt(1, QColor(132, 178, 214));
    p.setPen(Qt::NoPen);
    p.setBrush(water);
    p.drawEllipse(QRectF(w * 0.28, h * 0.585, w * 0.5, h * 0.11));
    fillRidge(p, ridge(w, h, h * 0.70, h * 0.05, { 0.9, 2.2 }, 2.1), QColor(152, 202, 120),
              QColor(128, 182, 100));
    fillRidge(p, ridge(w, h, h * 0.86, h * 0.05, { 0.6, 1.7 }, 4.0), QColor(122, 182, 96),
              QColor(100, 160, 80));

    // Pines on the near slope.
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 11; ++i) {
        const qreal x = s.between(0, w);
        const qreal ground = h * 0.86
            - h * 0.05
                * (std::sin(x / w * 0.6 * 2 * M_PI + 4.0)
                   + std::sin(x / w * 1.7 * 2 * M_PI + 8.0) / 2);
        const qreal tall = s.between(h * 0.07, h * 0.13);
        QPainterPath tree;
        for (int tier = 0; tier < 3; ++tier) {
            const qreal top = ground - tall + tier * tall * 0.22;
            const qreal half = tall * (0.16 + tier * 0.05);
            tree.moveTo(x, top);
            tree.lineTo(x + half, top + tall * 0.42);
            tree.lineTo(x - half, top + tall * 0.42);
            tree.closeSubpath();
        }
        p.setBrush(QColor(64, 124, 76));
        p.drawPath(tree);
    }
    // Two birds.
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(60, 70, 90), 1.1, Qt::SolidLine, Qt::RoundCap));
    for (const QPointF &b : { QPointF(0.3, 0.16), QPointF(0.36, 0.2) }) {
        QPainterPath wing;
        const QPointF c(b.x() * w, b.y() * h);
        wing.moveTo(c + QPointF(-6, -2));
        wing.quadTo(c + QPointF(-3, -4), c);
        wing.quadTo(c + QPointF(3, -4), c + QPointF(6, -2));
        p.drawPath(wing);
    }
}

using Painter = void (*)(QPainter &, qreal, qreal);

Painter painterFor(const QString &picture)
{
    static const std::array<std::pair<const char *, Painter>, 7> painters { {
        { "Sky", paintSky },
        { "Fancy", paintFancy },
        { "Waves", paintWaves },
        { "Stars", paintStars },
        { "Dandelions", paintDandelions },
        { "Camomiles", paintCamomiles },
        { "Landscape", paintLandscape },
    } };
    for (const auto &[name, painter] : painters) {
        if (picture == QLatin1String(name))
            return painter;
    }
    return nullptr;
}

} // namespace

bool paint(const QString &picture, QImage &image)
{
    const qreal dpr = image.devicePixelRatio();
    if (picture == QLatin1String("Marble")) {
        if (image.format() != QImage::Format_RGB32
            && image.format() != QImage::Format_ARGB32_Premultiplied)
            image = image.convertToFormat(QImage::Format_RGB32);
        paintMarble(image, dpr);
        return true;
    }
    const Painter painter = painterFor(picture);
    if (!painter)
        return false;
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const QSizeF logical = QSizeF(image.size()) / dpr;
    painter(p, logical.width(), logical.height());
    return true;
}

QImage render(const QString &picture, QSize logical, qreal devicePixelRatio)
{
    QImage image(logical * devicePixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatio);
    if (!paint(picture, image))
        return {};
    return image;
}

} // namespace BackgroundPictures
