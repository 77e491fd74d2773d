#include "calendar/KeyTable.h"

#include "app/ContainsText.h"

#include <QString>

#include <gtest/gtest.h>

#include <vector>

namespace {

using Command = KeyTable::Command;

enum class Step { Down, Up, DownMouseHeld, UpMouseHeld, ListDrops, TimeOut, Suppress };

struct Event
{
    Step step;
    int key = 0;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    Command expected = Command::None;
};

struct SequenceRow
{
    const char *name;
    std::vector<Event> events;
};

constexpr auto Ctrl = Qt::ControlModifier;
constexpr auto Alt = Qt::AltModifier;

} // namespace

class KeySequences : public ::testing::TestWithParam<SequenceRow>
{ };

TEST_P(KeySequences, FireTheirCommandsOnTheRightEdge)
{
    KeyTable keys;
    int n = 0;
    for (const Event &e : GetParam().events) {
        Command got = Command::None;
        switch (e.step) {
        case Step::Down:
            got = keys.keyDown(e.key, e.modifiers, false);
            break;
        case Step::Up:
            got = keys.keyUp(e.key, e.modifiers, false);
            break;
        case Step::DownMouseHeld:
            got = keys.keyDown(e.key, e.modifiers, true);
            break;
        case Step::UpMouseHeld:
            got = keys.keyUp(e.key, e.modifiers, true);
            break;
        case Step::ListDrops:
            keys.listDroppedDown();
            break;
        case Step::TimeOut:
            keys.keyUpTimedOut();
            break;
        case Step::Suppress:
            keys.KeySuppress = true;
            break;
        }
        EXPECT_EQ(static_cast<int>(got), static_cast<int>(e.expected))
            << GetParam().name << ", event " << n;
        ++n;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, KeySequences,
    ::testing::Values(SequenceRow { "escClosesOnRelease",
                                    { { Step::Down, Qt::Key_Escape, {}, Command::FocusOk },
                                      { Step::Up, Qt::Key_Escape, {}, Command::Close } } },
                      SequenceRow { "altF4ClosesOnPressOnly",
                                    { { Step::Down, Qt::Key_F4, Alt, Command::Close },
                                      { Step::Up, Qt::Key_F4, Alt, Command::None } } },
                      SequenceRow { "ctrlEnterClosesOnPress",
                                    { { Step::Down, Qt::Key_Return, Ctrl, Command::Close },
                                      { Step::Up, Qt::Key_Return, Ctrl, Command::None } } },
                      SequenceRow { "plainF4DoesNothing",
                                    { { Step::Down, Qt::Key_F4, {}, Command::None },
                                      { Step::Up, Qt::Key_F4, {}, Command::None } } },
                      SequenceRow { "altQAndAltX",
                                    { { Step::Down, Qt::Key_Q, Alt, Command::Close },
                                      { Step::Down, Qt::Key_X, Alt, Command::Close },
                                      { Step::Down, Qt::Key_Q, {}, Command::None } } },
                      SequenceRow { "ctrlReleasedBeforeN",
                                    { { Step::Down, Qt::Key_Control, Ctrl, Command::None },
                                      { Step::Down, Qt::Key_N, Ctrl, Command::None },
                                      { Step::Up, Qt::Key_Control, {}, Command::None },
                                      { Step::Up, Qt::Key_N, {}, Command::NewInstance } } },
                      SequenceRow { "nWithoutCtrl",
                                    { { Step::Down, Qt::Key_N, {}, Command::None },
                                      { Step::Up, Qt::Key_N, {}, Command::None } } },
                      SequenceRow { "functionKeysOnRelease",
                                    { { Step::Down, Qt::Key_F1, {}, Command::None },
                                      { Step::Up, Qt::Key_F1, {}, Command::About },
                                      { Step::Down, Qt::Key_F9, {}, Command::None },
                                      { Step::Up, Qt::Key_F9, {}, Command::Settings } } },
                      SequenceRow { "authorLine",
                                    { { Step::Down, Qt::Key_I, Ctrl | Alt | Qt::ShiftModifier,
                                        Command::AuthorMessage },
                                      { Step::Down, Qt::Key_I, Ctrl | Alt, Command::None } } },
                      SequenceRow { "releaseWithoutPress",
                                    { { Step::Up, Qt::Key_Escape, {}, Command::None } } },
                      SequenceRow { "releaseAfterTimeOut",
                                    { { Step::Down, Qt::Key_F9, {}, Command::None },
                                      { Step::TimeOut },
                                      { Step::Up, Qt::Key_F9, {}, Command::None } } },
                      SequenceRow { "mouseButtonHeld",
                                    { { Step::DownMouseHeld, Qt::Key_Escape, {}, Command::Discard },
                                      { Step::UpMouseHeld, Qt::Key_Escape, {}, Command::None },
                                      { Step::Up, Qt::Key_Escape, {}, Command::None } } },
                      SequenceRow { "suppressedPressStillPairsWithItsRelease",
                                    { { Step::Suppress },
                                      { Step::Down, Qt::Key_Q, Alt, Command::None },
                                      { Step::Up, Qt::Key_F1, {}, Command::About },
                                      { Step::Down, Qt::Key_Q, Alt, Command::Close } } },
                      SequenceRow { "escWithAListDroppedDown",
                                    { { Step::ListDrops },
                                      { Step::Down, Qt::Key_Escape, {}, Command::None },
                                      { Step::Up, Qt::Key_Escape, {}, Command::EndListState },
                                      { Step::Down, Qt::Key_Escape, {}, Command::FocusOk },
                                      { Step::Up, Qt::Key_Escape, {}, Command::Close } } },
                      SequenceRow { "f4EndsTheListState",
                                    { { Step::ListDrops },
                                      { Step::Down, Qt::Key_F4, {}, Command::None },
                                      { Step::Up, Qt::Key_F4, {}, Command::EndListState },
                                      { Step::Down, Qt::Key_F4, {}, Command::None },
                                      { Step::Up, Qt::Key_F4, {}, Command::None } } }),
    [](const auto &row) { return std::string(row.param.name); });

struct ContainsRow
{
    const char *text;
    const char *part;
    bool expected;
};

class ContainsTextTable : public ::testing::TestWithParam<ContainsRow>
{ };

TEST_P(ContainsTextTable, IgnoresCase)
{
    const ContainsRow &row = GetParam();
    EXPECT_EQ(ContainsText(QString::fromUtf8(row.text), QString::fromUtf8(row.part)), row.expected)
        << row.text << " / " << row.part;
}

INSTANTIATE_TEST_SUITE_P(Rows, ContainsTextTable,
                         ::testing::Values(ContainsRow { "0:00:00", ":", true },
                                           ContainsRow { "3/5/2026", ":", false },
                                           ContainsRow { "Hello World", "WORLD", true },
                                           ContainsRow { "Январь", "ЯНВ", true },
                                           ContainsRow { "abc", "abcd", false },
                                           ContainsRow { "abc", "", true }));
