#include "WindowBehaviour.h"

#include "CommonWindow.h"
#include "DragArea.h"
#include "Placement.h"
#include "Shadow.h"
#include "ShadowKeeper.h"
#include "TabAppForm.h"
#include "WindowGuard.h"
#include "app/ProgramState.h"
#include "appearance/BgrColor.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWidget>

namespace {

const QString No = QStringLiteral("No");

// A window as the drag arithmetic sees it.
class WidgetDragWindow : public DragWindow
{
public:
    explicit WidgetDragWindow(QWidget *window)
        : m_window(window)
    { }
    QPoint topLeftTwips() const override { return m_window->pos() * TwipsPerPixel; }
    void moveToTwips(QPoint topLeft) override
    {
        m_window->move(nearestPixel(topLeft.x()), nearestPixel(topLeft.y()));
    }

private:
    QWidget *m_window;
};

class WidgetDragShadow : public DragShadow
{
public:
    WidgetDragShadow(QWidget *window, Shadow *shadow)
        : m_window(window)
        , m_shadow(shadow)
    { }
    void moveToTwips(QPoint topLeft) override
    {
        m_shadow->move(nearestPixel(topLeft.x()), nearestPixel(topLeft.y()));
    }
    void putBeneathOwner() override { PutAboveShadow(m_window, m_shadow); }

private:
    QWidget *m_window;
    Shadow *m_shadow;
};

ShadowKeeper *keeperOf(const QWidget *window)
{
    return window ? window->findChild<ShadowKeeper *>(QStringLiteral("ShadowKeeper"),
                                                      Qt::FindDirectChildrenOnly)
                  : nullptr;
}

// Blinks a control by swapping its style sheet, then puts the old one back.
class Blinker : public QObject
{
public:
    Blinker(QAbstractButton *control, int count, std::uint32_t colorBgr)
        : QObject(control)
        , m_control(control)
        , m_original(control->styleSheet())
        , m_flash(QStringLiteral("background-color: %1;").arg(colorFromBgr(colorBgr).name()))
        , m_flips(2 * count)
    {
        setObjectName(QStringLiteral("Attention"));
        m_timer.setInterval(FlipMs);
        connect(&m_timer, &QTimer::timeout, this, &Blinker::flip);
        flip();
        m_timer.start();
    }

private:
    static constexpr int FlipMs = 150;

    void flip()
    {
        if (m_flips <= 0) {
            m_timer.stop();
            m_control->setStyleSheet(m_original);
            deleteLater();
            return;
        }
        const bool lit = m_flips % 2 == 0;
        m_control->setStyleSheet(lit ? m_original + m_flash : m_original);
        --m_flips;
    }

    QAbstractButton *m_control;
    QString m_original;
    QString m_flash;
    int m_flips;
    QTimer m_timer;
};

} // namespace

void hideToolTip()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *w : windows) {
        if (w->objectName() == QStringLiteral("ToolTipForm") && w->isVisible())
            w->hide();
    }
}

Shadow *ShadowForm(const QWidget *window)
{
    const ShadowKeeper *keeper = keeperOf(window);
    return keeper ? keeper->ShadowForm() : nullptr;
}

void applyTopmost(QWidget *window, bool topmost)
{
    if (!window || window->windowFlags().testFlag(Qt::WindowStaysOnTopHint) == topmost)
        return;
    const bool visible = window->isVisible();
    window->setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
    // Changing the flags hides the window.
    if (visible)
        window->show();
}

void centreWindow(QWidget *window)
{
    if (!window || window->isMaximized())
        return;
    const QScreen *screen = window->screen() ? window->screen() : QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->geometry() : QRect(0, 0, 1024, 768);
    window->move(Placement::centredTopLeft(area, window->size()));
}

void Attention(QAbstractButton *control, int count, std::uint32_t colorBgr)
{
    if (!control || count <= 0)
        return;
    // A second call while one still blinks would remember the flashing look as the normal one.
    if (control->findChild<QObject *>(QStringLiteral("Attention"), Qt::FindDirectChildrenOnly))
        return;
    new Blinker(control, count, colorBgr);
    if (auto *window = qobject_cast<CommonWindow *>(control->window()))
        window->behaviour().flashTaskbarEntry(count);
    else
        QApplication::alert(control->window());
}

WindowBehaviour &WindowBehaviour::of(ProgramState &program)
{
    auto *behaviour = program.findChild<WindowBehaviour *>(QString(), Qt::FindDirectChildrenOnly);
    if (behaviour)
        return *behaviour;
    if (!program.formsList) {
        program.formsList = [] {
            QStringList names;
            const QWidgetList windows = QApplication::topLevelWidgets();
            for (const QWidget *w : windows)
                names.append(w->objectName());
            return names;
        };
    }
    return *new WindowBehaviour(program);
}

