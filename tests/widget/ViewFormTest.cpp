#include "settings_window/ViewForm.h"

#include "app/FileOps.h"
#include "app/ProgramState.h"
#include "app/SchemeColors.h"
#include "app/SettingsFile.h"
#include "appearance/AppearanceNames.h"
#include "appearance/BgrColor.h"
#include "appearance/PictureButton.h"
#include "appearance/WindowBody.h"
#include "calendar/CalendarMonthExtForm.h"
#include "support/FakeClock.h"
#include "support/QtPrinters.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtTest/qtestspontaneevent.h>

#include <gtest/gtest.h>

#include <cerrno>

using namespace Qt::StringLiterals;
using ViewFormText::List;

namespace {

// The Main window of a run with a settings file in a private folder, and its Settings window.
// "Random" draws the schemes and pictures in turn, so each draw differs from the one before.
class SettingsWindow : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        clock.setNow(QDateTime(QDate(2026, 3, 12), QTime(12, 0)));
        program = std::make_unique<ProgramState>(&clock);
        SettingsContext context;
        context.settingsPath = dir.filePath(u"qlvcal.ini"_s);
        context.clock = &clock;
        context.resolveColorScheme = [this](const QString &c) { return draw(c, true); };
        context.resolvePicture = [this](const QString &c) { return draw(c, false); };
        file = std::make_unique<SettingsFile>(program->settings(), context);
        program->setSettingsFile(file.get());
        QFile out(context.settingsPath);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write("Language=English\r\nFirstWeekDay=Sunday\r\nColorScheme=Blue\r\n"
                  "CalendarPicture=Sky\r\nCalendarBorderWidth=2\r\nCalendarLeft=1500\r\n");
        out.close();
        file->SetDefaultSettings();
        ASSERT_TRUE(file->ReadSettings());
        ApplySchemeColors(program->settings());
        main = new CalendarMonthExtForm(*program);
        main->move(10, 10);
        main->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(main));
        saved = bytes();
        open();
    }
    void TearDown() override
    {
        delete view.data();
        delete main.data();
        program.reset();
    }

    QString draw(const QString &choice, bool scheme)
    {
        const QStringList &all =
            scheme ? AppearanceNames::concreteColorSchemes() : AppearanceNames::concretePictures();
        return choice == u"Random"_s ? all[draws++ % all.size()] : choice;
    }
    void open()
    {
        view = ViewForm::showNew(*program, *main);
        QApplication::setActiveWindow(view);
        ASSERT_TRUE(QTest::qWaitForWindowActive(view));
    }
    QByteArray bytes() const
    {
        QFile in(dir.filePath(u"qlvcal.ini"_s));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    // Drops the list down with a click and walks to the entry with the arrow keys, as a user does.
    void choose(List l, int index)
    {
        QComboBox *box = view->list(l);
        QTest::mouseClick(box, Qt::LeftButton);
        QAbstractItemView *entries = box->view();
        ASSERT_TRUE(QTest::qWaitFor([&] { return entries->isVisible(); }));
        for (int at = box->currentIndex(); at != index; at += at < index ? 1 : -1)
            QTest::keyClick(entries, at < index ? Qt::Key_Down : Qt::Key_Up);
        QTest::keyClick(entries, Qt::Key_Return);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !entries->isVisible(); }));
    }
    void key(QEvent::Type type, Qt::Key k, Qt::KeyboardModifiers mods = {}, bool repeat = false)
    {
        QKeyEvent event(type, k, mods, QString(), repeat);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QWidget *focus = QApplication::focusWidget();
        QApplication::sendEvent(focus ? focus : view.data(), &event);
    }
    void tap(Qt::Key k, Qt::KeyboardModifiers mods = {})
    {
        key(QEvent::KeyPress, k, mods);
        key(QEvent::KeyRelease, k, mods);
    }
    bool closed()
    {
        return QTest::qWaitFor([this] { return !view; }, 2000);
    }

    QTemporaryDir dir;
    FakeClock clock;
    int draws = 0;
    std::unique_ptr<ProgramState> program;
    std::unique_ptr<SettingsFile> file;
    QPointer<CalendarMonthExtForm> main;
    QPointer<ViewForm> view;
    QByteArray saved;
};

struct ChoiceRow
{
    const char *name;
    std::vector<std::pair<List, int>> picks;
    const char *picture; // CalendarPicture after the picks
    bool rebuilt; // the Main window's grid was redrawn
    bool russian; // the Main window speaks Russian
    bool centred; // the Main window moved to the centre
};

class Choices : public SettingsWindow, public ::testing::WithParamInterface<ChoiceRow>
{ };

} // namespace

