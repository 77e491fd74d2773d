#include "ButtonArt.h"

#include "BgrColor.h"

#include <QPainter>
#include <QPainterPath>

namespace ButtonArt {

namespace {

// Each picture is drawn in a 16 x 16 box with the pen already set in the ink colour.

void drawCopy(QPainter &p, const QColor &ink)
{
    p.drawRoundedRect(QRectF(2.5, 2.5, 7.5, 8.5), 1, 1);
    p.setBrush(ink);
    QColor paper = ink;
    paper.setAlphaF(0.18);
    p.setBrush(paper);
    p.drawRoundedRect(QRectF(6, 5.5, 7.5, 8.5), 1, 1);
}

void drawMinimise(QPainter &p)
{
    p.drawLine(QPointF(3.5, 11.5), QPointF(12.5, 11.5));
}

void drawClose(QPainter &p)
{
    p.drawLine(QPointF(4, 4), QPointF(12, 12));
    p.drawLine(QPointF(12, 4), QPointF(4, 12));
}

void drawTick(QPainter &p)
{
    QPainterPath tick;
    tick.moveTo(3, 8.5);
    tick.lineTo(6.5, 12);
    tick.lineTo(13, 4.5);
    p.drawPath(tick);
}

// Undo bends back to the left; Redo is its mirror image.
void drawHistoryArrow(QPainter &p, bool back)
{
    if (!back) {
        p.translate(16, 0);
        p.scale(-1, 1);
    }
    QPainterPath arc;
    arc.moveTo(4, 6);
    arc.lineTo(10, 6);
    arc.cubicTo(15, 6, 15, 13, 10, 13);
    arc.lineTo(6, 13);
    p.drawPath(arc);
    QPainterPath head;
    head.moveTo(6.5, 2.5);
    head.lineTo(3, 6);
    head.lineTo(6.5, 9.5);
    p.drawPath(head);
}

// A filled chevron pointing to the previous or the next month.
void drawMonthStep(QPainter &p, const QColor &ink, bool previous)
{
    QPainterPath triangle;
    triangle.moveTo(previous ? 10.5 : 5.5, 3);
    triangle.lineTo(previous ? 4.5 : 11.5, 8);
    triangle.lineTo(previous ? 10.5 : 5.5, 13);
    triangle.closeSubpath();
    p.setBrush(ink);
    p.drawPath(triangle);
}

// A new window: a frame with a plus in its corner.
void drawNew(QPainter &p)
{
    p.drawRoundedRect(QRectF(2, 4, 10, 9.5), 1.2, 1.2);
    p.drawLine(QPointF(2, 6.8), QPointF(12, 6.8));
    p.drawLine(QPointF(13, 1.5), QPointF(13, 6.5));
    p.drawLine(QPointF(10.5, 4), QPointF(15.5, 4));
}

struct Look
{
    QColor face;
    QColor edge;
    QColor ink;
    qreal sink = 0; // pressed faces push the picture down and right
};

Look lookFor(Picture picture, State state, const SchemePalette &palette)
{
    Look look { colorFromBgr(palette.buttonFace), colorFromBgr(palette.buttonEdge),
                colorFromBgr(palette.buttonInk) };
    switch (state) {
    case State::Normal:
        look.edge.setAlphaF(0.7);
        break;
    case State::Hover:
        look.face =
            colorFromBgr(picture == Picture::Close ? palette.closeHover : palette.buttonHover);
        look.ink = colorFromBgr(picture == Picture::Close ? palette.closeHoverInk
                                                          : palette.buttonHoverInk);
        if (picture == Picture::Close)
            look.edge = look.face;
        break;
    case State::Pressed:
        look.face =
            colorFromBgr(picture == Picture::Close ? palette.closeHover : palette.buttonPressed);
        look.ink =
            colorFromBgr(picture == Picture::Close ? palette.closeHoverInk : palette.buttonInk);
        look.face = picture == Picture::Close ? look.face.darker(125) : look.face;
        look.sink = 0.75;
        break;
    case State::Disabled:
        // No face at all: a button that cannot be pressed does not stand out of the window.
        look.face = Qt::transparent;
        look.edge = Qt::transparent;
        look.ink = colorFromBgr(palette.buttonDisabledInk);
        break;
    }
    return look;
}

void drawFace(QPainter &p, const QRectF &box, const Look &look, State state)
{
    const QRectF face = box.adjusted(0.5, 0.5, -0.5, -0.5);
    p.setPen(QPen(look.edge, 1));
    p.setBrush(look.face);
    p.drawRoundedRect(face, 4, 4);
    if (state == State::Pressed) {
        // A shade along the top edge: the face sits below the window's surface.
        QColor shade(0, 0, 0, 60);
        p.setPen(QPen(shade, 1.2));
        p.setBrush(Qt::NoBrush);
        p.drawLine(face.topLeft() + QPointF(3, 1.2), face.topRight() + QPointF(-3, 1.2));
    } else if (state == State::Hover) {
        QColor light(255, 255, 255, 90);
        p.setPen(QPen(light, 1));
        p.setBrush(Qt::NoBrush);
        p.drawLine(face.topLeft() + QPointF(3, 1), face.topRight() + QPointF(-3, 1));
    }
}

void drawGlyph(QPainter &p, const QRectF &box, Picture picture, const QColor &ink)
{
    const qreal side = qMax<qreal>(8, qMin(box.width(), box.height()) - 8);
    p.save();
    p.translate(box.center() - QPointF(side / 2, side / 2));
    p.scale(side / 16, side / 16);
    p.setPen(QPen(ink, qMax<qreal>(1.6, 24 / side), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    switch (picture) {
    case Picture::Copy:
        drawCopy(p, ink);
        break;
    case Picture::Minimise:
        drawMinimise(p);
        break;
    case Picture::Close:
        drawClose(p);
        break;
    case Picture::Ok:
        drawTick(p);
        break;
    case Picture::Undo:
    case Picture::Redo:
        drawHistoryArrow(p, picture == Picture::Undo);
        break;
    case Picture::PreviousMonth:
    case Picture::NextMonth:
        drawMonthStep(p, ink, picture == Picture::PreviousMonth);
        break;
    case Picture::New:
        drawNew(p);
        break;
    case Picture::Word:
        break;
    }
    p.restore();
}

void drawWord(QPainter &p, const QRectF &box, const QString &word, const QColor &ink,
              const QFont &font)
{
    QFont f = font;
    f.setBold(true);
    p.setFont(f);
    p.setPen(ink);
    p.drawText(box, Qt::AlignCenter, word);
}

} // namespace

void paint(QPainter &p, const QRectF &rect, Picture picture, State state,
           const SchemePalette &palette, const QString &word, const QFont &font)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    const Look look = lookFor(picture, state, palette);
    drawFace(p, rect, look, state);
    const QRectF content = rect.translated(look.sink, look.sink);
    if (picture == Picture::Word) {
        drawWord(p, content, word, look.ink, font);
    } else if (picture == Picture::Ok && !word.isEmpty() && rect.width() > rect.height() * 1.8) {
        // Tick and word side by side, centred together.
        const qreal tick = rect.height();
        const QRectF glyph(content.left() + content.width() * 0.12, content.top(), tick, tick);
        drawGlyph(p, glyph, picture, look.ink);
        drawWord(p, content.adjusted(glyph.right() - content.left() - 4, 0, 0, 0), word, look.ink,
                 font);
    } else {
        drawGlyph(p, content, picture, look.ink);
    }
    p.restore();
}

QImage render(Picture picture, State state, const SchemePalette &palette, QSize logical, qreal dpr,
              const QString &word, const QFont &font)
{
    QImage image(logical * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    QPainter p(&image);
    paint(p, QRectF(QPointF(0, 0), QSizeF(logical)), picture, state, palette, word, font);
    return image;
}

} // namespace ButtonArt
