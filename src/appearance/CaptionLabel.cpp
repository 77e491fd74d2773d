#include "CaptionLabel.h"

#include <QMouseEvent>
#include <QPainter>

CaptionLabel::CaptionLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void CaptionLabel::paintEvent(QPaintEvent *event)
{
    if (wordWrap() || textFormat() != Qt::PlainText) {
        QLabel::paintEvent(event);
        return;
    }
    const QString caption = text();
    if (caption.isEmpty())
        return;
    if (m_layout.text() != caption || m_layoutFont != font()) {
        m_layout.setText(caption);
        m_layout.setTextFormat(Qt::PlainText);
        m_layoutFont = font();
        m_layout.prepare(QTransform(), m_layoutFont);
    }
    const QRect area = contentsRect();
    const QSizeF size = m_layout.size();
    const Qt::Alignment align = alignment();
    qreal x = area.left();
    if (align & Qt::AlignHCenter)
        x = area.left() + (area.width() - size.width()) / 2;
    else if (align & Qt::AlignRight)
        x = area.right() + 1 - size.width();
    qreal y = area.top();
    if (align & Qt::AlignVCenter)
        y = area.top() + (area.height() - size.height()) / 2;
    else if (align & Qt::AlignBottom)
        y = area.bottom() + 1 - size.height();

    QPainter p(this);
    p.setFont(m_layoutFont);
    // A label that reacts to the pointer (a link) takes the link colour under it.
    const QPalette::ColorRole role =
        testAttribute(Qt::WA_Hover) && underMouse() ? QPalette::Link : foregroundRole();
    p.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, role));
    p.drawStaticText(QPointF(x, y), m_layout);
}

void CaptionLabel::mouseReleaseEvent(QMouseEvent *event)
{
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}
