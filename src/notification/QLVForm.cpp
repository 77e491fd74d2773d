#include "QLVForm.h"

#include "windowing/LayeredWindows.h"

#include <QApplication>
#include <QTimer>

namespace {

// Flips a window's caption between its own words and the same words between marks, then puts
// it back. A caption set by someone else meanwhile becomes the one put back.
class CaptionBlink : public QObject
{
public:
    CaptionBlink(QWidget *window, int count)
        : QObject(window)
        , m_window(window)
    {
        setObjectName(QStringLiteral("CaptionBlink"));
        m_timer.setInterval(QLVForm::BlinkMs);
        connect(&m_timer, &QTimer::timeout, this, &CaptionBlink::flip);
        restart(count);
    }

    void restart(int count)
    {
        if (m_flips % 2 == 1)
            m_window->setWindowTitle(m_caption);
        m_caption = m_window->windowTitle();
        m_flips = 2 * count;
        flip();
        m_timer.start();
    }

private:
    void flip()
    {
        const QString shown = m_window->windowTitle();
        if (shown != m_caption && shown != marked())
            m_caption = shown;
        if (m_flips <= 0) {
            m_window->setWindowTitle(m_caption);
            m_timer.stop();
            deleteLater();
            return;
        }
        m_window->setWindowTitle(m_flips % 2 == 0 ? marked() : m_caption);
        --m_flips;
    }
    QString marked() const { return QStringLiteral("\u00bb %1 \u00ab").arg(m_caption); }

    QWidget *m_window;
    QString m_caption;
    int m_flips = 0;
    QTimer m_timer;
};

} // namespace

QLVForm::QLVForm(QWidget *parent)
    : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("QLVForm"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(260, 64);
}

void QLVForm::blink(int count)
{
    FlashWindow(this, count);
}

void QLVForm::FlashWindow(QWidget *window, int count)
{
    if (!window || count <= 0)
        return;
    if (auto *running = window->findChild<CaptionBlink *>(QStringLiteral("CaptionBlink"),
                                                          Qt::FindDirectChildrenOnly)) {
        running->restart(count);
    } else {
        new CaptionBlink(window, count);
    }
    QApplication::alert(window);
}

bool QLVForm::ProbeLayeredWindows(const QString &osPlatform)
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return false;
    // Never shown, so no native window is made: the probe costs start-up no round trip to the
    // display. The answer is the desktop's: translucency needs a compositing manager.
    QLVForm probe;
    MakeLayered(&probe, 255);
    return ::ProbeLayeredWindows(osPlatform);
}
