#include "ToolTips.h"

#include "ToolTipForm.h"
#include "app/ProgramState.h"
#include "windowing/CommonWindow.h"
#include "windowing/WindowBehaviour.h"

#include <QApplication>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

ToolTips &ToolTips::of(ProgramState &program)
{
    auto *tips = program.findChild<ToolTips *>(QString(), Qt::FindDirectChildrenOnly);
    return tips ? *tips : *new ToolTips(program);
}

ToolTips::ToolTips(ProgramState &program)
    : QObject(&program)
    , m_program(program)
    , m_state(program.settings())
{
    m_state.tipsBlocked = [this] { return tipsBlocked(); };
    m_state.closeTip = [this] {
        if (ToolTipForm *tip = toolTip())
            tip->unload();
    };
    m_state.loadTip = [this] { m_tip = ToolTipForm::load(*this, m_program, m_requester); };
    connect(&WindowBehaviour::of(program), &WindowBehaviour::toolTipHideRequested, this,
            &ToolTips::hideToolTip);
    // Every window's pointer events pass here first, before any widget sees them.
    qApp->installEventFilter(this);
}

TipRequests *ToolTips::attach(CommonWindow &window, TipTable table)
{
    ToolTips &tips = of(window.program());
    auto *requests = new TipRequests(tips, window, std::move(table));
    tips.m_requests.removeAll(nullptr);
    tips.m_requests.append(requests);
    return requests;
}

ToolTipForm *ToolTips::toolTip() const
{
    return m_tip && !m_tip->unloaded() ? m_tip.data() : nullptr;
}

void ToolTips::hideToolTip()
{
    if (ToolTipForm *tip = toolTip()) {
        tip->unload();
        m_state.TipClosed = true;
    }
}

bool ToolTips::pointerIsOver(const QWidget *window) const
{
    return window && m_pointerWindow && m_pointerWindow == window->windowHandle();
}

bool ToolTips::tipsBlocked() const
{
    return m_program.Closing || m_program.IsBusy()
        || QGuiApplication::mouseButtons() != Qt::NoButton;
}

void ToolTips::requestFrom(QWidget *window, const QString &english, const QString &russian)
{
    m_requester = window;
    m_state.ShowTip(english, russian);
}

bool ToolTips::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if ((type != QEvent::MouseMove && type != QEvent::Enter && type != QEvent::Leave)
        || !watched->isWindowType()) {
        return false;
    }
    auto *window = static_cast<QWindow *>(watched);
    if (type == QEvent::Leave) {
        if (m_pointerWindow == window)
            m_pointerWindow = nullptr;
        return false;
    }
    m_pointerWindow = window;
    m_pointer = static_cast<QSinglePointEvent *>(event)->globalPosition().toPoint();
    for (const QPointer<TipRequests> &requests : std::as_const(m_requests)) {
        if (requests && requests->window().windowHandle() == window)
            requests->pointerMoved();
    }
    return false;
}

TipRequests::TipRequests(ToolTips &tips, CommonWindow &window, TipTable table)
    : QObject(&window)
    , m_tips(tips)
    , m_window(window)
    , m_table(std::move(table))
    , m_timer(window.TimerToolTip)
    , m_requester(tips.state())
{
    setObjectName(QStringLiteral("TipRequests"));
    m_timer.setInterval(TipRequester::RequestMs);
    m_timer.onTimeout([this] { TimerToolTipTimer(); });
    refreshDescriptions();
    window.installEventFilter(this);
}

TipRequests::~TipRequests()
{
    // A tooltip does not outlive the window that asked for it.
    if (m_tips.m_requester == &m_window) {
        m_tips.m_state.closeTip();
        m_tips.m_requester = nullptr;
    }
}

void TipRequests::pointerMoved()
{
    if (!m_timer.isActive() && mayShowTips())
        m_timer.start();
}

void TipRequests::TimerToolTipTimer()
{
    const QPoint pointer = m_tips.pointerPosition();
    const bool mayShow = mayShowTips();
    if (mayShow)
        refreshDescriptions();
    switch (m_requester.tick(pointer, mayShow)) {
    case TipRequester::Tick::Stop:
        m_timer.stop();
        break;
    case TipRequester::Tick::Moved:
        for (const TipRow &row : std::as_const(m_table)) {
            const QList<QWidget *> controls = controlsOf(row);
            const bool hit = std::any_of(controls.begin(), controls.end(), [&](QWidget *w) {
                return w->rect().contains(w->mapFromGlobal(pointer));
            });
            if (hit) {
                const TipStyle style = TipStyle::fromSettings(m_window.program().settings());
                m_tips.requestFrom(&m_window, TipTexts::englishTip(row, style),
                                   TipTexts::russianTip(row, style));
            }
        }
        break;
    case TipRequester::Tick::Rested:
        break;
    }
}

bool TipRequests::mayShowTips() const
{
    if (!m_window.isVisible() || m_window.isMinimized() || !m_window.isEnabled()
        || !m_tips.pointerIsOver(&m_window) || m_tips.tipsBlocked()
        || QApplication::activePopupWidget()) {
        return false;
    }
    // Only the program window in use shows tooltips.
    const TabAppForm *tabApp = m_window.behaviour().tabApp();
    const QWidget *active = tabApp ? tabApp->lastActiveWindow() : QApplication::activeWindow();
    return !active || active == &m_window;
}

QList<QWidget *> TipRequests::controlsOf(const TipRow &row) const
{
    if (!row.control.endsWith(u'*')) {
        auto *control = m_window.findChild<QWidget *>(row.control);
        return control ? QList<QWidget *> { control } : QList<QWidget *> {};
    }
    const QString prefix = row.control.chopped(1);
    QList<QWidget *> controls = m_window.findChildren<QWidget *>();
    controls.removeIf([&](const QWidget *w) { return !w->objectName().startsWith(prefix); });
    return controls;
}

void TipRequests::refreshDescriptions()
{
    const QString &language = m_window.program().settings().Language;
    if (m_described && language == m_describedIn)
        return;
    m_described = true;
    m_describedIn = language;
    for (const TipRow &row : std::as_const(m_table)) {
        const QString description = TipTexts::plainTip(row, language);
        for (QWidget *control : controlsOf(row))
            control->setAccessibleDescription(description);
    }
}

bool TipRequests::eventFilter(QObject *watched, QEvent *event)
{
    // A language chosen meanwhile reaches the descriptions when the window comes back.
    if (watched == &m_window
        && (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate)) {
        refreshDescriptions();
    }
    return false;
}
