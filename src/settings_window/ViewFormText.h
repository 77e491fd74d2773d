#pragma once

#include "appearance/Captions.h"

#include <QString>
#include <QStringList>

// The Settings window's words in English and Russian, and the six lists: what each shows in
// either language and which setting each entry stands for. The entry's index is what counts;
// its text is display only.
namespace ViewFormText {

enum class List { Lang, FirstDay, ColorScheme, BackPict, AlignCenter, Topmost };

inline constexpr List AllLists[] = { List::Lang,     List::FirstDay,    List::ColorScheme,
                                     List::BackPict, List::AlignCenter, List::Topmost };

// The texts of a list's entries, in list order.
QStringList entries(List list, const QString &language);
// The setting word an entry stands for; empty for an index outside the list.
QString valueAt(List list, int index);
// The entry that shows a setting. Language, first day and the two yes/no lists select their
// second entry for anything but the first entry's value; a scheme or picture that is not in
// the list selects nothing (-1).
int indexOf(List list, const QString &value);

inline constexpr Captions::Pair Caption { u"  Calendar Settings  ", u"  Настройки Календаря  " };
// The labels of the rows, top to bottom: LabelLang, LabelFirstDay, LabelColorScheme,
// LabelBordWidthGen, LabelAlignCenterMain, LabelBackPictMain, LabelTopmostMain.
inline constexpr Captions::Pair RowLabels[] = {
    { u"Language", u"Язык" },
    { u"First day of week", u"Первый день недели" },
    { u"Color scheme", u"Цветовая схема" },
    { u"Border width", u"Толщина границы" },
    { u"In center", u"В центре" },
    { u"Back. picture", u"Фон. рисунок" },
    { u"Topmost", u"Наверху" },
};
// What a screen reader says for the close control (the pictures' words are in Captions).
inline constexpr Captions::Pair KnCloseName {
    u"Close the window and save any changes you have made",
    u"Сохранить внесенные изменения и закрыть текущее окно"
};

} // namespace ViewFormText
