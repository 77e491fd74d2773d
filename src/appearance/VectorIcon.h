#pragma once

#include <QIcon>

// Small line pictures for the window's buttons, drawn at whatever size and scale they are shown,
// so they stay sharp on a HiDPI screen. They stand in until the picture buttons of the colour
// schemes take over.
namespace VectorIcon {

enum class Shape { Previous, Next, Undo, Redo, New, Copy, Minimise, Close, Ok };

QIcon icon(Shape shape);

} // namespace VectorIcon
