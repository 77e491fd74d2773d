#pragma once

class CalendarMonthExtForm;

// Creates the Main window's controls under their names and puts them in place; the window
// connects them to its handlers.
namespace MainFormBuilder {

void createControls(CalendarMonthExtForm &form);

} // namespace MainFormBuilder
