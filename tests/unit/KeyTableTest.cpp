#include "calendar/KeyTable.h"

#include "settings_window/ViewFormKeyTable.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace {

// A row is steps separated by blanks: a kind letter (v key down, ^ key up, h key up while the
// keyboard still holds the key, the first half of an X repeat pair; other letters per table),
// then the key with +c/+a/+s for Ctrl/Alt/Shift and =Command for what must fire (else nothing).
struct Step
{
    char kind = 0;
    int key = 0;
    Qt::KeyboardModifiers mods;
    std::string command;
};

std::vector<Step> steps(const char *row)
{
    // clang-format off
    static const std::map<std::string, int> keys { { "Esc", Qt::Key_Escape }, { "F1", Qt::Key_F1 },
        { "F4", Qt::Key_F4 }, { "F9", Qt::Key_F9 }, { "N", Qt::Key_N }, { "Q", Qt::Key_Q }, { "X", Qt::Key_X },
        { "I", Qt::Key_I }, { "A", Qt::Key_A }, { "M", Qt::Key_M }, { "Ret", Qt::Key_Return },
        { "Ent", Qt::Key_Enter }, { "Ctrl", Qt::Key_Control } };
    static const std::map<char, Qt::KeyboardModifier> modifierOf {
        { 'c', Qt::ControlModifier }, { 'a', Qt::AltModifier }, { 's', Qt::ShiftModifier } };
    // clang-format on
    std::vector<Step> out;
    std::istringstream in(row);
    for (std::string text; in >> text;) {
        const size_t eq = std::min(text.find('='), text.size());
        const size_t plus = std::min(text.find('+'), eq);
        Step &step = out.emplace_back();
        step.kind = text[0];
        for (size_t i = plus + 1; i < eq; ++i)
            step.mods |= modifierOf.at(text[i]);
        step.key = plus > 1 ? keys.at(text.substr(1, plus - 1)) : 0;
        step.command = eq < text.size() ? text.substr(eq + 1) : std::string();
    }
    return out;
}

// The command a step expects, as its place in `names`, a table's commands in the order of its
// enum; a step without one expects the first, None.
int commandOf(const Step &step, const char *names)
{
    const QStringList all = QString::fromLatin1(names).split(u' ');
    const int at =
        step.command.empty() ? 0 : int(all.indexOf(QString::fromStdString(step.command)));
    EXPECT_GE(at, 0) << step.command;
    return at;
}

struct SequenceRow
{
    char table; // M the Main window's, S the Settings window's
    const char *name;
    const char *steps;
};

using KeySequences = ::testing::TestWithParam<SequenceRow>;

