#include "MainFormFixture.h"

#include <QAccessible>

namespace {

struct AccessRow
{
    const char *language;
    const char *previousMonth; // what the picture button says
    const char *month; // the month list's name
    const char *monthTip; // and its description: its tooltip
    const char *blankCell; // the first cell of March 2026, weeks from Monday
};

class ScreenReader : public MainFormTest, public ::testing::WithParamInterface<AccessRow>
{ };

// What a screen reader reads: every visible control has a name in the window's language, the
// window is a named window, and the parked focus reads as the selected date.
TEST_P(ScreenReader, NamesEveryControlInTheWindowsLanguage)
{
    const AccessRow &row = GetParam();
    QLocale::setDefault(QLocale(QString::fromLatin1(row.language) == QStringLiteral("English")
                                    ? QLocale::English
                                    : QLocale::Russian));
    open(at(2026, 3, 12), QString::fromLatin1(row.language), QStringLiteral("Monday"));
    form->setWindowTitle(QStringLiteral("QLV"));
    const auto name = [](QObject *o) {
        return QAccessible::queryAccessibleInterface(o)->text(QAccessible::Name);
    };
    for (QWidget *w : form->findChildren<QWidget *>()) {
        if (w->isVisible()
            && (qobject_cast<QAbstractButton *>(w) || qobject_cast<QComboBox *>(w)
                || qobject_cast<QLabel *>(w))) {
            EXPECT_FALSE(name(w).isEmpty()) << w->objectName().toStdString();
        }
    }
    EXPECT_EQ(name(button("ButtPrevMonth")), QString::fromUtf8(row.previousMonth));
    QAccessibleInterface *month =
        QAccessible::queryAccessibleInterface(child<QComboBox>(QStringLiteral("ListMonth")));
    EXPECT_EQ(month->text(QAccessible::Name), QString::fromUtf8(row.month));
    EXPECT_EQ(month->text(QAccessible::Description), QString::fromUtf8(row.monthTip));
    EXPECT_EQ(name(cell(1)), QString::fromUtf8(row.blankCell));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(form.data())->role(), QAccessible::Window);
    EXPECT_EQ(name(form.data()), QStringLiteral("QLV"));
    EXPECT_EQ(name(button("ButtFocus")),
              label("LabelActDate2")->text() + QLatin1Char(' ')
                  + label("LabelActDate2Val")->text());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Languages, ScreenReader, ::testing::Values(
    AccessRow { "English", "Go to the previous month", "Month", "Select a month", "Monday, February 23, 2026" },
    AccessRow { "Russian", "Переход к предыдущему месяцу", "Месяц", "Выбор месяца", "понедельник, 23 февраля 2026 г." }));
// clang-format on

} // namespace
