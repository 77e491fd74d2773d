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

struct KeyRow
{
    const char *name;
    const char *steps;
};

} // namespace

// The lists map by index, in their own order, whatever order the reader tests the names in.
TEST(ViewFormLists, MapEntriesToSettingsByIndex)
{
    const QStringList schemes { u"Blue"_s,   u"Green"_s, u"Black"_s,     u"White"_s,
                                u"Yellow"_s, u"Pink"_s,  u"GrayScale"_s, u"Random"_s };
    const QStringList pictures { u"None"_s,      u"Sky"_s,   u"Marble"_s,     u"Fancy"_s,
                                 u"Waves"_s,     u"Stars"_s, u"Dandelions"_s, u"Camomiles"_s,
                                 u"Landscape"_s, u"Random"_s };
    for (const auto &[list, values] :
         { std::pair { List::ColorScheme, schemes }, { List::BackPict, pictures } }) {
        for (int i = 0; i < values.size(); ++i) {
            EXPECT_EQ(ViewFormText::valueAt(list, i), values[i]);
            EXPECT_EQ(ViewFormText::indexOf(list, values[i]), i);
        }
        EXPECT_EQ(ViewFormText::entries(list, u"English"_s).size(), values.size());
    }
    EXPECT_EQ(ViewFormText::entries(List::ColorScheme, u"English"_s)[6], u" Gray scale"_s);
    EXPECT_EQ(ViewFormText::entries(List::ColorScheme, u"Russian"_s)[1], u"Зеленая"_s);
    // English entries carry one leading blank, Russian ones none, except that the first language
    // reads the same in both; the yes/no lists have no blank.
    EXPECT_EQ(ViewFormText::entries(List::Lang, u"Russian"_s),
              QStringList({ u" English"_s, u"Русский"_s }));
    EXPECT_EQ(ViewFormText::entries(List::FirstDay, u"English"_s),
              QStringList({ u" Sunday"_s, u" Monday"_s }));
    EXPECT_EQ(ViewFormText::entries(List::Topmost, u"English"_s),
              QStringList({ u"Yes"_s, u"No"_s }));
    // Anything but the first entry's word selects the second; an unknown scheme selects none.
    EXPECT_EQ(ViewFormText::indexOf(List::Lang, u"english"_s), 1);
    EXPECT_EQ(ViewFormText::indexOf(List::AlignCenter, u""_s), 1);
    EXPECT_EQ(ViewFormText::indexOf(List::ColorScheme, u"black"_s), -1);
    EXPECT_EQ(ViewFormText::valueAt(List::BackPict, 10), u""_s);
}

namespace {

struct ChoiceRow
{
    const char *name;
    std::vector<std::pair<List, int>> picks; // in order; the last one's effects are checked
    SettingsEditor::Effects effects;
    const char *field; // "Language=English": the record after the picks
    bool changed;
    bool filling = false;
};

class Choices : public ::testing::TestWithParam<ChoiceRow>
{ };

QString field(const Settings &s, const QString &key)
{
    const std::map<QString, QString> fields {
        { u"Language"_s, s.Language },
        { u"FirstWeekDay"_s, s.FirstWeekDay },
        { u"ColorScheme"_s, s.ColorScheme + u"/"_s + s.CurrentColorScheme },
        { u"CalendarPicture"_s, s.CalendarPicture + u"/"_s + s.CurrentPicture },
        { u"CalendarAlignToCenter"_s, s.CalendarAlignToCenter },
        { u"CalendarTopmost"_s, s.CalendarTopmost },
    };
    return fields.at(key);
}

} // namespace

TEST_P(Choices, ChangeTheRecordAndAskForTheirRedraws)
{
    const ChoiceRow &row = GetParam();
    Settings s;
    s.Language = u"English"_s;
    s.FirstWeekDay = u"Sunday"_s;
    s.ColorScheme = s.CurrentColorScheme = u"Blue"_s;
    s.CalendarPicture = s.CurrentPicture = u"Sky"_s;
    s.CalendarAlignToCenter = s.CalendarTopmost = u"No"_s;
    // "Random" draws the first real scheme and the last real picture.
    SettingsEditor editor(
        s, [](const QString &c) { return c == u"Random"_s ? QString(u"Blue"_s) : c; },
        [](const QString &c) { return c == u"Random"_s ? QString(u"Landscape"_s) : c; });
    editor.IsFilling = row.filling;
    SettingsEditor::Effects effects;
    for (const auto &[list, index] : row.picks)
        effects = editor.choose(list, index);
    EXPECT_EQ(effects, row.effects);
    const QStringList expected = QString::fromUtf8(row.field).split(u'=');
    EXPECT_EQ(field(s, expected[0]), expected[1]);
    EXPECT_EQ(editor.IsChanged, row.changed);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, Choices,
    ::testing::Values(
        ChoiceRow { "SameLanguage", { { List::Lang, 0 } }, E::None, "Language=English", false },
        ChoiceRow { "OtherLanguage",
                    { { List::Lang, 1 } },
                    E::Recaption | E::PreviewMain,
                    "Language=Russian",
                    true },
        ChoiceRow {
            "SameFirstDay", { { List::FirstDay, 0 } }, E::None, "FirstWeekDay=Sunday", false },
        ChoiceRow { "SchemeFirstDropsThePicture",
                    { { List::ColorScheme, 2 } },
                    E::Recolour | E::PreviewMain | E::PictureToNone,
                    "CalendarPicture=None/None",
                    true },
        ChoiceRow { "PictureTouchedFirstStays",
                    { { List::BackPict, 1 }, { List::ColorScheme, 7 } },
                    E::Recolour | E::PreviewMain,
                    "CalendarPicture=Sky/Sky",
                    true },
        ChoiceRow { "RandomSchemeDraws",
                    { { List::ColorScheme, 7 } },
                    E::Recolour | E::PreviewMain | E::PictureToNone,
                    "ColorScheme=Random/Blue",
                    true },
        ChoiceRow { "RandomPicture",
                    { { List::BackPict, 9 } },
                    E::PreviewMain,
                    "CalendarPicture=Random/Landscape",
                    true },
        ChoiceRow { "CentreYes",
                    { { List::AlignCenter, 0 } },
                    E::CentreMain,
                    "CalendarAlignToCenter=Yes",
                    true },
        ChoiceRow {
            "CentreNo", { { List::AlignCenter, 1 } }, E::None, "CalendarAlignToCenter=No", true },
        ChoiceRow {
            "TopmostWaitsForOk", { { List::Topmost, 0 } }, E::None, "CalendarTopmost=Yes", true },
        ChoiceRow { "NothingWhileFilling",
                    { { List::Lang, 1 }, { List::ColorScheme, 2 } },
                    E::None,
                    "ColorScheme=Blue/Blue",
                    false,
                    true }),
    ByName());

