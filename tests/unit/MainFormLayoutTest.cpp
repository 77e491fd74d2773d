#include "calendar/MainFormLayout.h"

#include "calendar/MonthGrid.h"

#include <QString>

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<std::pair<QString, QRect>> allControls()
{
    using L = MainFormLayout;
    std::vector<std::pair<QString, QRect>> rects = {
        { QStringLiteral("LabelActDate"), L::LabelActDate },
        { QStringLiteral("KnCopy"), L::KnCopy },
        { QStringLiteral("KnMin"), L::KnMin },
        { QStringLiteral("KnClose"), L::KnClose },
        { QStringLiteral("LabelMonth"), L::LabelMonth },
        { QStringLiteral("ButtPrevMonth"), L::ButtPrevMonth },
        { QStringLiteral("ListMonth"), L::ListMonth },
        { QStringLiteral("ListYear"), L::ListYear },
        { QStringLiteral("ButtNextMonth"), L::ButtNextMonth },
        { QStringLiteral("ButtUndo"), L::ButtUndo },
        { QStringLiteral("ButtRedo"), L::ButtRedo },
        { QStringLiteral("LabelToday"), L::LabelToday },
        { QStringLiteral("LabelTodayVal"), L::LabelTodayVal },
        { QStringLiteral("LabelTime"), L::LabelTime },
        { QStringLiteral("LabelTimeVal"), L::LabelTimeVal },
        { QStringLiteral("LabelActDate2"), L::LabelActDate2 },
        { QStringLiteral("LabelActDate2Val"), L::LabelActDate2Val },
        { QStringLiteral("LabelLeftDays"), L::LabelLeftDays },
        { QStringLiteral("LabelLeftDaysVal"), L::LabelLeftDaysVal },
        { QStringLiteral("LabelDays"), L::LabelDays },
        { QStringLiteral("LabelSettings"), L::LabelSettings },
        { QStringLiteral("LabelAbout"), L::LabelAbout },
        { QStringLiteral("ButtNew"), L::ButtNew },
        { QStringLiteral("KnOk"), L::KnOk },
    };
    for (int c = 1; c <= MonthGrid::ColumnCount; ++c)
        rects.emplace_back(QStringLiteral("LabelWeekDay%1").arg(c), L::weekdayLabel(c));
    for (int i = 1; i <= MonthGrid::CellCount; ++i)
        rects.emplace_back(QStringLiteral("ButtDay%1").arg(i), L::dayCell(i));
    return rects;
}

} // namespace

TEST(MainFormLayout, EveryControlLiesInsideTheWindowMarginsAndNoTwoOverlap)
{
    const QRect inner(MainFormLayout::Margin, 0, MainFormLayout::Width - 2 * MainFormLayout::Margin,
                      MainFormLayout::Height);
    const auto rects = allControls();
    for (std::size_t a = 0; a < rects.size(); ++a) {
        EXPECT_TRUE(inner.contains(rects[a].second)) << rects[a].first.toStdString();
        for (std::size_t b = a + 1; b < rects.size(); ++b) {
            EXPECT_FALSE(rects[a].second.intersects(rects[b].second))
                << rects[a].first.toStdString() << " overlaps " << rects[b].first.toStdString();
        }
    }
}

TEST(MainFormLayout, CellsFormSixEvenRowsUnderTheirWeekdayLabels)
{
    for (int i = 1; i <= MonthGrid::CellCount; ++i) {
        const QRect cell = MainFormLayout::dayCell(i);
        const int column = (i - 1) % MonthGrid::ColumnCount + 1;
        EXPECT_EQ(cell.left(), MainFormLayout::weekdayLabel(column).left()) << i;
        EXPECT_GT(cell.top(), MainFormLayout::weekdayLabel(column).bottom()) << i;
        if (i > MonthGrid::ColumnCount) {
            const QRect above = MainFormLayout::dayCell(i - MonthGrid::ColumnCount);
            EXPECT_EQ(cell.top() - above.top(),
                      MainFormLayout::CellHeight + MainFormLayout::CellSpacing);
        }
    }
    EXPECT_EQ(MainFormLayout::gridArea().bottom(),
              MainFormLayout::dayCell(MonthGrid::CellCount).bottom());
}
