#include "about/AboutForm.h"
#include "app/Program.h"
#include "calendar/CalendarMonthExtForm.h"
#include "notification/QLVForm.h"
#include "settings_window/ViewForm.h"
#include "windowing/WindowBehaviour.h"

#include <QApplication>
#include <QIcon>
#include <QPointer>
#include <QResource>

namespace {

// The windows' icon, built into the program as bare pixels (red, green, blue, alpha, row after
// row): an image decoder or an icon theme's look-up would cost the start several milliseconds.
QIcon windowIcon()
{
    QIcon icon;
    for (int size : { 16, 22, 24, 32, 48, 64, 128 }) {
        const QByteArray pixels =
            QResource(QStringLiteral(":/icons/%1.rgba").arg(size)).uncompressedData();
        if (pixels.size() != size * size * 4)
            continue;
        const QImage image(reinterpret_cast<const uchar *>(pixels.constData()), size, size,
                           QImage::Format_RGBA8888);
        // Converting makes an image of its own, which outlives `pixels`.
        icon.addPixmap(
            QPixmap::fromImage(image.convertToFormat(QImage::Format_ARGB32_Premultiplied)));
    }
    return icon;
}

} // namespace

int main(int argc, char *argv[])
{
    // Only X11 lets a window place itself, keep its position and lay a shadow beside it, so a
    // Wayland session runs us through XWayland unless the user chose a platform.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb");

    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qlvcallt"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.1"));
    // Ties the windows to the menu entry, so that taskbars show its name and icon.
    QGuiApplication::setDesktopFileName(QStringLiteral(QLV_APP_ID));
    QGuiApplication::setWindowIcon(windowIcon());

    ProgramOptions options;
    options.closeOnTerminationSignals = true;
    options.probeLayeredWindows = QLVForm::ProbeLayeredWindows;
    options.showMainWindow = [](ProgramState &state) {
        QWidget *window = CalendarMonthExtForm::showNew(state);
        auto *main = static_cast<CalendarMonthExtForm *>(window);
        // The calendar only asks for the Settings and About windows; they live in folders of
        // their own. F1 in the Settings window asks for the About window as the Main window's F1
        // does.
        QObject::connect(main, &CalendarMonthExtForm::aboutWindowRequested, main,
                         [&state] { AboutForm::open(state); });
        QObject::connect(main, &CalendarMonthExtForm::settingsWindowRequested, main,
                         [&state, main, wired = QPointer<ViewForm>()]() mutable {
                             ViewForm *settings = ViewForm::showNew(state, *main);
                             // An open Settings window comes back as it is, wired already. (A
                             // lambda cannot be a unique connection.)
                             if (settings == wired)
                                 return;
                             wired = settings;
                             QObject::connect(settings, &ViewForm::aboutWindowRequested, main,
                                              &CalendarMonthExtForm::aboutWindowRequested);
                             // An open About window wears the language and scheme being tried.
                             QObject::connect(settings, &ViewForm::previewed, settings, [] {
                                 if (AboutForm *about = AboutForm::find())
                                     about->SettingLabelesAndButtons();
                             });
                         });
        return window;
    };
    Program program(options);
    // The taskbar entry blinks its caption when a window asks for the user's attention.
    WindowBehaviour::of(program.state()).FlashWindow = QLVForm::FlashWindow;
    program.Main();
    return QApplication::exec();
}
