#include "MainFormLook.h"

#include "CalendarMonthExtForm.h"
#include "DayButton.h"
#include "MainFormLayout.h"
#include "app/Settings.h"
#include "appearance/BgrColor.h"
#include "appearance/PictureButton.h"
#include "appearance/ResourcesForm.h"
#include "appearance/SchemePalette.h"
#include "appearance/WidgetColours.h"
#include "appearance/WindowBody.h"

#include <QComboBox>
#include <QLabel>

namespace MainFormLook {

using WidgetColours::colourList;
using WidgetColours::colourText;

void apply(CalendarMonthExtForm &form, const Settings &settings)
{
    const SchemePalette &s = SchemePalettes::forScheme(settings.CurrentColorScheme);
    if (ResourcesForm *resources = ResourcesForm::find())
        resources->setScheme(s);

    QPalette window = form.palette();
    window.setColor(QPalette::Window, colorFromBgr(s.ground));
    form.setPalette(window);
    if (auto *body = qobject_cast<WindowBody *>(form.FrameMove)) {
        const QString &picture =
            settings.CurrentPicture.isEmpty() ? settings.CalendarPicture : settings.CurrentPicture;
        body->setLook(s, picture, settings.CalendarBorderWidth, MainFormLayout::textAreas());
    }

    colourText(form.LabelActDate, s.title);
    for (QLabel *caption : { form.LabelMonth, form.LabelToday, form.LabelTime, form.LabelActDate2,
                             form.LabelLeftDays, form.LabelDays })
        colourText(caption, s.caption);
    for (QLabel *value :
         { form.LabelTodayVal, form.LabelTimeVal, form.LabelActDate2Val, form.LabelLeftDaysVal })
        colourText(value, s.value);
    for (std::size_t column = 1; column < form.LabelWeekDay.size(); ++column)
        colourText(form.LabelWeekDay[column], s.weekday);
    for (QLabel *link : { form.LabelSettings, form.LabelAbout })
        colourText(link, s.link, s.linkHover);

    colourList(form.ListMonth, s);
    colourList(form.ListYear, s);

    for (QPushButton *button :
         { form.KnCopy, form.KnMin, form.KnClose, form.KnOk, form.ButtPrevMonth, form.ButtNextMonth,
           form.ButtUndo, form.ButtRedo, form.ButtNew }) {
        if (auto *picture = qobject_cast<PictureButton *>(button))
            picture->setScheme(s);
    }
    for (std::size_t i = 1; i < form.ButtDay.size(); ++i)
        form.ButtDay[i]->setScheme(s);
}

} // namespace MainFormLook
