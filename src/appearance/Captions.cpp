#include "Captions.h"

#include <array>

namespace Captions {

namespace {

constexpr std::array<Pair, 12> MonthNames { {
    { u"January", u"Январь" },
    { u"February", u"Февраль" },
    { u"March", u"Март" },
    { u"April", u"Апрель" },
    { u"May", u"Май" },
    { u"June", u"Июнь" },
    { u"July", u"Июль" },
    { u"August", u"Август" },
    { u"September", u"Сентябрь" },
    { u"October", u"Октябрь" },
    { u"November", u"Ноябрь" },
    { u"December", u"Декабрь" },
} };

// Monday first.
constexpr std::array<Pair, 7> WeekdayNames { {
    { u"Mon", u"Пн" },
    { u"Tue", u"Вт" },
    { u"Wed", u"Ср" },
    { u"Thu", u"Чт" },
    { u"Fri", u"Пт" },
    { u"Sat", u"Сб" },
    { u"Sun", u"Вс" },
} };

} // namespace

bool isEnglish(const QString &language)
{
    return language == QStringLiteral("English");
}

QString pick(const Pair &pair, const QString &language)
{
    return QString::fromUtf16(isEnglish(language) ? pair.english : pair.russian);
}

QStringList monthNames(const QString &language)
{
    QStringList names;
    for (const Pair &p : MonthNames)
        names.append(pick(p, language));
    return names;
}

bool weekStartsOnSunday(const QString &firstWeekDay)
{
    return firstWeekDay == QStringLiteral("Sunday");
}

QStringList weekdayNames(const QString &language, const QString &firstWeekDay)
{
    QStringList names;
    const std::size_t start = weekStartsOnSunday(firstWeekDay) ? 6 : 0;
    for (std::size_t i = 0; i < WeekdayNames.size(); ++i)
        names.append(pick(WeekdayNames[(start + i) % WeekdayNames.size()], language));
    return names;
}

QString dayCellName(const QString &longDate, bool isToday, bool isSelected, const QString &language)
{
    QString name = longDate;
    if (isToday)
        name += QStringLiteral(", ") + pick(TodayMark, language);
    if (isSelected)
        name += QStringLiteral(", ") + pick(SelectedMark, language);
    return name;
}

} // namespace Captions
