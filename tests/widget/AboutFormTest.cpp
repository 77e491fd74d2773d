#include "about/AboutForm.h"

#include "MainFormFixture.h"
#include "appearance/PictureButton.h"
#include "notification/QLVForm.h"
#include "windowing/WindowBehaviour.h"

#include <QDir>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QUrl>
#include <QtTest/qtestspontaneevent.h>

namespace {

// The About window is a transient of the calendar, which QWindow counts as active along with
// it; which of the two has the keys is the application's active window.
bool becomesActive(QWidget *window)
{
    return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }, 2000);
}

// A key as the keyboard sends it to the focused control; `repeat` marks X's repeat pairs.
void key(QEvent::Type type, Qt::Key k, bool repeat = false)
{
    QKeyEvent event(type, k, Qt::NoModifier, QString(), repeat);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QApplication::sendEvent(QApplication::focusWidget(), &event);
}

// The Main window with its About command wired as start-up wires it.
class About : public MainFormTest
{
protected:
    void openMain(const QString &language = QStringLiteral("English"))
    {
        open(at(2026, 3, 12), language);
        ASSERT_TRUE(becomesActive(form));
        QObject::connect(form.data(), &CalendarMonthExtForm::aboutWindowRequested, form.data(),
                         [this] { AboutForm::open(*program); });
    }
};

} // namespace

// F1 and the About link open one About window; asked again, the same one comes to the front.
// Esc arms on its press and closes on its release, never on X's repeats, and the focus goes
// back to the calendar.
TEST_F(About, OneWindowThatEscClosesOnReleaseGivingTheFocusBack)
{
    openMain();
    key(QEvent::KeyPress, Qt::Key_F1);
    key(QEvent::KeyRelease, Qt::Key_F1);
    QPointer<AboutForm> about = AboutForm::find();
    ASSERT_NE(about, nullptr);
    ASSERT_TRUE(becomesActive(about));
    for (const bool byLink : { false, true }) {
        form->activateWindow();
        ASSERT_TRUE(becomesActive(form));
        if (byLink) {
            click(label("LabelAbout"));
        } else {
            key(QEvent::KeyPress, Qt::Key_F1);
            key(QEvent::KeyRelease, Qt::Key_F1);
        }
        EXPECT_EQ(form->findChildren<AboutForm *>().size(), 1);
        EXPECT_EQ(AboutForm::find(), about.data());
        EXPECT_TRUE(becomesActive(about)) << "not brought to the front";
    }

    key(QEvent::KeyPress, Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), about->KnClose);
    for (int i = 0; i < 3; ++i) {
        key(QEvent::KeyRelease, Qt::Key_Escape, true);
        key(QEvent::KeyPress, Qt::Key_Escape, true);
    }
    EXPECT_TRUE(about->isVisible()) << "closed by a repeat";
    key(QEvent::KeyRelease, Qt::Key_Escape);
    EXPECT_TRUE(!about || !about->isVisible());
    EXPECT_TRUE(becomesActive(form));
}

namespace {

struct LanguageRow
{
    const char *language;
    bool cyrillic;
    const char16_t *terms;
};

class AboutTexts : public About, public ::testing::WithParamInterface<LanguageRow>
{ };

} // namespace

// Every word the window shows or names is in the chosen language, the terms of use included.
TEST_P(AboutTexts, FollowTheLanguage)
{
    const LanguageRow &row = GetParam();
    openMain(QString::fromLatin1(row.language));
    AboutForm *about = AboutForm::open(*program);
    const QString description = about->TextDescription->toPlainText();
    static const QRegularExpression cyrillic(QStringLiteral("[\u0400-\u04ff]"));
    for (const QString &text :
         { about->windowTitle(), about->LabelName->text(), about->LabelEdition->text(),
           about->KnVersion->text(), about->KnClose->accessibleName(),
           about->TextDescription->accessibleName(), description, about->LabelLink->text() }) {
        EXPECT_EQ(text.contains(cyrillic), row.cyrillic) << text.toStdString();
    }
    EXPECT_TRUE(about->KnVersion->text().endsWith(QStringLiteral(" 1.0.1")));
    EXPECT_TRUE(description.contains(QString::fromUtf16(row.terms))) << description.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Languages, AboutTexts,
                         ::testing::Values(LanguageRow { "English", false, u"no warranty" },
                                           LanguageRow { "Russian", true,
                                                         u"без каких-либо гарантий" }),
                         [](const auto &row) { return std::string(row.param.language); });

namespace {

struct LinkRow
{
    const char *name;
    const char *programFolder;
    const char *documentation; // nullptr: none anywhere
};

class AboutLink : public About, public ::testing::WithParamInterface<LinkRow>
{ };

} // namespace

// The link opens the documentation found from the program's folder, installed or in a build
// tree; with none there is no link.
TEST_P(AboutLink, OpensTheDocumentationBesideTheProgram)
{
    const LinkRow &row = GetParam();
    QTemporaryDir root;
    ASSERT_TRUE(QDir(root.path()).mkpath(QString::fromLatin1(row.programFolder)));
    const QString documentation =
        row.documentation ? root.filePath(QString::fromLatin1(row.documentation)) : QString();
    if (row.documentation) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(documentation).path()));
        QFile file(documentation);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    openMain();
    program->ProgramFolder = root.filePath(QString::fromLatin1(row.programFolder));
    AboutForm *about = AboutForm::open(*program);
    QList<QUrl> opened;
    about->openUrl = [&opened](const QUrl &url) { opened.append(url); };
    ASSERT_EQ(about->LabelLink->isVisible(), row.documentation != nullptr);
    if (!row.documentation)
        return;
    QTest::mouseClick(about->LabelLink, Qt::LeftButton, {},
                      QPoint(10, about->LabelLink->height() / 2));
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened.front().toLocalFile(), documentation);
    EXPECT_TRUE(QFileInfo(opened.front().toLocalFile()).isFile());
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, AboutLink,
    ::testing::Values(LinkRow { "Installed", "usr/bin/", "usr/share/doc/qlvcallt/README.md" },
                      LinkRow { "BuildTree", "project/build/release/", "project/README.md" },
                      LinkRow { "Nowhere", "opt/bin/", nullptr }),
    [](const auto &row) { return std::string(row.param.name); });

// A window that wants the user blinks the program's taskbar caption through the notification
// window's caption blink, and the caption ends as it began.
TEST_F(About, AttentionBlinksTheTaskbarCaption)
{
    openMain();
    WindowBehaviour::of(*program).FlashWindow = QLVForm::FlashWindow;
    const QString plain = QStringLiteral("QLV Calendar Lite");
    form->setWindowTitle(plain);
    QStringList captions;
    QObject::connect(form.data(), &QWidget::windowTitleChanged,
                     [&captions](const QString &caption) { captions.append(caption); });
    Attention(AboutForm::open(*program)->KnClose, 2);
    QTest::qWait(6 * QLVForm::BlinkMs);
    const QString lit = QStringLiteral("\u00bb QLV Calendar Lite \u00ab");
    EXPECT_EQ(captions, QStringList({ lit, plain, lit, plain }));
}
