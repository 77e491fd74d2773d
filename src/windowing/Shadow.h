#pragma once

#include "appearance/BgrColor.h"

#include <QWidget>

#include <cstdint>

// A drop shadow: a flat, translucent, borderless window that lies just beneath its owner. It
// takes no input and no focus, and has no taskbar entry.
class Shadow : public QWidget
{
    Q_OBJECT

public:
    static constexpr std::uint32_t DefaultShadowColor = 0x525252; // BGR
    static constexpr int ShadowAlpha = 180;

    explicit Shadow(std::uint32_t colorBgr = DefaultShadowColor);

    std::uint32_t ShadowColor() const { return m_colorBgr; }
    void setShadowColor(std::uint32_t colorBgr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::uint32_t m_colorBgr;
};

// Puts `shadow` directly beneath `window` without moving, sizing or activating either: the
// shadow is shown when hidden and, on X11, restacked as the window's sibling. Returns false when
// there was nothing to do it with.
bool PutAboveShadow(QWidget *window, Shadow *shadow);
