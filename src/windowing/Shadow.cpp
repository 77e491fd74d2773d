#include "Shadow.h"

#include "LayeredWindows.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>

#include <cstring>
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

xcb_atom_t internAtom(xcb_connection_t *connection, const char *name)
{
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, uint16_t(strlen(name)), name), nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    free(reply);
    return atom;
}

// Keeps a window out of the taskbar and the pager. Qt adds its own states to these when it maps
// the window, so this must come before.
void skipTaskbarOnX11(QWidget *window)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return;
    xcb_connection_t *connection = x11->connection();
    const xcb_atom_t states[] = { internAtom(connection, "_NET_WM_STATE_SKIP_TASKBAR"),
                                  internAtom(connection, "_NET_WM_STATE_SKIP_PAGER") };
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, xcb_window_t(window->winId()),
                        internAtom(connection, "_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 2, states);
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

void Shadow::showEvent(QShowEvent *event)
{
    // The native window may have been made anew for new flags, so this is done at every show.
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        skipTaskbarOnX11(this);
    QWidget::showEvent(event);
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
