#pragma once

#include "TipMarkup.h"

#include <QList>
#include <QString>

// One control's tooltip. "%1" in a text stands for the program's name, set in bold; a hot key
// follows the sentence in parentheses.
struct TipRow
{
    // The control's objectName; a name ending in "*" stands for every control whose name
    // begins so (the day grid is one area of 42 cells).
    QString control;
    QString english;
    QString russian;
    QString key;
};
using TipTable = QList<TipRow>;

namespace TipTexts {

inline const QString ProgramName = QStringLiteral("QLV Calendar");

// The tables of the Main, Settings and About windows, in the order their controls are tested.
TipTable mainFormTips();
TipTable viewFormTips();
// The About window's close button and its version picture, "KnVersion", whose line is put
// together here from `version`.
TipTable aboutFormTips(const QString &version);

// A row's text in mark-up.
QString englishTip(const TipRow &row, const TipStyle &style);
QString russianTip(const TipRow &row, const TipStyle &style);
// What a screen reader reads: the text without mark-up, in the language in force.
QString plainTip(const TipRow &row, const QString &language);

} // namespace TipTexts
