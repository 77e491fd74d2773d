#pragma once

#include "SchemePalette.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QString>

// The body of a window: the scheme's plain ground, or a picture toned towards the scheme just
// enough that every text standing on it stays legible.
namespace WindowBackground {

// Legible text needs 4.5:1 against all but the worst 5 % of the pixels behind it; the toning
// keeps every pixel at a little more, so that rounding never tips a text below.
inline constexpr double ToneTarget = 4.7;

// `textAreas` are logical rectangles of the window where text or controls stand: the pixels
// under them choose how much of the picture's contrast the toning keeps.
QImage render(const QString &picture, const SchemePalette &palette, QSize logical, qreal dpr,
              const QList<QRect> &textAreas);

} // namespace WindowBackground

// Keeps the one background on screen, so a repaint costs a copy and a change of picture, scheme,
// size or screen scale costs one render.
class BackgroundCache
{
public:
    const QImage &image(const QString &picture, const SchemePalette &palette, QSize logical,
                        qreal dpr, const QList<QRect> &textAreas);
    // True when image() would return at once, without painting.
    bool holds(const QString &picture, const SchemePalette &palette, QSize logical, qreal dpr,
               const QList<QRect> &textAreas) const;
    void clear() { m_image = QImage(); }

private:
    QString m_picture;
    QString m_scheme;
    QSize m_size;
    qreal m_dpr = 0;
    QList<QRect> m_areas;
    QImage m_image;
};
