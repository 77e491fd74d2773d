#pragma once

#include <QFont>

// The Cyrillic font probe: every text of the program must render in Latin and Cyrillic, and a
// face asked for by name may have no Cyrillic letters (or may not be installed at all).
namespace CyrillicFont {

// True when the face that `font` resolves to on this system draws Cyrillic letters.
bool drawsCyrillic(const QFont &font);

// `font` when its face draws Cyrillic; otherwise the same size and style in a face that does.
QFont probe(const QFont &font);

} // namespace CyrillicFont
