#pragma once

#include "windowing/KeyHold.h"

#include <Qt>

// The Main window's keyboard commands. Commands fire on key-down or key-up as the table says,
// and only once per hold: X repeats a held key as press/release pairs, so a press of the key
// already held is a repeat, and a release while the keyboard still reports the key down is the
// first half of a repeat pair, not the real release. A key-up fires only after a key-down this
// window saw.
class KeyTable
{
public:
    enum class Command {
        None,
        Discard, // a mouse button is held: the key is dropped
        FocusOk, // Esc down: the focus goes to KnOk, ready to close on release
        Close,
        Quit, // Alt+Q, Alt+X: close as the program's quit keys
        Activate, // Enter: click the focused command button
        AuthorMessage,
        About,
        Settings,
        NewInstance,
        EndListState,
    };

    Command keyDown(int key, Qt::KeyboardModifiers modifiers, bool mouseButtonHeld);
    // `keyStillDown`: the keyboard reports the key as held at this release.
    Command keyUp(int key, Qt::KeyboardModifiers modifiers, bool mouseButtonHeld,
                  bool keyStillDown = false);
    // The key-up never came (focus left, or the release went elsewhere).
    void keyUpTimedOut();
    // A list's drop-down opened or closed, by whatever means. While it is open, Esc and F4
    // belong to the list, and so do their releases.
    void listDroppedDown() { ListDropFlag = true; }
    void listClosedUp() { ListDropFlag = false; }
    void resetListState() { ListDropFlag = ListEscFlag = false; }

    bool KeyIsDown = false;
    bool CtrlAtKeyDown = false;
    bool ListDropFlag = false;
    bool ListEscFlag = false;
    bool KeySuppress = false;

private:
    KeyHold m_hold;
};