// The Main window's steps also have m: key down with a mouse button held; L and l: a list drops
// down and closes; S: KeySuppress is set. T: the key-up times out.
TEST_P(KeySequences, FireTheirCommandsOnceOnTheRightEdge)
{
    const bool main = GetParam().table == 'M';
    const char *commands = main
        ? "None Discard FocusOk Close Quit Activate Author About Settings New EndList"
        : "None Press Ok Quit Blink Next Reset Clear Cancel About";
    KeyTable keys;
    ViewFormKeyTable settings;
    for (const Step &step : steps(GetParam().steps)) {
        int got = 0;
        switch (step.kind) {
        case 'v':
        case 'm':
            got = main ? int(keys.keyDown(step.key, step.mods, step.kind == 'm'))
                       : int(settings.keyDown(step.key, step.mods));
            break;
        case '^':
        case 'h':
            got = main ? int(keys.keyUp(step.key, step.mods, false, step.kind == 'h'))
                       : int(settings.keyUp(step.key, step.kind == 'h'));
            break;
        case 'L':
            keys.listDroppedDown();
            break;
        case 'l':
            keys.listClosedUp();
            break;
        case 'T':
            main ? keys.keyUpTimedOut() : settings.keyUpTimedOut();
            break;
        default:
            keys.KeySuppress = true;
        }
        EXPECT_EQ(got, commandOf(step, commands)) << step.kind << step.key;
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Table, KeySequences, ::testing::Values(
    SequenceRow { 'M', "escClosesOnRelease", "vEsc=FocusOk ^Esc=Close" },
    SequenceRow { 'M', "closeOnPressOnly", "vF4+a=Close ^F4+a vRet+c=Close ^Ret+c vF4 ^F4" },
    SequenceRow { 'M', "altQAndAltXQuit", "vQ+a=Quit vX+a=Quit vQ" },
    SequenceRow { 'M', "ctrlReleasedBeforeN", "vCtrl+c vN+c ^Ctrl ^N=New vN ^N" },
    SequenceRow { 'M', "functionKeysOnRelease", "vF1 ^F1=About vF9 ^F9=Settings" },
    SequenceRow { 'M', "enterClicksOncePerHold", "vRet=Activate vRet ^Ret vEnt=Activate" },
    SequenceRow { 'M', "theAuthorBoxKeepsItsKeys", "vI+cas=Author ^Esc vI+ca" },
    SequenceRow { 'M', "releaseWithoutPressOrAfterTimeOut", "^Esc vF9 T ^F9" },
    SequenceRow { 'M', "mouseButtonHeld", "mEsc=Discard ^Esc" },
    SequenceRow { 'M', "suppressedPressStillPairsWithItsRelease", "S vQ+a ^Q vQ+a=Quit" },
    SequenceRow { 'M', "heldKeysRepeatAsPairs", "vN+c hN+c vN+c hN+c vN+c ^N+c=New vEsc=FocusOk hEsc vEsc ^Esc=Close" },
    SequenceRow { 'M', "escClosingAListEndsOnlyTheList", "L vEsc l ^Esc=EndList vEsc=FocusOk ^Esc=Close" },
    SequenceRow { 'M', "f4OpensAndClosesTheList", "vF4 L ^F4 vEsc l ^Esc=EndList vF4 L ^F4 vF4 l ^F4=EndList vEsc=FocusOk" },
    SequenceRow { 'M', "aListClosedByAClickLeavesEscToClose", "L l vEsc=FocusOk ^Esc=Close" },
    SequenceRow { 'S', "HeldEscCancelsOnRelease", "vEsc=Press hEsc vEsc hEsc vEsc ^Esc=Cancel ^Esc" },
    SequenceRow { 'S', "CtrlOrAltWithEnterOrF4Save", "vRet+c=Ok ^Ret=Reset vF4+a=Ok ^F4=Reset vEnt+a=Ok" },
    SequenceRow { 'S', "CommandKeysDoNotRepeat", "vRet+a=Ok hRet vRet+a vF4+c ^Ret=Reset" },
    SequenceRow { 'S', "EnterAloneMovesOnEveryTime", "vRet=Next vRet=Next ^Ret vEnt=Next" },
    SequenceRow { 'S', "AltQAndAltXQuitCtrlQDoesNot", "vQ+a=Quit ^Q=Reset vX+a=Quit ^X=Reset vQ+c" },
    SequenceRow { 'S', "CtrlOrAltWithAOrMBlink", "vA+c=Blink ^A=Reset vM+a=Blink ^M vM+a=Blink" },
    SequenceRow { 'S', "F1OnItsRealRelease", "vF1 hF1 vF1 hF1 ^F1=About ^F1" },
    SequenceRow { 'S', "StrayReleasesDoNothing", "^F1 ^Esc ^Ret ^Ctrl" },
    SequenceRow { 'S', "F4WhileEscArmedClearsHover", "vEsc=Press vF4 ^F4=Clear ^Esc=Cancel" },
    SequenceRow { 'S', "TimeOutFreesTheHold", "vF9 T vRet+c=Ok" }),
    [](const auto &row) { return (row.param.table == 'M' ? "Main_" : "Settings_") + std::string(row.param.name); });
// clang-format on

} // namespace
