#include "app/Program.h"
#include "calendar/CalendarMonthExtForm.h"
#include "windowing/LayeredWindows.h"

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
    options.probeLayeredWindows = ProbeLayeredWindows;
    options.showMainWindow = CalendarMonthExtForm::showNew;
    Program program(options);
    program.Main();
    return QApplication::exec();
}
