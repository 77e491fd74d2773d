// Feeds arbitrary bytes to the settings reader and checks that whatever it reads, every field
// of the record stays inside its allowed set or range, and that the file written from that
// record reads back to the same record.
#include "app/Settings.h"
#include "app/SettingsFile.h"
#include "appearance/AppearanceNames.h"

#include <QBuffer>
#include <QByteArray>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int ScreenWidthTwips = 1280 * TwipsPerPixel;
constexpr int ScreenHeightTwips = 800 * TwipsPerPixel;

[[noreturn]] void fail(const char *what, const QString &value)
{
    std::fprintf(stderr, "invariant broken: %s (%s)\n", what, qPrintable(value));
    std::abort();
}

void check(bool holds, const char *what, const QString &value = QString())
{
    if (!holds)
        fail(what, value);
}

void checkRecord(const Settings &s)
{
    const QStringList yesNo = { QStringLiteral("Yes"), QStringLiteral("No") };
    check(s.Language == QStringLiteral("English") || s.Language == QStringLiteral("Russian"),
          "Language", s.Language);
    check(AppearanceNames::colorSchemeChoices().contains(s.ColorScheme), "ColorScheme",
          s.ColorScheme);
    check(s.FirstWeekDay == QStringLiteral("Sunday") || s.FirstWeekDay == QStringLiteral("Monday"),
          "FirstWeekDay", s.FirstWeekDay);
    check(s.CalendarBorderWidth >= 0 && s.CalendarBorderWidth <= 3, "CalendarBorderWidth",
          QString::number(s.CalendarBorderWidth));
    check(AppearanceNames::pictureChoices().contains(s.CalendarPicture), "CalendarPicture",
          s.CalendarPicture);
    check(s.CalendarLeft >= 45 && s.CalendarLeft <= ScreenWidthTwips - 45, "CalendarLeft",
          QString::number(s.CalendarLeft));
    check(s.CalendarTop >= 45 && s.CalendarTop <= ScreenHeightTwips - 45, "CalendarTop",
          QString::number(s.CalendarTop));
    check(yesNo.contains(s.CalendarAlignToCenter), "CalendarAlignToCenter",
          s.CalendarAlignToCenter);
    check(yesNo.contains(s.CalendarTopmost), "CalendarTopmost", s.CalendarTopmost);
    check(s.CurrentColorScheme.isEmpty()
              || AppearanceNames::concreteColorSchemes().contains(s.CurrentColorScheme),
          "CurrentColorScheme", s.CurrentColorScheme);
    check(s.CurrentPicture.isEmpty() || s.CurrentPicture == QStringLiteral("None")
              || AppearanceNames::concretePictures().contains(s.CurrentPicture),
          "CurrentPicture", s.CurrentPicture);
}

SettingsContext context()
{
    SettingsContext c;
    c.settingsPath = QStringLiteral("/nonexistent/qlvcal.ini");
    c.screenWidthTwips = ScreenWidthTwips;
    c.screenHeightTwips = ScreenHeightTwips;
    return c;
}

bool sameStoredFields(const Settings &a, const Settings &b)
{
    return a.Language == b.Language && a.ColorScheme == b.ColorScheme
        && a.FirstWeekDay == b.FirstWeekDay && a.CalendarBorderWidth == b.CalendarBorderWidth
        && a.CalendarPicture == b.CalendarPicture && a.CalendarLeft == b.CalendarLeft
        && a.CalendarTop == b.CalendarTop && a.CalendarAlignToCenter == b.CalendarAlignToCenter
        && a.CalendarTopmost == b.CalendarTopmost;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Settings settings;
    SettingsFile file(settings, context());
    file.SetDefaultSettings();
    checkRecord(settings);

    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const bool ok = file.readFrom(buffer);
    checkRecord(settings);
    if (!ok)
        return 0; // the caller would now rewrite the file from defaults

    // What is written must read back as the same record.
    QByteArray written = file.fileContents();
    Settings again;
    SettingsFile second(again, context());
    second.SetDefaultSettings();
    QBuffer writtenBuffer(&written);
    writtenBuffer.open(QIODevice::ReadOnly);
    check(second.readFrom(writtenBuffer), "rereading the written file failed");
    check(sameStoredFields(settings, again), "the written file reads back differently",
          QString::fromLatin1(written));
    return 0;
}
