#include "SchemeColors.h"

#include "Settings.h"
#include "appearance/SchemePalette.h"

void ApplySchemeColors(Settings &settings)
{
    const SchemePalette &palette = SchemePalettes::forScheme(settings.CurrentColorScheme);
    settings.SchemeBackColor = palette.ground;
    settings.SchemeFrameColor = palette.frame;
    settings.ShadowColor = palette.shadow;
    settings.ToolTipBackColor = palette.tipBack;
    settings.ToolTipBorderColor = palette.tipBorder;
    settings.ToolTipForeColor = palette.tipText;
    settings.SchemeValue = static_cast<std::int32_t>(&palette - SchemePalettes::begin());
}
