#include "settings_window/ViewForm.h"

#include "MainFormFixture.h"
#include "app/FileOps.h"
#include "app/SchemeColors.h"
#include "app/SettingsFile.h"
#include "appearance/BgrColor.h"
#include "appearance/PictureButton.h"
#include "appearance/WindowBody.h"
#include "support/Files.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWindow>

#include <cerrno>

using namespace Qt::StringLiterals;
using ViewFormText::List;

namespace {

// The Main window of a run with its settings file in a private folder, and its Settings window.
class SettingsWindow : public MainFormTest
{
protected:
    void SetUp() override
    {
        MainFormTest::SetUp();
        SettingsContext context;
        context.settingsPath = dir.filePath(u"qlvcal.ini"_s);
        ASSERT_TRUE(writeBytes(context.settingsPath,
                               "Language=English\r\nFirstWeekDay=Sunday\r\nColorScheme=Blue\r\n"
                               "CalendarPicture=Sky\r\nCalendarBorderWidth=2\r\n"));
        clock.setNow(at(2026, 3, 12));
        context.clock = &clock;
        program = std::make_unique<ProgramState>(&clock);
        file = std::make_unique<SettingsFile>(program->settings(), context);
        program->setSettingsFile(file.get());
        file->SetDefaultSettings();
        ASSERT_TRUE(file->ReadSettings());
        ApplySchemeColors(program->settings());
        form = new CalendarMonthExtForm(*program);
        form->move(10, 10);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form));
        saved = bytes();
        openSettings();
    }
    void TearDown() override
    {
        delete view.data();
        MainFormTest::TearDown();
    }

    void openSettings()
    {
        view = ViewForm::showNew(*program, *form);
        QApplication::setActiveWindow(view);
        ASSERT_TRUE(QTest::qWaitForWindowActive(view));
    }
    QByteArray bytes() const { return readBytes(file->context().settingsPath); }
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
    bool viewClosed()
    {
        return QTest::qWaitFor([this] { return !view; }, 2000);
    }

    QTemporaryDir dir;
    std::unique_ptr<SettingsFile> file;
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

