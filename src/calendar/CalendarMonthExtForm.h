#pragma once

#include "KeyTable.h"
#include "MonthGrid.h"

#include <QDate>
#include <QWidget>

#include <array>
#include <functional>

class DayButton;
class Program;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QTimer;

// The Main window: the month calendar.
class CalendarMonthExtForm : public QWidget
{
    Q_OBJECT

public:
    explicit CalendarMonthExtForm(Program &program, QWidget *parent = nullptr);
    ~CalendarMonthExtForm() override;

    // Places the window (saved position, or centred when asked) and shows it.
    void showAtStart();

    // Rebuilds the grid for the month and year the lists show (after writing DisplayDate into
    // them, unless a list started the rebuild) and refreshes the date labels and month buttons.
    void UpdateCalendarDate();
    // Sets every caption in the chosen language and the weekday labels in first-day order.
    void SettingLabelesAndButtons();
    // While set, a rebuild redraws only the days of the month.
    void setPartialUpdate(bool partial) { m_partialUpdate = partial; }
    // One tick of the clock: refreshes the time, and the grid when the date has changed.
    void TimerCheckAreaFormTick();

    const MonthGrid &grid() const { return m_grid; }
    const KeyTable &keys() const { return m_keys; }

    // Starts a program with no arguments; tests replace it.
    std::function<void(const QString &program)> startProgram;

    QDate TodayDate; // today as of the window's load
    QDate DisplayDate; // the grid shows this date's month
    QDate SelectedDate; // marked in the grid
    QDate RedoDate; // the last picked day; null until the first pick

    QFrame *FrameMove = nullptr;
    QPushButton *ButtFocus = nullptr;
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
    QTimer *TimerCheckAreaForm = nullptr;
    QTimer *TimerKeyUp = nullptr;

Q_SIGNALS:
    // Emitted at the end of every grid rebuild.
    void gridRebuilt();
    // The Settings and About commands; the windows that answer them live elsewhere.
    void settingsWindowRequested();
    void aboutWindowRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void createControls();

    void ButtPrevMonthClick();
    void ButtNextMonthClick();
    void stepMonth(int months);
    void ListClick();
    void ButtDayGotFocus(int index);
    void moveDayFocus(int index, int offset);
    bool stepToNeighbourMonth(QDate target);
    void stepByWheel(int angle);
    void showGrid();
    void applyMonthBounds(int year, int month);
    int shownYear(bool *ok) const;
    int shownMonth() const;

    // Shows and selects `date` for ButtUndo/ButtRedo, then parks the focus.
    void historyStep(const QDate &date);
    void ButtUndoClick();
    void ButtRedoClick();
    void KnCopyClick();
    void ButtNewClick();
    void KnMinClick();
    void KnOkClick();
    bool canTakeCommands() const;
    bool runKeyCommand(KeyTable::Command command);
    void showAuthorMessage();
    void refreshTaskbarTitle();

    Program &m_program;
    MonthGrid m_grid;
    bool m_timeAmPm = true;
    bool m_partialUpdate = false;
    int m_wheelAngle = 0;

    // Per-handler locks; see the handlers for what each keeps out.
    bool LoadDone = false;
    bool DaySelectBusy = false;
    bool DayFocusLock = false;
    bool HistoryStepLock = false;
    bool ListChangeLock = false;

    KeyTable m_keys;
    bool m_unloading = false;
};
