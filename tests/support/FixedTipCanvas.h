#pragma once

#include "tooltip/TipLayout.h"

#include <QString>

#include <algorithm>
#include <vector>

// Text metrics without fonts: every character is 10 twips wide per point (plus 1 per point when
// bold), a line is 20 twips tall per point. Only "Arial" and "MS Sans Serif" exist. Each drawn
// character is kept with where and how it was drawn.
class FixedTipCanvas : public TipCanvas
{
public:
    struct Draw
    {
        QPointF pen;
        QString text;
        TipFont font;
        std::uint32_t color;
    };

    void setFont(const TipFont &f) override { font = f; }
    bool fontRenders() const override
    {
        return font.face == QStringLiteral("Arial") || font.face == QStringLiteral("MS Sans Serif");
    }
    void setTextColor(std::uint32_t bgr) override { color = bgr; }
    std::int64_t textWidth(QStringView text) const override
    {
        return std::int64_t { text.size() } * font.size * (font.bold ? 11 : 10);
    }
    std::int64_t textHeight(QStringView text) const override
    {
        return (1 + text.count(u'\r')) * std::int64_t { font.size } * 20;
    }
    void clear(std::int64_t, std::int64_t) override { draws.clear(); }
    void drawText(QPointF pen, QStringView text) override
    {
        draws.push_back({ pen, text.toString(), font, color });
    }

    TipFont font;
    std::uint32_t color = 0;
    std::vector<Draw> draws;
};
