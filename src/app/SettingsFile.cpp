#include "SettingsFile.h"

#include "AtomicFile.h"
#include "Clock.h"
#include "FileOps.h"
#include "FileUtils.h"
#include "LeadingNumber.h"
#include "LineReader.h"
#include "appearance/AppearanceNames.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace {

// The keys in the order they are tried: a line holding two keys is read as the earlier one.
enum class Key {
    Language,
    ColorScheme,
    FirstWeekDay,
    CalendarBorderWidth,
    CalendarPicture,
    CalendarLeft,
    CalendarTop,
    CalendarAlignToCenter,
    CalendarTopmost
};

struct KeyName
{
    Key key;
    std::string_view lower; // searched case-insensitively
};

constexpr std::array<KeyName, 9> KeyOrder = { {
    { Key::Language, "language=" },
    { Key::ColorScheme, "colorscheme=" },
    { Key::FirstWeekDay, "firstweekday=" },
    { Key::CalendarBorderWidth, "calendarborderwidth=" },
    { Key::CalendarPicture, "calendarpicture=" },
    { Key::CalendarLeft, "calendarleft=" },
    { Key::CalendarTop, "calendartop=" },
    { Key::CalendarAlignToCenter, "calendaraligntocenter=" },
    { Key::CalendarTopmost, "calendartopmost=" },
} };

