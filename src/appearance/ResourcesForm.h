#pragma once

#include "ButtonArt.h"
#include "SchemePalette.h"

#include <QFont>
#include <QImage>
#include <QObject>

#include <vector>

// The keeper of the picture buttons' images: every button of every window takes its picture for
// each state from here, drawn once for the scheme in force. Not a window; it is found by its name,
// "ResourcesForm", among the application's objects.
class ResourcesForm : public QObject
{
    Q_OBJECT

public:
    explicit ResourcesForm(QObject *parent = nullptr);

    // The loaded one, or null before start-up made it or after shut-down released it.
    static ResourcesForm *find();

    const SchemePalette &scheme() const { return *m_palette; }
    // Drops every image of the previous scheme; buttons repaint on schemeChanged.
    void setScheme(const SchemePalette &palette);

    const QImage &image(ButtonArt::Picture picture, ButtonArt::State state, QSize size, qreal dpr,
                        const QString &word = {}, const QFont &font = {});
    int imageCount() const { return int(m_images.size()); }

Q_SIGNALS:
    void schemeChanged();

private:
    struct Entry
    {
        ButtonArt::Picture picture;
        ButtonArt::State state;
        QSize size;
        qreal dpr;
        QString word;
        QFont font;
        QImage image;
    };
    const SchemePalette *m_palette;
    std::vector<Entry> m_images;
};
