#pragma once

struct Settings;

// Puts the colours of the scheme in force (CurrentColorScheme) into the colours the settings
// record shares: the tooltip's, the shadow's, the two scheme colours and SchemeValue.
void ApplySchemeColors(Settings &settings);