std::string asciiLower(QByteArrayView bytes)
{
    std::string lower(static_cast<size_t>(bytes.size()), '\0');
    std::transform(bytes.begin(), bytes.end(), lower.begin(), [](char c) {
        return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

bool containsInsensitive(const QString &text, QLatin1StringView what)
{
    return text.contains(what, Qt::CaseInsensitive);
}

// Blanks are spaces only: a tab around a value is part of it, as it always was.
QString trimBlanks(const QString &text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == QLatin1Char(' '))
        ++begin;
    while (end > begin && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return text.mid(begin, end - begin);
}

// Clamps the way the reader always has: first the upper bound, then the lower one, so a screen
// too small for both bounds still gives a defined answer.
double clampValue(double value, double low, double high)
{
    if (value > high)
        value = high;
    if (value < low)
        value = low;
    return value;
}

QString oneOf(const QString &value, const QStringList &allowed, const QString &fallback)
{
    return allowed.contains(value) ? value : fallback;
}

const QString English = QStringLiteral("English");
const QString Russian = QStringLiteral("Russian");
const QString Yes = QStringLiteral("Yes");
const QString No = QStringLiteral("No");

} // namespace

QString NormalizeYesNo(const QString &value, const QString &defaultValue)
{
    QString word = value.toLower();
    if (!word.isEmpty())
        word[0] = word.at(0).toUpper();
    return (word == Yes || word == No) ? word : defaultValue;
}

QString SettingValue(const QString &line)
{
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    if (equals < 0)
        return {};
    return trimBlanks(line.mid(equals + 1));
}

SettingsFile::SettingsFile(Settings &settings, SettingsContext context)
    : m_settings(settings)
    , m_context(std::move(context))
{
    if (!m_context.resolveColorScheme) {
        m_context.resolveColorScheme = [](const QString &choice) {
            return AppearanceNames::resolveColorScheme(choice, *QRandomGenerator::global());
        };
    }
    if (!m_context.resolvePicture) {
        m_context.resolvePicture = [](const QString &choice) {
            return AppearanceNames::resolvePicture(choice, *QRandomGenerator::global());
        };
    }
    if (!m_context.isRussianSystem)
        m_context.isRussianSystem = [] { return false; };
}

std::chrono::steady_clock::time_point SettingsFile::steadyNow() const
{
    return m_context.clock ? m_context.clock->steadyNow() : std::chrono::steady_clock::now();
}

void SettingsFile::SetDefaultSettings()
{
    Settings &s = m_settings;
    if (s.Language != English && s.Language != Russian)
        s.Language = English;
    s.ColorScheme = QStringLiteral("Blue");
    s.WindowDefaultsApplied = true;
    s.ToolTipEffect = m_context.layeredWindows ? QStringLiteral("Basic") : No;
    s.ShadowColor = 0x525252;
    s.ToolTipOpacity = 180;
    s.AppTitleEnglish = QString::fromUtf16(ProgramText::AppTitleEnglish);
    s.AppTitleRussian = QString::fromUtf16(ProgramText::AppTitleRussian);
    s.SchemeValue = 0;
    if (s.ToolTipFontName.isEmpty())
        s.ToolTipFontName = QStringLiteral("Arial");
    s.ToolTipFontSize = 9;
    s.ToolTipFontItalic = No;
    s.ToolTipFontBold = No;
    s.ToolTipForeColor = 0;
    s.ToolTipBorderColor = 255;
    s.ToolTipBorderWidth = 1;
    s.ToolTipBackColor = 0xC6FFC6;
    s.SchemeFrameColor = 0xC60000;
    s.CalendarBorderWidth = 2;
    s.SchemeBackColor = 0xF5C487;
    s.CalendarPicture = QStringLiteral("Sky");
    if (s.Language != English) {
        s.FirstWeekDay = QStringLiteral("Monday");
        s.Clock12Hour = No;
    } else {
        s.FirstWeekDay = QStringLiteral("Sunday");
        s.Clock12Hour = Yes;
    }
    const double left = roundHalfEven((m_context.screenWidthTwips - MainFormWidthTwips) / 2.0);
    const double top = roundHalfEven((m_context.screenHeightTwips - MainFormHeightTwips) / 2.0);
    if (left >= INT32_MIN && left <= INT32_MAX)
        s.CalendarLeft = static_cast<std::int32_t>(left);
    if (top >= INT32_MIN && top <= INT32_MAX)
        s.CalendarTop = static_cast<std::int32_t>(top);
    s.CalendarAlignToCenter = No;
    s.CalendarTopmost = No;
}

void SettingsFile::applyLanguageSwitches()
{
    // CommandLine is never filled, so neither switch takes effect in this edition.
    if (containsInsensitive(m_settings.CommandLine, QLatin1StringView("/rus")))
        m_settings.Language = Russian;
    if (containsInsensitive(m_settings.CommandLine, QLatin1StringView("/eng")))
        m_settings.Language = English;
}

bool SettingsFile::applyLine(const QByteArray &line)
{
    if (!line.contains('='))
        return true;
    const std::string lower = asciiLower(line);
    const auto *const found = std::find_if(KeyOrder.begin(), KeyOrder.end(), [&](const KeyName &k) {
        return lower.find(k.lower) != std::string::npos;
    });
    if (found == KeyOrder.end())
        return true;

    Settings &s = m_settings;
    const QString value = SettingValue(QString::fromLatin1(line));
    auto number = [&](double low, double high, std::int32_t &field) {
        const std::optional<double> read = leadingNumber(value);
        if (!read)
            return false; // an overflow: the field keeps its value and the read counts as bad
        field = static_cast<std::int32_t>(roundHalfEven(clampValue(*read, low, high)));
        return true;
    };

    switch (found->key) {
    case Key::Language:
        s.Language = oneOf(value, { English, Russian }, English);
        return true;
    case Key::ColorScheme:
        s.ColorScheme = oneOf(value, AppearanceNames::colorSchemeChoices(), QStringLiteral("Blue"));
        s.CurrentColorScheme = m_context.resolveColorScheme(s.ColorScheme);
        if (s.PreviousColorScheme.isEmpty())
            s.PreviousColorScheme = s.CurrentColorScheme;
        return true;
    case Key::FirstWeekDay:
        s.FirstWeekDay = oneOf(value, { QStringLiteral("Sunday"), QStringLiteral("Monday") },
                               QStringLiteral("Monday"));
        return true;
    case Key::CalendarBorderWidth:
        return number(0, 3, s.CalendarBorderWidth);
    case Key::CalendarPicture:
        s.CalendarPicture = oneOf(value, AppearanceNames::pictureChoices(), QStringLiteral("None"));
        s.CurrentPicture = m_context.resolvePicture(s.CalendarPicture);
        if (s.PreviousPicture.isEmpty())
            s.PreviousPicture = s.CurrentPicture;
        return true;
    case Key::CalendarLeft:
        return number(45, m_context.screenWidthTwips - 45.0, s.CalendarLeft);
    case Key::CalendarTop:
        return number(45, m_context.screenHeightTwips - 45.0, s.CalendarTop);
    case Key::CalendarAlignToCenter:
        s.CalendarAlignToCenter = NormalizeYesNo(value, No);
        return true;
    case Key::CalendarTopmost:
        s.CalendarTopmost = NormalizeYesNo(value, No);
        return true;
    }
    return true;
}

bool SettingsFile::readFrom(QIODevice &device)
{
    const auto deadline = steadyNow() + m_context.readDeadline;
    LineReader reader(device);
    QByteArrayView line;
    bool ok = true;
    quint64 lines = 0;
    // Empty lines change nothing and are passed over in bulk.
    while (reader.readNonEmptyLine(line)) {
        // The deadline is looked at after every line, as far as anyone can tell: only a line
        // with "=" can change the record, so the clock is read before each of those. A file of
        // millions of other lines reads the clock every 64th line, which keeps the cut within
        // microseconds and a 1 GB file far inside the deadline.
        const bool mayApply = line.contains('=');
        if (lines++ > 0 && (mayApply || (lines & 63) == 0) && steadyNow() >= deadline)
            break;
        if (mayApply)
            ok = applyLine(line.toByteArray()) && ok;
    }
    return ok && !reader.hasError();
}

bool SettingsFile::ReadSettings()
{
    bool ok = false;
    {
        // Only a regular file is read: a folder fails, and a FIFO or a device would block or
        // never end.
        QFile file(m_context.settingsPath);
        if (QFileInfo(m_context.settingsPath).isFile()
            && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
            ok = readFrom(file);
        }
    }
    if (ok) {
        applyLanguageSwitches();
        m_settings.ShadowOffset = 65;
        m_settings.VersionText = QString::fromUtf16(ProgramText::VersionText);
        return true;
    }

    // The file is bad or missing: start again from defaults and write them out at once.
    DeleteFile(m_context.settingsPath, false, m_context.waiting);
    if (!FileExists(m_context.settingsPath))
        m_settings.Language = m_context.isRussianSystem() ? Russian : English;
    SetDefaultSettings();
    applyLanguageSwitches();
    WriteSettings();
    return false;
}

QByteArray SettingsFile::fileContents() const
{
    const Settings &s = m_settings;
    QString text;
    text += QStringLiteral("Don't change this file by hand! Some incorrect changes may crash the "
                           "program.\r\n");
    text += QStringLiteral("\r\n[Appearance]\r\n\r\n");
    auto line = [&text](const char16_t *key, const QString &value) {
        text += QString::fromUtf16(key) + value + QStringLiteral("\r\n");
    };
    line(SettingsKeys::Language, s.Language);
    line(SettingsKeys::ColorScheme, s.ColorScheme);
    line(SettingsKeys::FirstWeekDay, s.FirstWeekDay);
    line(SettingsKeys::CalendarBorderWidth, QString::number(s.CalendarBorderWidth));
    line(SettingsKeys::CalendarPicture, s.CalendarPicture);
    line(SettingsKeys::CalendarLeft, QString::number(s.CalendarLeft));
    line(SettingsKeys::CalendarTop, QString::number(s.CalendarTop));
    line(SettingsKeys::CalendarAlignToCenter, s.CalendarAlignToCenter);
    line(SettingsKeys::CalendarTopmost, s.CalendarTopmost);
    return text.toLatin1();
}

bool SettingsFile::WriteSettings()
{
    FileOps &ops = m_context.fileOps ? *m_context.fileOps : FileOps::system();
    const QString folder = FolderOfPath(m_context.settingsPath);
    if (!FolderExists(folder))
        CreateFolder(folder, false, false, m_context.waiting);
    return AtomicFile::write(m_context.settingsPath, QStringLiteral("settings.tmp"), fileContents(),
                             ops);
}

bool SettingsFile::UpdateSettingsKeys(const QString &path,
                                      const QList<QPair<QString, qint32>> &pairs)
{
    // Only a regular file: a FIFO put in its place would block the open.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;

    struct Replacement
    {
        std::string lowerKey;
        QByteArray line;
    };
    std::vector<Replacement> replacements;
    for (const auto &[key, value] : pairs)
        replacements.push_back(
            { key.toLower().toStdString(), key.toLatin1() + QByteArray::number(value) });

    FileOps &ops = m_context.fileOps ? *m_context.fileOps : FileOps::system();
    const QString tempName =
        QFileInfo(AtomicFile::resolveTarget(path)).completeBaseName() + QStringLiteral(".tmp");
    AtomicFile::Writer writer(path, tempName, ops);
    if (!writer.open())
        return false;

    // Streamed piece by piece, so a file of any size costs no more memory than the reader. A
    // key is looked for in the first piece of a line; the rest of a replaced line is dropped.
    // The copy replaces the file only once every line is in it: one that runs out of time is
    // dropped, and the old file, with the user's other lines, stays whole.
    const auto deadline = steadyNow() + m_context.keyUpdateDeadline;
    bool outOfTime = false;
    LineReader reader(file);
    QByteArrayView piece;
    bool endsLine = true;
    bool dropRest = false;
    bool lineStart = true;
    bool ok = true;
    while (ok && reader.readPiece(piece, endsLine)) {
        if (outOfTime)
            return false;
        if (lineStart) {
            const std::string lower = asciiLower(piece);
            const auto found =
                std::find_if(replacements.begin(), replacements.end(), [&](const Replacement &r) {
                    return lower.find(r.lowerKey) != std::string::npos;
                });
            dropRest = found != replacements.end();
            ok = writer.write(dropRest ? QByteArrayView(found->line) : piece);
        } else if (!dropRest) {
            ok = writer.write(piece);
        }
        lineStart = endsLine;
        if (endsLine) {
            ok = ok && writer.write("\r\n");
            outOfTime = steadyNow() >= deadline;
        }
    }
    if (!ok || reader.hasError())
        return false;
    file.close();
    Wait(2, false, m_context.waiting);
    return writer.commit();
}
