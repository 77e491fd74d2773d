#include "ViewFormText.h"

#include <span>

namespace ViewFormText {

namespace {

struct Entry
{
    const char16_t *value;
    Captions::Pair text;
};

// The English texts begin with one blank; the Russian ones have none.
constexpr Entry Languages[] = {
    { u"English", { u" English", u" English" } },
    { u"Russian", { u" Russian", u"Русский" } },
};
constexpr Entry FirstDays[] = {
    { u"Sunday", { u" Sunday", u"Воскресенье" } },
    { u"Monday", { u" Monday", u"Понедельник" } },
};
// Not the order in which the settings reader tests the names: the list has its own.
constexpr Entry ColorSchemes[] = {
    { u"Blue", { u" Blue", u"Синяя" } },
    { u"Green", { u" Green", u"Зеленая" } },
    { u"Black", { u" Black", u"Черная" } },
    { u"White", { u" White", u"Белая" } },
    { u"Yellow", { u" Yellow", u"Желтая" } },
    { u"Pink", { u" Pink", u"Розовая" } },
    { u"GrayScale", { u" Gray scale", u"Оттенки серого" } },
    { u"Random", { u" Random", u"Случ. выбор" } },
};
constexpr Entry Pictures[] = {
    { u"None", { u" None", u"Отсутствует" } },
    { u"Sky", { u" Sky", u"Небо" } },
    { u"Marble", { u" Marble", u"Мрамор" } },
    { u"Fancy", { u" Fancy", u"Фантазия" } },
    { u"Waves", { u" Waves", u"Волны" } },
    { u"Stars", { u" Stars", u"Звезды" } },
    { u"Dandelions", { u" Dandelions", u"Одуванчики" } },
    { u"Camomiles", { u" Camomiles", u"Ромашки" } },
    { u"Landscape", { u" Landscape", u"Пейзаж" } },
    { u"Random", { u" Random", u"Случ. выбор" } },
};
// The yes/no lists carry no leading blank in English either.
constexpr Entry YesNo[] = {
    { u"Yes", { u"Yes", u"Да" } },
    { u"No", { u"No", u"Нет" } },
};

std::span<const Entry> table(List list)
{
    switch (list) {
    case List::Lang:
        return Languages;
    case List::FirstDay:
        return FirstDays;
    case List::ColorScheme:
        return ColorSchemes;
    case List::BackPict:
        return Pictures;
    case List::AlignCenter:
    case List::Topmost:
        return YesNo;
    }
    return {};
}

} // namespace

QStringList entries(List list, const QString &language)
{
    QStringList texts;
    for (const Entry &e : table(list))
        texts.append(Captions::pick(e.text, language));
    return texts;
}

QString valueAt(List list, int index)
{
    const std::span<const Entry> entries = table(list);
    if (index < 0 || static_cast<std::size_t>(index) >= entries.size())
        return {};
    return QString::fromUtf16(entries[static_cast<std::size_t>(index)].value);
}

int indexOf(List list, const QString &value)
{
    const std::span<const Entry> entries = table(list);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (value == QString::fromUtf16(entries[i].value))
            return static_cast<int>(i);
    }
    // A two-entry list has no third answer: whatever is not its first value is its second.
    const bool twoWay = list != List::ColorScheme && list != List::BackPict;
    return twoWay ? 1 : -1;
}

} // namespace ViewFormText
