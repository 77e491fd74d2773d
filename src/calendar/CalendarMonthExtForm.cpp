#include "CalendarMonthExtForm.h"

#include "DayButton.h"
#include "MainFormBuilder.h"
#include "MainFormKeys.h"
#include "MainFormLayout.h"
#include "MainFormLook.h"
#include "TimeText.h"
#include "app/Clock.h"
#include "app/ProgramState.h"
#include "app/SchemeColors.h"
#include "appearance/CaptionLabel.h"
#include "appearance/Captions.h"
#include "tooltip/ToolTips.h"
#include "windowing/KeyboardState.h"
#include "windowing/Placement.h"
#include "windowing/Shadow.h"
#include "windowing/TabAppForm.h"
#include "windowing/WindowBehaviour.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QWheelEvent>

namespace {

QString yearText(int year)
{
    return QStringLiteral("%1").arg(year, 4, 10, QLatin1Char('0'));
}

} // namespace

CalendarMonthExtForm::CalendarMonthExtForm(ProgramState &program, QWidget *parent)
    : CommonWindow(program, QStringLiteral("CalendarMonthExtForm"),
                   QSize(MainFormWidthTwips / TwipsPerPixel, MainFormHeightTwips / TwipsPerPixel),
                   parent)
    , m_program(program)
    , m_nav(program.clock(), [&program] { return program.IsBusy(); })
{
    // The clock style is fixed for the run by the language the program started in.
    m_timeAmPm = Captions::isEnglish(m_program.settings().Language);

    createControls();
    SettingLabelesAndButtons();

    m_nav.weekStartsOnSunday = Captions::weekStartsOnSunday(m_program.settings().FirstWeekDay);
    m_nav.Load();
    showNavigation();

    // Keys reach the window before its controls, wherever the focus is.
    m_keys = new MainFormKeys(*this);
    attachCommonParts(true);
    for (QWidget *label : MainFormBuilder::dragLabels(*this))
        behaviour().addDragArea(this, label);
    ToolTips::attach(*this, TipTexts::mainFormTips());
    m_program.setFormLoaded(objectName(), true);
    LoadDone = true;
    refreshTaskbarTitle();
}

CalendarMonthExtForm::~CalendarMonthExtForm()
{
    // The controls go before the QObject part of us; no key may reach the filter meanwhile.
    delete m_keys;
    m_keys = nullptr;
    m_program.setFormLoaded(QStringLiteral("CalendarMonthExtForm"), false);
}

const KeyTable &CalendarMonthExtForm::keys() const
{
    return m_keys->table();
}

void CalendarMonthExtForm::keyUpTimedOut()
{
    m_keys->table().keyUpTimedOut();
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
    connect(ButtUndo, &QPushButton::clicked, this, [this] {
        navigate(&CalendarNavigation::ButtUndoClick);
        // The caption follows a language chosen meanwhile.
        refreshTaskbarTitle();
    });
    connect(ButtRedo, &QPushButton::clicked, this,
            [this] { navigate(&CalendarNavigation::ButtRedoClick); });
    connect(static_cast<CaptionLabel *>(LabelSettings), &CaptionLabel::clicked, this,
            &CalendarMonthExtForm::settingsWindowRequested);
    connect(static_cast<CaptionLabel *>(LabelAbout), &CaptionLabel::clicked, this,
            &CalendarMonthExtForm::aboutWindowRequested);
    startProgram = [](const QString &program) { QProcess::startDetached(program, {}); };
    connect(ButtPrevMonth, &QPushButton::clicked, this,
            [this] { navigate(&CalendarNavigation::ButtPrevMonthClick); });
    connect(ButtNextMonth, &QPushButton::clicked, this,
            [this] { navigate(&CalendarNavigation::ButtNextMonthClick); });
    // Only a user's choice counts as a list click; the rebuild's own writes do not.
    connect(ListMonth, &QComboBox::activated, this, [this] { ListClick(false); });
    connect(ListYear, &QComboBox::activated, this, [this] { ListClick(true); });
    for (int i = 1; i <= MonthGrid::CellCount; ++i) {
        DayButton *cell = ButtDay[static_cast<std::size_t>(i)];
        connect(cell, &DayButton::focusGained, this, [this](int index, Qt::FocusReason reason) {
            // Focus coming back with the window or from a closed list popup is not a pick.
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
                navigate(&CalendarNavigation::ButtDayGotFocus, index);
        });
        connect(cell, &DayButton::moveRequested, this, [this](int index, int offset) {
            navigate(&CalendarNavigation::moveDayFocus, index, offset);
        });
        connect(cell, &DayButton::wheelTurned, this,
                [this](int angle) { navigate(&CalendarNavigation::wheel, angle); });
    }
}

QWidget *CalendarMonthExtForm::showNew(ProgramState &program)
{
    auto *form = new CalendarMonthExtForm(program);
    form->showAtStart();
    return form;
}

void CalendarMonthExtForm::showAtStart()
{
    const Settings &s = m_program.settings();
    // The primary screen first: it centres the window, and it takes one that no screen shows.
    QList<QRect> screens;
    if (const QScreen *primary = QGuiApplication::primaryScreen())
        screens.append(primary->geometry());
    for (const QScreen *other : QGuiApplication::screens())
        screens.append(other->geometry());
    if (s.CalendarTopmost == QStringLiteral("Yes"))
        setWindowFlag(Qt::WindowStaysOnTopHint, true);
    move(Placement::startTopLeft(s, size(), screens));
    m_program.setShowingWindow(true);
    showWindow();
    ButtFocus->setFocus();
    m_program.setShowingWindow(false);
}

