#include "app/Settings.h"
#include "settings_window/SettingsEditor.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ViewFormText::List;

// The lists map by index in their own order, not the reader's; English texts carry one leading
// blank and Russian ones none, but the first language reads the same in both.
TEST(ViewFormLists, MapEntriesToSettingsByIndex)
{
    for (const auto &[list, values] :
         { std::pair { List::ColorScheme,
                       u"Blue Green Black White Yellow Pink GrayScale Random"_s },
           { List::BackPict,
             u"None Sky Marble Fancy Waves Stars Dandelions Camomiles Landscape Random"_s } }) {
        const QStringList value = values.split(u' ');
        const QStringList english = ViewFormText::entries(list, u"English"_s);
        for (int i = 0; i < value.size(); ++i) {
            EXPECT_EQ(ViewFormText::valueAt(list, i), value[i]);
            EXPECT_EQ(ViewFormText::indexOf(list, value[i]), i);
            EXPECT_EQ(QString(english[i]).remove(u' ').toLower(), value[i].toLower());
        }
        EXPECT_EQ(ViewFormText::entries(list, u"Russian"_s).size(), value.size());
    }
    EXPECT_EQ(ViewFormText::entries(List::ColorScheme, u"English"_s)[6], u" Gray scale"_s);
    EXPECT_EQ(ViewFormText::entries(List::Lang, u"Russian"_s),
              QStringList({ u" English"_s, u"Русский"_s }));
    EXPECT_EQ(ViewFormText::entries(List::Topmost, u"English"_s),
              QStringList({ u"Yes"_s, u"No"_s }));
    // Anything but the first entry's word selects the second; an unknown scheme selects none.
    EXPECT_EQ(ViewFormText::indexOf(List::Lang, u"english"_s), 1);
    EXPECT_EQ(ViewFormText::indexOf(List::ColorScheme, u"black"_s), -1);
}

// The border is clamped to what the reader allows.
TEST(SettingsEditorBorder, IsClampedAndRepaintsBothBodies)
{
    Settings s;
    SettingsEditor editor(s, {}, {});
    EXPECT_EQ(editor.chooseBorderWidth(7),
              SettingsEditor::Effects(SettingsEditor::Effect::Borders));
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

using CancelRestores = ::testing::TestWithParam<RestoreRow>;

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

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rows, CancelRestores, ::testing::Values(
    RestoreRow { "RandomScheme", true, "Random", "White", "Pink", "White" },
    // Another copy saved a plain choice meanwhile: the file wins.
    RestoreRow { "ChangedFileWins", true, "Pink", "White", "Pink", "Pink" },
    RestoreRow { "NothingSavedYet", true, "Random", "", "Pink", "Pink" },
    RestoreRow { "RandomPicture", false, "Random", "Stars", "Waves", "Stars" },
    RestoreRow { "NoneIsNoDraw", false, "Random", "None", "Waves", "Waves" }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on
