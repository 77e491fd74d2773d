#include "ViewFormKeys.h"

#include "PicturePairs.h"
#include "ViewForm.h"
#include "app/ProgramState.h"
#include "windowing/KeyboardState.h"
#include "windowing/WindowBehaviour.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

namespace {

// The modifier bits of the program's key routines: Shift 1, Ctrl 2, Alt 4.
int shiftBits(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0)
        | (modifiers & Qt::AltModifier ? 4 : 0);
}

} // namespace

ViewFormKeys::ViewFormKeys(ViewForm &form)
    : QObject(&form)
    , m_form(form)
{
    qApp->installEventFilter(this);
}

ViewFormKeys::~ViewFormKeys()
{
    qApp->removeEventFilter(this);
}

bool ViewFormKeys::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease)
        return false;
    // A key goes first to the focused control and then, unless taken, up to its parents: act on
    // its first arrival only. A dropped-down list is a window of its own and keeps its keys.
    QWidget *first = QApplication::focusWidget() ? QApplication::focusWidget() : &m_form;
    if (watched != first || first->window() != &m_form || m_form.m_editor.IsFilling)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (type == QEvent::KeyPress) {
        hideToolTip();
        return run(m_keys.keyDown(key->key(), key->modifiers()), key->key(), key->modifiers());
    }
    return run(m_keys.keyUp(key->key(), keyStillDown(key)), key->key(), key->modifiers());
}

bool ViewFormKeys::run(ViewFormKeyTable::Command command, int key, Qt::KeyboardModifiers modifiers)
{
    using Command = ViewFormKeyTable::Command;
    switch (command) {
    case Command::None:
        return false;
    case Command::PressCancel:
        PicturePairs::press(m_form.cancelPicture(true));
        return true;
    case Command::Ok:
        m_form.KnOkClick(ViewForm::From::Elsewhere);
        return true;
    case Command::Quit:
        m_form.program().HandleQuitKeys(key, shiftBits(modifiers));
        return true;
    case Command::Attention: {
        // The About window waits for the user when it is open, else this one does.
        QWidget *waiting = m_form.aboutForm() ? m_form.aboutForm() : &m_form;
        Attention(waiting->findChild<QAbstractButton *>(QStringLiteral("KnClose")), 3, 0x80FFFF);
        return true;
    }
    case Command::NextControl:
        m_form.focusNextChild();
        return true;
    case Command::ResetPictures:
        m_form.ResetButtonPictures();
        return false;
    case Command::ClearHover:
        m_form.ClearHoverFlags(true);
        m_form.ResetButtonPictures();
        return true;
    case Command::Cancel:
        m_form.ClearHoverFlags(true);
        m_form.KnCancelClick(ViewForm::From::Elsewhere);
        return true;
    case Command::About:
        m_form.ResetButtonPictures();
        Q_EMIT m_form.aboutWindowRequested();
        return true;
    }
    return false;
}