void CalendarMonthExtForm::UpdateCalendarDate()
{
    m_nav.weekStartsOnSunday = Captions::weekStartsOnSunday(m_program.settings().FirstWeekDay);
    m_nav.UpdateCalendarDate();
    showNavigation();
}

void CalendarMonthExtForm::showNavigation()
{
    if (m_nav.rebuilds() != m_rebuildsShown) {
        m_rebuildsShown = m_nav.rebuilds();
        showGrid();
    }
    // Enable first and disable last: a button losing the focus to a disable would hand it to
    // the next control in the chain, perhaps a day cell, which would count as a pick.
    const std::array<std::pair<QPushButton *, bool>, 4> states = {
        std::pair { ButtUndo, m_nav.ButtUndoEnabled },
        { ButtRedo, m_nav.ButtRedoEnabled },
        { ButtPrevMonth, m_nav.ButtPrevMonthEnabled },
        { ButtNextMonth, m_nav.ButtNextMonthEnabled },
    };
    for (const auto &[button, enabled] : states) {
        if (enabled)
            button->setEnabled(true);
    }
    const CalendarNavigation::FocusMove move = m_nav.takeFocusMove();
    switch (move.target) {
    case CalendarNavigation::FocusTarget::None:
        break;
    case CalendarNavigation::FocusTarget::ButtUndo:
        ButtUndo->setFocus();
        break;
    case CalendarNavigation::FocusTarget::ButtFocus:
        ButtFocus->setFocus();
        break;
    case CalendarNavigation::FocusTarget::Day:
        // Focusing a cell picks its day, which comes back here.
        ButtDay[static_cast<std::size_t>(move.cell)]->setFocus(Qt::OtherFocusReason);
        break;
    }
    ButtUndo->setEnabled(m_nav.ButtUndoEnabled);
    ButtRedo->setEnabled(m_nav.ButtRedoEnabled);
    ButtPrevMonth->setEnabled(m_nav.ButtPrevMonthEnabled);
    ButtNextMonth->setEnabled(m_nav.ButtNextMonthEnabled);
}

void CalendarMonthExtForm::showGrid()
{
    ListMonth->setCurrentIndex(m_nav.shownMonth() - 1);
    ListYear->setCurrentIndex(ListYear->findText(yearText(m_nav.shownYear())));

    const QDate today = m_program.clock().now().date();
    for (int i = 1; i <= MonthGrid::CellCount; ++i) {
        ButtDay[static_cast<std::size_t>(i)]->showCell(m_nav.grid(), today, m_nav.SelectedDate,
                                                       m_program.settings().Language);
    }

    const QDate shown = m_nav.DisplayDate;
    LabelActDate2Val->setText(LocaleFormats::shortDate(shown));
    LabelLeftDaysVal->setText(
        QString::number(dayDifference(NowToMinute(m_program.clock()), shown)));
    LabelActDate->setText(QLatin1Char(' ') + ListMonth->currentText() + QLatin1Char(' '));
    // The unit follows the number at a word's distance.
    const int unitLeft = LabelLeftDaysVal->x()
        + LabelLeftDaysVal->fontMetrics().horizontalAdvance(LabelLeftDaysVal->text()) + 5;
    LabelDays->setGeometry(unitLeft, LabelDays->y(),
                           MainFormLayout::Width - MainFormLayout::Margin - unitLeft,
                           LabelDays->height());
    // The taskbar entry's title follows the language once the window is set up.
    refreshTaskbarTitle();
    Q_EMIT gridRebuilt();
}

void CalendarMonthExtForm::SettingLabelesAndButtons()
{
    const Settings &s = m_program.settings();
    MainFormBuilder::setCaptions(*this, s.Language, s.FirstWeekDay);
    const Clock &clock = m_program.clock();
    LabelTodayVal->setText(LocaleFormats::shortDate(NowToMinute(clock).date()));
    LabelTimeVal->setText(LocaleFormats::longTime(NowToSecond(clock)));

    // The scheme and picture in force, and the colours they share with the tooltip and shadow.
    ApplySchemeColors(m_program.settings());
    MainFormLook::apply(*this, s);
    if (Shadow *shadow = ShadowForm())
        shadow->setShadowColor(s.ShadowColor);
}

void CalendarMonthExtForm::TimerCheckAreaFormTick()
{
    const qint64 second = m_program.clock().currentSecond();
    if (second == m_tickSecond)
        return;
    m_tickSecond = second;
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

void CalendarMonthExtForm::ListClick(bool yearList)
{
    if (m_program.IsBusy() || !LoadDone)
        return;
    m_keys->table().resetListState(); // a choice was made, so Esc closes again
    bool ok = false;
    const int year = ListYear->currentText().trimmed().toInt(&ok);
    navigate(&CalendarNavigation::ListClick, ok ? year : 0, ListMonth->currentIndex() + 1,
             yearList);
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
    navigate(&CalendarNavigation::wheel, event->angleDelta().y());
}

void CalendarMonthExtForm::KnCopyClick()
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    const QLocale locale;
    const QDate date = m_nav.DisplayDate;
    clipboard->setText(LocaleFormats::shortDate(date, locale) + QStringLiteral("  ")
                       + locale.toString(date, QLocale::LongFormat));
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
    behaviour().hideToolTip();
    // The taskbar presence hides the shadow with the window and brings both back on restore.
    if (TabAppForm *tabApp = WindowBehaviour::of(m_program).tabApp())
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
    setWindowTitle(AppTitle(m_program.settings()));
}

void CalendarMonthExtForm::closeEvent(QCloseEvent *event)
{
    if (!m_unloading) {
        m_unloading = true;
        m_program.CloseProgram();
    }
    event->accept();
}
