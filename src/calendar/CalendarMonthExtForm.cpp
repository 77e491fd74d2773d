#include "CalendarMonthExtForm.h"

#include "app/Program.h"
#include "windowing/Placement.h"
#include "windowing/WindowBehaviour.h"
#include "windowing/WindowGuard.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

CalendarMonthExtForm::CalendarMonthExtForm(Program &program, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint)
    , m_program(program)
{
    setObjectName(QStringLiteral("CalendarMonthExtForm"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(MainFormWidthTwips / TwipsPerPixel, MainFormHeightTwips / TwipsPerPixel);

    FrameMove = new QFrame(this);
    FrameMove->setObjectName(QStringLiteral("FrameMove"));
    FrameMove->setGeometry(rect());

    ButtFocus = new QPushButton(this);
    ButtFocus->setObjectName(QStringLiteral("ButtFocus"));
    ButtFocus->setGeometry(-40, -40, 1, 1);

    KnOk = new QPushButton(QStringLiteral("OK"), this);
    KnOk->setObjectName(QStringLiteral("KnOk"));
    KnOk->setGeometry(width() - 64, height() - 34, 56, 26);
    connect(KnOk, &QPushButton::clicked, this, &CalendarMonthExtForm::KnOkClick);

    KnClose = new QPushButton(QStringLiteral("x"), this);
    KnClose->setObjectName(QStringLiteral("KnClose"));
    KnClose->setGeometry(width() - 26, 4, 22, 22);
    connect(KnClose, &QPushButton::clicked, this, [this] {
        KnOk->setFocus();
        KnOkClick();
    });

    // Keys reach the window before its controls, wherever the focus is.
    qApp->installEventFilter(this);
    m_program.windowBehaviour().attachMainWindow(this, FrameMove);
    connect(findChild<WindowGuard *>(), &WindowGuard::keyUpTimedOut, this,
            [this] { m_keyIsDown = false; });
    m_program.setFormLoaded(objectName(), true);
}

CalendarMonthExtForm::~CalendarMonthExtForm()
{
    m_program.setFormLoaded(QStringLiteral("CalendarMonthExtForm"), false);
}

void CalendarMonthExtForm::showAtStart()
{
    const Settings &s = m_program.settings();
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->geometry() : QRect(0, 0, 1024, 768);
    const QPoint topLeft = s.CalendarAlignToCenter == QStringLiteral("Yes")
            ? Placement::centredTopLeft(area, size())
            : Placement::keptOnScreen({ s.CalendarLeft, s.CalendarTop }, size(), area);
    if (s.CalendarTopmost == QStringLiteral("Yes"))
        setWindowFlag(Qt::WindowStaysOnTopHint, true);
    move(topLeft);
    m_program.windowBehaviour().showWindow(this);
    ButtFocus->setFocus();
}

void CalendarMonthExtForm::KnOkClick()
{
    if (!isEnabled() || m_unloading)
        return;
    close();
}

bool CalendarMonthExtForm::handleKeyDown(int key, Qt::KeyboardModifiers modifiers)
{
    m_keyIsDown = true;
    const bool alt = modifiers & Qt::AltModifier;
    if (key == Qt::Key_Escape) {
        KnOk->setFocus();
        return true;
    }
    if (alt && (key == Qt::Key_Q || key == Qt::Key_X)) {
        KnOkClick();
        return true;
    }
    return false;
}

bool CalendarMonthExtForm::handleKeyUp(int key)
{
    if (!m_keyIsDown)
        return false;
    m_keyIsDown = false;
    if (key == Qt::Key_Escape) {
        KnOkClick();
        return true;
    }
    return false;
}

bool CalendarMonthExtForm::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease)
        return false;
    auto *target = qobject_cast<QWidget *>(watched);
    if (!target || target->window() != this)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->isAutoRepeat())
        return type == QEvent::KeyRelease;
    return type == QEvent::KeyPress ? handleKeyDown(key->key(), key->modifiers())
                                    : handleKeyUp(key->key());
}

void CalendarMonthExtForm::closeEvent(QCloseEvent *event)
{
    if (!m_unloading) {
        m_unloading = true;
        m_program.CloseProgram();
    }
    event->accept();
}
