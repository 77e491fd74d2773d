#include "app/Settings.h"
#include "settings_window/SettingsEditor.h"
#include "settings_window/ViewFormKeyTable.h"
#include "settings_window/ViewFormLayout.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

using namespace Qt::StringLiterals;
using ViewFormText::List;
using E = SettingsEditor::Effect;

namespace {

struct ByName
{
    template<class Row>
    std::string operator()(const ::testing::TestParamInfo<Row> &row) const
    {
        return row.param.name;
    }
};

} // namespace

// The lists map by index in their own order, not the reader's; English texts carry one leading
// blank and Russian ones none, but the first language reads the same in both.
TEST(ViewFormLists, MapEntriesToSettingsByIndex)
{
    const auto words = [](const char16_t *text) { return QString::fromUtf16(text).split(u' '); };
    for (const auto &[list, values] :
         { std::pair { List::ColorScheme,
                       words(u"Blue Green Black White Yellow Pink GrayScale Random") },
           { List::BackPict,
             words(
                 u"None Sky Marble Fancy Waves Stars Dandelions Camomiles Landscape Random") } }) {
        for (int i = 0; i < values.size(); ++i) {
            EXPECT_EQ(ViewFormText::valueAt(list, i), values[i]);
            EXPECT_EQ(ViewFormText::indexOf(list, values[i]), i);
        }
        EXPECT_EQ(ViewFormText::entries(list, u"Russian"_s).size(), values.size());
    }
    EXPECT_EQ(ViewFormText::entries(List::ColorScheme, u"English"_s)[6], u" Gray scale"_s);
    EXPECT_EQ(ViewFormText::entries(List::Lang, u"Russian"_s),
              QStringList({ u" English"_s, u"Русский"_s }));
    EXPECT_EQ(ViewFormText::entries(List::Topmost, u"English"_s), words(u"Yes No"));
    // Anything but the first entry's word selects the second; an unknown scheme selects none.
    EXPECT_EQ(ViewFormText::indexOf(List::Lang, u"english"_s), 1);
    EXPECT_EQ(ViewFormText::indexOf(List::ColorScheme, u"black"_s), -1);
}

// The border is clamped to what the reader allows.
TEST(SettingsEditorBorder, IsClampedAndRepaintsBothBodies)
{
    Settings s;
    SettingsEditor editor(s, {}, {});
    EXPECT_EQ(editor.chooseBorderWidth(7), SettingsEditor::Effects(E::Borders));
    EXPECT_EQ(s.CalendarBorderWidth, 3);
}

namespace {

struct RestoreRow
{
    const char *name;
    bool scheme; // else the picture
    const char *choice; // as read back from the file
    const char *saved; // the copy kept at the last Ok (or at start-up)
    const char *drawn; // what the reader resolved the choice to
    const char *shown; // in force after Cancel
};

class CancelRestores : public ::testing::TestWithParam<RestoreRow>
{ };

} // namespace

TEST_P(CancelRestores, TheSavedDrawOnlyWhereItStandsForTheChoice)
{
    const RestoreRow &row = GetParam();
    Settings s;
    (row.scheme ? s.ColorScheme : s.CalendarPicture) = QString::fromUtf8(row.choice);
    (row.scheme ? s.PreviousColorScheme : s.PreviousPicture) = QString::fromUtf8(row.saved);
    QString &inForce = row.scheme ? s.CurrentColorScheme : s.CurrentPicture;
    inForce = QString::fromUtf8(row.drawn);
    SettingsEditor(s, {}, {}).restoreResolved();
    EXPECT_EQ(inForce, QString::fromUtf8(row.shown));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CancelRestores,
    ::testing::Values(RestoreRow { "RandomScheme", true, "Random", "White", "Pink", "White" },
                      // Another copy saved a plain choice meanwhile: the file wins.
                      RestoreRow { "ChangedFileWins", true, "Pink", "White", "Pink", "Pink" },
                      RestoreRow { "NothingSavedYet", true, "Random", "", "Pink", "Pink" },
                      RestoreRow { "RandomPicture", false, "Random", "Stars", "Waves", "Stars" },
                      RestoreRow { "NoneIsNoDraw", false, "Random", "None", "Waves", "Waves" }),
    ByName());

namespace {

struct KeyRow
{
    const char *name;
    // Steps separated by blanks: v key down, ^ key up, h the release half of an X repeat pair,
    // T the key-up timed out; the key with +c/+a for Ctrl/Alt, and =Command for what must fire.
    const char *steps;
};

class ViewFormKeySequences : public ::testing::TestWithParam<KeyRow>
{ };

} // namespace

