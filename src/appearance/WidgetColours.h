#pragma once

#include <cstdint>

class QWidget;
struct SchemePalette;

// Colours a control of any window from the scheme: the same roles on every window.
namespace WidgetColours {

// A text on the window body; `hover` is a link's colour under the pointer (0: as `text`).
void colourText(QWidget *w, std::uint32_t text, std::uint32_t hover = 0);
// A drop-down list or a scroll bar.
void colourList(QWidget *list, const SchemePalette &s);

} // namespace WidgetColours
