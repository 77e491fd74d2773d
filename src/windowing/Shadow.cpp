#include "Shadow.h"

#include "LayeredWindows.h"
#include "appearance/BgrColor.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>

#include <xcb/xcb.h>

namespace {

// The child of the root window that holds `window`: the window itself without a window manager,
// the manager's frame around it with one.
xcb_window_t topLevelOf(xcb_connection_t *connection, xcb_window_t window)
{
    for (int depth = 0; depth < 8; ++depth) {
        xcb_query_tree_reply_t *tree =
            xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr);
        if (!tree)
            return XCB_NONE;
        const bool atTop = tree->parent == tree->root || tree->parent == XCB_NONE;
        const xcb_window_t parent = tree->parent;
        free(tree);
        if (atTop)
            return window;
        window = parent;
    }
    return XCB_NONE;
}

// Stacks `shadow` directly below the top-level window that holds `owner`. The shadow bypasses
// the window manager, so the request goes straight to the server.
bool restackBelowOnX11(QWidget *shadow, QWidget *owner)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return false;
    xcb_connection_t *connection = x11->connection();
    const xcb_window_t sibling = topLevelOf(connection, static_cast<xcb_window_t>(owner->winId()));
    if (sibling == XCB_NONE)
        return false;
    const uint32_t values[] = { sibling, XCB_STACK_MODE_BELOW };
    const xcb_void_cookie_t cookie = xcb_configure_window_checked(
        connection, static_cast<xcb_window_t>(shadow->winId()),
        XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values);
    // Collect a failure (the owner not yet mapped, say) here so that nothing is printed.
    if (xcb_generic_error_t *error = xcb_request_check(connection, cookie)) {
        free(error);
        return false;
    }
    return true;
}

} // namespace

Shadow::Shadow(std::uint32_t colorBgr)
    : QWidget(nullptr,
              // Not a tool window: window managers keep those above their group's windows.
              // Left to itself it is in no taskbar, pager or window list, and only this
              // program stacks it.
              Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint
                  | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus)
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
