#include "calendar/KeyTable.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace {

using C = KeyTable::Command;

struct SequenceRow
{
    const char *name;
    // Steps separated by blanks: v key down, ^ key up, h key up while the keyboard still holds
    // the key (the first half of an X repeat pair), m key down with a mouse button held, then
    // the key with +c/+a/+s for Ctrl/Alt/Shift and =Command for what must fire (else nothing).
    // L and l: a list drops down and closes; T: the key-up times out; S: KeySuppress is set.
    const char *steps;
};

class KeySequences : public ::testing::TestWithParam<SequenceRow>
{ };

TEST_P(KeySequences, FireTheirCommandsOnceOnTheRightEdge)
{
    static const std::map<std::string, int> keyCodes {
        { "Esc", Qt::Key_Escape }, { "F1", Qt::Key_F1 },        { "F4", Qt::Key_F4 },
        { "F9", Qt::Key_F9 },      { "N", Qt::Key_N },          { "Q", Qt::Key_Q },
        { "X", Qt::Key_X },        { "I", Qt::Key_I },          { "Ret", Qt::Key_Return },
        { "Ent", Qt::Key_Enter },  { "Ctrl", Qt::Key_Control },
    };
    static const std::map<std::string, C> commands {
        { "FocusOk", C::FocusOk },   { "Close", C::Close },          { "Quit", C::Quit },
        { "Activate", C::Activate }, { "Author", C::AuthorMessage }, { "About", C::About },
        { "Settings", C::Settings }, { "New", C::NewInstance },      { "EndList", C::EndListState },
        { "Discard", C::Discard },
    };
    static const std::map<char, Qt::KeyboardModifier> modifierOf { { 'c', Qt::ControlModifier },
                                                                   { 'a', Qt::AltModifier },
                                                                   { 's', Qt::ShiftModifier } };
    KeyTable keys;
    std::istringstream steps(GetParam().steps);
    for (std::string step; steps >> step;) {
        const size_t eq = std::min(step.find('='), step.size());
        const size_t plus = std::min(step.find('+'), eq);
        Qt::KeyboardModifiers mods;
        for (size_t i = plus + 1; i < eq; ++i)
            mods |= modifierOf.at(step[i]);
        const int key = plus > 1 ? keyCodes.at(step.substr(1, plus - 1)) : 0;
        C got = C::None;
        switch (step[0]) {
        case 'v':
        case 'm':
            got = keys.keyDown(key, mods, step[0] == 'm');
            break;
        case '^':
        case 'h':
            got = keys.keyUp(key, mods, false, step[0] == 'h');
            break;
        case 'L':
            keys.listDroppedDown();
            break;
        case 'l':
            keys.listClosedUp();
            break;
        case 'T':
            keys.keyUpTimedOut();
            break;
        default:
            keys.KeySuppress = true;
        }
        EXPECT_EQ(int(got), int(eq < step.size() ? commands.at(step.substr(eq + 1)) : C::None))
            << step;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, KeySequences,
    ::testing::Values(
        SequenceRow { "escClosesOnRelease", "vEsc=FocusOk ^Esc=Close" },
        SequenceRow { "closeOnPressOnly", "vF4+a=Close ^F4+a vRet+c=Close ^Ret+c vF4 ^F4" },
        SequenceRow { "altQAndAltXQuit", "vQ+a=Quit vX+a=Quit vQ" },
        SequenceRow { "ctrlReleasedBeforeN", "vCtrl+c vN+c ^Ctrl ^N=New vN ^N" },
        SequenceRow { "functionKeysOnRelease", "vF1 ^F1=About vF9 ^F9=Settings" },
        SequenceRow { "enterClicksOncePerHold", "vRet=Activate vRet ^Ret vEnt=Activate" },
        SequenceRow { "theAuthorBoxKeepsItsKeys", "vI+cas=Author ^Esc vI+ca" },
        SequenceRow { "releaseWithoutPressOrAfterTimeOut", "^Esc vF9 T ^F9" },
        SequenceRow { "mouseButtonHeld", "mEsc=Discard ^Esc" },
        SequenceRow { "suppressedPressStillPairsWithItsRelease", "S vQ+a ^Q vQ+a=Quit" },
        SequenceRow { "heldKeysRepeatAsPairs",
                      "vN+c hN+c vN+c hN+c vN+c ^N+c=New vEsc=FocusOk hEsc vEsc ^Esc=Close" },
        SequenceRow { "escClosingAListEndsOnlyTheList",
                      "L vEsc l ^Esc=EndList vEsc=FocusOk ^Esc=Close" },
        SequenceRow { "f4OpensAndClosesTheList",
                      "vF4 L ^F4 vEsc l ^Esc=EndList vF4 L ^F4 vF4 l ^F4=EndList vEsc=FocusOk" },
        SequenceRow { "aListClosedByAClickLeavesEscToClose", "L l vEsc=FocusOk ^Esc=Close" }),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
