#include "ImageTipCanvas.h"

#include "app/Settings.h"
#include "appearance/BgrColor.h"
#include "appearance/CyrillicFont.h"

#include <QFontInfo>
#include <QGlyphRun>

#include <algorithm>
#include <cmath>

namespace {

qreal pixels(std::int64_t twips)
{
    return qreal(twips) / TwipsPerPixel;
}

std::int64_t twips(qreal pixels)
{
    return std::llround(pixels * TwipsPerPixel);
}

} // namespace

ImageTipCanvas::ImageTipCanvas(std::uint32_t backColor, qreal devicePixelRatio)
    : m_back(colorFromBgr(backColor))
    , m_ratio(devicePixelRatio)
    , m_metrics(m_font)
{ }

ImageTipCanvas::~ImageTipCanvas() = default;

void ImageTipCanvas::setFont(const TipFont &font)
{
    QFont f(font.face);
    f.setPointSize(font.size);
    f.setBold(font.bold);
    f.setItalic(font.italic);
    f.setUnderline(font.underline);
    f.setStrikeOut(font.strike);
    if (f == m_font)
        return;
    flush();
    m_font = f;
    m_metrics = QFontMetricsF(m_font);
    m_raw = QRawFont();
}

bool ImageTipCanvas::fontRenders() const
{
    const QString key = m_font.family() + QChar(u'/') + QString::number(m_font.pointSize());
    auto known = m_rendering.constFind(key);
    if (known != m_rendering.cend())
        return *known;
    // fontconfig always hands back some face: what counts is that it takes the size asked for
    // and draws Latin and Cyrillic.
    const QFontInfo info(m_font);
    const bool renders = std::abs(info.pointSizeF() - m_font.pointSizeF()) <= 2
        && CyrillicFont::drawsCyrillic(m_font);
    m_rendering.insert(key, renders);
    return renders;
}

void ImageTipCanvas::setTextColor(std::uint32_t bgr)
{
    const QColor ink = colorFromBgr(bgr);
    if (ink == m_ink)
        return;
    flush();
    m_ink = ink;
}

std::int64_t ImageTipCanvas::textWidth(QStringView text) const
{
    if (text.size() == 1)
        return twips(m_metrics.horizontalAdvance(text.front()));
    return twips(m_metrics.horizontalAdvance(text.toString()));
}

std::int64_t ImageTipCanvas::textHeight(QStringView text) const
{
    return twips(m_metrics.height()) * (1 + text.count(u'\r'));
}

void ImageTipCanvas::clear(std::int64_t width, std::int64_t height)
{
    m_painter.reset();
    const auto side = [this](std::int64_t length) {
        return int(std::ceil(std::clamp<qreal>(pixels(length), 1, MaxSurfacePixels) * m_ratio));
    };
    m_image = QImage(side(width), side(height), QImage::Format_RGB32);
    m_image.setDevicePixelRatio(m_ratio);
    m_image.fill(m_back);
    m_painter = std::make_unique<QPainter>(&m_image);
    m_runText.clear();
    m_runPositions.clear();
}

void ImageTipCanvas::drawText(QPointF pen, QStringView text)
{
    if (!m_painter)
        return;
    const QPointF topLeft(pen.x() / TwipsPerPixel, pen.y() / TwipsPerPixel);
    // Nothing lies right of or below the surface: skip the work of drawing it.
    const QSizeF size = m_image.deviceIndependentSize();
    if (topLeft.x() > size.width() || topLeft.y() > size.height())
        return;
    const QPointF baseline = topLeft + QPointF(0, m_metrics.ascent());
    if (!m_runPositions.isEmpty() && m_runPositions.constLast().y() != baseline.y())
        flush();
    m_runText += text;
    m_runPositions.insert(m_runPositions.size(), text.size(), baseline);
}

void ImageTipCanvas::flush()
{
    if (m_runText.isEmpty() || !m_painter) {
        m_runText.clear();
        m_runPositions.clear();
        return;
    }
    if (!m_raw.isValid())
        m_raw = QRawFont::fromFont(m_font);
    QGlyphRun run;
    run.setRawFont(m_raw);
    QList<quint32> glyphs = m_raw.glyphIndexesForString(m_runText);
    // A surrogate pair is one glyph at the position of its first half.
    QList<QPointF> positions;
    positions.reserve(glyphs.size());
    for (qsizetype i = 0; i < m_runText.size() && positions.size() < glyphs.size(); ++i) {
        positions.append(m_runPositions.at(i));
        if (m_runText.at(i).isHighSurrogate() && i + 1 < m_runText.size()
            && m_runText.at(i + 1).isLowSurrogate()) {
            ++i;
        }
    }
    glyphs.resize(positions.size());
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    run.setUnderline(m_font.underline());
    run.setStrikeOut(m_font.strikeOut());
    m_painter->setPen(m_ink);
    m_painter->drawGlyphRun(QPointF(0, 0), run);
    m_runText.clear();
    m_runPositions.clear();
}

void ImageTipCanvas::finish()
{
    flush();
    m_painter.reset();
}
