#include "ViewFormLook.h"

#include "ViewForm.h"
#include "app/Settings.h"
#include "appearance/BgrColor.h"
#include "appearance/PictureButton.h"
#include "appearance/SchemePalette.h"
#include "appearance/WidgetColours.h"
#include "appearance/WindowBody.h"

#include <QComboBox>
#include <QLabel>
#include <QScrollBar>

namespace ViewFormLook {

void apply(ViewForm &form, const Settings &settings)
{
    const SchemePalette &s = SchemePalettes::forScheme(settings.CurrentColorScheme);
    QPalette window = form.palette();
    window.setColor(QPalette::Window, colorFromBgr(s.ground));
    form.setPalette(window);
    WidgetColours::colourText(form.LabelGeneral, s.title);
    WidgetColours::colourText(form.LabelGeneralSh, s.frame);
    for (QLabel *label : form.rowLabels())
        WidgetColours::colourText(label, s.caption);
    for (const ViewFormText::List l : ViewFormText::AllLists)
        WidgetColours::colourList(form.list(l), s);
    WidgetColours::colourList(form.HScrollBordWidthGen, s);
    for (PictureButton *b : form.findChildren<PictureButton *>())
        b->setScheme(s);
    paintBody(form, settings);
}

void paintBody(ViewForm &form, const Settings &settings)
{
    if (auto *body = qobject_cast<WindowBody *>(form.FrameMove))
        body->setLook(SchemePalettes::forScheme(settings.CurrentColorScheme),
                      QStringLiteral("None"), settings.CalendarBorderWidth);
}

} // namespace ViewFormLook
