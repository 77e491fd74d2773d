#include "WindowBody.h"

#include "BgrColor.h"

#include <QPainter>
#include <QTimer>

WindowBody::WindowBody(QWidget *parent)
    : QFrame(parent)
    , m_palette(&SchemePalettes::forScheme({}))
{
    setFrameShape(QFrame::NoFrame);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void WindowBody::setLook(const SchemePalette &palette, const QString &picture, int borderWidth,
                         const QList<QRect> &textAreas)
{
    m_palette = &palette;
    m_picture = picture;
    m_borderWidth = qBound(0, borderWidth, 3);
    m_textAreas = textAreas;
    update();
}

void WindowBody::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    const qreal dpr = devicePixelRatioF();
    if (m_cache.holds(m_picture, *m_palette, size(), dpr, m_textAreas)) {
        p.drawImage(QPoint(0, 0), m_cache.image(m_picture, *m_palette, size(), dpr, m_textAreas));
    } else {
        // The window shows at once on its plain ground; the picture follows a moment later,
        // so that painting it never delays the first frame.
        p.fillRect(rect(), colorFromBgr(m_palette->ground));
        if (!m_renderQueued) {
            m_renderQueued = true;
            QTimer::singleShot(0, this, [this] {
                m_renderQueued = false;
                m_cache.image(m_picture, *m_palette, size(), devicePixelRatioF(), m_textAreas);
                update();
            });
        }
    }
    const QColor frame = colorFromBgr(m_palette->frame);
    const int b = m_borderWidth;
    if (b > 0) {
        p.fillRect(0, 0, width(), b, frame);
        p.fillRect(0, height() - b, width(), b, frame);
        p.fillRect(0, b, b, height() - 2 * b, frame);
        p.fillRect(width() - b, b, b, height() - 2 * b, frame);
    }
}
