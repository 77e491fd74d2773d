#pragma once

#include <QObject>
#include <QPointer>

class QTimer;
class QWidget;
class Shadow;
class WindowBehaviour;

// Keeps one window's shadow: creates it when shadows are on, lays it at the shadow offset with
// the window's size, hides and shows it with the window, and puts it back beneath the window
// on every TimerSetShadow tick.
class ShadowKeeper : public QObject
{
    Q_OBJECT

public:
    static constexpr int FirstUpkeepMs = 2500;
    static constexpr int UpkeepMs = 1610;
    static constexpr int RaiseSettleMs = 150;

    ShadowKeeper(WindowBehaviour &behaviour, QWidget *window, bool isMainWindow);
    ~ShadowKeeper() override;

    Shadow *ShadowForm() const { return m_shadow; }
    // Creates or drops the shadow.
    void setShadowOn(bool on);
    // Lays the shadow at the window's position plus the offset, with the window's size.
    void follow();
    // Shows the shadow (when the window shows) and puts it beneath the window.
    void restack();

    QTimer *TimerSetShadow = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void TimerSetShadowTimer();
    void matchWindow();

    WindowBehaviour &m_behaviour;
    QWidget *m_window;
    bool m_isMainWindow;
    QPointer<Shadow> m_shadow;
};
