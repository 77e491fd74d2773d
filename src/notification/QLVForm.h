#pragma once

#include <QWidget>

// The notification window: a small window that blinks its caption and flashes the program's
// taskbar entry to draw the user's eye. Start-up also uses one, never shown, to ask whether
// translucent windows work here.
class QLVForm : public QWidget
{
    Q_OBJECT

public:
    static constexpr int BlinkMs = 250; // one flip of the caption

    explicit QLVForm(QWidget *parent = nullptr);

    // Flips the caption `count` times and flashes the taskbar entry.
    void blink(int count);

    // Flips the caption of `window` (what a taskbar shows of it) `count` times, one flip every
    // BlinkMs, and asks the desktop to mark its taskbar entry (QApplication::alert). A second
    // call during a blink starts the count again instead of blinking on top of it.
    static void FlashWindow(QWidget *window, int count);

    // Whether translucent windows work: a notification window, never shown, is made
    // translucent, and the desktop is asked whether it composites.
    static bool ProbeLayeredWindows(const QString &osPlatform);
};
