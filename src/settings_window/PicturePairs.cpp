#include "PicturePairs.h"

#include "appearance/PictureButton.h"

#include <QEvent>

PicturePairs::PicturePairs(QObject *parent, std::array<Pair, 3> pairs)
    : QObject(parent)
    , m_pairs(pairs)
{
    setObjectName(QStringLiteral("PicturePairs"));
    for (const auto &[normal, hover] : m_pairs) {
        normal->installEventFilter(this);
        hover->installEventFilter(this);
    }
}

void PicturePairs::press(PictureButton *hover)
{
    hover->show();
    hover->raise();
    hover->setDown(true);
    hover->repaint();
}

void PicturePairs::reset()
{
    for (const auto &[normal, hover] : m_pairs) {
        normal->setDown(false);
        hover->setDown(false);
        if (!hover->underMouse())
            hover->hide();
    }
}

void PicturePairs::dropStray()
{
    for (const auto &[normal, hover] : m_pairs) {
        if (hover->isVisible() && !hover->isDown() && !hover->underMouse())
            hover->hide();
    }
}

bool PicturePairs::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Enter && event->type() != QEvent::Leave)
        return false;
    for (const auto &[normal, hover] : m_pairs) {
        if (event->type() == QEvent::Enter && watched == normal && normal->isEnabled()) {
            hover->show();
            hover->raise();
        } else if (event->type() == QEvent::Leave && watched == hover && !hover->isDown()) {
            hover->hide();
        }
    }
    return false;
}
