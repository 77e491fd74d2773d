#include "SettingsEditor.h"

#include "app/Settings.h"
#include "appearance/AppearanceNames.h"

#include <algorithm>

using ViewFormText::List;

namespace {

// The saved copy stands for a "Random" choice only when it is one that "Random" can draw: a
// file changed meanwhile (by hand, by another copy) to another choice is shown as it stands.
void restoreDraw(const QString &choice, const QString &saved, const QStringList &drawable,
                 QString &inForce)
{
    if (choice == AppearanceNames::Random && drawable.contains(saved))
        inForce = saved;
}

} // namespace

SettingsEditor::SettingsEditor(Settings &settings,
                               std::function<QString(const QString &)> resolveScheme,
                               std::function<QString(const QString &)> resolvePicture)
    : m_settings(settings)
    , m_resolveScheme(std::move(resolveScheme))
    , m_resolvePicture(std::move(resolvePicture))
{ }

QString SettingsEditor::setting(List list) const
{
    const Settings &s = m_settings;
    switch (list) {
    case List::Lang:
        return s.Language;
    case List::FirstDay:
        return s.FirstWeekDay;
    case List::ColorScheme:
        return s.ColorScheme;
    case List::BackPict:
        return s.CalendarPicture;
    case List::AlignCenter:
        return s.CalendarAlignToCenter;
    case List::Topmost:
        return s.CalendarTopmost;
    }
    return {};
}

SettingsEditor::Effects SettingsEditor::choose(List list, int index)
{
    const QString value = ViewFormText::valueAt(list, index);
    if (IsFilling || value.isEmpty())
        return Effect::None;
    Settings &s = m_settings;
    switch (list) {
    case List::Lang:
        if (value == s.Language)
            return Effect::None;
        s.Language = value;
        IsChanged = true;
        return Effect::Recaption | Effect::PreviewMain;
    case List::FirstDay:
        if (value == s.FirstWeekDay)
            return Effect::None;
        s.FirstWeekDay = value;
        IsChanged = true;
        return Effect::PreviewMain;
    case List::ColorScheme:
        return chooseScheme(value);
    case List::BackPict:
        return choosePicture(value);
    case List::AlignCenter:
        s.CalendarAlignToCenter = value;
        IsChanged = true;
        return value == QStringLiteral("Yes") ? Effect::CentreMain : Effect::None;
    case List::Topmost:
        // The Main window takes it when the settings are saved.
        s.CalendarTopmost = value;
        IsChanged = true;
        return Effect::None;
    }
    return Effect::None;
}

SettingsEditor::Effects SettingsEditor::chooseScheme(const QString &scheme)
{
    IsChanged = true;
    Effects effects = Effect::Recolour | Effect::PreviewMain;
    // A scheme chosen before the picture list was touched shows on its plain ground.
    if (!PictureChosen)
        effects |= choosePicture(QStringLiteral("None")) | Effect::PictureToNone;
    m_settings.ColorScheme = scheme;
    m_settings.CurrentColorScheme = m_resolveScheme(scheme);
    return effects;
}

SettingsEditor::Effects SettingsEditor::choosePicture(const QString &picture)
{
    PictureChosen = true;
    IsChanged = true;
    m_settings.CalendarPicture = picture;
    m_settings.CurrentPicture = m_resolvePicture(picture);
    return Effect::PreviewMain;
}

SettingsEditor::Effects SettingsEditor::chooseBorderWidth(int width)
{
    if (IsFilling)
        return Effect::None;
    IsChanged = true;
    m_settings.CalendarBorderWidth = std::clamp(width, 0, 3);
    return Effect::Borders;
}

void SettingsEditor::keepResolved()
{
    m_settings.PreviousColorScheme = m_settings.CurrentColorScheme;
    m_settings.PreviousPicture = m_settings.CurrentPicture;
}

void SettingsEditor::restoreResolved()
{
    Settings &s = m_settings;
    restoreDraw(s.ColorScheme, s.PreviousColorScheme, AppearanceNames::concreteColorSchemes(),
                s.CurrentColorScheme);
    restoreDraw(s.CalendarPicture, s.PreviousPicture, AppearanceNames::concretePictures(),
                s.CurrentPicture);
}