TEST_P(ViewFormKeySequences, FireOncePerHold)
{
    using C = ViewFormKeyTable::Command;
    static const std::map<std::string, int> keys {
        { "Esc", Qt::Key_Escape },   { "F1", Qt::Key_F1 }, { "F4", Qt::Key_F4 },
        { "F9", Qt::Key_F9 },        { "Q", Qt::Key_Q },   { "X", Qt::Key_X },
        { "A", Qt::Key_A },          { "M", Qt::Key_M },   { "Ret", Qt::Key_Return },
        { "Ctrl", Qt::Key_Control },
    };
    static const std::map<std::string, C> commands {
        { "Press", C::PressCancel }, { "Ok", C::Ok },
        { "Quit", C::Quit },         { "Blink", C::Attention },
        { "Next", C::NextControl },  { "Reset", C::ResetPictures },
        { "Clear", C::ClearHover },  { "Cancel", C::Cancel },
        { "About", C::About },
    };
    ViewFormKeyTable table;
    std::istringstream steps(GetParam().steps);
    for (std::string step; steps >> step;) {
        const auto eq = step.find('=');
        const std::string head = step.substr(0, eq);
        const auto plus = head.find('+');
        const std::string key = head.substr(1, plus == std::string::npos ? plus : plus - 1);
        const Qt::KeyboardModifiers mods = plus == std::string::npos ? Qt::NoModifier
            : head[plus + 1] == 'c'                                  ? Qt::ControlModifier
                                                                     : Qt::AltModifier;
        C got = C::None;
        if (step[0] == 'T')
            table.keyUpTimedOut();
        else
            got = step[0] == 'v' ? table.keyDown(keys.at(key), mods)
                                 : table.keyUp(keys.at(key), step[0] == 'h');
        EXPECT_EQ(int(got),
                  int(eq == std::string::npos ? C::None : commands.at(step.substr(eq + 1))))
            << step;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ViewFormKeySequences,
    ::testing::Values(
        KeyRow { "HeldEscCancelsOnRelease", "vEsc=Press hEsc vEsc hEsc vEsc ^Esc=Cancel ^Esc" },
        KeyRow { "CtrlOrAltWithEnterOrF4Save", "vRet+c=Ok ^Ret=Reset vF4+a=Ok ^F4=Reset" },
        KeyRow { "CommandKeysDoNotRepeat", "vRet+a=Ok hRet vRet+a vF4+c ^Ret=Reset" },
        KeyRow { "EnterAloneMovesOnEveryTime", "vRet=Next vRet=Next ^Ret vRet=Next" },
        KeyRow { "AltQAndAltXQuitCtrlQDoesNot", "vQ+a=Quit ^Q=Reset vX+a=Quit ^X=Reset vQ+c" },
        KeyRow { "CtrlOrAltWithAOrMBlink", "vA+c=Blink ^A=Reset vM+a=Blink ^M vM+a=Blink" },
        KeyRow { "F1OnItsRealRelease", "vF1 hF1 vF1 hF1 ^F1=About ^F1" },
        KeyRow { "StrayReleasesDoNothing", "^F1 ^Esc ^Ret ^Ctrl" },
        KeyRow { "F4WhileEscArmedClearsHover", "vEsc=Press vF4 ^F4=Clear ^Esc=Cancel" },
        KeyRow { "TimeOutFreesTheHold", "vF9 T vRet+c=Ok" }),
    ByName());

// Beside the Main window: on its right, else on its left, else centred; kept on the screen.
TEST(ViewFormPlacement, OpensBesideTheMainWindowOnScreen)
{
    const QRect screen(0, 0, 1280, 800);
    const QSize size(320, 306);
    EXPECT_EQ(ViewFormLayout::besideTopLeft({ 100, 100, 400, 273 }, size, screen),
              QPoint(512, 100));
    EXPECT_EQ(ViewFormLayout::besideTopLeft({ 860, 100, 400, 273 }, size, screen),
              QPoint(528, 100));
    EXPECT_EQ(ViewFormLayout::besideTopLeft({ 10, 100, 1260, 273 }, size, screen),
              QPoint(480, 247));
    EXPECT_EQ(ViewFormLayout::besideTopLeft({ 100, 700, 400, 273 }, size, screen),
              QPoint(512, 494));
}
