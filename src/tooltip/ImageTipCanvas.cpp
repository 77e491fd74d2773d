#include "ImageTipCanvas.h"

#include "app/Settings.h"
#include "appearance/BgrColor.h"
#include "appearance/CyrillicFont.h"

#include <QFontInfo>

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
    m_font = f;
    m_metrics = QFontMetricsF(m_font);
    if (m_painter)
        m_painter->setFont(m_font);
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
    m_ink = colorFromBgr(bgr);
    if (m_painter)
        m_painter->setPen(m_ink);
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
        const qreal px = std::ceil(pixels(length) * m_ratio);
        return int(std::clamp<qreal>(px, 1, MaxSurfacePixels));
    };
    m_image = QImage(side(width), side(height), QImage::Format_RGB32);
    m_image.setDevicePixelRatio(m_ratio);
    m_image.fill(m_back);
    m_painter = std::make_unique<QPainter>(&m_image);
    m_painter->setFont(m_font);
    m_painter->setPen(m_ink);
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
    m_painter->drawText(topLeft + QPointF(0, m_metrics.ascent()), text.toString());
}

void ImageTipCanvas::finish()
{
    m_painter.reset();
}
