#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

class ProgramState;
class QTimer;
class QWindow;
class WindowBehaviour;

// The program's presence on the taskbar. The Main window carries the one taskbar entry; this
// object owns it: the caption in the chosen language, minimising and restoring (the shadow
// goes and comes with the window), and giving the focus back to the program window that had it.
class TabAppForm : public QObject
{
    Q_OBJECT

public:
    static constexpr int LockMoveMs = 1500;

    TabAppForm(ProgramState &program, WindowBehaviour &behaviour, QWidget *mainWindow);
    ~TabAppForm() override;

    // The caption by Language: the Russian title unless the language is "English".
    QString TabFormCaption() const;
    // Puts the caption on the Main window and the process.
    void refreshCaption();

    // Hides the shadow, then minimises the Main window.
    void minimise();
    // Brings the Main window back and gives the focus to the last active program window.
    void restore();
    // Gives the focus to the last active program window that is still shown and takes input,
    // else to the one active before it (a window that closed hands the focus back to the one
    // it was opened from), else to the Main window.
    void giveFocusBack();
    // The program window that last had the focus (Main, Settings or About).
    QWidget *lastActiveWindow() const { return m_lastActive; }

    QTimer *TimerLockMoveForm = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void focusWindowChanged(QWindow *window);
    void lockMove();

    ProgramState &m_program;
    WindowBehaviour &m_behaviour;
    QPointer<QWidget> m_mainWindow;
    QPointer<QWidget> m_lastActive;
    QPointer<QWidget> m_previousActive;
};
