#pragma once

#include "KeyTable.h"

#include <QObject>

class CalendarMonthExtForm;

// Brings the Main window's keys to its key table and runs the commands it returns. It watches
// the whole application, because a key reaches the focused control first, and the drop-downs of
// the two lists are windows of their own.
class MainFormKeys : public QObject
{
    Q_OBJECT

public:
    explicit MainFormKeys(CalendarMonthExtForm &form);
    ~MainFormKeys() override;

    KeyTable &table() { return m_keys; }
    const KeyTable &table() const { return m_keys; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool run(KeyTable::Command command);
    void showAuthorMessage();

    CalendarMonthExtForm &m_form;
    KeyTable m_keys;
    quint64 m_listKeyTime = 0; // the key that an open list saw go down, by its time stamp
};
