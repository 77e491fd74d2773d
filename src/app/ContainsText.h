#pragma once

#include <QString>

// Whether `text` contains `part`, ignoring case. An empty part is found in any text.
bool ContainsText(const QString &text, const QString &part);
