#pragma once

#include <QString>

class QWidget;

// Whether translucent windows work here: on X11 only while a compositing manager owns
// _NET_WM_CM_S<screen>, on Wayland always, on the offscreen platform never.
bool ProbeLayeredWindows(const QString &osPlatform);

// Makes a window translucent with the given opacity (0..255).
void MakeLayered(QWidget *window, int alpha);
