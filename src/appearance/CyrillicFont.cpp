#include "CyrillicFont.h"

#include <QFontDatabase>
#include <QRawFont>

namespace CyrillicFont {

bool drawsCyrillic(const QFont &font)
{
    // Ask the face the font resolves to, not the family name: fontconfig may have put another
    // face in place of the one named.
    const QRawFont raw = QRawFont::fromFont(font);
    return raw.isValid() && raw.supportsCharacter(QChar(0x0416))
        && raw.supportsCharacter(QChar(0x044F));
}

QFont probe(const QFont &font)
{
    if (drawsCyrillic(font))
        return font;
    QStringList candidates { QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans"),
                             QStringLiteral("Noto Sans") };
    candidates += QFontDatabase::families(QFontDatabase::Cyrillic);
    for (const QString &family : candidates) {
        QFont other = font;
        other.setFamilies({ family });
        if (QFontDatabase::hasFamily(family) && drawsCyrillic(other))
            return other;
    }
    return font;
}

} // namespace CyrillicFont
