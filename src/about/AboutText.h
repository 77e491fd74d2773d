#pragma once

#include "appearance/Captions.h"

#include <QString>

// The About window's words in English and Russian, and where the program's documentation lies.
namespace AboutText {

using Captions::Pair;

inline constexpr Pair WindowTitle { u"About QLV Calendar Lite",
                                    u"О программе «Календарь КЛВ Лайт»" };
inline constexpr Pair ProgramName { u"QLV Calendar Lite", u"Календарь КЛВ Лайт" };
inline constexpr Pair Edition { u"Lite edition for Linux", u"Облегчённая редакция для Linux" };
inline constexpr Pair Version { u"Version %1", u"Версия %1" };
inline constexpr Pair Link { u"Open the documentation", u"Открыть документацию (на английском)" };
inline constexpr Pair Close { u"Close", u"Закрыть" };
inline constexpr Pair Description { u"Description and terms of use",
                                    u"Описание и условия использования" };

// The version line, "Version 1.0.1".
QString versionLine(const QString &version, const QString &language);
// What the calendar does and its terms of use, as rich text.
QString description(const QString &language);

// The documentation of a program that runs from `programFolder`: installed, it lies at
// <folder>/../share/doc/qlvcallt/README.md; run from a build tree (build/<preset>/qlvcallt), it
// is the project's README.md two folders up. Empty when neither is there.
QString documentationPath(const QString &programFolder);

} // namespace AboutText
