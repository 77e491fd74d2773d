#pragma once

#include "tooltip/TipLayout.h"

#include <vector>

// Text metrics without fonts: a character is 10 twips wide per point (11 when bold), a line 20
// twips tall per point; only "Arial" and "MS Sans Serif" exist. Every drawing is kept.
struct FixedTipCanvas : TipCanvas
{
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
        return font.face == u"Arial" || font.face == u"MS Sans Serif";
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
