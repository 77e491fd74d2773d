#include "CommonWindow.h"

#include "AccessibleList.h"
#include "Shadow.h"
#include "ShadowKeeper.h"
#include "WindowBehaviour.h"
#include "WindowGuard.h"
#include "app/ProgramState.h"
#include "appearance/CyrillicFont.h"
#include "appearance/WindowBody.h"

#include <QAccessible>
#include <QFrame>
#include <QPushButton>
#include <QTimer>

namespace {

QTimer *namedTimer(QObject *parent, const char *name, int intervalMs)
{
    auto *timer = new QTimer(parent);
    timer->setObjectName(QString::fromLatin1(name));
    timer->setInterval(intervalMs);
    return timer;
}

} // namespace

CommonWindow::CommonWindow(ProgramState &program, const QString &name, QSize size, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint)
    , m_program(program)
{
    setObjectName(name);
    static const bool listsNamed = [] {
        QAccessible::installFactory(accessibleList);
        return true;
    }();
    Q_UNUSED(listsNamed);
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(size);
    // Arial where it draws Cyrillic (fontconfig's stand-in usually does), else a face that does.
    setFont(CyrillicFont::probe(QFont(QStringLiteral("Arial"), 9)));

    // The body behind every control, in the scheme's ground (or picture) inside the border:
    // created first, so it lies under all of them.
    FrameMove = new WindowBody(this);
    FrameMove->setObjectName(QStringLiteral("FrameMove"));
    FrameMove->setGeometry(rect());
    // Takes the focus after every command, out of sight.
    ButtFocus = new QPushButton(this);
    ButtFocus->setObjectName(QStringLiteral("ButtFocus"));
    ButtFocus->setGeometry(-40, -40, 1, 1);

    TimerCheckAreaForm = namedTimer(this, "TimerCheckAreaForm", 108);
    connect(TimerCheckAreaForm, &QTimer::timeout, this, [this] { TimerCheckAreaFormTick(); });
    TimerToolTip = namedTimer(this, "TimerToolTip", 200);
}

void CommonWindow::attachCommonParts(bool mainWindow)
{
    WindowBehaviour &shared = behaviour();
    if (mainWindow)
        shared.attachMainWindow(this, FrameMove);
    else
        shared.attachWindow(this, FrameMove);
    auto *guard = findChild<WindowGuard *>(QString(), Qt::FindDirectChildrenOnly);
    TimerEnableForm = guard->TimerEnableForm;
    TimerKeyUp = guard->TimerKeyUp;
    connect(guard, &WindowGuard::keyUpTimedOut, this, [this] { keyUpTimedOut(); });
    if (auto *keeper = findChild<ShadowKeeper *>(QString(), Qt::FindDirectChildrenOnly))
        TimerSetShadow = keeper->TimerSetShadow;
    TimerCheckAreaForm->start();
}

WindowBehaviour &CommonWindow::behaviour() const
{
    return WindowBehaviour::of(m_program);
}

Shadow *CommonWindow::ShadowForm() const
{
    return ::ShadowForm(this);
}

void CommonWindow::showWindow()
{
    behaviour().showWindow(this);
}
