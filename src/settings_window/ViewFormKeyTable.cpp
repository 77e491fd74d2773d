#include "ViewFormKeyTable.h"

namespace {

bool isModifierKey(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt
        || key == Qt::Key_Meta || key == Qt::Key_AltGr;
}

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isCommandKey(int key, bool ctrlOrAlt)
{
    if (key == Qt::Key_F1 || key == Qt::Key_F9)
        return !ctrlOrAlt;
    return ctrlOrAlt
        && (key == Qt::Key_X || key == Qt::Key_R || key == Qt::Key_A || key == Qt::Key_F4
            || isEnter(key) || key == Qt::Key_Q);
}

} // namespace

ViewFormKeyTable::Command ViewFormKeyTable::keyDown(int key, Qt::KeyboardModifiers modifiers)
{
    if (isModifierKey(key))
        return Command::None;
    const bool ctrl = modifiers & Qt::ControlModifier;
    const bool alt = modifiers & Qt::AltModifier;
    if (key == Qt::Key_Escape) {
        if (EscArmed)
            return Command::None;
        EscArmed = true;
        return Command::PressCancel;
    }
    if (isCommandKey(key, ctrl || alt)) {
        if (KeyHeld)
            return Command::None; // held, or another command key is: no repeat
        KeyHeld = true;
    }
    if ((isEnter(key) || key == Qt::Key_F4) && (ctrl || alt))
        return Command::Ok;
    if ((key == Qt::Key_Q || key == Qt::Key_X) && alt)
        return Command::Quit;
    if ((key == Qt::Key_A || key == Qt::Key_M) && (ctrl || alt))
        return Command::Attention;
    if (isEnter(key) && !ctrl && !alt)
        return Command::NextControl;
    return Command::None;
}

ViewFormKeyTable::Command ViewFormKeyTable::keyUp(int key, bool keyStillDown)
{
    if (keyStillDown || isModifierKey(key))
        return Command::None;
    const bool wasHeld = KeyHeld;
    KeyHeld = false;
    if (key == Qt::Key_Escape && EscArmed) {
        EscArmed = false;
        return Command::Cancel;
    }
    if (key == Qt::Key_F4 && EscArmed)
        return Command::ClearHover;
    if (!wasHeld)
        return Command::None;
    return key == Qt::Key_F1 ? Command::About : Command::ResetPictures;
}
