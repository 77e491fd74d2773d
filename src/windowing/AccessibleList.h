#pragma once

class QObject;
class QAccessibleInterface;
class QString;

// A screen reader's view of the program's drop-down lists: a list reads as what it chooses (its
// accessible name, "Month") with its entry as the value. Qt's own list on Linux reads only its
// entry ("November"). Installed once as an accessibility factory by the common window parts.
QAccessibleInterface *accessibleList(const QString &className, QObject *object);
