#include "VectorIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <vector>

namespace VectorIcon {

namespace {

class ShapeEngine : public QIconEngine
{
public:
    explicit ShapeEngine(Shape shape)
        : m_shape(shape)
    { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const QColor ink =
            mode == QIcon::Disabled ? QColor(0xA0, 0xA0, 0xA0) : QColor(0x20, 0x30, 0x50);
        const qreal s = qMin(rect.width(), rect.height());
        QPen pen(ink, qMax<qreal>(1.2, s / 9.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        painter->setPen(pen);
        painter->setBrush(Qt::NoBrush);
        // Draw in a 16 x 16 box centred in the rectangle.
        painter->translate(rect.center().x() + 0.5 - s / 2, rect.center().y() + 0.5 - s / 2);
        painter->scale(s / 16.0, s / 16.0);
        pen.setWidthF(pen.widthF() * 16.0 / s);
        painter->setPen(pen);
        draw(*painter, ink);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1.0);
    }

    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override
    {
        // Buttons ask for their picture at every repaint; draw each size and mode once.
        const QSize device = size * scale;
        for (const Cached &c : m_cache) {
            if (c.size == device && c.mode == mode)
                return c.pixmap;
        }
        QPixmap pm(device);
        pm.fill(Qt::transparent);
        {
            QPainter p(&pm);
            paint(&p, QRect(QPoint(0, 0), device), mode, state);
        }
        pm.setDevicePixelRatio(scale);
        m_cache.push_back({ device, mode, pm });
        return pm;
    }

    QIconEngine *clone() const override { return new ShapeEngine(m_shape); }

private:
    void draw(QPainter &p, const QColor &ink) const
    {
        switch (m_shape) {
        case Shape::Previous:
        case Shape::Next: {
            QPainterPath triangle;
            const bool left = m_shape == Shape::Previous;
            triangle.moveTo(left ? 11 : 5, 3);
            triangle.lineTo(left ? 4 : 12, 8);
            triangle.lineTo(left ? 11 : 5, 13);
            triangle.closeSubpath();
            p.setBrush(ink);
            p.drawPath(triangle);
            break;
        }
        case Shape::Undo:
        case Shape::Redo: {
            const bool back = m_shape == Shape::Undo;
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
            head.moveTo(6.5, 3);
            head.lineTo(3, 6);
            head.lineTo(6.5, 9);
            p.drawPath(head);
            break;
        }
        case Shape::New:
            p.drawRoundedRect(QRectF(2.5, 2.5, 11, 11), 1.5, 1.5);
            p.drawLine(QPointF(8, 5), QPointF(8, 11));
            p.drawLine(QPointF(5, 8), QPointF(11, 8));
            break;
        case Shape::Copy:
            p.drawRect(QRectF(2.5, 2.5, 7.5, 8.5));
            p.setBrush(Qt::white);
            p.drawRect(QRectF(6, 5.5, 7.5, 8.5));
            break;
        case Shape::Minimise:
            p.drawLine(QPointF(3.5, 12), QPointF(12.5, 12));
            break;
        case Shape::Close:
            p.drawLine(QPointF(4, 4), QPointF(12, 12));
            p.drawLine(QPointF(12, 4), QPointF(4, 12));
            break;
        case Shape::Ok: {
            QPainterPath tick;
            tick.moveTo(3, 8.5);
            tick.lineTo(6.5, 12);
            tick.lineTo(13, 4.5);
            p.drawPath(tick);
            break;
        }
        }
    }

    struct Cached
    {
        QSize size;
        QIcon::Mode mode;
        QPixmap pixmap;
    };

    Shape m_shape;
    std::vector<Cached> m_cache;
};

} // namespace

QIcon icon(Shape shape)
{
    return QIcon(new ShapeEngine(shape));
}

} // namespace VectorIcon