WindowBehaviour::WindowBehaviour(ProgramState &program)
    : QObject(&program)
    , m_program(program)
{ }

WindowBehaviour::~WindowBehaviour() = default;

QString WindowBehaviour::ShadowMode() const
{
    return m_program.ShadowMode;
}

std::uint32_t WindowBehaviour::shadowColor() const
{
    // 0 is black, a colour like any other; start-up sets the grey.
    return m_program.settings().ShadowColor;
}

void WindowBehaviour::attachWindow(QWidget *window, QWidget *frameMove)
{
    if (frameMove)
        new DragArea(*this, window, frameMove);
    auto *keeper = new ShadowKeeper(*this, window,
                                    window->objectName() == QStringLiteral("CalendarMonthExtForm"));
    keeper->setShadowOn(ShadowMode() != No);
    new WindowGuard(*this, window);
}

void WindowBehaviour::attachMainWindow(QWidget *window, QWidget *frameMove)
{
    attachWindow(window, frameMove);
    m_tabApp = new TabAppForm(m_program, *this, window);
}

QWidget *WindowBehaviour::mainForm() const
{
    return m_tabApp ? qobject_cast<QWidget *>(m_tabApp->parent()) : nullptr;
}

void WindowBehaviour::flashTaskbarEntry(int count)
{
    QWidget *main = mainForm();
    if (!main)
        return;
    if (FlashWindow)
        FlashWindow(main, count);
    else
        QApplication::alert(main);
}

void WindowBehaviour::addDragArea(QWidget *window, QWidget *area)
{
    if (window && area)
        new DragArea(*this, window, area);
}

void WindowBehaviour::DragAreaMouseMove(QWidget *window, int button, const PointerSource &pointer)
{
    if (!window || isBusy())
        return;
    WidgetDragWindow target(window);
    Shadow *shadow = ShadowForm(window);
    WidgetDragShadow shadowTarget(window, shadow);
    DragShadow *shadowPart = shadow ? &shadowTarget : nullptr;

    if (button == 0) {
        hideToolTip();
        if (auto *timer = window->findChild<QTimer *>(QStringLiteral("TimerCheckAreaForm"));
            timer && !timer->isActive()) {
            timer->start();
        }
        DragStep(m_drag, pointer, target, DragGrab, shadowPart, ShadowOffset);
        return;
    }
    if (button != 1 || m_drag.MoveLocked)
        return;
    if (QApplication::activeWindow() != window) {
        // The first move only gives the window the focus; it moves once it is active.
        window->activateWindow();
        return;
    }
    if (window->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    DragStep(m_drag, pointer, target, DragMove, shadowPart, ShadowOffset);
}

void WindowBehaviour::recordGrab(QWidget *window, const PointerSource &pointer)
{
    if (!window)
        return;
    WidgetDragWindow target(window);
    DragStep(m_drag, pointer, target, DragRecord, nullptr, ShadowOffset);
}

bool WindowBehaviour::isBusy() const
{
    return m_program.IsBusy();
}

void WindowBehaviour::showWindow(QWidget *window)
{
    if (!window)
        return;
    m_program.setShowingWindow(true);
    window->show();
    window->raise();
    window->activateWindow();
    m_program.setShowingWindow(false);
}

void WindowBehaviour::restackMainForm()
{
    if (ShadowKeeper *keeper = keeperOf(mainForm()))
        keeper->restack();
}

void WindowBehaviour::applySettings()
{
    QWidget *main = mainForm();
    if (!main)
        return;
    const Settings &s = m_program.settings();
    applyTopmost(main, s.CalendarTopmost == QStringLiteral("Yes"));
    if (s.CalendarAlignToCenter == QStringLiteral("Yes"))
        centreWindow(main);
    if (ShadowKeeper *keeper = keeperOf(main)) {
        keeper->setShadowOn(ShadowMode() != No);
        if (Shadow *shadow = keeper->ShadowForm())
            shadow->setShadowColor(shadowColor());
    }
    m_tabApp->refreshCaption();
}

void WindowBehaviour::lockMove()
{
    m_drag.MoveLocked = true;
    if (m_tabApp)
        m_tabApp->TimerLockMoveForm->start();
}

void WindowBehaviour::shadowLoaded(bool loaded)
{
    m_shadowsLoaded += loaded ? 1 : -1;
    m_program.setFormLoaded(QStringLiteral("Shadow"), m_shadowsLoaded > 0);
}
