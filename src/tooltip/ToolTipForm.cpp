#include "ToolTipForm.h"

#include "ImageTipCanvas.h"
#include "TipPlacement.h"
#include "ToolTips.h"
#include "app/ProgramState.h"
#include "appearance/BgrColor.h"
#include "windowing/Shadow.h"
#include "windowing/ShadowKeeper.h"
#include "windowing/WindowBehaviour.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {

const QString Name = QStringLiteral("ToolTipForm");

QTimer *namedTimer(QObject *parent, const char *name)
{
    auto *timer = new QTimer(parent);
    timer->setObjectName(QString::fromLatin1(name));
    return timer;
}

int pixelsOf(std::int64_t twips)
{
    const std::int64_t px = (twips + TwipsPerPixel - 1) / TwipsPerPixel;
    return int(std::clamp<std::int64_t>(px, 1, ImageTipCanvas::MaxSurfacePixels));
}

} // namespace

ToolTipForm *ToolTipForm::load(ToolTips &tips, ProgramState &program, QWidget *requester)
{
    // One tooltip at a time, and none while the program closes or is busy.
    if (program.IsFormLoaded(Name, false) || program.Closing || program.IsBusy())
        return nullptr;
    return new ToolTipForm(tips, program, requester);
}

ToolTipForm::ToolTipForm(ToolTips &tips, ProgramState &program, QWidget *requester)
    : QWidget(nullptr,
              Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                  | Qt::WindowDoesNotAcceptFocus)
    , m_tips(tips)
    , m_program(program)
    , m_state(tips.state())
    , m_requester(requester)
    , m_style(TipStyle::fromSettings(program.settings()))
    , m_actuation(namedTimer(this, "TimerActuation"))
    , m_close(namedTimer(this, "TimerClose"))
    , m_checkArea(namedTimer(this, "TimerCheckAreaForm"))
    , m_timers(m_state, m_actuation, m_close, m_checkArea)
{
    setObjectName(Name);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    TimerActuation = findChild<QTimer *>(QStringLiteral("TimerActuation"));
    TimerClose = findChild<QTimer *>(QStringLiteral("TimerClose"));
    TimerCheckAreaForm = findChild<QTimer *>(QStringLiteral("TimerCheckAreaForm"));
    m_program.setFormLoaded(Name, true);

    layOut();

    // The shadow exists only where the desktop composites; the keeper lays it beneath the
    // tooltip when it shows and owns TimerSetShadow.
    WindowBehaviour &behaviour = WindowBehaviour::of(program);
    auto *keeper = new ShadowKeeper(behaviour, this, false);
    keeper->setShadowOn(program.ShadowMode != QStringLiteral("No"));
    TimerSetShadow = keeper->TimerSetShadow;

    m_timers.show = [this] { showByPointer(); };
    m_timers.unload = [this] { unload(); };
    m_timers.pointerTest = [this] { return pointerTest(); };
    m_timers.load();
}

ToolTipForm::~ToolTipForm()
{
    if (!m_unloaded)
        m_program.setFormLoaded(Name, false);
}

void ToolTipForm::layOut()
{
    ImageTipCanvas canvas(m_style.backColor, devicePixelRatio());
    TipLayout layout(canvas, m_style);
    // The drawing pass draws and sizes; the second pass only measures, leaving the drawing.
    layout.DrawTipText(m_state.TipText, true);
    m_size = layout.DrawTipText(m_state.TipText, false);
    canvas.finish();
    m_surface = canvas.image();
    m_borderPen = layout.GetTipBorderWidth();
    resize(pixelsOf(m_size.width), pixelsOf(m_size.height));
    const QString plain = plainTipText(m_state.TipText);
    setAccessibleName(plain);
}

void ToolTipForm::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), colorFromBgr(m_style.backColor));
    painter.drawImage(QPoint(0, 0), m_surface);
    if (m_borderPen > 0) {
        // The frame's pen is centred on the window's edge: half of it lies outside.
        painter.setPen(QPen(colorFromBgr(m_style.borderColor), m_borderPen));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(0, 0, width(), height()));
    }
}

void ToolTipForm::showByPointer()
{
    const QPoint pointer = m_tips.pointerPosition();
    const QScreen *screen = QGuiApplication::screenAt(pointer);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->geometry() : QRect(0, 0, 1024, 768);
    const QSize tip(width() * TwipsPerPixel, height() * TwipsPerPixel);
    const QPoint topLeft = TipPlacement::place(
        pointer * TwipsPerPixel, tip,
        QRect(area.topLeft() * TwipsPerPixel, area.size() * TwipsPerPixel), m_state.TipNearPointer);
    move(int(std::lround(topLeft.x() / double(TwipsPerPixel))),
         int(std::lround(topLeft.y() / double(TwipsPerPixel))));
    // The shadow keeper shows the shadow first, so the tooltip maps above it, and a new
    // window maps above all others.
    show();
    if (auto *keeper = findChild<ShadowKeeper *>(QString(), Qt::FindDirectChildrenOnly))
        keeper->restack();
}

bool ToolTipForm::pointerTest() const
{
    // Over the tooltip itself, the pointer is over no other window.
    return !m_requester || !m_requester->isVisible() || !m_tips.pointerIsOver(m_requester);
}

void ToolTipForm::unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    TimerActuation->stop();
    TimerClose->stop();
    TimerCheckAreaForm->stop();
    hide();
    // The shadow goes now: what is left until the deletion touches nothing of the program.
    delete findChild<ShadowKeeper *>(QString(), Qt::FindDirectChildrenOnly);
    // From now on no look-up by name finds this window, and another tooltip may load.
    setObjectName(QString());
    m_program.setFormLoaded(Name, false);
    deleteLater();
}

void ToolTipForm::closeEvent(QCloseEvent *event)
{
    unload();
    event->accept();
}
