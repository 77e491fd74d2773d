#include "KeyHold.h"

#include <Qt>

bool KeyHold::press(int key)
{
    const bool modifier = key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt
        || key == Qt::Key_Meta || key == Qt::Key_AltGr;
    if (modifier || key == m_key)
        return false;
    m_key = key;
    return true;
}

bool KeyHold::release(int key, bool stillDown)
{
    if (key != m_key || stillDown)
        return false;
    m_key = 0;
    return true;
}
