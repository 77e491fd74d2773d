#pragma once

#include "DragMath.h"

#include <QObject>
#include <QPointF>

class QWidget;
class WindowBehaviour;

// The pointer position a mouse event carried.
class EventPointer : public PointerSource
{
public:
    explicit EventPointer(QPointF global)
        : m_global(global)
    { }
    QPointF globalPosition() const override { return m_global; }

private:
    QPointF m_global;
};

// Makes a widget the drag area of its window: installed as an event filter on the area, it
// forwards the area's mouse moves to the shared drag routine. A held button only drags when it
// went down on the area itself, so the grab point is always the one taken there.
class DragArea : public QObject
{
    Q_OBJECT

public:
    DragArea(WindowBehaviour &behaviour, QWidget *window, QWidget *area);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    WindowBehaviour &m_behaviour;
    QWidget *m_window;
    QWidget *m_area;
    bool m_pressedHere = false;
};
