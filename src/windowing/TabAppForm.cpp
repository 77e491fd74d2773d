#include "TabAppForm.h"

#include "Shadow.h"
#include "WindowBehaviour.h"
#include "app/ProgramState.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <QWindowStateChangeEvent>

namespace {

bool isProgramWindow(const QWidget *widget)
{
    if (!widget)
        return false;
    const QString name = widget->objectName();
    return name == QStringLiteral("CalendarMonthExtForm") || name == QStringLiteral("ViewForm")
        || name == QStringLiteral("AboutForm");
}

} // namespace

TabAppForm::TabAppForm(ProgramState &program, WindowBehaviour &behaviour, QWidget *mainWindow)
    : QObject(mainWindow)
    , m_program(program)
    , m_behaviour(behaviour)
    , m_mainWindow(mainWindow)
    , m_lastActive(mainWindow)
{
    setObjectName(QStringLiteral("TabAppForm"));
    TimerLockMoveForm = new QTimer(this);
    TimerLockMoveForm->setObjectName(QStringLiteral("TimerLockMoveForm"));
    TimerLockMoveForm->setInterval(LockMoveMs);
    TimerLockMoveForm->setSingleShot(true);
    connect(TimerLockMoveForm, &QTimer::timeout, this,
            [this] { m_behaviour.drag().MoveLocked = false; });
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &TabAppForm::focusWindowChanged);
    mainWindow->installEventFilter(this);
    refreshCaption();
    m_program.setFormLoaded(objectName(), true);
}

TabAppForm::~TabAppForm()
{
    m_program.setFormLoaded(QStringLiteral("TabAppForm"), false);
}

QString TabAppForm::TabFormCaption() const
{
    return AppTitle(m_program.settings());
}

void TabAppForm::refreshCaption()
{
    const QString caption = TabFormCaption();
    if (m_mainWindow)
        m_mainWindow->setWindowTitle(caption);
    QGuiApplication::setApplicationDisplayName(caption);
}

void TabAppForm::minimise()
{
    if (!m_mainWindow)
        return;
    if (Shadow *shadow = ShadowForm(m_mainWindow))
        shadow->hide();
    m_mainWindow->showMinimized();
}

void TabAppForm::restore()
{
    if (!m_mainWindow)
        return;
    if (m_mainWindow->isMinimized())
        m_mainWindow->showNormal();
    giveFocusBack();
}

void TabAppForm::giveFocusBack()
{
    QWidget *target = nullptr;
    for (QWidget *w : { m_lastActive.data(), m_previousActive.data(), m_mainWindow.data() }) {
        if (w && w->isVisible() && w->isEnabled()) {
            target = w;
            break;
        }
    }
    if (!target || target->isMinimized())
        return;
    // The click that brought the window back must not drag it.
    lockMove();
    target->raise();
    target->activateWindow();
}

void TabAppForm::lockMove()
{
    m_behaviour.drag().MoveLocked = true;
    TimerLockMoveForm->start();
}

void TabAppForm::focusWindowChanged(QWindow * /*window*/)
{
    QWidget *active = QApplication::activeWindow();
    if (isProgramWindow(active) && active != m_lastActive) {
        m_previousActive = m_lastActive;
        m_lastActive = active;
    }
}

bool TabAppForm::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_mainWindow && event->type() == QEvent::WindowStateChange) {
        const auto *change = static_cast<QWindowStateChangeEvent *>(event);
        if ((change->oldState() & Qt::WindowMinimized) && !m_mainWindow->isMinimized())
            QTimer::singleShot(0, this, &TabAppForm::giveFocusBack);
    }
    return false;
}
