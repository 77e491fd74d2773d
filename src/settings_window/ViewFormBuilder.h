#pragma once

#include <QString>

class ViewForm;

// Creates the Settings window's controls under their names and puts them in place; the window
// connects them to its handlers.
namespace ViewFormBuilder {

void createControls(ViewForm &form);

// Every caption, the lists' entries (cleared first) and the visible Cancel pictures, in `language`.
void setCaptions(ViewForm &form, const QString &language);

// The screen-reader names of the controls whose look does not say what they do, in `language`.
void nameControls(ViewForm &form, const QString &language);

} // namespace ViewFormBuilder
