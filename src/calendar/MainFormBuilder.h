#pragma once

#include <QList>
#include <QString>

class CalendarMonthExtForm;
class QWidget;

// Creates the Main window's controls under their names and puts them in place; the window
// connects them to its handlers.
namespace MainFormBuilder {

void createControls(CalendarMonthExtForm &form);

// Every caption in `language`: the month list, the weekday labels in the order `firstWeekDay`
// starts, the panel and link texts, and the screen-reader names.
void setCaptions(CalendarMonthExtForm &form, const QString &language, const QString &firstWeekDay);

// Gives the controls whose picture or value does not say what they do their screen-reader names
// in `language`.
void nameControls(CalendarMonthExtForm &form, const QString &language);

// The labels on the drag frame that are not commands: they drag the window as the frame does.
QList<QWidget *> dragLabels(const CalendarMonthExtForm &form);

} // namespace MainFormBuilder
