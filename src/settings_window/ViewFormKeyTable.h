#pragma once

#include <Qt>

// The Settings window's keyboard commands. Command keys (Ctrl or Alt with X, R, A, F4, Enter or
// Q; F1 or F9 alone) act once per hold; Esc presses the Cancel picture and cancels on release.
// X repeats a held key as release/press pairs: the release half comes while the keyboard still
// holds the key (`keyStillDown`) and is no release at all.
class ViewFormKeyTable
{
public:
    enum class Command {
        None,
        PressCancel, // Esc down: the Cancel picture shows pressed
        Ok,
        Quit, // Alt+Q, Alt+X: the program ends
        Attention, // the waiting window's close control blinks
        NextControl, // Enter alone: the focus moves on
        ResetPictures, // a key that was down came up
        ClearHover, // F4 came up while Esc was armed
        Cancel,
        About,
    };

    Command keyDown(int key, Qt::KeyboardModifiers modifiers);
    Command keyUp(int key, bool keyStillDown);
    // TimerKeyUp ticked: a command key's release never came.
    void keyUpTimedOut() { KeyHeld = false; }

    // A command key is down; cleared on key release.
    bool KeyHeld = false;
    // Esc went down and pressed the Cancel picture; its release cancels.
    bool EscArmed = false;
};
