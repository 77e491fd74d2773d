#include "ContainsText.h"

bool ContainsText(const QString &text, const QString &part)
{
    return text.toUpper().contains(part.toUpper());
}
