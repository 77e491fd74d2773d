#pragma once

class CalendarMonthExtForm;
struct Settings;

namespace MainFormLook {

// Paints the Main window in the scheme and picture in force: body and border, captions, values,
// links, lists, picture buttons and day cells. Part of SettingLabelesAndButtons.
void apply(CalendarMonthExtForm &form, const Settings &settings);

} // namespace MainFormLook
