#pragma once

#include "WindowBackground.h"

#include <QFrame>

// The body of a window: its scheme's ground, or a background picture toned to the scheme, inside
// a border of 0 to 3 pixels in the scheme's frame colour. Every draggable window has one.
class WindowBody : public QFrame
{
    Q_OBJECT

public:
    explicit WindowBody(QWidget *parent = nullptr);

    // `picture` is "None" for the plain ground; `textAreas` are where text stands on it.
    void setLook(const SchemePalette &palette, const QString &picture, int borderWidth,
                 const QList<QRect> &textAreas = {});
    int borderWidth() const { return m_borderWidth; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const SchemePalette *m_palette;
    QString m_picture = QStringLiteral("None");
    int m_borderWidth = 1;
    QList<QRect> m_textAreas;
    BackgroundCache m_cache;
    bool m_renderQueued = false;
};
