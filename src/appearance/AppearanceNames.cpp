#include "AppearanceNames.h"

#include <QRandomGenerator>

namespace AppearanceNames {

const QStringList &colorSchemeChoices()
{
    static const QStringList names = {
        QStringLiteral("Blue"),      QStringLiteral("Black"),
        QStringLiteral("White"),     QStringLiteral("Yellow"),
        QStringLiteral("Green"),     QStringLiteral("Pink"),
        QStringLiteral("GrayScale"), Random,
    };
    return names;
}

const QStringList &concreteColorSchemes()
{
    static const QStringList names = colorSchemeChoices().mid(0, 7);
    return names;
}

const QStringList &pictureChoices()
{
    static const QStringList names = {
        QStringLiteral("None"),      QStringLiteral("Random"),    QStringLiteral("Fancy"),
        QStringLiteral("Marble"),    QStringLiteral("Sky"),       QStringLiteral("Waves"),
        QStringLiteral("Stars"),     QStringLiteral("Landscape"), QStringLiteral("Dandelions"),
        QStringLiteral("Camomiles"),
    };
    return names;
}

const QStringList &concretePictures()
{
    static const QStringList names = pictureChoices().mid(2);
    return names;
}

QString pickUniformly(const QStringList &names, QRandomGenerator &random)
{
    if (names.isEmpty())
        return {};
    // bounded() draws without modulo bias.
    return names.at(static_cast<qsizetype>(random.bounded(static_cast<quint32>(names.size()))));
}

QString resolveColorScheme(const QString &choice, QRandomGenerator &random)
{
    return choice == Random ? pickUniformly(concreteColorSchemes(), random) : choice;
}

QString resolvePicture(const QString &choice, QRandomGenerator &random)
{
    return choice == Random ? pickUniformly(concretePictures(), random) : choice;
}

} // namespace AppearanceNames