TEST_P(Choices, ShowOnTheMainWindowAtOnce)
{
    const ChoiceRow &row = GetParam();
    QSignalSpy rebuilds(main.data(), &CalendarMonthExtForm::gridRebuilt);
    for (const auto &[list, index] : row.picks)
        choose(list, index);
    EXPECT_EQ(main->LabelSettings->text(), row.russian ? u"  Настройки  "_s : u"  Settings  "_s);
    EXPECT_EQ(program->settings().CalendarPicture, QString::fromUtf8(row.picture));
    EXPECT_EQ(view->ListBackPictMain->currentIndex(),
              ViewFormText::indexOf(List::BackPict, QString::fromUtf8(row.picture)));
    EXPECT_EQ(!rebuilds.isEmpty(), row.rebuilt);
    EXPECT_EQ(main->geometry().center() == main->screen()->geometry().center(), row.centred);
    EXPECT_EQ(main->pos() == QPoint(10, 10), !row.centred);
    EXPECT_FALSE(main->isEnabled());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lists, Choices, ::testing::Values(
    ChoiceRow { "SameLanguage", { { List::Lang, 0 } }, "Sky", false, false, false },
    ChoiceRow { "OtherLanguage", { { List::Lang, 1 } }, "Sky", true, true, false },
    ChoiceRow { "SchemeFirst", { { List::ColorScheme, 1 } }, "None", true, false, false },
    ChoiceRow { "PictureFirst", { { List::BackPict, 1 }, { List::ColorScheme, 2 } }, "Sky", true,
                false, false },
    ChoiceRow { "CentreYes", { { List::AlignCenter, 0 } }, "Sky", false, false, true },
    ChoiceRow { "CentreNo", { { List::AlignCenter, 1 } }, "Sky", false, false, false }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

namespace {

struct EndRow
{
    const char *name;
    const char *clicked; // a control to click, or none for the key
    Qt::Key key;
    Qt::KeyboardModifiers mods;
    bool kept; // the choice stays
    bool failingSave = false; // replacing the file fails
};

class Endings : public SettingsWindow, public ::testing::WithParamInterface<EndRow>
{ };

// Replacing the file fails, as on a full disk.
struct NoRename : FileOps
{
    int rename(const QByteArray &, const QByteArray &) override { return errno = ENOSPC, -1; }
};

} // namespace

// Every Ok way writes the whole record; only the Cancel pictures and Esc read the file back. A
// save that fails leaves the old file whole, and the window closes all the same.
TEST_P(Endings, SaveOrDiscardAndGiveTheMainWindowBack)
{
    const EndRow &row = GetParam();
    NoRename failing;
    if (row.failingSave)
        file->context().fileOps = &failing;
    choose(List::FirstDay, 1);
    EXPECT_EQ(main->LabelWeekDay[1]->text(), u"Mon"_s);
    if (row.clicked)
        QTest::mouseClick(view->findChild<QWidget *>(QString::fromLatin1(row.clicked)),
                          Qt::LeftButton);
    else
        tap(row.key, row.mods);
    ASSERT_TRUE(closed());
    EXPECT_EQ(bytes(), row.kept && !row.failingSave ? file->fileContents() : saved);
    EXPECT_EQ(main->LabelWeekDay[1]->text(), row.kept ? u"Mon"_s : u"Sun"_s);
    EXPECT_TRUE(main->isEnabled());
    EXPECT_FALSE(program->IsFormLoaded(u"ViewForm"_s, false));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Ways, Endings, ::testing::Values(
    EndRow { "KnClose", "KnClose", {}, {}, true },
    EndRow { "OkPicture", "KnOkBlack", {}, {}, true },
    EndRow { "CtrlEnter", nullptr, Qt::Key_Return, Qt::ControlModifier, true },
    EndRow { "AltEnter", nullptr, Qt::Key_Enter, Qt::AltModifier, true },
    EndRow { "CtrlF4", nullptr, Qt::Key_F4, Qt::ControlModifier, true },
    EndRow { "AltF4", nullptr, Qt::Key_F4, Qt::AltModifier, true },
    EndRow { "FailedSave", "KnClose", {}, {}, true, true },
    EndRow { "CancelPicture", "KnCancelBlackEng", {}, {}, false },
    EndRow { "Esc", nullptr, Qt::Key_Escape, {}, false }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

TEST_F(SettingsWindow, HeldEscCancelsOnlyOnReleaseAndEnterNeverCloses)
{
    view->ListLang->setFocus();
    tap(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), view->ListFirstDay);
    view->KnOkBlack->setFocus();
    tap(Qt::Key_Return);
    key(QEvent::KeyPress, Qt::Key_Escape);
    for (int i = 0; i < 3; ++i) {
        key(QEvent::KeyRelease, Qt::Key_Escape, {}, true);
        key(QEvent::KeyPress, Qt::Key_Escape, {}, true);
    }
    QTest::qWait(150);
    ASSERT_TRUE(view);
    EXPECT_TRUE(view->KnCancelBlueEng->isVisible() && view->KnCancelBlueEng->isDown());
    key(QEvent::KeyRelease, Qt::Key_Escape);
    EXPECT_TRUE(closed());
}

// A saved "Random" comes back after Cancel as the very scheme and picture on screen at the save,
// although reading the file back draws others.
TEST_F(SettingsWindow, CancelBringsBackTheDrawsOfTheLastSave)
{
    choose(List::ColorScheme, 7);
    choose(List::BackPict, 9);
    const Settings &s = program->settings();
    const QString scheme = s.CurrentColorScheme, picture = s.CurrentPicture;
    QTest::mouseClick(view->KnOkBlack, Qt::LeftButton);
    ASSERT_TRUE(closed());
    open();
    choose(List::ColorScheme, 3);
    choose(List::BackPict, 4);
    tap(Qt::Key_Escape);
    ASSERT_TRUE(closed());
    EXPECT_EQ(s.ColorScheme, u"Random"_s);
    EXPECT_EQ(std::pair(s.CurrentColorScheme, s.CurrentPicture), std::pair(scheme, picture));
    EXPECT_GT(draws, 2) << "the file was not read back";
}

// The border shows on the Main window as the scroll bar moves, and Cancel takes it back.
TEST_F(SettingsWindow, BorderChangeThenCancelRepaintsTheMainWindow)
{
    const auto frameAt = [this](int x) {
        return main->grab().toImage().pixelColor(x, 150)
            == colorFromBgr(SchemePalettes::forScheme(u"Blue"_s).frame);
    };
    ASSERT_FALSE(frameAt(2));
    QScrollBar *bar = view->HScrollBordWidthGen;
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(bar->width() - 4, bar->height() / 2));
    EXPECT_EQ(bar->value(), 3);
    EXPECT_TRUE(frameAt(2));
    EXPECT_EQ(static_cast<WindowBody *>(view->FrameMove)->borderWidth(), 3);
    QTest::mouseClick(view->KnCancelBlackEng, Qt::LeftButton);
    ASSERT_TRUE(closed());
    EXPECT_FALSE(frameAt(2));
    EXPECT_EQ(bytes(), saved);
}

// The window speaks the language chosen in it. One Settings window at most; it holds the About
// window too, and Ctrl+A blinks the About window's close control.
TEST_F(SettingsWindow, OneWindowHoldsTheOthersUntilItCloses)
{
    // The timers as designed: interval, and whether it runs from the start.
    for (const auto &[name, interval, running] : { std::tuple { "TimerSetShadow", 2500, true },
                                                   { "TimerEnableForm", 1500, false },
                                                   { "TimerKeyUp", 1500, false },
                                                   { "TimerCheckAreaForm", 97, true },
                                                   { "TimerToolTip", 200, false } }) {
        const auto *timer = view->findChild<QTimer *>(QString::fromLatin1(name));
        ASSERT_NE(timer, nullptr) << name;
        EXPECT_EQ(std::pair(timer->interval(), timer->isActive()), std::pair(interval, running));
    }
    EXPECT_EQ(QAccessible::queryAccessibleInterface(view->KnClose)->text(QAccessible::Name),
              u"Close the window and save any changes you have made"_s);
    choose(List::Lang, 1);
    EXPECT_EQ(view->LabelLang->text(), u"Язык"_s);
    EXPECT_TRUE(view->KnCancelBlackRus->isVisible() && !view->KnCancelBlackEng->isVisible());
    view->close(); // the program's exit: nothing saved, nothing given back
    ASSERT_TRUE(closed());
    EXPECT_EQ(bytes(), saved);
    main->setEnabled(true);
    QWidget about;
    about.setObjectName(u"AboutForm"_s);
    auto *aboutClose = new QPushButton(&about);
    aboutClose->setObjectName(u"KnClose"_s);
    open();
    EXPECT_EQ(ViewForm::showNew(*program, *main), view.data());
    EXPECT_FALSE(about.isEnabled());
    tap(Qt::Key_A, Qt::ControlModifier);
    EXPECT_NE(aboutClose->findChild<QObject *>(u"Attention"_s), nullptr);
    QSignalSpy aboutWanted(view.data(), &ViewForm::aboutWindowRequested);
    tap(Qt::Key_F1);
    EXPECT_EQ(aboutWanted.size(), 1);
    tap(Qt::Key_Escape);
    ASSERT_TRUE(closed());
    EXPECT_TRUE(about.isEnabled());
}
