#pragma once

#include "TipLayout.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QRawFont>

#include <memory>

// The tooltip text drawn with the system's fonts onto an image, which the tooltip window shows.
class ImageTipCanvas : public TipCanvas
{
public:
    // The surface never grows past this many logical pixels a side, whatever the text.
    static constexpr int MaxSurfacePixels = 2048;

    explicit ImageTipCanvas(std::uint32_t backColor, qreal devicePixelRatio = 1.0);
    ~ImageTipCanvas() override;

    void setFont(const TipFont &font) override;
    bool fontRenders() const override;
    void setTextColor(std::uint32_t bgr) override;
    std::int64_t textWidth(QStringView text) const override;
    std::int64_t textHeight(QStringView text) const override;
    void clear(std::int64_t width, std::int64_t height) override;
    void drawText(QPointF pen, QStringView text) override;

    // What has been drawn; empty before the first clear.
    const QImage &image() const { return m_image; }
    // Ends drawing, so that the image can be shown.
    void finish();

private:
    // Characters drawn one by one are collected while font, colour and line stay the same, and
    // painted as one run of glyphs at their own positions.
    void flush();

    QColor m_back;
    qreal m_ratio;
    QFont m_font;
    QFontMetricsF m_metrics;
    QColor m_ink;
    QImage m_image;
    std::unique_ptr<QPainter> m_painter;
    QRawFont m_raw;
    QString m_runText;
    QList<QPointF> m_runPositions;
    mutable QHash<QString, bool> m_rendering; // by face and size
};
