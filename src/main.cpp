#include "app/Program.h"
#include "calendar/CalendarMonthExtForm.h"
#include "settings_window/ViewForm.h"
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
    options.showMainWindow = [](ProgramState &state) {
        QWidget *window = CalendarMonthExtForm::showNew(state);
        auto *main = static_cast<CalendarMonthExtForm *>(window);
        // F9 and "Settings": the one Settings window. F1 in it asks for the About window as the
        // Main window's F1 does.
        QObject::connect(
            main, &CalendarMonthExtForm::settingsWindowRequested, main, [&state, main] {
                ViewForm *settings = ViewForm::showNew(state, *main);
                QObject::connect(settings, &ViewForm::aboutWindowRequested, main,
                                 &CalendarMonthExtForm::aboutWindowRequested, Qt::UniqueConnection);
            });
        return window;
    };
    Program program(options);
    program.Main();
    return QApplication::exec();
}
