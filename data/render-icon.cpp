// Draws an SVG picture into a square image of the size asked for: the build makes the icon's
// raster sizes with it, so that no picture exists twice. An output name ending in ".rgba" gets
// the bare pixels, four bytes each in the order red, green, blue, alpha, row after row, which
// the program turns into its window icon without an image decoder; any other name gets a PNG.
// A margin trims that many units from every side of the picture first: a 24-unit drawing kept
// inside its middle 22 units gives the 22-pixel icon at one unit a pixel, as sharp as the drawing.
//
//   render-icon <picture.svg> <size> <out.png|out.rgba> [margin]

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    bool sizeOk = false;
    bool marginOk = true;
    const int size = args.size() >= 4 ? args.at(2).toInt(&sizeOk) : 0;
    const double margin = args.size() == 5 ? args.at(4).toDouble(&marginOk) : 0;
    if (args.size() > 5 || !sizeOk || !marginOk || size <= 0 || size > 4096) {
        std::fputs("usage: render-icon <picture.svg> <size> <out.png|out.rgba> [margin]\n", stderr);
        return 2;
    }
    QSvgRenderer svg(args.at(1));
    if (!svg.isValid()) {
        std::fprintf(stderr, "render-icon: cannot read %s\n", qPrintable(args.at(1)));
        return 1;
    }
    svg.setViewBox(svg.viewBoxF().adjusted(margin, margin, -margin, -margin));
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    svg.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    const QString out = args.at(3);
    bool written = false;
    if (out.endsWith(QLatin1String(".rgba"))) {
        const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888);
        QFile file(out);
        written = file.open(QIODevice::WriteOnly | QIODevice::Truncate)
            && file.write(reinterpret_cast<const char *>(pixels.constBits()), pixels.sizeInBytes())
                == pixels.sizeInBytes();
    } else {
        written = image.save(out, "PNG");
    }
    if (!written) {
        std::fprintf(stderr, "render-icon: cannot write %s\n", qPrintable(args.at(3)));
        return 1;
    }
    return 0;
}
