#include "PictureButton.h"

#include "BgrColor.h"
#include "ResourcesForm.h"

#include <QPainter>

PictureButton::PictureButton(ButtonArt::Picture picture, QWidget *parent)
    : QPushButton(parent)
    , m_picture(picture)
    , m_palette(&SchemePalettes::forScheme({}))
{
    setFlat(true);
    // Repaint on entering and leaving: the hover look is the point of the picture.
    setAttribute(Qt::WA_Hover);
    if (ResourcesForm *resources = ResourcesForm::find()) {
        connect(resources, &ResourcesForm::schemeChanged, this,
                qOverload<>(&PictureButton::update));
    }
}

void PictureButton::setWord(const QString &word)
{
    if (word == m_word)
        return;
    m_word = word;
    update();
}

void PictureButton::setScheme(const SchemePalette &palette)
{
    if (&palette == m_palette)
        return;
    m_palette = &palette;
    update();
}

ButtonArt::State PictureButton::pictureState() const
{
    using ButtonArt::State;
    // Only a button made unavailable itself looks so: a window that waits for another (the
    // Settings window previews on it) keeps its look.
    if (testAttribute(Qt::WA_ForceDisabled))
        return State::Disabled;
    if (isDown())
        return State::Pressed;
    if (underMouse())
        return State::Hover;
    return State::Normal;
}

void PictureButton::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    const ButtonArt::State state = pictureState();
    ResourcesForm *resources = ResourcesForm::find();
    if (resources) {
        p.drawImage(
            QPoint(0, 0),
            resources->image(m_picture, state, size(), devicePixelRatioF(), m_word, font()));
    } else {
        ButtonArt::paint(p, QRectF(rect()), m_picture, state, *m_palette, m_word, font());
    }
    if (hasFocus()) {
        const SchemePalette &scheme = resources ? resources->scheme() : *m_palette;
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(colorFromBgr(scheme.frame), 1, Qt::DotLine));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), 3, 3);
    }
}
