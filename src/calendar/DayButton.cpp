#include "DayButton.h"

#include "appearance/BgrColor.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStaticText>
#include <QWheelEvent>

#include <vector>

namespace {

// The captions are the numbers 1 to 31 in one font; a month step moves them between cells, so
// they are laid out once for all cells rather than again in each cell that changes.
const QStaticText &laidOut(const QString &caption, const QFont &font)
{
    struct Entry
    {
        QString text;
        QFont font;
        QStaticText layout;
    };
    static std::vector<Entry> cache;
    for (const Entry &e : cache) {
        if (e.text == caption && e.font == font)
            return e.layout;
    }
    if (cache.size() > 256)
        cache.clear();
    QStaticText layout(caption);
    layout.setTextFormat(Qt::PlainText);
    layout.prepare(QTransform(), font);
    cache.push_back({ caption, font, layout });
    return cache.back().layout;
}

} // namespace

DayButton::DayButton(int index, QWidget *parent)
    : QPushButton(parent)
    , m_index(index)
{
    setObjectName(QStringLiteral("ButtDay%1").arg(index));
    setProperty("index", index);
    setFlat(true);
    setAttribute(Qt::WA_Hover);
    // The cell paints every pixel itself, so nothing behind it needs repainting.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DayButton::setBackColor(std::uint32_t bgr)
{
    if (bgr == m_backColor)
        return;
    m_backColor = bgr;
    update();
}

void DayButton::paintEvent(QPaintEvent *)
{
    // Square cells drawn with plain fills: crisp at any scale, and cheap enough that a month
    // step repaints all 42 of them well within a frame.
    QPainter p(this);
    const QRect box = rect();
    QColor back = colorFromBgr(m_backColor);
    if (isDown())
        back = back.darker(112);
    const bool blank = text().isEmpty();
    QColor edge = back.darker(blank ? 108 : 125);
    if (underMouse() && isEnabled())
        edge = QColor(0x40, 0x60, 0xA0);
    p.fillRect(box, edge);
    p.fillRect(box.adjusted(1, 1, -1, -1), back);
    if (hasFocus()) {
        const QColor ring(0x20, 0x40, 0x90);
        const QRect inner = box.adjusted(2, 2, -2, -2);
        p.fillRect(inner.left(), inner.top(), inner.width(), 2, ring);
        p.fillRect(inner.left(), inner.bottom() - 1, inner.width(), 2, ring);
        p.fillRect(inner.left(), inner.top(), 2, inner.height(), ring);
        p.fillRect(inner.right() - 1, inner.top(), 2, inner.height(), ring);
    }
    if (blank)
        return;
    const QStaticText &caption = laidOut(text(), font());
    p.setFont(font());
    p.setPen(isEnabled() ? QColor(0x10, 0x10, 0x10) : QColor(0x80, 0x80, 0x80));
    const QSizeF size = caption.size();
    p.drawStaticText(QPointF((box.width() - size.width()) / 2, (box.height() - size.height()) / 2),
                     caption);
}

void DayButton::focusInEvent(QFocusEvent *event)
{
    QPushButton::focusInEvent(event);
    Q_EMIT focusGained(m_index, event->reason());
}

void DayButton::keyPressEvent(QKeyEvent *event)
{
    int offset = 0;
    switch (event->key()) {
    case Qt::Key_Left:
        offset = -1;
        break;
    case Qt::Key_Right:
        offset = 1;
        break;
    case Qt::Key_Up:
        offset = -7;
        break;
    case Qt::Key_Down:
        offset = 7;
        break;
    default:
        QPushButton::keyPressEvent(event);
        return;
    }
    event->accept();
    Q_EMIT moveRequested(m_index, offset);
}

void DayButton::wheelEvent(QWheelEvent *event)
{
    event->accept();
    Q_EMIT wheelTurned(event->angleDelta().y());
}
