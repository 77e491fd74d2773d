#pragma once

#include "SchemePalette.h"

#include <QFont>
#include <QImage>
#include <QString>

class QPainter;
class QRectF;

// The picture buttons: a face for each state and a line picture or a word on it, drawn in the
// scheme's colours at whatever size and scale they are shown.
namespace ButtonArt {

enum class Picture {
    Copy,
    Minimise,
    Close,
    Ok, // a tick, with its word beside it when the button is wide
    Undo,
    Redo,
    PreviousMonth,
    NextMonth,
    New,
    Word, // the word alone: the Settings window's Ok and Cancel pictures
};

enum class State { Normal, Hover, Pressed, Disabled };

// `word` is the text of Ok and Word pictures; `font` sets its face and size.
void paint(QPainter &p, const QRectF &rect, Picture picture, State state,
           const SchemePalette &palette, const QString &word = {}, const QFont &font = {});

QImage render(Picture picture, State state, const SchemePalette &palette, QSize logical, qreal dpr,
              const QString &word = {}, const QFont &font = {});

} // namespace ButtonArt
