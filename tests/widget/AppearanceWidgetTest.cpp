#include "MainFormFixture.h"
#include "appearance/AppearanceNames.h"
#include "appearance/ButtonArt.h"
#include "appearance/SchemePalette.h"
#include "calendar/MainFormLayout.h"
#include "support/ImageGap.h"

#include <QPainter>

using namespace std::string_literals;

namespace {

using LookRow = std::pair<const char *, int>; // scheme, border width

class SchemeOnScreen : public MainFormTest, public ::testing::WithParamInterface<LookRow>
{ };

// The palette keeps 0xBBGGRR: red is the low byte. Worked out here, not by the program's own
// conversion, so that a swapped order shows.
QColor seen(std::uint32_t bgr)
{
    return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF));
}

using ButtonLooks = ::testing::TestWithParam<QString>;

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
                         [](const auto &row) {
                             return row.param.first + "_border"s + std::to_string(row.param.second);
                         });

// Normal, hover, pressed and disabled are told apart at a glance on every picture button, the
// Settings window's word pictures in both languages included: seen on the window's ground, the
// looks of any two states differ clearly on average over the button.
TEST_P(ButtonLooks, FourStatesApart)
{
    using namespace ButtonArt;
    const SchemePalette &palette = SchemePalettes::forScheme(GetParam());
    std::vector<std::pair<ButtonArt::Picture, QString>> pictures;
    for (int picture = int(Picture::Copy); picture <= int(Picture::New); ++picture)
        pictures.emplace_back(Picture(picture), QString());
    for (const char *word : { "Ok", "Cancel", "Отмена" })
        pictures.emplace_back(Picture::Word, QString::fromUtf8(word));
    for (const auto &[picture, word] : pictures) {
        const QSize size = word.isEmpty() ? QSize(24, 24) : QSize(76, 24);
        std::vector<QImage> looks;
        for (const State state : { State::Normal, State::Hover, State::Pressed, State::Disabled }) {
            QImage &look = looks.emplace_back(size, QImage::Format_RGB32);
            look.fill(seen(palette.ground));
            QPainter(&look).drawImage(
                0, 0, render(picture, state, palette, size, 1, word, QFont(QString(), 9)));
        }
        for (std::size_t a = 0; a < looks.size(); ++a)
            for (std::size_t b = a + 1; b < looks.size(); ++b)
                EXPECT_GE(meanGap(looks[a], looks[b]), 9.0)
                    << int(picture) << word.toStdString() << ": " << a << ", " << b;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryScheme, ButtonLooks,
                         ::testing::ValuesIn(AppearanceNames::concreteColorSchemes()),
                         [](const auto &row) { return row.param.toStdString(); });
