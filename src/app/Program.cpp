#include "Program.h"

#include "Clock.h"
#include "FileUtils.h"
#include "SettingsFolder.h"
#include "TerminationSignals.h"
#include "calendar/CalendarMonthExtForm.h"
#include "windowing/LayeredWindows.h"
#include "windowing/WindowBehaviour.h"

#include <QApplication>
#include <QCoreApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <malloc.h>

namespace {

const QString MainFormName = QStringLiteral("CALENDARMONTHEXTFORM");

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

Program::Program(ProgramOptions options)
    : m_options(std::move(options))
{
    if (m_options.clock) {
        m_clock = m_options.clock;
    } else {
        m_ownClock = std::make_unique<SystemClock>();
        m_clock = m_ownClock.get();
    }
    if (!m_options.getEnv)
        m_options.getEnv = [](const char *name) { return qgetenv(name); };
}

Program::~Program()
{
    // The windows hold a reference to us; none may outlive the program object.
    delete m_mainForm.data();
}

QString Program::GetOSPlatform() const
{
    // None of the Windows platform names applies, and no rule treats "Unknown" differently.
    return QStringLiteral("Unknown");
}

void Program::Main()
{
    OSPlatform = GetOSPlatform();

    const QString appDir = m_options.applicationDir.isEmpty()
        ? QCoreApplication::applicationDirPath()
        : m_options.applicationDir;
    ProgramFolder = programFolderOf(appDir);

    FolderEnvironment folderEnv = systemFolderEnvironment(ProgramFolder);
    folderEnv.getEnv = m_options.getEnv;
    if (!m_options.fallbackHome.isNull())
        folderEnv.fallbackHome = m_options.fallbackHome;
    SettingsFolder = GetSettingsFolder(folderEnv, &m_waiting);
    SettingsPath = SettingsFolder + QStringLiteral("qlvcal.ini");

    SettingsContext context;
    context.settingsPath = SettingsPath;
    context.screenWidthTwips = m_options.screenWidthTwips;
    context.screenHeightTwips = m_options.screenHeightTwips;
    if (context.screenWidthTwips <= 0 || context.screenHeightTwips <= 0) {
        const QScreen *screen = QGuiApplication::primaryScreen();
        const QRect geometry = screen ? screen->geometry() : QRect(0, 0, 1024, 768);
        context.screenWidthTwips = geometry.width() * TwipsPerPixel;
        context.screenHeightTwips = geometry.height() * TwipsPerPixel;
    }
    context.layeredWindows = ProbeLayeredWindows(OSPlatform);
    ShadowMode = DecideShadowMode(context.layeredWindows, QGuiApplication::platformName());
    const auto getEnv = m_options.getEnv;
    context.isRussianSystem = [getEnv] { return IsRussianSystem(getEnv); };
    context.clock = m_clock;
    context.fileOps = m_options.fileOps;
    context.waiting = &m_waiting;
    m_settingsFile = std::make_unique<SettingsFile>(m_settings, std::move(context));

    m_settingsFile->SetDefaultSettings();
    // A failed read has already rewritten the file from defaults, so the second read normally
    // succeeds; four reads at most.
    for (int attempt = 0; attempt < 4; ++attempt) {
        ++m_settingsReads;
        if (m_settingsFile->ReadSettings())
            break;
    }
    Wait(2, true, &m_waiting);
    SettingsChecksum = FileSum(SettingsPath);

    const QString title = m_settings.Language != QStringLiteral("English")
        ? m_settings.AppTitleRussian
        : m_settings.AppTitleEnglish;
    QGuiApplication::setApplicationDisplayName(title);

    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return;
    auto *form = new CalendarMonthExtForm(*this);
    m_mainForm = form;
    form->setWindowTitle(title);
    form->showAtStart();
    // Start-up frees much of what it allocated (font and style caches, the first paint); once the
    // window is up, give those pages back so that an idle calendar holds only what it uses.
    QTimer::singleShot(0, [] { malloc_trim(0); });

    if (m_options.closeOnTerminationSignals) {
        m_terminationSignals = std::make_unique<TerminationSignals>([this] {
            if (QWidget *main = m_mainForm.data())
                main->close();
            else
                QCoreApplication::quit();
        });
    }
}

CalendarMonthExtForm *Program::mainForm() const
{
    return qobject_cast<CalendarMonthExtForm *>(m_mainForm.data());
}

WindowBehaviour &Program::windowBehaviour()
{
    if (!m_windowBehaviour)
        m_windowBehaviour = std::make_unique<WindowBehaviour>(*this);
    return *m_windowBehaviour;
}

bool Program::IsFormLoaded(const QString &name, bool useFormsList) const
{
    const QString wanted = name.trimmed().toUpper();
    if (useFormsList) {
        if (wanted.isEmpty() || !qobject_cast<QApplication *>(QCoreApplication::instance()))
            return false;
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::any_of(windows.begin(), windows.end(),
                           [&](const QWidget *w) { return w->objectName().toUpper() == wanted; });
    }
    return knownForms().contains(wanted) && m_loadedForms.contains(wanted);
}

bool Program::NoMainFormLoaded() const
{
    return !IsFormLoaded(QStringLiteral("CalendarMonthExtForm"), true)
        && !IsFormLoaded(QStringLiteral("AboutForm"), true)
        && !IsFormLoaded(QStringLiteral("ViewForm"), true);
}

void Program::UnloadFormByName(const QString &name)
{
    if (!IsFormLoaded(name, true))
        return;
    const QString wanted = name.trimmed().toUpper();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *w : windows) {
        if (w->objectName().toUpper() == wanted) {
            w->close();
            w->deleteLater();
        }
    }
}

void Program::HandleQuitKeys(int keyCode, int shift)
{
    constexpr int KeyQ = 81;
    constexpr int KeyX = 88;
    constexpr int AltBit = 4;
    if ((keyCode == KeyQ || keyCode == KeyX) && (shift & AltBit)) {
        Closing = true;
        CloseProgram();
    }
}

void Program::setFormLoaded(const QString &name, bool loaded)
{
    const QString key = name.trimmed().toUpper();
    if (loaded)
        m_loadedForms.insert(key);
    else
        m_loadedForms.remove(key);
}

void Program::rememberMainFormPosition()
{
    if (!m_mainForm || m_mainForm->isMinimized())
        return;
    // A native Wayland window cannot know where it is; keep the stored position there.
    if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        return;
    const QPoint topLeft = m_mainForm->pos();
    m_settings.CalendarLeft = topLeft.x() * TwipsPerPixel;
    m_settings.CalendarTop = topLeft.y() * TwipsPerPixel;
}

void Program::CloseProgram()
{
    if (m_shutDown)
        return;
    m_shutDown = true;

    if (m_settingsFile && !IsFormLoaded(QStringLiteral("ViewForm"), true)) {
        rememberMainFormPosition();
        // Someone else (a hand edit, another running copy) changed the file since start-up:
        // keep their values and bring only the window position up to date.
        if (FileSum(SettingsPath) == SettingsChecksum) {
            m_settingsFile->WriteSettings();
        } else {
            m_settingsFile->UpdateSettingsKeys(
                SettingsPath,
                { { QString::fromUtf16(SettingsKeys::CalendarLeft), m_settings.CalendarLeft },
                  { QString::fromUtf16(SettingsKeys::CalendarTop), m_settings.CalendarTop } });
        }
    }

    for (const char *name :
         { "ToolTipForm", "AboutForm", "ViewForm", "TabAppForm", "CalendarMonthExtForm" }) {
        UnloadFormByName(QString::fromLatin1(name));
    }
}
