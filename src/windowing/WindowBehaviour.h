#pragma once

#include "DragMath.h"
#include "TabAppForm.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <cstdint>
#include <functional>

class ProgramState;
class QAbstractButton;
class QWidget;
class Shadow;

// The shadow of a shadowed window, or null.
Shadow *ShadowForm(const QWidget *window);

// Hides the tooltip window, when one is showing.
void hideToolTip();

// Keeps a window above all others (or not); a shown window is shown again with its new flags.
void applyTopmost(QWidget *window, bool topmost);

// Moves a window to the centre of its screen; a maximised window is left alone.
void centreWindow(QWidget *window);

// Blinks `control` `count` times in the given BGR colour and flashes the program's taskbar entry
// (WindowBehaviour::flashTaskbarEntry), to show which window is waiting for the user.
void Attention(QAbstractButton *control, int count = 3, std::uint32_t colorBgr = 0x80FFFF);

// The state and routines that every draggable, shadowed window shares: the drag values, the
// shadow values fixed for the run, and the pieces a window attaches to itself.
class WindowBehaviour : public QObject
{
    Q_OBJECT

public:
    // The one instance of the run, kept by the program state and created on first use.
    static WindowBehaviour &of(ProgramState &program);
    ~WindowBehaviour() override;

    DragState &drag() { return m_drag; }
    const DragState &drag() const { return m_drag; }
    std::int32_t ShadowOffset = ShadowOffsetTwips;
    bool ShadowLoaded() const { return m_shadowsLoaded > 0; }
    QString ShadowMode() const;
    // The colour of new shadows, BGR.
    std::uint32_t shadowColor() const;

    // Gives `window` dragging by `frameMove`, a shadow kept beneath it, and the timers
    // TimerSetShadow, TimerEnableForm and TimerKeyUp.
    void attachWindow(QWidget *window, QWidget *frameMove);
    // attachWindow for the Main window, which also owns the program's taskbar entry.
    void attachMainWindow(QWidget *window, QWidget *frameMove);
    // Lets a label that lies on the drag frame drag `window` as the frame does.
    void addDragArea(QWidget *window, QWidget *area);
    TabAppForm *tabApp() const { return m_tabApp; }
    // The Main window, which carries the taskbar entry; null before it is attached.
    QWidget *mainForm() const;

    // Draws the user's eye to the program's taskbar entry, `count` times: through FlashWindow
    // when one is handed in (the notification window's caption blink), else by the desktop's
    // attention mark alone.
    void flashTaskbarEntry(int count);
    std::function<void(QWidget *window, int count)> FlashWindow;

    // The single entry of dragging: the button value of a move over a drag area (0 none,
    // 1 left, anything else ignored) and where the pointer is.
    void DragAreaMouseMove(QWidget *window, int button, const PointerSource &pointer);
    // Records the grab point without starting anything (the button went down on a drag area).
    void recordGrab(QWidget *window, const PointerSource &pointer);

    // The shared busy test: a message-pumping wait runs, or a window is being shown.
    bool isBusy() const;
    // Shows a window with the busy test raised meanwhile.
    void showWindow(QWidget *window);

    // Puts the Main window back above its shadow, when both exist.
    void restackMainForm();
    // After the settings are saved: shadows on or off by ShadowMode, the shadow colour,
    // topmost and centring as the settings say.
    void applySettings();

    // Blocks dragging for a while (a window was activated for the user, not by a drag).
    void lockMove();

    // For Shadow windows: the shared loaded flag counts the ones alive.
    void shadowLoaded(bool loaded);

    // Hides any tooltip, shown or waiting: a key, a drag or minimising asks for it. The tooltip
    // piece, which this folder does not know, answers toolTipHideRequested.
    void hideToolTip() { Q_EMIT toolTipHideRequested(); }

Q_SIGNALS:
    void toolTipHideRequested();

private:
    explicit WindowBehaviour(ProgramState &program);

    ProgramState &m_program;
    DragState m_drag;
    int m_shadowsLoaded = 0;
    QPointer<TabAppForm> m_tabApp;
};
