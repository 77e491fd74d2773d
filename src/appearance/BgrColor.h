#pragma once

#include <QColor>

#include <cstdint>

// The program keeps colours as 0xBBGGRR integers; painting wants a QColor.
inline QColor colorFromBgr(std::uint32_t bgr)
{
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                  static_cast<int>((bgr >> 16) & 0xFF));
}
