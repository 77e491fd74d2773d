#include "about/AboutForm.h"

#include "MainFormFixture.h"
#include "appearance/PictureButton.h"
#include "notification/QLVForm.h"
#include "support/Files.h"
#include "windowing/WindowBehaviour.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

// The Main window with its About command wired as start-up wires it.
class About : public MainFormTest
{
protected:
    void openMain(const QString &language = u"English"_s)
    {
        open(at(2026, 3, 12), language);
        ASSERT_TRUE(becomesActive(form));
        QObject::connect(form.data(), &CalendarMonthExtForm::aboutWindowRequested, form.data(),
                         [this] { AboutForm::open(*program); });
    }
    // The About window is a transient of the calendar, which QWindow counts as active along
    // with it; which of the two has the keys is the application's active window.
    static bool becomesActive(QWidget *window)
    {
        return QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }, 2000);
    }
};

// F1 and the About link open one About window; asked again, the same one comes to the front.
// Its close control can ask for attention. Esc arms on its press and closes on its release,
// never on X's repeats, and the focus goes back to the calendar.
TEST_F(About, OneWindowThatEscClosesOnReleaseGivingTheFocusBack)
{
    openMain();
    QPointer<AboutForm> about;
    for (const bool byLink : { false, false, true }) {
        form->activateWindow();
        ASSERT_TRUE(becomesActive(form));
        byLink ? click(label("LabelAbout")) : tap(Qt::Key_F1);
        EXPECT_EQ(form->findChildren<AboutForm *>().size(), 1);
        EXPECT_TRUE(about.isNull() || AboutForm::find() == about.data());
        about = AboutForm::find();
        EXPECT_TRUE(becomesActive(about)) << "not brought to the front";
    }
    // A window that wants the user blinks the program's taskbar caption through the notification
    // window's caption blink, lit at once, and the caption ends as it began.
    WindowBehaviour::of(*program).FlashWindow = QLVForm::FlashWindow;
    form->setWindowTitle(u"QLV"_s);
    QStringList captions;
    QObject::connect(form.data(), &QWidget::windowTitleChanged,
                     [&captions](const QString &caption) { captions.append(caption); });
    Attention(about->KnClose, 2);
    EXPECT_EQ(form->windowTitle(), u"» QLV «"_s);
    QTest::qWait(6 * QLVForm::BlinkMs);
    EXPECT_EQ(captions, QStringList({ u"» QLV «"_s, u"QLV"_s, u"» QLV «"_s, u"QLV"_s }));

    sendKey(QEvent::KeyPress, Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), about->KnClose);
    for (int i = 0; i < 3; ++i) {
        sendKey(QEvent::KeyRelease, Qt::Key_Escape, {}, true);
        sendKey(QEvent::KeyPress, Qt::Key_Escape, {}, true);
    }
    EXPECT_TRUE(about->isVisible()) << "closed by a repeat";
    sendKey(QEvent::KeyRelease, Qt::Key_Escape);
    EXPECT_TRUE(!about || !about->isVisible());
    EXPECT_TRUE(becomesActive(form));
}

struct ContentRow
{
    const char *name;
    const char *language;
    const char *programFolder;
    const char *documentation; // "": none anywhere
};

class AboutContents : public About, public ::testing::WithParamInterface<ContentRow>
{ };

} // namespace

// Every word the window shows or names is in the chosen language, the terms of use included.
// The link opens the documentation found from the program's folder, installed or in a build
// tree; with none there is no link.
TEST_P(AboutContents, FollowTheLanguageAndLinkTheDocumentation)
{
    const ContentRow &row = GetParam();
    const bool russian = row.language == std::string("Russian");
    QTemporaryDir root;
    const QString documentation = root.filePath(QString::fromLatin1(row.documentation));
    ASSERT_TRUE(QDir(root.path()).mkpath(QString::fromLatin1(row.programFolder)));
    ASSERT_TRUE(!*row.documentation || writeBytes(documentation, "# QLV Calendar Lite"));
    openMain(QString::fromLatin1(row.language));
    program->ProgramFolder = root.filePath(QString::fromLatin1(row.programFolder));
    AboutForm *about = AboutForm::open(*program);
    const QString description = about->TextDescription->toPlainText();
    static const QRegularExpression cyrillic(u"[\u0400-\u04ff]"_s);
    for (const QString &text :
         { about->windowTitle(), about->LabelName->text(), about->LabelEdition->text(),
           about->KnVersion->text(), about->KnClose->accessibleName(),
           about->TextDescription->accessibleName(), description, about->LabelLink->text() })
        EXPECT_EQ(text.contains(cyrillic), russian) << text.toStdString();
    EXPECT_EQ(about->LabelName->text(), russian ? u"Календарь КЛВ Лайт"_s : u"QLV Calendar Lite"_s);
    EXPECT_TRUE(about->KnVersion->text().endsWith(u" 1.0.1"_s));
    EXPECT_TRUE(description.contains(russian ? u"без каких-либо гарантий"_s : u"no warranty"_s));

    QList<QUrl> opened;
    about->openUrl = [&opened](const QUrl &url) { opened.append(url); };
    ASSERT_EQ(about->LabelLink->isVisible(), *row.documentation != 0);
    QTest::mouseClick(about->LabelLink, Qt::LeftButton, {}, { 10, about->LabelLink->height() / 2 });
    EXPECT_EQ(opened,
              *row.documentation ? QList { QUrl::fromLocalFile(documentation) } : QList<QUrl>());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rows, AboutContents, ::testing::Values(
    ContentRow { "EnglishInstalled", "English", "usr/bin/", "usr/share/doc/qlvcallt/README.md" },
    ContentRow { "RussianBuildTree", "Russian", "project/build/release/", "project/README.md" },
    ContentRow { "EnglishNowhere", "English", "opt/bin/", "" }),
    [](const auto &row) { return std::string(row.param.name); });
// clang-format on
