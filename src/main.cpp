#include "about/AboutForm.h"
#include "app/Program.h"
#include "calendar/CalendarMonthExtForm.h"
#include "notification/QLVForm.h"
#include "windowing/WindowBehaviour.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    // Only X11 lets a window place itself, keep its position and lay a shadow beside it, so a
    // Wayland session runs us through XWayland unless the user chose a platform.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb");

    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("qlvcallt"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.1"));

    ProgramOptions options;
    options.closeOnTerminationSignals = true;
    options.probeLayeredWindows = QLVForm::ProbeLayeredWindows;
    options.showMainWindow = [](ProgramState &state) {
        QWidget *main = CalendarMonthExtForm::showNew(state);
        // The calendar only asks for the About window; it lives in a folder of its own.
        QObject::connect(static_cast<CalendarMonthExtForm *>(main),
                         &CalendarMonthExtForm::aboutWindowRequested, main,
                         [&state] { AboutForm::open(state); });
        return main;
    };
    Program program(options);
    // The taskbar entry blinks its caption when a window asks for the user's attention.
    WindowBehaviour::of(program.state()).FlashWindow = QLVForm::FlashWindow;
    program.Main();
    return QApplication::exec();
}
