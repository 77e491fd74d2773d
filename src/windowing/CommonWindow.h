#pragma once

#include <QWidget>

class ProgramState;
class QFrame;
class QPushButton;
class QTimer;
class Shadow;
class WindowBehaviour;

// A draggable, shadowed program window: the Main, Settings and About windows are built on it.
// It holds what every such window has: the drag frame FrameMove under all controls, the hidden
// focus holder ButtFocus, the timers TimerCheckAreaForm and TimerToolTip here and TimerSetShadow,
// TimerEnableForm and TimerKeyUp in the attached parts, and the shared show routine.
class CommonWindow : public QWidget
{
    Q_OBJECT

public:
    // A borderless top-level window of `size` pixels under the run-time name `name`.
    CommonWindow(ProgramState &program, const QString &name, QSize size, QWidget *parent = nullptr);

    ProgramState &program() const { return m_program; }
    WindowBehaviour &behaviour() const;
    // The window's shadow, or null while shadows are off.
    Shadow *ShadowForm() const;
    // Shows, raises and activates the window with the busy test raised meanwhile.
    void showWindow();

    QFrame *FrameMove = nullptr;
    QPushButton *ButtFocus = nullptr;
    QTimer *TimerCheckAreaForm = nullptr;
    QTimer *TimerToolTip = nullptr;
    QTimer *TimerEnableForm = nullptr;
    QTimer *TimerKeyUp = nullptr;
    QTimer *TimerSetShadow = nullptr;

protected:
    // Attaches dragging by FrameMove, the shadow and the guard timers; the Main window also
    // takes the program's taskbar entry. Called once the controls exist.
    void attachCommonParts(bool mainWindow);
    // The window's own work on each TimerCheckAreaForm tick.
    virtual void TimerCheckAreaFormTick() { }
    // TimerKeyUp ticked: a key-down state whose release never came ends here.
    virtual void keyUpTimedOut() { }

private:
    ProgramState &m_program;
};
