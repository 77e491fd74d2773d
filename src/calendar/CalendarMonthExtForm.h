#pragma once

#include <QWidget>

class Program;
class QFrame;
class QPushButton;

// The Main window: the month calendar.
class CalendarMonthExtForm : public QWidget
{
    Q_OBJECT

public:
    explicit CalendarMonthExtForm(Program &program, QWidget *parent = nullptr);
    ~CalendarMonthExtForm() override;

    // Places the window (saved position, or centred when asked) and shows it.
    void showAtStart();

    QFrame *FrameMove = nullptr;
    QPushButton *ButtFocus = nullptr;
    QPushButton *KnOk = nullptr;
    QPushButton *KnClose = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void KnOkClick();
    bool handleKeyDown(int key, Qt::KeyboardModifiers modifiers);
    bool handleKeyUp(int key);

    Program &m_program;
    bool m_keyIsDown = false;
    bool m_unloading = false;
};
