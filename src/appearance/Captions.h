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
// The words on the Settings window's Ok and Cancel pictures (ButtonArt::Picture::Word; the
// "Black" pictures are the normal state, the "Blue" ones the hover state).
inline constexpr Pair KnOkWord { u"Ok", u"Ok" };
inline constexpr Pair KnCancelWord { u"Cancel", u"Отмена" };

// What a screen reader says for a day cell: the full date, then "today" and "selected" where
// they apply.
QString dayCellName(const QString &longDate, bool isToday, bool isSelected,
                    const QString &language);

// What a screen reader says for the controls that show a picture rather than their purpose: the
// picture buttons say what their tooltips say. A list reads its current text as its name on
// Linux; what it chooses is its description, which its tooltip gives.
struct ControlName
{
    const char *objectName;
    Pair name;
};
inline constexpr ControlName ControlNames[] = {
    { "KnCopy",
      { u"Copy the selected date to the Clipboard",
        u"Скопировать выбранную дату в буфер обмена" } },
    { "KnMin", { u"Minimize", u"Свернуть Календарь" } },
    { "KnClose", { u"Close the Calendar", u"Закрыть Календарь" } },
    { "KnOk", { u"Close the Calendar", u"Закрыть Календарь" } },
    { "ButtNew", { u"Run a new instance of the Calendar", u"Открыть новый экземпляр Календаря" } },
    { "ButtPrevMonth", { u"Go to the previous month", u"Переход к предыдущему месяцу" } },
    { "ButtNextMonth", { u"Go to the next month", u"Переход к следующему месяцу" } },
    { "ButtUndo", { u"Return to the current date", u"Возврат к текущей дате" } },
    { "ButtRedo", { u"Return to the last selected date", u"Возврат к последней выбранной дате" } },
    // The lists read as what they choose; their value follows.
    { "ListMonth", { u"Month", u"Месяц" } },
    { "ListYear", { u"Year", u"Год" } },
};

// Words a screen reader adds to a day cell's date.
inline constexpr Pair TodayMark { u"today", u"сегодня" };
inline constexpr Pair SelectedMark { u"selected", u"выбрано" };

} // namespace Captions
