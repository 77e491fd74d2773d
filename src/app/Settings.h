#pragma once

#include <QString>

#include <cstdint>

// The user's settings and the values derived from them, kept as the words of the settings file.
// One instance lives in Program; every window reads it.
struct Settings
{
    QString Language;
    QString ColorScheme;
    QString ToolTipEffect;
    std::int32_t ToolTipOpacity = 0;
    std::uint32_t ShadowColor = 0;
    QString AppTitleEnglish;
    QString AppTitleRussian;
    std::int32_t SchemeValue = 0;
    QString FirstWeekDay;
    QString Clock12Hour;
    std::int32_t CalendarLeft = 0;
    std::int32_t CalendarTop = 0;
    QString CalendarAlignToCenter;
    QString CalendarTopmost;
    // The tooltips' look: an empty font name stands for "Arial"; BGR colours.
    QString ToolTipFontName;
    std::int32_t ToolTipFontSize = 9;
    QString ToolTipFontItalic = QStringLiteral("No");
    QString ToolTipFontBold = QStringLiteral("No");
    std::uint32_t ToolTipForeColor = 0;
    std::uint32_t ToolTipBorderColor = 255;
    std::int32_t ToolTipBorderWidth = 1;
    std::uint32_t ToolTipBackColor = 0xC6FFC6;
    std::uint32_t SchemeFrameColor = 0;
    std::int32_t CalendarBorderWidth = 0;
    std::uint32_t SchemeBackColor = 0;
    QString CalendarPicture;
    QString CurrentColorScheme;
    QString PreviousColorScheme;
    QString CurrentPicture;
    QString PreviousPicture;
    std::int32_t ShadowOffset = 65;
    QString VersionText;
    // Set by the window code when its defaults are applied; read by the taskbar presence.
    bool WindowDefaultsApplied = false;
    // The text searched for the "/rus" and "/eng" switches. Never filled: this edition takes
    // no options, so the switches stay dead on purpose.
    QString CommandLine;
};

namespace SettingsKeys {
inline constexpr char16_t Language[] = u"Language=";
inline constexpr char16_t ColorScheme[] = u"ColorScheme=";
inline constexpr char16_t FirstWeekDay[] = u"FirstWeekDay=";
inline constexpr char16_t CalendarBorderWidth[] = u"CalendarBorderWidth=";
inline constexpr char16_t CalendarPicture[] = u"CalendarPicture=";
inline constexpr char16_t CalendarLeft[] = u"CalendarLeft=";
inline constexpr char16_t CalendarTop[] = u"CalendarTop=";
inline constexpr char16_t CalendarAlignToCenter[] = u"CalendarAlignToCenter=";
inline constexpr char16_t CalendarTopmost[] = u"CalendarTopmost=";
} // namespace SettingsKeys

namespace ProgramText {
inline constexpr char16_t VersionText[] = u"1.0.1";
inline constexpr char16_t AppTitleEnglish[] = u"QLV Calendar Lite";
inline constexpr char16_t AppTitleRussian[] = u"Календарь КЛВ Лайт";
} // namespace ProgramText

// The Main window's size, in twips.
inline constexpr int MainFormWidthTwips = 6000;
inline constexpr int MainFormHeightTwips = 4095;
inline constexpr int TwipsPerPixel = 15;
