#include "AboutForm.h"

#include "AboutText.h"
#include "app/ProgramState.h"
#include "appearance/BgrColor.h"
#include "appearance/CaptionLabel.h"
#include "appearance/PictureButton.h"
#include "appearance/SchemePalette.h"
#include "appearance/WindowBody.h"
#include "tooltip/ToolTips.h"
#include "windowing/KeyboardState.h"
#include "windowing/NamedControl.h"
#include "windowing/Placement.h"
#include "windowing/Shadow.h"
#include "windowing/TabAppForm.h"
#include "windowing/WindowBehaviour.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QTextBrowser>
#include <QTimer>
#include <QUrl>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int Margin = 8;
constexpr QRect LabelNameRect { Margin, 4, 300, 26 };
constexpr QRect KnCloseRect { AboutForm::Width - Margin - 22, 6, 22, 22 };
constexpr QRect LabelEditionRect { Margin, 34, 200, 22 };
constexpr QRect KnVersionRect { AboutForm::Width - Margin - 124, 34, 124, 22 };
constexpr QRect TextDescriptionRect { Margin, 64, AboutForm::Width - 2 * Margin, 174 };
constexpr QRect LabelLinkRect { Margin, 246, AboutForm::Width - 2 * Margin, 22 };
// Between the Main window and this one, clear of the Main window's shadow.
constexpr int GapToMainWindow = 8;

// The desktop's opener (xdg-open) and Qt both report a missing handler on standard error, which
// this program keeps silent: it points at /dev/null while the opener starts, and the opener
// keeps that.
void openQuietly(const QUrl &url)
{
    const int saved = ::dup(STDERR_FILENO);
    const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (saved >= 0 && null >= 0)
        ::dup2(null, STDERR_FILENO);
    QDesktopServices::openUrl(url);
    if (saved >= 0) {
        ::dup2(saved, STDERR_FILENO);
        ::close(saved);
    }
    if (null >= 0)
        ::close(null);
}

// The key routines' modifier bits: Shift 1, Ctrl 2, Alt 4.
int shiftBits(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0)
        | (modifiers & Qt::AltModifier ? 4 : 0);
}

void colourText(QWidget *w, std::uint32_t text)
{
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, colorFromBgr(text));
    w->setPalette(p);
}

} // namespace

AboutForm *AboutForm::find()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *w : windows) {
        // A closed one only waits to be deleted.
        if (auto *form = qobject_cast<AboutForm *>(w); form && !form->m_closed)
            return form;
    }
    return nullptr;
}

AboutForm *AboutForm::open(ProgramState &program)
{
    AboutForm *form = find();
    if (!form) {
        QWidget *main = WindowBehaviour::of(program).mainForm();
        form = new AboutForm(program, main);
        const QScreen *screen =
            main && main->screen() ? main->screen() : QGuiApplication::primaryScreen();
        const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
        form->move(main ? Placement::besideTopLeft(main->frameGeometry(), form->size(), area,
                                                   GapToMainWindow)
                        : Placement::centredTopLeft(area, form->size()));
    }
    form->showWindow();
    form->ButtFocus->setFocus();
    return form;
}

AboutForm::AboutForm(ProgramState &program, QWidget *parent)
    : CommonWindow(program, QStringLiteral("AboutForm"), QSize(Width, Height), parent)
{
    // A tool window of the Main window: no taskbar entry of its own, kept above the calendar.
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    openUrl = openQuietly;
    createControls();
    SettingLabelesAndButtons();
    // Keys go to the focused control first; they are seen on their way there.
    qApp->installEventFilter(this);
    attachCommonParts(false);
    for (QWidget *label :
         { static_cast<QWidget *>(LabelName), static_cast<QWidget *>(LabelEdition) })
        behaviour().addDragArea(this, label);
    const QString &version = program.settings().VersionText;
    ToolTips::attach(*this,
                     TipTexts::aboutFormTips(version.isEmpty()
                                                 ? QString::fromUtf16(ProgramText::VersionText)
                                                 : version));
    program.setFormLoaded(objectName(), true);
}

AboutForm::~AboutForm()
{
    qApp->removeEventFilter(this);
    program().setFormLoaded(QStringLiteral("AboutForm"), false);
}

void AboutForm::createControls()
{
    LabelName = named<CaptionLabel>(this, "LabelName", LabelNameRect);
    QFont bold = font();
    bold.setBold(true);
    bold.setPointSize(12);
    LabelName->setFont(bold);

    KnClose = named<PictureButton>(this, "KnClose", KnCloseRect, ButtonArt::Picture::Close);
    KnClose->setFocusPolicy(Qt::StrongFocus);
    connect(KnClose, &QPushButton::clicked, this, &QWidget::close);

    LabelEdition = named<CaptionLabel>(this, "LabelEdition", LabelEditionRect);

    // Shows the release; it has no command, so Tab passes it by.
    KnVersion = named<PictureButton>(this, "KnVersion", KnVersionRect, ButtonArt::Picture::Word);
    KnVersion->setFocusPolicy(Qt::NoFocus);

    TextDescription = named<QTextBrowser>(this, "TextDescription", TextDescriptionRect);
    TextDescription->setFrameShape(QFrame::NoFrame);
    TextDescription->setOpenLinks(false);
    TextDescription->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A narrow column: lists indent by a little more than their bullets.
    TextDescription->document()->setIndentWidth(18);

    LabelLink = named<QLabel>(this, "LabelLink", LabelLinkRect);
    LabelLink->setTextFormat(Qt::RichText);
    // Reachable by Tab and opened by Enter as well as by a click.
    LabelLink->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(LabelLink, &QLabel::linkActivated, this, [this](const QString &link) {
        if (openUrl)
            openUrl(QUrl(link));
    });
}

