#pragma once

#include <QRect>
#include <QString>
#include <QWidget>

#include <utility>

// A control of `parent` at its place, under the name the code and the tests find it by; `args`
// go to its constructor before the parent.
template<typename T, typename... Args>
T *named(QWidget *parent, const char *name, const QRect &geometry, Args &&...args)
{
    auto *w = new T(std::forward<Args>(args)..., parent);
    w->setObjectName(QString::fromLatin1(name));
    w->setGeometry(geometry);
    return w;
}
