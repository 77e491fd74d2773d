#pragma once

#include "ViewFormText.h"

#include <QFlags>
#include <QString>

#include <functional>

struct Settings;

// What the Settings window's choices do to the settings record, and what each asks to be
// redrawn. It changes the record at once (the Main window previews it); Ok keeps the record and
// Cancel reads it back from the file, so nothing here remembers the values it replaced.
class SettingsEditor
{
public:
    enum class Effect {
        None = 0,
        Recaption = 1 << 0, // the window's own captions and lists, in the new language
        PreviewMain = 1 << 1, // the Main window's captions, colours and grid
        Recolour = 1 << 2, // the scheme in force changed: shared colours, this window, shadows
        Borders = 1 << 3, // both windows' bodies, with the new border width
        CentreMain = 1 << 4,
        PictureToNone = 1 << 5, // the picture list shows "None" now
    };
    Q_DECLARE_FLAGS(Effects, Effect)

    // `resolveScheme` and `resolvePicture` give the scheme or picture in force for a choice
    // ("Random" draws one).
    SettingsEditor(Settings &settings, std::function<QString(const QString &)> resolveScheme,
                   std::function<QString(const QString &)> resolvePicture);

    // The setting that `list` shows.
    QString setting(ViewFormText::List list) const;
    // A user's choice of entry `index` in `list`. Nothing happens while IsFilling is set.
    Effects choose(ViewFormText::List list, int index);
    // A user's change of the border width.
    Effects chooseBorderWidth(int width);

    // Ok: the schemes and pictures in force become the ones last saved.
    void keepResolved();
    // Cancel, after the file was read back: a "Random" scheme or picture comes back as the one
    // on screen when the settings were last saved instead of being drawn again.
    void restoreResolved();

    // Set while the window fills its lists and once Ok or Cancel starts closing.
    bool IsFilling = false;
    // Set by any user change of a list or of the border width.
    bool IsChanged = false;
    // Set when the user changes the picture list: from then on a scheme keeps the picture.
    bool PictureChosen = false;

private:
    Effects chooseScheme(const QString &scheme);
    Effects choosePicture(const QString &picture);

    Settings &m_settings;
    std::function<QString(const QString &)> m_resolveScheme;
    std::function<QString(const QString &)> m_resolvePicture;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(SettingsEditor::Effects)
