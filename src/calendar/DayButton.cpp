#include "DayButton.h"

#include "appearance/BgrColor.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

DayButton::DayButton(int index, QWidget *parent)
    : QPushButton(parent)
    , m_index(index)
{
    setObjectName(QStringLiteral("ButtDay%1").arg(index));
    setProperty("index", index);
    setFlat(true);
    setAttribute(Qt::WA_Hover);
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
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QColor back = colorFromBgr(m_backColor);
    if (isDown())
        back = back.darker(112);
    const bool blank = text().isEmpty();
    QColor edge = back.darker(blank ? 108 : 125);
    if (underMouse() && isEnabled())
        edge = QColor(0x40, 0x60, 0xA0);
    p.setPen(QPen(edge, 1));
    p.setBrush(back);
    p.drawRoundedRect(box, 3, 3);
    if (hasFocus()) {
        p.setPen(QPen(QColor(0x20, 0x40, 0x90), 1.6));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(box.adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
    }
    if (!blank) {
        p.setPen(isEnabled() ? QColor(0x10, 0x10, 0x10) : QColor(0x80, 0x80, 0x80));
        p.setFont(font());
        p.drawText(rect(), Qt::AlignCenter, text());
    }
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
