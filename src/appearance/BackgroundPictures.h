#pragma once

#include <QImage>
#include <QString>

// The Main window's background pictures, painted in code at whatever size and scale they are
// shown, so they are as sharp on a HiDPI screen as on a plain one.
namespace BackgroundPictures {

// Paints `picture` over the whole image; the image's device pixel ratio gives its logical size.
// Returns false, leaving the image as it was, for "None" and any name that is not a picture.
bool paint(const QString &picture, QImage &image);

// A new image of `logical` size at `devicePixelRatio` holding the picture; null for "None".
QImage render(const QString &picture, QSize logical, qreal devicePixelRatio);

} // namespace BackgroundPictures