void AboutForm::SettingLabelesAndButtons()
{
    const Settings &s = program().settings();
    const QString &language = s.Language;
    using Captions::pick;
    setWindowTitle(pick(AboutText::WindowTitle, language));
    LabelName->setText(pick(AboutText::ProgramName, language));
    LabelEdition->setText(pick(AboutText::Edition, language));
    const QString version = AboutText::versionLine(
        s.VersionText.isEmpty() ? QString::fromUtf16(ProgramText::VersionText) : s.VersionText,
        language);
    KnVersion->setText(version);
    KnVersion->setWord(version);
    KnClose->setAccessibleName(pick(AboutText::Close, language));
    TextDescription->setAccessibleName(pick(AboutText::Description, language));
    TextDescription->setHtml(AboutText::description(language));

    const QString folder = program().ProgramFolder.isEmpty()
        ? QCoreApplication::applicationDirPath() + QLatin1Char('/')
        : program().ProgramFolder;
    m_documentation = AboutText::documentationPath(folder);
    // Nothing to open: no link.
    LabelLink->setVisible(!m_documentation.isEmpty());
    paintLook();
}

void AboutForm::paintLook()
{
    const Settings &s = program().settings();
    const SchemePalette &scheme = SchemePalettes::forScheme(s.CurrentColorScheme);
    // The scheme's ground without a picture: the description is read, not looked at.
    if (auto *body = qobject_cast<WindowBody *>(FrameMove))
        body->setLook(scheme, QStringLiteral("None"), s.CalendarBorderWidth);
    colourText(LabelName, scheme.title);
    colourText(LabelEdition, scheme.caption);

    QPalette text = TextDescription->palette();
    for (const auto role : { QPalette::Base, QPalette::Window })
        text.setColor(role, colorFromBgr(scheme.ground));
    for (const auto role : { QPalette::Text, QPalette::WindowText })
        text.setColor(role, colorFromBgr(scheme.caption));
    text.setColor(QPalette::Button, colorFromBgr(scheme.buttonFace));
    text.setColor(QPalette::ButtonText, colorFromBgr(scheme.buttonInk));
    text.setColor(QPalette::Highlight, colorFromBgr(scheme.buttonHover));
    text.setColor(QPalette::HighlightedText, colorFromBgr(scheme.buttonHoverInk));
    TextDescription->setPalette(text);

    // A link takes its colour when its text is parsed, from the application's palette unless
    // the text names one.
    LabelLink->setText(QStringLiteral("<a href=\"%1\" style=\"color: %2\">%3</a>")
                           .arg(QUrl::fromLocalFile(m_documentation).toString(QUrl::FullyEncoded),
                                colorFromBgr(scheme.link).name(),
                                Captions::pick(AboutText::Link, s.Language).toHtmlEscaped()));

    KnClose->setScheme(scheme);
    KnVersion->setScheme(scheme);
    if (Shadow *shadow = ShadowForm())
        shadow->setShadowColor(s.ShadowColor);
}

bool AboutForm::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if ((type != QEvent::KeyPress && type != QEvent::KeyRelease) || !watched->isWidgetType()
        || static_cast<QWidget *>(watched)->window() != this) {
        return false;
    }
    // No key acts while a mouse button is held: a drag or a click is under way.
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return type == QEvent::KeyPress;
    const auto &key = *static_cast<QKeyEvent *>(event);
    return type == QEvent::KeyPress ? keyDown(key) : keyUp(key);
}

bool AboutForm::keyDown(const QKeyEvent &key)
{
    if (!m_hold.press(key.key()))
        return key.key() == Qt::Key_Escape; // a repeat: the key acted on its first press
    // Alt+Q and Alt+X end the program from here as from every window.
    const bool wasClosing = program().Closing;
    program().HandleQuitKeys(key.key(), shiftBits(key.modifiers()));
    if (program().Closing && !wasClosing)
        return true;
    switch (key.key()) {
    case Qt::Key_Escape:
        EscArmed = true;
        KnClose->setFocus();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Enter clicks the focused button, as Space does; the link takes its own Enter.
        if (auto *button = qobject_cast<QAbstractButton *>(focusWidget());
            button && button != ButtFocus) {
            button->click();
            return true;
        }
        return false;
    default:
        return false;
    }
}

bool AboutForm::keyUp(const QKeyEvent &key)
{
    if (!m_hold.release(key.key(), keyStillDown(&key)))
        return key.key() == Qt::Key_Escape;
    if (key.key() != Qt::Key_Escape || !EscArmed)
        return false;
    EscArmed = false;
    close();
    return true;
}

void AboutForm::keyUpTimedOut()
{
    m_hold.forget();
    EscArmed = false;
}

void AboutForm::closeEvent(QCloseEvent *event)
{
    m_closed = true;
    // Once this window is gone, the focus goes back to the one it was opened from.
    if (TabAppForm *tabApp = behaviour().tabApp())
        QTimer::singleShot(0, tabApp, &TabAppForm::giveFocusBack);
    event->accept();
}
