#include "KeyTable.h"

namespace {

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

void KeyTable::keyUpTimedOut()
{
    KeyIsDown = false;
    ListEscFlag = false;
    m_hold.forget();
}

KeyTable::Command KeyTable::keyDown(int key, Qt::KeyboardModifiers modifiers, bool mouseButtonHeld)
{
    if (mouseButtonHeld)
        return Command::Discard;
    if (!m_hold.press(key))
        return Command::None; // a repeat: the command went with the first press
    const bool ctrl = modifiers & Qt::ControlModifier;
    const bool alt = modifiers & Qt::AltModifier;
    const bool shift = modifiers & Qt::ShiftModifier;
    CtrlAtKeyDown = ctrl;
    KeyIsDown = true;
    if (KeySuppress)
        return Command::None;
    if ((key == Qt::Key_Escape || key == Qt::Key_F4) && ListDropFlag && !ctrl && !alt) {
        // The open list takes this key and closes; its release must not close the window.
        ListEscFlag = true;
        return Command::None;
    }
    if (key == Qt::Key_Escape)
        return Command::FocusOk;
    if ((isEnter(key) || key == Qt::Key_F4) && (ctrl || alt)) {
        // Closing at key-down: the matching key-up must not act again.
        KeyIsDown = false;
        return Command::Close;
    }
    if ((key == Qt::Key_Q || key == Qt::Key_X) && alt)
        return Command::Quit;
    if (key == Qt::Key_I && ctrl && alt && shift)
        return Command::AuthorMessage;
    if (isEnter(key))
        return Command::Activate;
    return Command::None;
}

KeyTable::Command KeyTable::keyUp(int key, Qt::KeyboardModifiers modifiers, bool mouseButtonHeld,
                                  bool keyStillDown)
{
    if (mouseButtonHeld || !m_hold.release(key, keyStillDown))
        return Command::None;
    if (!KeyIsDown)
        return Command::None;
    KeyIsDown = false;
    KeySuppress = false;
    switch (key) {
    case Qt::Key_F4:
    case Qt::Key_Escape:
        if (ListEscFlag) {
            ListEscFlag = false;
            return Command::EndListState;
        }
        return key == Qt::Key_Escape ? Command::Close : Command::None;
    case Qt::Key_F1:
        return Command::About;
    case Qt::Key_F9:
        return Command::Settings;
    case Qt::Key_N:
        if ((modifiers & Qt::ControlModifier) || CtrlAtKeyDown)
            return Command::NewInstance;
        return Command::None;
    default:
        return Command::None;
    }
}
