#include "WidgetColours.h"

#include "BgrColor.h"
#include "SchemePalette.h"

#include <QPalette>
#include <QWidget>

namespace WidgetColours {

void colourText(QWidget *w, std::uint32_t text, std::uint32_t hover)
{
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, colorFromBgr(text));
    // Links show their hover colour through the link role (see CaptionLabel).
    p.setColor(QPalette::Link, colorFromBgr(hover ? hover : text));
    w->setPalette(p);
}

void colourList(QWidget *list, const SchemePalette &s)
{
    QPalette p = list->palette();
    for (const auto role : { QPalette::Base, QPalette::Button, QPalette::Window })
        p.setColor(role, colorFromBgr(s.listBack));
    for (const auto role : { QPalette::Text, QPalette::ButtonText, QPalette::WindowText })
        p.setColor(role, colorFromBgr(s.listText));
    p.setColor(QPalette::Highlight, colorFromBgr(s.buttonHover));
    p.setColor(QPalette::HighlightedText, colorFromBgr(s.buttonHoverInk));
    p.setColor(QPalette::Light, colorFromBgr(s.listBorder));
    p.setColor(QPalette::Dark, colorFromBgr(s.listBorder));
    p.setColor(QPalette::Mid, colorFromBgr(s.listBorder));
    list->setPalette(p);
}

} // namespace WidgetColours
