#pragma once

#include <QString>
#include <QStringList>

// The Main window's words in English and Russian.
namespace Captions {

// A caption in both languages.
struct Pair
{
    const char16_t *english;
    const char16_t *russian;
};

// English only when the language setting is exactly "English"; anything else reads Russian.
bool isEnglish(const QString &language);
QString pick(const Pair &pair, const QString &language);

// The twelve month names, January first.
QStringList monthNames(const QString &language);
// The seven weekday short names from the first column to the last.
QStringList weekdayNames(const QString &language, const QString &firstWeekDay);
// True when `firstWeekDay` starts the week on Sunday; the grid's columns follow the same test.
bool weekStartsOnSunday(const QString &firstWeekDay);

inline constexpr Pair LabelSettings { u"  Settings  ", u"  Настройки  " };
inline constexpr Pair LabelAbout { u"  About...  ", u"  О программе  " };
inline constexpr Pair LabelToday { u"Current date:", u"Текущая дата:" };
inline constexpr Pair LabelTime { u"Current time:", u"Текущее время:" };
inline constexpr Pair LabelActDate2 { u"Selected date:", u"Выбранная дата:" };
inline constexpr Pair LabelLeftDays { u"Date difference:", u"Разница в датах:" };
inline constexpr Pair LabelMonth { u"Month:", u"Месяц:" };
inline constexpr Pair LabelDays { u"day(s)", u"дн(ей)" };

// What a screen reader says for a day cell: the full date, then "today" and "selected" where
// they apply.
QString dayCellName(const QString &longDate, bool isToday, bool isSelected,
                    const QString &language);

// Words a screen reader adds to a day cell's date.
inline constexpr Pair TodayMark { u"today", u"сегодня" };
inline constexpr Pair SelectedMark { u"selected", u"выбрано" };

} // namespace Captions
