#pragma once

#include <QStringView>

#include <optional>

// The number a settings value begins with, read the way the file format has always read it:
// blanks, tabs and line feeds are skipped anywhere, then an optional sign, digits, one decimal
// point and an exponent ("E" or "D"), or an "&H"/"&O" integer. Reading stops at the first other
// character; text that does not begin with a number gives 0. A number too large for a double
// (or a hexadecimal/octal value too large for 32 bits) is an overflow: std::nullopt.
std::optional<double> leadingNumber(QStringView text);

// Rounds to the nearest integer, a half going to the even neighbour (2.5 -> 2, 3.5 -> 4).
double roundHalfEven(double value);
