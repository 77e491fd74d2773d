#pragma once

#include <Qt>

// The Main window's keyboard commands. Commands fire on key-down or key-up as the table says;
// a key-up fires only after a key-down this window saw, so a key pressed elsewhere or auto-
// repeated does not fire twice.
class KeyTable
{
public:
    enum class Command {
        None,
        Discard, // a mouse button is held: the key is dropped
        FocusOk, // Esc down: the focus goes to KnOk, ready to close on release
        Close,
        AuthorMessage,
        About,
        Settings,
        NewInstance,
        EndListState,
    };

    Command keyDown(int key, Qt::KeyboardModifiers modifiers, bool mouseButtonHeld);
    Command keyUp(int key, Qt::KeyboardModifiers modifiers, bool mouseButtonHeld);
    // The key-up never came (focus left, or the release went elsewhere).
    void keyUpTimedOut() { KeyIsDown = false; }
    // A list dropped down: Esc now ends the list state instead of closing.
    void listDroppedDown() { ListDropFlag = ListEscFlag = true; }
    void resetListState() { ListDropFlag = ListEscFlag = false; }

    bool KeyIsDown = false;
    bool CtrlAtKeyDown = false;
    bool ListDropFlag = false;
    bool ListEscFlag = false;
    bool KeySuppress = false;
};
