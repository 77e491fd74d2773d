#include "app/Program.h"
#include "calendar/CalendarMonthExtForm.h"
#include "windowing/LayeredWindows.h"

#include <QApplication>
#include <QIcon>

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
    // An icon theme may restyle the icon; our own drawing otherwise.
    QIcon icon;
    for (int size : { 16, 22, 24, 32, 48, 64, 128, 256 })
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(size));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral(QLV_APP_ID), icon));

    ProgramOptions options;
    options.closeOnTerminationSignals = true;
    options.probeLayeredWindows = ProbeLayeredWindows;
    options.showMainWindow = CalendarMonthExtForm::showNew;
    Program program(options);
    program.Main();
    return QApplication::exec();
}
