#include "Shadow.h"

#include "LayeredWindows.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>

#include <xcb/xcb.h>

namespace {

// Asks the X server (or the window manager, which intercepts the request for managed windows)
// to stack `lower` directly below `upper`.
bool restackBelowOnX11(QWidget *lower, QWidget *upper)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return false;
    xcb_connection_t *connection = x11->connection();
    const uint32_t values[] = { static_cast<uint32_t>(upper->winId()), XCB_STACK_MODE_BELOW };
    const xcb_void_cookie_t cookie = xcb_configure_window_checked(
        connection, static_cast<xcb_window_t>(lower->winId()),
        XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values);
    // Collect a failure (the owner not yet mapped, say) here so that nothing is printed.
    if (xcb_generic_error_t *error = xcb_request_check(connection, cookie)) {
        free(error);
        return false;
    }
    return true;
}

} // namespace

QColor colorFromBgr(std::uint32_t bgr)
{
    return QColor(int(bgr & 0xff), int((bgr >> 8) & 0xff), int((bgr >> 16) & 0xff));
}

Shadow::Shadow(std::uint32_t colorBgr)
    : QWidget(nullptr,
              Qt::Tool | Qt::FramelessWindowHint | Qt::WindowTransparentForInput
                  | Qt::WindowDoesNotAcceptFocus)
    , m_colorBgr(colorBgr)
{
    setObjectName(QStringLiteral("Shadow"));
    setWindowTitle(QStringLiteral("Shadow"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    MakeLayered(this, ShadowAlpha);
}

void Shadow::setShadowColor(std::uint32_t colorBgr)
{
    if (colorBgr == m_colorBgr)
        return;
    m_colorBgr = colorBgr;
    update();
}

void Shadow::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), colorFromBgr(m_colorBgr));
}

bool PutAboveShadow(QWidget *window, Shadow *shadow)
{
    if (!window || !shadow || !window->isVisible() || window->isMinimized())
        return false;
    if (!shadow->isVisible())
        shadow->show();
    // On X11 the owner is never raised here: that would pull the window over other programs
    // at every upkeep tick.
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        return restackBelowOnX11(shadow, window);
    // Elsewhere raising the owner leaves the shadow just beneath it. The offscreen platform has
    // no stacking order at all.
    if (QGuiApplication::platformName() != QStringLiteral("offscreen"))
        window->raise();
    return true;
}