TEST_P(Choices, ShowOnTheMainWindowAtOnce)
{
    const ChoiceRow &row = GetParam();
    QSignalSpy rebuilds(form.data(), &CalendarMonthExtForm::gridRebuilt);
    for (const auto &[list, index] : row.picks)
        choose(list, index);
    EXPECT_EQ(form->LabelSettings->text(), row.russian ? u"  Настройки  "_s : u"  Settings  "_s);
    EXPECT_EQ(program->settings().CalendarPicture, QString::fromUtf8(row.picture));
    EXPECT_EQ(view->ListBackPictMain->currentIndex(),
              ViewFormText::indexOf(List::BackPict, QString::fromUtf8(row.picture)));
    EXPECT_EQ(!rebuilds.isEmpty(), row.rebuilt);
    EXPECT_EQ(form->geometry().center() == form->screen()->geometry().center(), row.centred);
    EXPECT_EQ(form->pos() == QPoint(10, 10), !row.centred);
    EXPECT_FALSE(form->isEnabled());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lists, Choices, ::testing::Values(
    ChoiceRow { "SameLanguage", { { List::Lang, 0 } }, "Sky", false, false, false },
    ChoiceRow { "OtherLanguage", { { List::Lang, 1 } }, "Sky", true, true, false },
    ChoiceRow { "SchemeFirst", { { List::ColorScheme, 1 } }, "None", true, false, false },
    ChoiceRow { "PictureFirst", { { List::BackPict, 1 }, { List::ColorScheme, 2 } }, "Sky", true, false, false },
    ChoiceRow { "CentreYes", { { List::AlignCenter, 0 } }, "Sky", false, false, true }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

struct EndRow
{
    const char *name;
    const char *clicked; // a control to click, "WindowManager" for its close, or none: the key
    Qt::Key key;
    Qt::KeyboardModifiers mods;
    bool kept; // the choice stays
    bool failingSave = false; // replacing the file fails, as on a full disk
};

class Endings : public SettingsWindow, public ::testing::WithParamInterface<EndRow>
{ };

struct NoRename : FileOps
{
    int rename(const QByteArray &, const QByteArray &) override { return errno = ENOSPC, -1; }
};

} // namespace

// Every way to Ok writes the whole record; only the Cancel pictures and Esc read the file back
// and repaint the Main window (a border change shows on it as the scroll bar moves). A failed
// save leaves the old file whole, and the window closes all the same. Esc cancels on its
// release, not on the release halves of X's repeats.
TEST_P(Endings, SaveOrDiscardAndGiveTheMainWindowBack)
{
    const EndRow &row = GetParam();
    NoRename failing;
    if (row.failingSave)
        file->context().fileOps = &failing;
    const auto framed = [this] { // the frame colour two pixels deep: a border of 3
        return form->grab().toImage().pixelColor(2, 150)
            == colorFromBgr(SchemePalettes::forScheme(u"Blue"_s).frame);
    };
    ASSERT_FALSE(framed());
    choose(List::FirstDay, 1);
    QScrollBar *bar = view->HScrollBordWidthGen;
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(bar->width() - 4, bar->height() / 2));
    EXPECT_EQ(form->LabelWeekDay[1]->text(), u"Mon"_s);
    EXPECT_TRUE(framed());
    EXPECT_EQ(static_cast<WindowBody *>(view->FrameMove)->borderWidth(), 3);
    if (QByteArray(row.clicked) == "WindowManager") {
        QCloseEvent close; // as the window manager's close arrives
        QApplication::sendEvent(view->windowHandle(), &close);
    } else if (row.clicked) {
        QTest::mouseClick(view->findChild<QWidget *>(QString::fromLatin1(row.clicked)),
                          Qt::LeftButton);
    } else {
        sendKey(QEvent::KeyPress, row.key, row.mods);
        for (int i = 0; i < 3 && row.key == Qt::Key_Escape; ++i) {
            sendKey(QEvent::KeyRelease, row.key, {}, true);
            sendKey(QEvent::KeyPress, row.key, {}, true);
            QTest::qWait(50);
            ASSERT_TRUE(view && view->KnCancelBlueEng->isDown()) << "closed by a repeat";
        }
        sendKey(QEvent::KeyRelease, row.key, row.mods);
    }
    ASSERT_TRUE(viewClosed());
    EXPECT_EQ(bytes(), row.kept && !row.failingSave ? file->fileContents() : saved);
    EXPECT_EQ(form->LabelWeekDay[1]->text(), row.kept ? u"Mon"_s : u"Sun"_s);
    EXPECT_EQ(framed(), row.kept);
    EXPECT_TRUE(form->isEnabled());
    EXPECT_FALSE(program->IsFormLoaded(u"ViewForm"_s, false));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Ways, Endings, ::testing::Values(
    EndRow { "KnClose", "KnClose", {}, {}, true },
    EndRow { "OkPicture", "KnOkBlack", {}, {}, true },
    EndRow { "CtrlEnter", nullptr, Qt::Key_Return, Qt::ControlModifier, true },
    EndRow { "FailedSave", "KnClose", {}, {}, true, true },
    EndRow { "WindowManagerClose", "WindowManager", {}, {}, true },
    EndRow { "CancelPicture", "KnCancelBlackEng", {}, {}, false },
    EndRow { "HeldEsc", nullptr, Qt::Key_Escape, {}, false }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on

// One Settings window at most, in the language chosen in it.
// Enter alone moves the focus on and never closes it. While open it holds the About window;
// Ctrl+A blinks the About window's close control and F1 asks for the About window.
TEST_F(SettingsWindow, OneWindowThatHoldsTheAboutWindow)
{
    view->ListLang->setFocus();
    tap(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), view->ListFirstDay);
    view->KnOkBlack->setFocus();
    tap(Qt::Key_Return);
    QTest::qWait(150);
    ASSERT_TRUE(view) << "Enter closed the window";
    choose(List::Lang, 1);
    EXPECT_EQ(view->LabelLang->text(), u"Язык"_s);
    EXPECT_TRUE(view->KnCancelBlackRus->isVisible() && !view->KnCancelBlackEng->isVisible());
    tap(Qt::Key_Escape);
    ASSERT_TRUE(viewClosed());
    QWidget about;
    about.setObjectName(u"AboutForm"_s);
    auto *aboutClose = new QPushButton(&about);
    aboutClose->setObjectName(u"KnClose"_s);
    openSettings();
    EXPECT_EQ(ViewForm::showNew(*program, *form), view.data());
    EXPECT_FALSE(about.isEnabled());
    tap(Qt::Key_A, Qt::ControlModifier);
    EXPECT_NE(aboutClose->findChild<QObject *>(u"Attention"_s), nullptr);
    QSignalSpy aboutWanted(view.data(), &ViewForm::aboutWindowRequested);
    tap(Qt::Key_F1);
    EXPECT_EQ(aboutWanted.size(), 1);
    tap(Qt::Key_Escape);
    ASSERT_TRUE(viewClosed());
    EXPECT_TRUE(about.isEnabled());
}
