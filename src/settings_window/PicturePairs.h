#pragma once

#include <QObject>

#include <array>
#include <utility>

class PictureButton;

// The Settings window's Ok and Cancel pictures come in pairs: the normal picture, and the hover
// picture that lies over it while the pointer is over the pair or while a key presses it.
class PicturePairs : public QObject
{
    Q_OBJECT

public:
    using Pair = std::pair<PictureButton *, PictureButton *>; // normal, hover

    PicturePairs(QObject *parent, std::array<Pair, 3> pairs);

    // Shows the hover picture of the pair pressed, as a click would.
    static void press(PictureButton *hover);
    // Every picture back to normal, unless the pointer is over it.
    void reset();
    // A hover picture that the pointer left without its Leave arriving goes.
    void dropStray();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::array<Pair, 3> m_pairs;
};
