#include "DragArea.h"

#include "WindowBehaviour.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace {

bool nativeWayland()
{
    return QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

} // namespace

DragArea::DragArea(WindowBehaviour &behaviour, QWidget *window, QWidget *area)
    : QObject(area)
    , m_behaviour(behaviour)
    , m_window(window)
    , m_area(area)
{
    setObjectName(QStringLiteral("DragArea"));
    // Button-free moves refresh the grab point, so the area must see them.
    area->setMouseTracking(true);
    area->installEventFilter(this);
}

bool DragArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_area)
        return false;
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        int button = 3;
        if (mouse->buttons() == Qt::NoButton)
            button = 0;
        else if (mouse->buttons() == Qt::LeftButton && m_pressedHere)
            button = 1;
        m_behaviour.DragAreaMouseMove(m_window, button, EventPointer(mouse->globalPosition()));
        return false;
    }
    case QEvent::MouseButtonPress: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton)
            return false;
        m_pressedHere = true;
        if (nativeWayland()) {
            // No client may place itself there; the compositor moves the window for us.
            if (QWindow *handle = m_window->windowHandle())
                handle->startSystemMove();
            return false;
        }
        m_behaviour.recordGrab(m_window, EventPointer(mouse->globalPosition()));
        return false;
    }
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
            m_pressedHere = false;
            m_behaviour.drag().MoveLocked = false;
        }
        return false;
    default:
        return false;
    }
}
