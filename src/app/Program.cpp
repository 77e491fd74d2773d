#include "Program.h"

#include "Clock.h"
#include "FileUtils.h"
#include "SchemeColors.h"
#include "SettingsFolder.h"
#include "TerminationSignals.h"
#include "appearance/ResourcesForm.h"
#include "appearance/SchemePalette.h"

#include <QApplication>
#include <QCoreApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <malloc.h>

Program::Program(ProgramOptions options)
    : m_options(std::move(options))
    , m_state(m_options.clock)
{
    if (!m_options.getEnv)
        m_options.getEnv = [](const char *name) { return qgetenv(name); };
    m_state.closeProgram = [this] { CloseProgram(); };
}

Program::~Program()
{
    // The windows hold a reference to our state; none may outlive it.
    delete m_mainForm.data();
}

QString Program::GetOSPlatform() const
{
    // None of the Windows platform names applies, and no rule treats "Unknown" differently.
    return QStringLiteral("Unknown");
}

void Program::Main()
{
    ProgramState &st = m_state;
    st.OSPlatform = GetOSPlatform();

    const QString appDir = m_options.applicationDir.isEmpty()
        ? QCoreApplication::applicationDirPath()
        : m_options.applicationDir;
    st.ProgramFolder = programFolderOf(appDir);

    FolderEnvironment folderEnv = systemFolderEnvironment(st.ProgramFolder);
    folderEnv.getEnv = m_options.getEnv;
    if (!m_options.fallbackHome.isNull())
        folderEnv.fallbackHome = m_options.fallbackHome;
    st.SettingsFolder = GetSettingsFolder(folderEnv, st.waitingFlag());
    // No folder at all: the calendar runs on its defaults and keeps nothing.
    st.SettingsPath =
        st.SettingsFolder.isEmpty() ? QString() : st.SettingsFolder + QStringLiteral("qlvcal.ini");

    SettingsContext context;
    context.settingsPath = st.SettingsPath;
    context.screenWidthTwips = m_options.screenWidthTwips;
    context.screenHeightTwips = m_options.screenHeightTwips;
    if (context.screenWidthTwips <= 0 || context.screenHeightTwips <= 0) {
        const QScreen *screen = QGuiApplication::primaryScreen();
        const QRect geometry = screen ? screen->geometry() : QRect(0, 0, 1024, 768);
        context.screenWidthTwips = geometry.width() * TwipsPerPixel;
        context.screenHeightTwips = geometry.height() * TwipsPerPixel;
    }
    context.layeredWindows =
        m_options.probeLayeredWindows && m_options.probeLayeredWindows(st.OSPlatform);
    st.ShadowMode = DecideShadowMode(context.layeredWindows, QGuiApplication::platformName());
    const auto getEnv = m_options.getEnv;
    context.isRussianSystem = [getEnv] { return IsRussianSystem(getEnv); };
    context.clock = &st.clock();
    context.fileOps = m_options.fileOps;
    context.waiting = st.waitingFlag();
    m_settingsFile = std::make_unique<SettingsFile>(st.settings(), std::move(context));
    st.setSettingsFile(m_settingsFile.get());

    m_settingsFile->SetDefaultSettings();
    // A failed read has already rewritten the file from defaults, so the second read normally
    // succeeds; four reads at most.
    for (int attempt = 0; attempt < 4; ++attempt) {
        ++m_settingsReads;
        if (m_settingsFile->ReadSettings())
            break;
    }
    Wait(2, true, st.waitingFlag());
    st.SettingsChecksum = FileSum(st.SettingsPath);
    ApplySchemeColors(st.settings());
    QGuiApplication::setApplicationDisplayName(AppTitle(st.settings()));

    if (!qobject_cast<QApplication *>(QCoreApplication::instance()) || !m_options.showMainWindow)
        return;
    // The picture buttons' keeper comes before any window that shows them.
    ResourcesForm *resources = ResourcesForm::find();
    if (!resources)
        resources = new ResourcesForm(QCoreApplication::instance());
    resources->setScheme(SchemePalettes::forScheme(st.settings().CurrentColorScheme));
    st.setFormLoaded(resources->objectName(), true);
    m_mainForm = m_options.showMainWindow(st);
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

bool Program::NoMainFormLoaded() const
{
    return !m_state.IsFormLoaded(QStringLiteral("CalendarMonthExtForm"), true)
        && !m_state.IsFormLoaded(QStringLiteral("AboutForm"), true)
        && !m_state.IsFormLoaded(QStringLiteral("ViewForm"), true);
}

void Program::UnloadFormByName(const QString &name)
{
    if (!m_state.IsFormLoaded(name, true))
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

void Program::rememberMainFormPosition()
{
    // A minimised window keeps the place it had: X has no parking spot for icons.
    if (!m_mainForm)
        return;
    // A native Wayland window cannot know where it is; keep the stored position there.
    if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        return;
    const QPoint topLeft = m_mainForm->pos();
    m_state.settings().CalendarLeft = topLeft.x() * TwipsPerPixel;
    m_state.settings().CalendarTop = topLeft.y() * TwipsPerPixel;
}

void Program::CloseProgram()
{
    if (m_shutDown)
        return;
    m_shutDown = true;

    const Settings &s = m_state.settings();
    if (m_settingsFile && !m_state.IsFormLoaded(QStringLiteral("ViewForm"), true)) {
        rememberMainFormPosition();
        // Someone else (a hand edit, another running copy) changed the file since start-up:
        // keep their values and bring only the window position up to date.
        if (FileSum(m_state.SettingsPath) == m_state.SettingsChecksum) {
            m_settingsFile->WriteSettings();
        } else {
            m_settingsFile->UpdateSettingsKeys(
                m_state.SettingsPath,
                { { QString::fromUtf16(SettingsKeys::CalendarLeft), s.CalendarLeft },
                  { QString::fromUtf16(SettingsKeys::CalendarTop), s.CalendarTop } });
        }
    }

    for (const char *name :
         { "ToolTipForm", "AboutForm", "ViewForm", "TabAppForm", "CalendarMonthExtForm" }) {
        UnloadFormByName(QString::fromLatin1(name));
    }
    // The button images go last, once no window can ask for them.
    if (ResourcesForm *resources = ResourcesForm::find()) {
        resources->setObjectName(QString());
        resources->deleteLater();
        m_state.setFormLoaded(QStringLiteral("ResourcesForm"), false);
    }
}
