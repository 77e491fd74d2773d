#pragma once

#include <QImage>

#include <algorithm>
#include <cstdlib>

// How unlike two images of one size look: the mean over the pixels of the largest channel
// difference, 0..255.
inline double meanGap(const QImage &a, const QImage &b)
{
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb u = a.pixel(x, y), v = b.pixel(x, y);
            sum += std::max({ std::abs(qRed(u) - qRed(v)), std::abs(qGreen(u) - qGreen(v)),
                              std::abs(qBlue(u) - qBlue(v)) });
        }
    return sum / (a.width() * a.height());
}
