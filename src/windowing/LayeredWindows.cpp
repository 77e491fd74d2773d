#include "LayeredWindows.h"

#include <QGuiApplication>
#include <QWidget>

#include <algorithm>
#include <xcb/xcb.h>

namespace {

bool compositorOwnsSelection()
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return false;
    xcb_connection_t *connection = x11->connection();
    // Qt opens the default screen; its number is in DISPLAY (":0.1" -> 1).
    int screen = 0;
    const QByteArray display = qgetenv("DISPLAY");
    if (const qsizetype dot = display.lastIndexOf('.'); dot > display.lastIndexOf(':'))
        screen = display.mid(dot + 1).toInt();
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(screen);
    xcb_intern_atom_reply_t *atom = xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData()),
        nullptr);
    if (!atom)
        return false;
    xcb_get_selection_owner_reply_t *owner = xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom->atom), nullptr);
    const bool owned = owner && owner->owner != XCB_NONE;
    free(owner);
    free(atom);
    return owned;
}

} // namespace

bool ProbeLayeredWindows(const QString &osPlatform)
{
    if (osPlatform == QStringLiteral("WIN32s") || osPlatform == QStringLiteral("WIN32WINDOWS"))
        return false;
    if (!qGuiApp)
        return false;
    const QString platform = QGuiApplication::platformName();
    if (platform.startsWith(QStringLiteral("wayland")))
        return true;
    if (platform == QStringLiteral("xcb"))
        return compositorOwnsSelection();
    return false;
}

void MakeLayered(QWidget *window, int alpha)
{
    if (window)
        window->setWindowOpacity(std::clamp(alpha, 0, 255) / 255.0);
}
