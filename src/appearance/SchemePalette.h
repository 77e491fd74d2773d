#pragma once

#include <QString>

#include <cstdint>

// Every colour the windows paint with, for one colour scheme. The values are 0xBBGGRR integers,
// like every other colour the program keeps; they become QColors only where painting happens.
struct SchemePalette
{
    QString name;

    // The window body, its frame and the texts standing on the body.
    std::uint32_t ground;
    std::uint32_t frame;
    std::uint32_t title; // the date above the grid and the window titles
    std::uint32_t caption; // the names of the values in the information panel
    std::uint32_t value; // the values themselves
    std::uint32_t weekday; // the weekday labels over the grid
    std::uint32_t link;
    std::uint32_t linkHover;

    // Drop-down lists.
    std::uint32_t listBack;
    std::uint32_t listText;
    std::uint32_t listBorder;

    // Picture buttons: face, edge and ink in each state. The close picture turns to an alarm colour
    // under the pointer, as desktop title buttons do.
    std::uint32_t buttonFace;
    std::uint32_t buttonHover;
    std::uint32_t buttonPressed;
    std::uint32_t buttonEdge;
    std::uint32_t buttonInk;
    std::uint32_t buttonHoverInk;
    std::uint32_t buttonDisabledInk;
    std::uint32_t closeHover;
    std::uint32_t closeHoverInk;

    // Day cells by meaning, the day numbers on them, and the ring that marks today.
    std::uint32_t cellOutside;
    std::uint32_t cellDay;
    std::uint32_t cellToday;
    std::uint32_t cellSelectedPast;
    std::uint32_t cellSelectedFuture;
    std::uint32_t cellText;
    std::uint32_t todayMark;

    std::uint32_t shadow;
    std::uint32_t tipBack;
    std::uint32_t tipBorder;
    std::uint32_t tipText;

    // The scheme's colour for a cell that the month grid painted in its own colour: the grid speaks
    // in the Blue scheme's colours, each of which stands for one meaning.
    std::uint32_t cellColor(std::uint32_t gridColor) const;
    // True for schemes with light text on a dark body.
    bool isDark() const;
};

namespace SchemePalettes {

// The seven schemes, in the order of the scheme names.
const SchemePalette *begin();
const SchemePalette *end();

// The palette of a scheme in force; an unknown name gets the default scheme, "Blue".
const SchemePalette &forScheme(const QString &scheme);

} // namespace SchemePalettes
