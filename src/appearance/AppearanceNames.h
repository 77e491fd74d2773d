#pragma once

#include <QStringList>

class QRandomGenerator;

// The colour-scheme and picture words of the settings file, and the draw behind "Random".
namespace AppearanceNames {

inline const QString Random = QStringLiteral("Random");

// The schemes a user can choose, "Random" included, in the order the Settings window lists them.
const QStringList &colorSchemeChoices();
// The seven real schemes "Random" draws from.
const QStringList &concreteColorSchemes();
// The pictures a user can choose, "None" and "Random" included.
const QStringList &pictureChoices();
// The eight real pictures "Random" draws from ("None" is not a picture).
const QStringList &concretePictures();

// One of `names`, each equally likely.
QString pickUniformly(const QStringList &names, QRandomGenerator &random);

// The scheme or picture in force for a choice: the choice itself, or a draw for "Random".
QString resolveColorScheme(const QString &choice, QRandomGenerator &random);
QString resolvePicture(const QString &choice, QRandomGenerator &random);

} // namespace AppearanceNames
