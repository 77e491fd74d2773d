#pragma once

#include "ViewFormKeyTable.h"

#include <QObject>

class ViewForm;

// Brings the Settings window's keys to its key table and runs the commands it returns. It
// watches the whole application, because a key reaches the focused control first.
class ViewFormKeys : public QObject
{
    Q_OBJECT

public:
    explicit ViewFormKeys(ViewForm &form);
    ~ViewFormKeys() override;

    ViewFormKeyTable &table() { return m_keys; }
    const ViewFormKeyTable &table() const { return m_keys; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool run(ViewFormKeyTable::Command command, int key, Qt::KeyboardModifiers modifiers);

    ViewForm &m_form;
    ViewFormKeyTable m_keys;
};