TEST(SettingsEditorBorder, ClampsAndAsksForBothBodies)
{
    Settings s;
    SettingsEditor editor(s, {}, {});
    EXPECT_EQ(editor.chooseBorderWidth(7), SettingsEditor::Effects(E::Borders));
    EXPECT_EQ(s.CalendarBorderWidth, 3);
    EXPECT_TRUE(editor.IsChanged);
}

namespace {

struct RestoreRow
{
    const char *name;
    bool scheme; // else the picture
    const char *choice; // as read back from the file
    const char *saved; // the copy kept at the last Ok (or start-up)
    const char *drawn; // what the reader resolved the choice to
    const char *shown; // in force after Cancel
};

class CancelRestores : public ::testing::TestWithParam<RestoreRow>
{ };

} // namespace

TEST_P(CancelRestores, TheSavedDrawOnlyWhereItStandsForTheChoice)
{
    const RestoreRow &row = GetParam();
    const bool scheme = row.scheme;
    {
        Settings s;
        (scheme ? s.ColorScheme : s.CalendarPicture) = QString::fromUtf8(row.choice);
        (scheme ? s.PreviousColorScheme : s.PreviousPicture) = QString::fromUtf8(row.saved);
        (scheme ? s.CurrentColorScheme : s.CurrentPicture) = QString::fromUtf8(row.drawn);
        SettingsEditor(s, {}, {}).restoreResolved();
        EXPECT_EQ(scheme ? s.CurrentColorScheme : s.CurrentPicture, QString::fromUtf8(row.shown));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CancelRestores,
    ::testing::Values(
        RestoreRow { "RandomSchemeKeepsItsSavedDraw", true, "Random", "White", "Pink", "White" },
        // Another copy saved a plain choice meanwhile: the file wins.
        RestoreRow { "ChangedFileWins", true, "Pink", "White", "Pink", "Pink" },
        RestoreRow { "NothingSavedYet", true, "Random", "", "Pink", "Pink" },
        RestoreRow { "RandomPictureKeepsItsSavedDraw", false, "Random", "Stars", "Waves", "Stars" },
        RestoreRow { "NoneIsNoDrawOfRandom", false, "Random", "None", "Waves", "Waves" }),
    ByName());

TEST(SettingsEditorOk, KeepsTheDrawsInForceAsSaved)
{
    Settings s;
    s.CurrentColorScheme = u"Yellow"_s;
    s.CurrentPicture = u"Stars"_s;
    SettingsEditor(s, {}, {}).keepResolved();
    EXPECT_EQ(s.PreviousColorScheme, u"Yellow"_s);
    EXPECT_EQ(s.PreviousPicture, u"Stars"_s);
}

namespace {

// Steps separated by blanks: v key down, ^ key up, h the release half of an X repeat pair, T the
// key-up timed out; the key with +c/+a for Ctrl/Alt, and =Command for what must fire.
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
        const C expected = eq == std::string::npos ? C::None : commands.at(step.substr(eq + 1));
        const std::string head = step.substr(0, eq);
        const auto plus = head.find('+');
        const std::string key = head.substr(1, plus == std::string::npos ? plus : plus - 1);
        Qt::KeyboardModifiers mods;
        if (plus != std::string::npos)
            mods = head[plus + 1] == 'c' ? Qt::ControlModifier : Qt::AltModifier;
        C got = C::None;
        if (step[0] == 'T')
            table.keyUpTimedOut();
        else if (step[0] == 'v')
            got = table.keyDown(keys.at(key), mods);
        else
            got = table.keyUp(keys.at(key), step[0] == 'h');
        EXPECT_EQ(int(got), int(expected)) << step;
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

namespace {

struct PlaceRow
{
    const char *name;
    QRect owner;
    QPoint expected;
};

class Beside : public ::testing::TestWithParam<PlaceRow>
{ };

} // namespace

TEST_P(Beside, OpensBesideTheMainWindowOnScreen)
{
    const QRect screen(0, 0, 1280, 800);
    EXPECT_EQ(ViewFormLayout::besideTopLeft(GetParam().owner, QSize(320, 306), screen),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Beside,
    ::testing::Values(PlaceRow { "Right", { 100, 100, 400, 273 }, { 512, 100 } },
                      PlaceRow { "LeftAtTheRightEdge", { 860, 100, 400, 273 }, { 528, 100 } },
                      PlaceRow { "CentredWhenNeitherFits", { 10, 100, 1260, 273 }, { 480, 247 } },
                      PlaceRow { "KeptAboveTheBottom", { 100, 700, 400, 273 }, { 512, 494 } }),
    ByName());
