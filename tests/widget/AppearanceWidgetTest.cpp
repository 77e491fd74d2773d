#include "MainFormFixture.h"
#include "appearance/CyrillicFont.h"
#include "appearance/SchemePalette.h"
#include "calendar/MainFormLayout.h"

#include <QFontDatabase>

namespace {

struct LookRow
{
    const char *scheme;
    int border;
};

class SchemeOnScreen : public MainFormTest, public ::testing::WithParamInterface<LookRow>
{ };

// The palette keeps 0xBBGGRR: red is the low byte. Worked out here, not by the program's own
// conversion, so that a swapped order shows.
QColor seen(std::uint32_t bgr)
{
    return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF));
}

std::string rowName(const ::testing::TestParamInfo<LookRow> &row)
{
    return std::string(row.param.scheme) + "_border" + std::to_string(row.param.border);
}

} // namespace

// What the window paints, read back from a grab: the frame colour as many pixels deep as the
// border is set (in the 0xBBGGRR order of the palette), the ground right inside it, and today's
// ring beside a selected day, each cell in its scheme's colour.
TEST_P(SchemeOnScreen, PaintsBorderGroundAndTodayBesideTheSelectedDay)
{
    const auto [scheme, border] = GetParam();
    open(at(2024, 5, 15));
    Settings &s = program->settings();
    s.CurrentColorScheme = QString::fromLatin1(scheme);
    s.CurrentPicture = QStringLiteral("None");
    s.CalendarBorderWidth = border;
    form->SettingLabelesAndButtons();
    form->UpdateCalendarDate();
    click(cellOf(QDate(2024, 5, 20)));
    QTest::mouseMove(form, QPoint(2, MainFormLayout::Height - 2));
    const QImage shot = form->grab().toImage();
    const SchemePalette &palette = SchemePalettes::forScheme(s.CurrentColorScheme);

    const int y = MainFormLayout::Height / 2;
    const int right = MainFormLayout::Width - 1;
    for (int x = 0; x < border; ++x) {
        EXPECT_EQ(shot.pixelColor(x, y), seen(palette.frame)) << x;
        EXPECT_EQ(shot.pixelColor(right - x, y), seen(palette.frame)) << x;
    }
    EXPECT_EQ(shot.pixelColor(border, y), seen(palette.ground));
    EXPECT_EQ(shot.pixelColor(right - border, y), seen(palette.ground));

    const QRect today = MainFormLayout::dayCell(form->grid().cellOf(QDate(2024, 5, 15)));
    const QRect selected = MainFormLayout::dayCell(form->grid().cellOf(QDate(2024, 5, 20)));
    EXPECT_EQ(shot.pixelColor(today.left() + 1, today.center().y()), seen(palette.todayMark));
    EXPECT_EQ(shot.pixelColor(today.left() + 5, today.center().y()), seen(palette.cellToday));
    EXPECT_EQ(shot.pixelColor(selected.left() + 5, selected.center().y()),
              seen(palette.cellSelectedFuture));
}

INSTANTIATE_TEST_SUITE_P(EveryScheme, SchemeOnScreen,
                         ::testing::Values(LookRow { "Blue", 0 }, LookRow { "Black", 1 },
                                           LookRow { "White", 2 }, LookRow { "Yellow", 3 },
                                           LookRow { "Green", 2 }, LookRow { "Pink", 1 },
                                           LookRow { "GrayScale", 3 }),
                         rowName);

// A face without Cyrillic letters gives way to one that has them; one that has them stays.
TEST(CyrillicFontProbe, ReplacesOnlyAFaceWithoutCyrillic)
{
    const QFont latin(QStringLiteral("Liberation Sans"), 9);
    EXPECT_EQ(CyrillicFont::probe(latin).family(), latin.family());
    QStringList withoutCyrillic = QFontDatabase::families();
    for (const QString &family : QFontDatabase::families(QFontDatabase::Cyrillic))
        withoutCyrillic.removeAll(family);
    if (withoutCyrillic.isEmpty())
        GTEST_SKIP() << "every installed face has Cyrillic letters";
    const QFont asked(withoutCyrillic.first(), 9);
    ASSERT_FALSE(CyrillicFont::drawsCyrillic(asked)) << asked.family().toStdString();
    const QFont probed = CyrillicFont::probe(asked);
    EXPECT_TRUE(CyrillicFont::drawsCyrillic(probed)) << probed.family().toStdString();
    EXPECT_EQ(probed.pointSize(), 9);
}
