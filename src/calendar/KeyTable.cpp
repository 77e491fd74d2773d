#include "KeyTable.h"

namespace {

// Modifier keys on their own are not keys of the table: Ctrl released before N must not end
// the key-down of N.
bool isModifierKey(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt
        || key == Qt::Key_Meta || key == Qt::Key_AltGr;
}

} // namespace

KeyTable::Command KeyTable::keyDown(int key, Qt::KeyboardModifiers modifiers, bool mouseButtonHeld)
{
    if (mouseButtonHeld)
        return Command::Discard;
    if (isModifierKey(key))
        return Command::None;
    const bool ctrl = modifiers & Qt::ControlModifier;
    const bool alt = modifiers & Qt::AltModifier;
    const bool shift = modifiers & Qt::ShiftModifier;
    CtrlAtKeyDown = ctrl;
    KeyIsDown = true;
    if (KeySuppress)
        return Command::None;
    if (key == Qt::Key_Escape && !ListDropFlag)
        return Command::FocusOk;
    if ((key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F4) && (ctrl || alt)) {
        // Closing at key-down: the matching key-up must not act again.
        KeyIsDown = false;
        return Command::Close;
    }
    if ((key == Qt::Key_Q || key == Qt::Key_X) && alt)
        return Command::Close;
    if (key == Qt::Key_I && ctrl && alt && shift)
        return Command::AuthorMessage;
    return Command::None;
}

KeyTable::Command KeyTable::keyUp(int key, Qt::KeyboardModifiers modifiers, bool mouseButtonHeld)
{
    if (mouseButtonHeld || !KeyIsDown || isModifierKey(key))
        return Command::None;
    KeyIsDown = false;
    KeySuppress = false;
    switch (key) {
    case Qt::Key_F4:
        if (ListEscFlag) {
            resetListState();
            return Command::EndListState;
        }
        return Command::None;
    case Qt::Key_Escape:
        if (ListEscFlag) {
            resetListState();
            return Command::EndListState;
        }
        return Command::Close;
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
