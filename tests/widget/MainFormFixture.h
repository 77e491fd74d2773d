#pragma once

#include "app/ProgramState.h"
#include "calendar/CalendarMonthExtForm.h"
#include "calendar/DayButton.h"
#include "support/FakeClock.h"
#include "support/QtPrinters.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QtTest/qtestspontaneevent.h>

#include <gtest/gtest.h>

#include <memory>

inline QDateTime at(int y, int m, int d, int hour = 12, int minute = 0, int second = 0)
{
    return QDateTime(QDate(y, m, d), QTime(hour, minute, second));
}

// One Main window per test, with a pinned clock and an en_US locale.
class MainFormTest : public ::testing::Test
{
protected:
    void SetUp() override { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    void TearDown() override
    {
        delete form.data();
        program.reset();
    }

    void open(const QDateTime &now, const QString &language = QStringLiteral("English"),
              const QString &firstWeekDay = QStringLiteral("Sunday"))
    {
        clock.setNow(now);
        program = std::make_unique<ProgramState>(&clock);
        program->settings().Language = language;
        program->settings().FirstWeekDay = firstWeekDay;
        form = new CalendarMonthExtForm(*program);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    }

    template<typename T = QWidget>
    T *child(const QString &name) const
    {
        T *w = form->findChild<T *>(name);
        EXPECT_NE(w, nullptr) << name.toStdString();
        return w;
    }
    QPushButton *button(const char *name) const
    {
        return child<QPushButton>(QString::fromLatin1(name));
    }
    QLabel *label(const char *name) const { return child<QLabel>(QString::fromLatin1(name)); }
    DayButton *cell(int index) const
    {
        return child<DayButton>(QStringLiteral("ButtDay%1").arg(index));
    }
    DayButton *cellOf(QDate date) const
    {
        const int index = form->grid().cellOf(date);
        EXPECT_GT(index, 0) << date.toString(Qt::ISODate).toStdString();
        return index > 0 ? cell(index) : nullptr;
    }
    int shownMonth() const
    {
        return child<QComboBox>(QStringLiteral("ListMonth"))->currentIndex() + 1;
    }
    int shownYear() const
    {
        return child<QComboBox>(QStringLiteral("ListYear"))->currentText().toInt();
    }
    void click(QWidget *w) { QTest::mouseClick(w, Qt::LeftButton); }
    // Key events as a keyboard sends them, to whatever has the focus; `repeat` marks the
    // release/press pairs X sends for a held key.
    void sendKey(QEvent::Type type, Qt::Key k, Qt::KeyboardModifiers modifiers = {},
                 bool repeat = false)
    {
        QKeyEvent event(type, k, modifiers, QString(), repeat);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QWidget *target = QApplication::focusWidget();
        QApplication::sendEvent(target ? target : form.data(), &event);
    }
    void tap(Qt::Key k, Qt::KeyboardModifiers modifiers = {})
    {
        sendKey(QEvent::KeyPress, k, modifiers);
        if (form)
            sendKey(QEvent::KeyRelease, k, modifiers);
    }
    bool closed() const { return !form || !form->isVisible(); }

    FakeClock clock;
    std::unique_ptr<ProgramState> program;
    QPointer<CalendarMonthExtForm> form;
};
