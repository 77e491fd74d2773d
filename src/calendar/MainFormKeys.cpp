#include "MainFormKeys.h"

#include "CalendarMonthExtForm.h"
#include "DayButton.h"
#include "app/ProgramState.h"
#include "windowing/KeyboardState.h"
#include "windowing/WindowBehaviour.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

MainFormKeys::MainFormKeys(CalendarMonthExtForm &form)
    : QObject(&form)
    , m_form(form)
{
    qApp->installEventFilter(this);
}

MainFormKeys::~MainFormKeys()
{
    qApp->removeEventFilter(this);
}

bool MainFormKeys::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride)
        return false;
    // Keys of this window and of its lists' drop-downs; a dialog of its own (the author box)
    // keeps its keys.
    auto *target = qobject_cast<QWidget *>(watched);
    if (!target
        || (target->window() != &m_form && target->window() != m_form.ListMonth->view()->window()
            && target->window() != m_form.ListYear->view()->window())) {
        return false;
    }
    // However a list was dropped down or closed (keys, a click, a click elsewhere), what counts
    // is whether its drop-down was open as the key went down. A key goes down first as a shortcut
    // check, which an open drop-down already answers by closing on Esc.
    const auto *key = static_cast<QKeyEvent *>(event);
    const QWidget *popup = QApplication::activePopupWidget();
    const bool listOpen = popup
        && (popup == m_form.ListMonth->view()->window()
            || popup == m_form.ListYear->view()->window());
    if (type == QEvent::ShortcutOverride) {
        if (listOpen)
            m_listKeyTime = key->timestamp();
        return false;
    }
    if (type == QEvent::KeyPress) {
        if (listOpen || (m_listKeyTime != 0 && key->timestamp() == m_listKeyTime))
            m_keys.listDroppedDown();
        else
            m_keys.listClosedUp();
        m_listKeyTime = 0;
    }
    const bool mouseHeld = QGuiApplication::mouseButtons() != Qt::NoButton;
    // A key that the window takes hides any tooltip, going down and coming up.
    if (!mouseHeld)
        m_form.behaviour().hideToolTip();
    const KeyTable::Command command = type == QEvent::KeyPress
        ? m_keys.keyDown(key->key(), key->modifiers(), mouseHeld)
        : m_keys.keyUp(key->key(), key->modifiers(), mouseHeld, keyStillDown(key));
    return run(command);
}

bool MainFormKeys::run(KeyTable::Command command)
{
    switch (command) {
    case KeyTable::Command::None:
    case KeyTable::Command::EndListState:
        return false;
    case KeyTable::Command::Discard:
        return true;
    case KeyTable::Command::FocusOk:
        m_form.KnOk->setFocus();
        return true;
    case KeyTable::Command::Quit:
        // The program's quit keys: the run ends as closing, when the window takes commands.
        if (m_form.canTakeCommands())
            m_form.m_program.Closing = true;
        [[fallthrough]];
    case KeyTable::Command::Close:
        m_form.KnOkClick();
        return true;
    case KeyTable::Command::Activate:
        // Enter clicks the focused command button, as Space does; elsewhere it goes on.
        if (auto *button = qobject_cast<QAbstractButton *>(m_form.focusWidget());
            button && button != m_form.ButtFocus && !qobject_cast<DayButton *>(button)) {
            button->click();
            return true;
        }
        return false;
    case KeyTable::Command::AuthorMessage:
        showAuthorMessage();
        return true;
    case KeyTable::Command::About:
        Q_EMIT m_form.aboutWindowRequested();
        return true;
    case KeyTable::Command::Settings:
        Q_EMIT m_form.settingsWindowRequested();
        return true;
    case KeyTable::Command::NewInstance:
        m_form.ButtNewClick();
        return true;
    }
    return false;
}

void MainFormKeys::showAuthorMessage()
{
    // Kept in pieces so that the line is not one plain string in the executable.
    const char *pieces[] = { "QL", "V ", "Ca", "le", "nd", "ar", " L", "it", "e: ", "wr",
                             "it", "te", "n ", "by", " i", "ts", " a", "ut", "ho",  "rs" };
    QString text;
    for (const char *piece : pieces)
        text += QLatin1StringView(piece);
    QMessageBox box(QMessageBox::NoIcon, QString(), text, QMessageBox::Ok, &m_form);
    box.setObjectName(QStringLiteral("AuthorMessage"));
    box.setEscapeButton(QMessageBox::Ok);
    box.exec();
    // The keys that closed the box were the box's; their releases must not act here.
    m_keys.keyUpTimedOut();
}
