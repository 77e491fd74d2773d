#include "ResourcesForm.h"

#include <QCoreApplication>

ResourcesForm::ResourcesForm(QObject *parent)
    : QObject(parent)
    , m_palette(&SchemePalettes::forScheme({}))
{
    setObjectName(QStringLiteral("ResourcesForm"));
}

ResourcesForm *ResourcesForm::find()
{
    QCoreApplication *app = QCoreApplication::instance();
    return app ? app->findChild<ResourcesForm *>(QStringLiteral("ResourcesForm"),
                                                 Qt::FindDirectChildrenOnly)
               : nullptr;
}

void ResourcesForm::setScheme(const SchemePalette &palette)
{
    if (&palette == m_palette)
        return;
    m_palette = &palette;
    m_images.clear();
    Q_EMIT schemeChanged();
}

const QImage &ResourcesForm::image(ButtonArt::Picture picture, ButtonArt::State state, QSize size,
                                   qreal dpr, const QString &word, const QFont &font)
{
    for (const Entry &e : m_images) {
        if (e.picture == picture && e.state == state && e.size == size && qFuzzyCompare(e.dpr, dpr)
            && e.word == word && e.font == font)
            return e.image;
    }
    m_images.push_back({ picture, state, size, dpr, word, font,
                         ButtonArt::render(picture, state, *m_palette, size, dpr, word, font) });
    return m_images.back().image;
}
