#include "MainFormFixture.h"
#include "tooltip/ToolTipForm.h"
#include "tooltip/ToolTips.h"
#include "windowing/Shadow.h"
#include "windowing/WindowBehaviour.h"

#include <QCursor>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class ToolTipTest : public MainFormTest
{
protected:
    ToolTips &tips() { return ToolTips::of(*program); }
    bool tipLoaded() const { return program->IsFormLoaded(u"TOOLTIPFORM"_s, false); }
    // Puts the pointer on the middle of a control (or `offset` from it), then runs one request.
    void restOn(const char *control, QPoint offset = {})
    {
        QWidget *w = child(QString::fromLatin1(control));
        QCursor::setPos(w->mapToGlobal(w->rect().center()) + offset);
        QCoreApplication::processEvents();
        form->findChild<TipRequests *>()->TimerToolTipTimer();
    }
};

struct LanguageRow
{
    const char *language;
    const char *sentence;
    const char *shadowMode;
};

class SettingsTip : public ToolTipTest, public ::testing::WithParamInterface<LanguageRow>
{ };

// The tip's text in the window's language with the hot key's mark-up, loaded and shown a second
// later above everything without taking the focus; its shadow only when shadows are on. The
// requests stop when the pointer leaves, and the tip goes with the window that asked for it.
TEST_P(SettingsTip, RestingOnSettingsShowsItsTextWithTheF9Key)
{
    const LanguageRow &row = GetParam();
    open(at(2026, 3, 12), QString::fromLatin1(row.language));
    program->ShadowMode = QString::fromLatin1(row.shadowMode);
    restOn("LabelSettings");
    // The pointer came over the window: the requests run.
    EXPECT_TRUE(form->TimerToolTip->isActive());
    EXPECT_EQ(tips().state().TipText,
              QString::fromUtf8(row.sentence)
                  + u"</f 9, , , , ,0>(<\\f></f 8,b, , , ,0>F9<\\f></f 9, , , , ,0>)<\\f>"_s);
    EXPECT_EQ(label("LabelSettings")->accessibleDescription(),
              QString::fromUtf8(row.sentence) + u"(F9)"_s);
    QPointer<ToolTipForm> tip = tips().toolTip();
    ASSERT_FALSE(tip.isNull());
    EXPECT_TRUE(tipLoaded() && !tip->isVisible());
    tip->TimerActuation->setInterval(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tip && tip->isVisible(); }));
    EXPECT_TRUE(
        tip->windowFlags().testFlags(Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus));
    EXPECT_NE(QApplication::activeWindow(), tip.data());
    EXPECT_TRUE(tip->TimerClose->isActive());
    const Shadow *shadow = ShadowForm(tip);
    ASSERT_EQ(shadow != nullptr, program->ShadowMode == u"Basic"_s);
    EXPECT_TRUE(!shadow || (shadow->isVisible() && shadow->size() == tip->size()));

    restOn("KnOk", QPoint(0, 200)); // away from the window: the requests stop
    EXPECT_FALSE(form->TimerToolTip->isActive());
    delete form.data();
    EXPECT_FALSE(tipLoaded());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Languages, SettingsTip, ::testing::Values(
    LanguageRow { "English", "Open the Settings window  ", "Basic" },
    LanguageRow { "Russian", "Открыть окно настроек программы  ", "No" }));
// clang-format on

struct HideRow
{
    const char *name;
    std::function<void(CalendarMonthExtForm &)> act;
};

class Hiding : public ToolTipTest, public ::testing::WithParamInterface<HideRow>
{ };

} // namespace

TEST_P(Hiding, TakesTheTooltipAway)
{
    open(at(2026, 3, 12));
    restOn("ButtNew");
    tips().state().TipClosed = false;
    ASSERT_TRUE(tips().toolTip() && tipLoaded());
    GetParam().act(*form);
    EXPECT_EQ(tips().toolTip(), nullptr);
    EXPECT_TRUE(tips().state().TipClosed);
    EXPECT_FALSE(tipLoaded());
}

// A key press, a move over the drag area, the minimise control.
// clang-format off
INSTANTIATE_TEST_SUITE_P(KeyDragMinimise, Hiding, ::testing::Values(
    HideRow { "KeyDown", [](CalendarMonthExtForm &f) { QTest::keyPress(&f, Qt::Key_Right); } },
    HideRow { "MoveOverTheDragArea", [](CalendarMonthExtForm &f) { QTest::mouseMove(f.FrameMove, { 5, 5 }); } },
    HideRow { "KnMin", [](CalendarMonthExtForm &f) { f.KnMin->click(); } }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on
