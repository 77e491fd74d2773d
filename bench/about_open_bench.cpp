// From F1 released on the calendar to the About window's first frame: the window is made,
// placed beside the calendar, shown with its shadow and painted in full. Ten openings, each
// closed again before the next; the first pays for what the process has not yet loaded.
#include "BenchSupport.h"
#include "about/AboutForm.h"
#include "app/ProgramState.h"
#include "calendar/CalendarMonthExtForm.h"
#include "support/FakeClock.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTest>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace {

// Notes that a widget of an About window was painted.
class PaintWatch : public QObject
{
public:
    bool painted = false;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()
            && qobject_cast<AboutForm *>(static_cast<QWidget *>(watched)->window())) {
            painted = true;
        }
        return false;
    }
};

void tap(Qt::Key key)
{
    QWidget *to = QApplication::focusWidget();
    for (QEvent::Type type : { QEvent::KeyPress, QEvent::KeyRelease }) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(to, &event);
    }
}

void F1ToAboutPainted(benchmark::State &state)
{
    FakeClock clock(QDateTime(QDate(2026, 3, 12), QTime(12, 0)));
    ProgramState program(&clock);
    program.settings().Language = QStringLiteral("English");
    program.settings().FirstWeekDay = QStringLiteral("Sunday");
    program.ShadowMode = QStringLiteral("Basic");
    // Run from the build tree: the link finds the project's README.
    program.ProgramFolder = QCoreApplication::applicationDirPath() + QStringLiteral("/../");
    CalendarMonthExtForm form(program);
    QObject::connect(&form, &CalendarMonthExtForm::aboutWindowRequested, &form,
                     [&program] { AboutForm::open(program); });
    form.show();
    form.activateWindow();
    if (!QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }, 5000)) {
        state.SkipWithError("the calendar never became active");
        return;
    }
    PaintWatch watch;
    qApp->installEventFilter(&watch);
    std::vector<double> ms;
    for (auto _ : state) {
        watch.painted = false;
        QElapsedTimer clockOn;
        clockOn.start();
        tap(Qt::Key_F1);
        while (!watch.painted && clockOn.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        // The frame is painted and flushed by the time the pass that painted it returns.
        const double took = double(clockOn.nsecsElapsed()) / 1e6;
        state.SetIterationTime(took / 1000);
        ms.push_back(took);
        AboutForm *about = AboutForm::find();
        if (!about || !watch.painted) {
            state.SkipWithError("no About window was painted");
            break;
        }
        about->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        form.activateWindow();
        if (!QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }, 2000)) {
            state.SkipWithError("the focus did not come back to the calendar");
            break;
        }
    }
    qApp->removeEventFilter(&watch);
    if (ms.empty())
        return;
    state.counters["first_ms"] = ms.front();
    std::sort(ms.begin(), ms.end());
    state.counters["median_ms"] = (ms[(ms.size() - 1) / 2] + ms[ms.size() / 2]) / 2;
    state.counters["max_ms"] = ms.back();
}

} // namespace

BENCHMARK(F1ToAboutPainted)->Iterations(10)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    return runWidgetBenchmarks(argc, argv);
}
