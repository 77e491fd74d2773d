#pragma once

#include "ButtonArt.h"

#include <QPushButton>

struct SchemePalette;

// A button shown as one of the program's pictures, with a look for normal, hover, pressed and
// disabled. The images come from the resources keeper when it is loaded.
class PictureButton : public QPushButton
{
    Q_OBJECT

public:
    PictureButton(ButtonArt::Picture picture, QWidget *parent = nullptr);

    // The word on Ok and word pictures; the button's text stays what a screen reader says.
    void setWord(const QString &word);
    // The scheme to draw in when no resources keeper is loaded.
    void setScheme(const SchemePalette &palette);
    ButtonArt::State pictureState() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ButtonArt::Picture m_picture;
    QString m_word;
    const SchemePalette *m_palette;
};
