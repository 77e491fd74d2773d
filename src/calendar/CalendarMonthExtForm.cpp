#include "CalendarMonthExtForm.h"

#include "DateRules.h"
#include "DayButton.h"
#include "MainFormBuilder.h"
#include "MainFormLayout.h"
#include "TimeText.h"
#include "app/Clock.h"
#include "app/Program.h"
#include "appearance/CaptionLabel.h"
#include "appearance/Captions.h"
#include "windowing/Placement.h"
#include "windowing/TabAppForm.h"
#include "windowing/WindowBehaviour.h"
#include "windowing/WindowGuard.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QWheelEvent>

namespace {

constexpr int ClockInterval = 108; // ms
constexpr int WheelNotch = 120; // angle units of one wheel notch

QString yearText(int year)
{
    return QStringLiteral("%1").arg(year, 4, 10, QLatin1Char('0'));
}

} // namespace

CalendarMonthExtForm::CalendarMonthExtForm(Program &program, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint)
    , m_program(program)
{
    setObjectName(QStringLiteral("CalendarMonthExtForm"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(MainFormWidthTwips / TwipsPerPixel, MainFormHeightTwips / TwipsPerPixel);
    setFont(QFont(QStringLiteral("Arial"), 9));
    // The clock style is fixed for the run by the language the program started in.
    m_timeAmPm = Captions::isEnglish(m_program.settings().Language);

    createControls();
    SettingLabelesAndButtons();

    DisplayDate = m_program.clock().now().date();
    TodayDate = DisplayDate;
    SelectedDate = DisplayDate;
    UpdateCalendarDate();
    ButtUndo->setEnabled(false);
    ButtRedo->setEnabled(false);

    TimerCheckAreaForm = new QTimer(this);
    TimerCheckAreaForm->setObjectName(QStringLiteral("TimerCheckAreaForm"));
    TimerCheckAreaForm->setInterval(ClockInterval);
    connect(TimerCheckAreaForm, &QTimer::timeout, this,
            &CalendarMonthExtForm::TimerCheckAreaFormTick);
    TimerCheckAreaForm->start();
    // Keys reach the window before its controls, wherever the focus is.
    qApp->installEventFilter(this);
    m_program.windowBehaviour().attachMainWindow(this, FrameMove);
    // The window guard's TimerKeyUp restarts on every key press and ends a key-down whose
    // release never reached us.
    auto *guard = findChild<WindowGuard *>();
    TimerKeyUp = guard->TimerKeyUp;
    connect(guard, &WindowGuard::keyUpTimedOut, this, [this] { m_keys.keyUpTimedOut(); });
    m_program.setFormLoaded(objectName(), true);
    LoadDone = true;
}

CalendarMonthExtForm::~CalendarMonthExtForm()
{
    // The controls go before the QObject part of us; no event may reach the filter meanwhile.
    qApp->removeEventFilter(this);
    m_program.setFormLoaded(QStringLiteral("CalendarMonthExtForm"), false);
}

void CalendarMonthExtForm::createControls()
{
    MainFormBuilder::createControls(*this);
    connect(KnOk, &QPushButton::clicked, this, &CalendarMonthExtForm::KnOkClick);
    connect(KnClose, &QPushButton::clicked, this, [this] {
        KnOk->setFocus();
        KnOkClick();
    });
    connect(KnMin, &QPushButton::clicked, this, &CalendarMonthExtForm::KnMinClick);
    connect(KnCopy, &QPushButton::clicked, this, &CalendarMonthExtForm::KnCopyClick);
    connect(ButtNew, &QPushButton::clicked, this, &CalendarMonthExtForm::ButtNewClick);
    connect(ButtUndo, &QPushButton::clicked, this, &CalendarMonthExtForm::ButtUndoClick);
    connect(ButtRedo, &QPushButton::clicked, this, &CalendarMonthExtForm::ButtRedoClick);
    connect(static_cast<CaptionLabel *>(LabelSettings), &CaptionLabel::clicked, this,
            &CalendarMonthExtForm::settingsWindowRequested);
    connect(static_cast<CaptionLabel *>(LabelAbout), &CaptionLabel::clicked, this,
            &CalendarMonthExtForm::aboutWindowRequested);
    startProgram = [](const QString &program) { QProcess::startDetached(program, {}); };
    connect(ButtPrevMonth, &QPushButton::clicked, this, &CalendarMonthExtForm::ButtPrevMonthClick);
    connect(ButtNextMonth, &QPushButton::clicked, this, &CalendarMonthExtForm::ButtNextMonthClick);
    // Only a user's choice counts as a list click; the rebuild's own writes do not.
    connect(ListMonth, &QComboBox::activated, this, &CalendarMonthExtForm::ListClick);
    connect(ListYear, &QComboBox::activated, this, &CalendarMonthExtForm::ListClick);
    for (int i = 1; i <= MonthGrid::CellCount; ++i) {
        DayButton *cell = ButtDay[static_cast<std::size_t>(i)];
        connect(cell, &DayButton::focusGained, this, [this](int index, Qt::FocusReason reason) {
            // Focus coming back with the window or from a closed list popup is not a pick.
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                ButtDayGotFocus(index);
        });
        connect(cell, &DayButton::moveRequested, this, &CalendarMonthExtForm::moveDayFocus);
        connect(cell, &DayButton::wheelTurned, this, &CalendarMonthExtForm::stepByWheel);
    }
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
    m_program.setShowingWindow(true);
    m_program.windowBehaviour().showWindow(this);
    ButtFocus->setFocus();
    m_program.setShowingWindow(false);
}

void CalendarMonthExtForm::UpdateCalendarDate()
{
    if (!ListChangeLock && DateRules::isShownMonth(DisplayDate)) {
        ListMonth->setCurrentIndex(DisplayDate.month() - 1);
        ListYear->setCurrentIndex(ListYear->findText(yearText(DisplayDate.year())));
    }
    bool ok = false;
    const int year = shownYear(&ok);
    const int month = shownMonth();
    if (!ok || month < 1 || month > 12)
        return; // the grid keeps what it shows

    MonthGrid::FillRequest request;
    request.year = year;
    request.month = month;
    request.today = m_program.clock().now().date();
    request.selected = SelectedDate;
    request.weekStartsOnSunday = Captions::weekStartsOnSunday(m_program.settings().FirstWeekDay);
    request.partial = m_partialUpdate;
    m_grid.fill(request, m_program.clock());
    showGrid();

    LabelActDate2Val->setText(LocaleFormats::shortDate(DisplayDate));
    LabelLeftDaysVal->setText(
        QString::number(dayDifference(NowToMinute(m_program.clock()), DisplayDate)));
    LabelActDate->setText(QLatin1Char(' ') + ListMonth->currentText() + QLatin1Char(' '));
    // The unit follows the number at a word's distance.
    const int unitLeft = LabelLeftDaysVal->x()
        + LabelLeftDaysVal->fontMetrics().horizontalAdvance(LabelLeftDaysVal->text()) + 5;
    LabelDays->setGeometry(unitLeft, LabelDays->y(),
                           MainFormLayout::Width - MainFormLayout::Margin - unitLeft,
                           LabelDays->height());
    applyMonthBounds(year, month);
    // The taskbar entry's title follows the language once the window is set up.
    refreshTaskbarTitle();
    Q_EMIT gridRebuilt();
}

void CalendarMonthExtForm::showGrid()
{
    const QString &language = m_program.settings().Language;
    const QDate today = m_program.clock().now().date();
    const QLocale locale;
    for (int i = 1; i <= MonthGrid::CellCount; ++i) {
        DayButton *button = ButtDay[static_cast<std::size_t>(i)];
        const MonthGrid::Cell &cell = m_grid.cell(i);
        button->setText(MonthGrid::caption(cell));
        button->setBackColor(cell.backColor);
        // Tab walks the days only; a blank cell is reached by a click or an arrow key.
        button->setFocusPolicy(cell.day > 0 ? Qt::StrongFocus : Qt::ClickFocus);
        const QDate date = m_grid.dateOf(i);
        const QString name = date.isValid()
            ? Captions::dayCellName(locale.toString(date, QLocale::LongFormat), date == today,
                                    date == SelectedDate, language)
            : QString();
        if (button->accessibleName() != name)
            button->setAccessibleName(name);
    }
}

void CalendarMonthExtForm::applyMonthBounds(int year, int month)
{
    // A disabled button cannot keep the focus, so the focus leaves it first.
    const auto applyBound = [this](QPushButton *button, bool atBound) {
        if (atBound && button->isEnabled()) {
            ButtUndo->setFocus();
            button->setEnabled(false);
        } else if (!atBound && !button->isEnabled()) {
            button->setEnabled(true);
        }
    };
    applyBound(ButtPrevMonth, DateRules::isFirstMonth(year, month));
    applyBound(ButtNextMonth, DateRules::isLastMonth(year, month));
}

void CalendarMonthExtForm::SettingLabelesAndButtons()
{
    const Settings &s = m_program.settings();
    const QString &lang = s.Language;

    ListMonth->clear();
    ListMonth->addItems(Captions::monthNames(lang));
    const QStringList weekdays = Captions::weekdayNames(lang, s.FirstWeekDay);
    for (int column = 1; column <= MonthGrid::ColumnCount; ++column)
        LabelWeekDay[static_cast<std::size_t>(column)]->setText(weekdays.at(column - 1));

    LabelSettings->setText(Captions::pick(Captions::LabelSettings, lang));
    LabelAbout->setText(Captions::pick(Captions::LabelAbout, lang));
    LabelToday->setText(Captions::pick(Captions::LabelToday, lang));
    LabelTime->setText(Captions::pick(Captions::LabelTime, lang));
    LabelActDate2->setText(Captions::pick(Captions::LabelActDate2, lang));
    LabelLeftDays->setText(Captions::pick(Captions::LabelLeftDays, lang));
    LabelMonth->setText(Captions::pick(Captions::LabelMonth, lang));

    const Clock &clock = m_program.clock();
    LabelTodayVal->setText(LocaleFormats::shortDate(NowToMinute(clock).date()));
    LabelTimeVal->setText(LocaleFormats::longTime(NowToSecond(clock)));
    LabelDays->setText(Captions::pick(Captions::LabelDays, lang));
}

void CalendarMonthExtForm::TimerCheckAreaFormTick()
{
    const QDateTime now = m_program.clock().now();
    const QLocale locale;
    const QString time =
        FormatTime(now.time(), true, TimeFormatContext::fromLocale(locale, now, m_timeAmPm));
    if (time == LabelTimeVal->text())
        return;
    LabelTimeVal->setText(time);
    const QString date = LocaleFormats::shortDate(now.date(), locale);
    if (date != LabelTodayVal->text()) {
        // A new day (midnight, or waking from a suspend): move the today mark and the difference.
        LabelTodayVal->setText(date);
        UpdateCalendarDate();
    }
}

int CalendarMonthExtForm::shownYear(bool *ok) const
{
    return ListYear->currentText().trimmed().toInt(ok);
}

int CalendarMonthExtForm::shownMonth() const
{
    return ListMonth->currentIndex() + 1;
}

void CalendarMonthExtForm::ButtPrevMonthClick()
{
    stepMonth(-1);
}

void CalendarMonthExtForm::ButtNextMonthClick()
{
    stepMonth(1);
}

void CalendarMonthExtForm::stepMonth(int months)
{
    ButtUndo->setEnabled(true);
    // Going one way always makes the way back possible.
    QPushButton *opposite = months > 0 ? ButtPrevMonth : ButtNextMonth;
    if (!opposite->isEnabled())
        opposite->setEnabled(true);
    // A day pick has already put its target date in place.
    if (!DaySelectBusy)
        DisplayDate = DateRules::addMonths(DisplayDate, months);
    HistoryStepLock = true;
    UpdateCalendarDate();
    HistoryStepLock = false;
}

void CalendarMonthExtForm::ListClick()
{
    if (m_program.IsBusy() || !LoadDone || ListChangeLock || HistoryStepLock)
        return;
    m_keys.resetListState(); // a choice was made, so Esc closes again
    ButtUndo->setEnabled(true);
    bool ok = false;
    const int year = shownYear(&ok);
    // Day overflow runs on: 31 January with February chosen is early March, while the grid
    // still shows February because the lists are not written back.
    const QDate date = DateRules::dateSerial(year, shownMonth(), DisplayDate.day());
    if (!ok || !date.isValid())
        return;
    DisplayDate = date;
    ListChangeLock = true;
    UpdateCalendarDate();
    ListChangeLock = false;
}

void CalendarMonthExtForm::ButtDayGotFocus(int index)
{
    if (m_program.IsBusy() || DayFocusLock)
        return;
    ButtUndo->setEnabled(true);
    ButtRedo->setEnabled(false);
    DaySelectBusy = true;
    const int day = m_grid.cell(index).day;
    bool ok = false;
    const int year = shownYear(&ok);
    if (!ok) {
        DaySelectBusy = false;
        return;
    }
    if (day == 0) {
        stepToNeighbourMonth(DateRules::cellDate(year, shownMonth(), m_grid.firstDayCell(), index));
    } else {
        DisplayDate = QDate(year, shownMonth(), day);
        SelectedDate = DisplayDate;
        DayFocusLock = true;
        UpdateCalendarDate();
        if (SelectedDate == TodayDate)
            ButtUndo->setEnabled(false); // nothing to go back to
        RedoDate = SelectedDate;
        DayFocusLock = false;
    }
    DaySelectBusy = false;
}

bool CalendarMonthExtForm::stepToNeighbourMonth(QDate target)
{
    bool ok = false;
    const int year = shownYear(&ok);
    const bool forward = target > QDate(year, shownMonth(), 1);
    QPushButton *button = forward ? ButtNextMonth : ButtPrevMonth;
    if (!ok || !button->isEnabled())
        return false; // at the bounds nothing moves
    const bool wasBusy = DaySelectBusy;
    DaySelectBusy = true; // the month step keeps the target date
    DisplayDate = target;
    stepMonth(forward ? 1 : -1);
    DaySelectBusy = wasBusy;
    // Focusing the target cell picks that day.
    if (const int cell = m_grid.cellOf(target))
        ButtDay[static_cast<std::size_t>(cell)]->setFocus(Qt::OtherFocusReason);
    return true;
}

void CalendarMonthExtForm::moveDayFocus(int index, int offset)
{
    const int target = index + offset;
    if (target >= 1 && target <= MonthGrid::CellCount) {
        ButtDay[static_cast<std::size_t>(target)]->setFocus(Qt::OtherFocusReason);
        return;
    }
    bool ok = false;
    const int year = shownYear(&ok);
    if (!ok || m_program.IsBusy())
        return;
    stepToNeighbourMonth(DateRules::cellDate(year, shownMonth(), m_grid.firstDayCell(), target));
}

void CalendarMonthExtForm::wheelEvent(QWheelEvent *event)
{
    const QPoint at = event->position().toPoint();
    const QRect area = MainFormLayout::gridArea().united(MainFormLayout::weekdayLabel(1));
    if (!area.contains(at)) {
        QWidget::wheelEvent(event);
        return;
    }
    event->accept();
    stepByWheel(event->angleDelta().y());
}

void CalendarMonthExtForm::stepByWheel(int angle)
{
    // Touchpads send small steps; a month moves per full notch. Up goes back in time.
    m_wheelAngle += angle;
    while (qAbs(m_wheelAngle) >= WheelNotch) {
        const bool back = m_wheelAngle > 0;
        m_wheelAngle += back ? -WheelNotch : WheelNotch;
        QPushButton *button = back ? ButtPrevMonth : ButtNextMonth;
        if (button->isEnabled())
            back ? ButtPrevMonthClick() : ButtNextMonthClick();
    }
}

void CalendarMonthExtForm::historyStep(const QDate &date)
{
    DisplayDate = date;
    SelectedDate = DisplayDate;
    HistoryStepLock = true;
    DayFocusLock = false;
    UpdateCalendarDate();
    HistoryStepLock = false;
    ButtFocus->setFocus();
}

void CalendarMonthExtForm::ButtUndoClick()
{
    if (!ButtUndo->isEnabled())
        return;
    // Today afresh, not the day the window was loaded on.
    historyStep(m_program.clock().now().date());
    ButtUndo->setEnabled(false);
    if (!RedoDate.isNull())
        ButtRedo->setEnabled(true);
    refreshTaskbarTitle();
}

void CalendarMonthExtForm::ButtRedoClick()
{
    if (!ButtRedo->isEnabled())
        return;
    historyStep(RedoDate);
    ButtRedo->setEnabled(false);
    ButtUndo->setEnabled(true);
}

void CalendarMonthExtForm::KnCopyClick()
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    const QLocale locale;
    clipboard->setText(LocaleFormats::shortDate(DisplayDate, locale) + QStringLiteral("  ")
                       + locale.toString(DisplayDate, QLocale::LongFormat));
    ButtFocus->setFocus();
}

void CalendarMonthExtForm::ButtNewClick()
{
    startProgram(m_program.ProgramFolder + QStringLiteral("qlvcallt"));
    ButtFocus->setFocus();
}

bool CalendarMonthExtForm::canTakeCommands() const
{
    // Inert while the window is disabled (the Settings window is open), closing, or a button
    // of the mouse is still held for a drag.
    return isEnabled() && !m_unloading && QGuiApplication::mouseButtons() == Qt::NoButton;
}

void CalendarMonthExtForm::KnMinClick()
{
    if (!canTakeCommands())
        return;
    // The taskbar presence hides the shadow with the window and brings both back on restore.
    if (TabAppForm *tabApp = m_program.windowBehaviour().tabApp())
        tabApp->minimise();
    else
        showMinimized();
}

void CalendarMonthExtForm::KnOkClick()
{
    if (!canTakeCommands())
        return;
    KnOk->setFocus();
    close();
}

void CalendarMonthExtForm::refreshTaskbarTitle()
{
    if (!LoadDone || !m_program.IsFormLoaded(QStringLiteral("TabAppForm"), false))
        return;
    const Settings &s = m_program.settings();
    setWindowTitle(Captions::isEnglish(s.Language) ? s.AppTitleEnglish : s.AppTitleRussian);
}

void CalendarMonthExtForm::showAuthorMessage()
{
    // Kept in pieces so that the line is not one plain string in the executable.
    const char *pieces[] = { "QL", "V ", "Ca", "le", "nd", "ar", " L", "it", "e: ", "wr",
                             "it", "te", "n ", "by", " i", "ts", " a", "ut", "ho",  "rs" };
    QString text;
    for (const char *piece : pieces)
        text += QLatin1StringView(piece);
    QMessageBox box(QMessageBox::NoIcon, QString(), text, QMessageBox::Ok, this);
    box.setObjectName(QStringLiteral("AuthorMessage"));
    box.exec();
}

bool CalendarMonthExtForm::runKeyCommand(KeyTable::Command command)
{
    switch (command) {
    case KeyTable::Command::None:
    case KeyTable::Command::EndListState:
        return false;
    case KeyTable::Command::Discard:
        return true;
    case KeyTable::Command::FocusOk:
        KnOk->setFocus();
        return true;
    case KeyTable::Command::Close:
        KnOkClick();
        return true;
    case KeyTable::Command::AuthorMessage:
        showAuthorMessage();
        return true;
    case KeyTable::Command::About:
        Q_EMIT aboutWindowRequested();
        return true;
    case KeyTable::Command::Settings:
        Q_EMIT settingsWindowRequested();
        return true;
    case KeyTable::Command::NewInstance:
        ButtNewClick();
        return true;
    }
    return false;
}

bool CalendarMonthExtForm::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::Show && (watched == ListMonth->view() || watched == ListYear->view())) {
        m_keys.listDroppedDown();
        return false;
    }
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease)
        return false;
    // Our own controls, and the drop-down of our lists, which is a window of its own.
    auto *target = qobject_cast<QWidget *>(watched);
    while (target && target != this)
        target = target->parentWidget();
    if (!target)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool mouseHeld = QGuiApplication::mouseButtons() != Qt::NoButton;
    if (type == QEvent::KeyPress) {
        // A held key repeats its press; the command waits for the one release.
        if (key->isAutoRepeat())
            return key->key() == Qt::Key_Escape;
        const KeyTable::Command command = m_keys.keyDown(key->key(), key->modifiers(), mouseHeld);
        return runKeyCommand(command);
    }
    if (key->isAutoRepeat())
        return true;
    return runKeyCommand(m_keys.keyUp(key->key(), key->modifiers(), mouseHeld));
}

void CalendarMonthExtForm::closeEvent(QCloseEvent *event)
{
    if (!m_unloading) {
        m_unloading = true;
        m_program.CloseProgram();
    }
    event->accept();
}
