#pragma once

#include "TipMarkup.h"

#include <QPointF>
#include <QString>
#include <QStringView>

#include <cstdint>

// A font of the tooltip text: the face is always the base face (or its fallback), the rest
// comes from the base style or from a tag.
struct TipFont
{
    QString face;
    int size = 9; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;

    bool operator==(const TipFont &other) const = default;
};

// Where the tooltip text is measured and drawn. Lengths are twips; the pen is the top-left
// corner of the next character.
class TipCanvas
{
public:
    virtual ~TipCanvas() = default;
    virtual void setFont(const TipFont &font) = 0;
    // False when the face of the current font is missing, does not scale to its size or does
    // not draw the program's letters.
    virtual bool fontRenders() const = 0;
    virtual void setTextColor(std::uint32_t bgr) = 0;
    virtual std::int64_t textWidth(QStringView text) const = 0;
    // Each carriage return in `text` starts another line.
    virtual std::int64_t textHeight(QStringView text) const = 0;
    // Starts an empty surface of `width` x `height` twips in the background colour.
    virtual void clear(std::int64_t width, std::int64_t height) = 0;
    virtual void drawText(QPointF pen, QStringView text) = 0;
};

struct TipSize
{
    std::int64_t width = 0;
    std::int64_t height = 0;
    bool operator==(const TipSize &other) const = default;
};

// Lays out and draws one tooltip text in the mark-up of TipMarkup.h.
class TipLayout
{
public:
    static constexpr int LeftMargin = 90;
    static constexpr int PenTop = 15;
    static constexpr int ProvisionalExtraWidth = 2000;
    static constexpr int ProvisionalExtraHeight = 30;
    // A tag may ask for any size; the font machinery draws between these.
    static constexpr int MinFontSize = 1;
    static constexpr int MaxFontSize = 72;
    static inline const QString FallbackFace = QStringLiteral("MS Sans Serif");

    TipLayout(TipCanvas &canvas, TipStyle style);

    // The base font and colour.
    void ResetTipFont();
    // The font of an opening tag's field list.
    void ApplyFontTag(QStringView fields);
    // Lays out `text` and returns the window size; with `draw` it first clears the surface
    // (made at the provisional size) and draws the text on it.
    TipSize DrawTipText(const QString &text, bool draw);

    // The size of the surface the drawing pass starts on, generous so that nothing is clipped.
    TipSize provisionalSize() const { return m_provisional; }
    // Pen width of the frame in pixels; half of it falls outside the window.
    int GetTipBorderWidth() const;
    // The height of "A" in the base font: every line advances by it.
    std::int64_t lineHeight() const { return m_lineHeight; }

private:
    void applyFont(TipFont font);

    TipCanvas &m_canvas;
    TipStyle m_style;
    TipSize m_provisional;
    std::int64_t m_lineHeight = 0;
};
