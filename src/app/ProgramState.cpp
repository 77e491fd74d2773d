#include "ProgramState.h"

#include "Clock.h"
#include "appearance/Captions.h"

namespace {

// The windows whose loaded flags the program keeps.
const QSet<QString> &knownForms()
{
    static const QSet<QString> names = {
        QStringLiteral("ABOUTFORM"),   QStringLiteral("CALENDARMONTHEXTFORM"),
        QStringLiteral("VIEWFORM"),    QStringLiteral("RESOURCESFORM"),
        QStringLiteral("TOOLTIPFORM"), QStringLiteral("TABAPPFORM"),
        QStringLiteral("SHADOW"),
    };
    return names;
}

} // namespace

ProgramState::ProgramState(const Clock *clock)
    : m_clock(clock)
{
    if (!m_clock) {
        m_ownClock = std::make_unique<SystemClock>();
        m_clock = m_ownClock.get();
    }
}

ProgramState::~ProgramState() = default;

bool ProgramState::IsFormLoaded(const QString &name, bool useFormsList) const
{
    const QString wanted = name.trimmed().toUpper();
    if (useFormsList) {
        if (wanted.isEmpty() || !formsList)
            return false;
        const QStringList open = formsList();
        return std::any_of(open.begin(), open.end(),
                           [&](const QString &n) { return n.toUpper() == wanted; });
    }
    return knownForms().contains(wanted) && m_loadedForms.contains(wanted);
}

void ProgramState::setFormLoaded(const QString &name, bool loaded)
{
    const QString key = name.trimmed().toUpper();
    if (loaded)
        m_loadedForms.insert(key);
    else
        m_loadedForms.remove(key);
}

void ProgramState::HandleQuitKeys(int keyCode, int shift)
{
    constexpr int KeyQ = 81;
    constexpr int KeyX = 88;
    constexpr int AltBit = 4;
    if ((keyCode == KeyQ || keyCode == KeyX) && (shift & AltBit)) {
        Closing = true;
        CloseProgram();
    }
}

void ProgramState::CloseProgram()
{
    if (closeProgram)
        closeProgram();
}

QString AppTitle(const Settings &settings)
{
    return Captions::isEnglish(settings.Language) ? settings.AppTitleEnglish
                                                  : settings.AppTitleRussian;
}

QString DecideShadowMode(bool layeredWindows, const QString &platformName)
{
    if (!layeredWindows || platformName.startsWith(QStringLiteral("wayland")))
        return QStringLiteral("No");
    return QStringLiteral("Basic");
}
