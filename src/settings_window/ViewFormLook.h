#pragma once

class ViewForm;
struct Settings;

// Paints the Settings window in the scheme in force: labels, lists, the scroll bar, the picture
// buttons, and its body (never with a picture) inside the chosen border.
namespace ViewFormLook {

void apply(ViewForm &form, const Settings &settings);
// The body and border alone, after a change of the border width.
void paintBody(ViewForm &form, const Settings &settings);

} // namespace ViewFormLook
