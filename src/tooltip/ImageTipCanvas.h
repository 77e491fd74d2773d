#pragma once

#include "TipLayout.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QImage>
#include <QPainter>

#include <memory>

// The tooltip text drawn with the system's fonts onto an image, which the tooltip window shows.
class ImageTipCanvas : public TipCanvas
{
public:
    // The surface never grows past this many pixels a side, whatever the text.
    static constexpr int MaxSurfacePixels = 4096;

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
    QColor m_back;
    qreal m_ratio;
    QFont m_font;
    QFontMetricsF m_metrics;
    QColor m_ink;
    QImage m_image;
    std::unique_ptr<QPainter> m_painter;
    mutable QHash<QString, bool> m_rendering; // by face and size
};
