#include "KeyboardState.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <cstdlib>
#include <xcb/xcb.h>

bool keyStillDown(const QKeyEvent *release)
{
    if (release->isAutoRepeat())
        return true;
    const quint32 keycode = release->nativeScanCode();
    if (keycode == 0 || keycode > 255 || QGuiApplication::platformName() != QStringLiteral("xcb"))
        return false;
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return false;
    xcb_connection_t *connection = x11->connection();
    xcb_query_keymap_reply_t *keymap =
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr);
    if (!keymap)
        return false;
    const bool down = keymap->keys[keycode / 8] & (1u << (keycode % 8));
    std::free(keymap);
    return down;
}
