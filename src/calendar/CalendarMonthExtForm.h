#pragma once

#include "CalendarNavigation.h"
#include "KeyTable.h"
#include "MonthGrid.h"
#include "windowing/CommonWindow.h"

#include <QDate>

#include <array>
#include <functional>

class DayButton;
class MainFormKeys;
class ProgramState;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QTimer;

// The Main window: the month calendar.
class CalendarMonthExtForm : public CommonWindow
{
    Q_OBJECT

public:
    explicit CalendarMonthExtForm(ProgramState &program, QWidget *parent = nullptr);
    ~CalendarMonthExtForm() override;

    // Creates the Main window, places it (saved position, or centred when asked) and shows it.
    static QWidget *showNew(ProgramState &program);
    void showAtStart();

    // Rebuilds the grid for the shown month (the month of DisplayDate, unless a list started the
    // rebuild) and refreshes the lists, the date labels and the month buttons.
    void UpdateCalendarDate();
    // Sets every caption in the chosen language and the weekday labels in first-day order.
    void SettingLabelesAndButtons();
    // While set, a rebuild redraws only the days of the month.
    void setPartialUpdate(bool partial) { m_nav.partialUpdate = partial; }
    // One tick of the clock: refreshes the time, and the grid when the date has changed.
    void TimerCheckAreaFormTick() override;

    const MonthGrid &grid() const { return m_nav.grid(); }
    // The dates, the history and the month buttons' state.
    const CalendarNavigation &navigation() const { return m_nav; }
    const KeyTable &keys() const;

    // Starts a program with no arguments; tests replace it.
    std::function<void(const QString &program)> startProgram;

    // Cells 1..42 as in the grid model; element 0 is unused.
    std::array<DayButton *, MonthGrid::CellCount + 1> ButtDay {};
    // Weekday labels 1..7, left to right; element 0 is unused.
    std::array<QLabel *, MonthGrid::ColumnCount + 1> LabelWeekDay {};
    QComboBox *ListMonth = nullptr;
    QComboBox *ListYear = nullptr;
    QPushButton *ButtPrevMonth = nullptr;
    QPushButton *ButtNextMonth = nullptr;
    QPushButton *ButtUndo = nullptr;
    QPushButton *ButtRedo = nullptr;
    QPushButton *ButtNew = nullptr;
    QPushButton *KnCopy = nullptr;
    QPushButton *KnMin = nullptr;
    QPushButton *KnClose = nullptr;
    QPushButton *KnOk = nullptr;
    QLabel *LabelActDate = nullptr;
    QLabel *LabelMonth = nullptr;
    QLabel *LabelToday = nullptr;
    QLabel *LabelTodayVal = nullptr;
    QLabel *LabelTime = nullptr;
    QLabel *LabelTimeVal = nullptr;
    QLabel *LabelActDate2 = nullptr;
    QLabel *LabelActDate2Val = nullptr;
    QLabel *LabelLeftDays = nullptr;
    QLabel *LabelLeftDaysVal = nullptr;
    QLabel *LabelDays = nullptr;
    QLabel *LabelSettings = nullptr;
    QLabel *LabelAbout = nullptr;

Q_SIGNALS:
    // Emitted at the end of every grid rebuild.
    void gridRebuilt();
    // The Settings and About commands; the windows that answer them live elsewhere.
    void settingsWindowRequested();
    void aboutWindowRequested();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyUpTimedOut() override;
    void wheelEvent(QWheelEvent *event) override;

private:
    friend class MainFormKeys; // runs the window's commands for its keys
    void createControls();

    // Runs a command of the navigation model and shows what it changed.
    template<typename... Args, typename... Values>
    void navigate(void (CalendarNavigation::*command)(Args...), Values... values)
    {
        (m_nav.*command)(values...);
        showNavigation();
    }
    void showNavigation();
    void showGrid();
    void ListClick(bool yearList);

    void KnCopyClick();
    void ButtNewClick();
    void KnMinClick();
    void KnOkClick();
    bool canTakeCommands() const;
    void refreshTaskbarTitle();

    ProgramState &m_program;
    CalendarNavigation m_nav;
    int m_rebuildsShown = -1;
    bool m_timeAmPm = true;
    // The second the last tick showed: the nine ticks after it have nothing to do.
    qint64 m_tickSecond = -1;
    bool LoadDone = false;

    MainFormKeys *m_keys = nullptr;
    bool m_unloading = false;
};
