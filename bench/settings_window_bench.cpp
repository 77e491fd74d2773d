// The Settings window's live preview and its opening.
//
// Preview: every picture, and under it every colour scheme, chosen in the lists as a user's
// choice; each choice is timed to both windows repainted (a grab of each), and to the picture in
// place (the body paints its picture a moment after the first frame). The reference, run
// interleaved, is the same two grabs with nothing changed: the cost of repainting both windows.
// Opening: F9 on the Main window to the Settings window's first paint, ten times.
#include "BenchSupport.h"
#include "app/ProgramState.h"
#include "calendar/CalendarMonthExtForm.h"
#include "settings_window/ViewForm.h"
#include "support/FakeClock.h"

#include <QApplication>
#include <QComboBox>
#include <QPixmap>
#include <QPushButton>
#include <QTest>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <vector>

using ViewFormText::List;

namespace {

using SteadyClock = std::chrono::steady_clock;

double ms(SteadyClock::time_point from)
{
    return std::chrono::duration<double, std::milli>(SteadyClock::now() - from).count();
}

void setCounters(benchmark::State &state, const char *name, const std::vector<double> &samples)
{
    state.counters[std::string(name) + "_median_ms"] = percentile(samples, 0.5);
    state.counters[std::string(name) + "_p99_ms"] = percentile(samples, 0.99);
}

// The Main window and its Settings window, as a run has them (no settings file: nothing saves).
struct Windows
{
    Windows()
        : clock(QDateTime(QDate(2026, 3, 12), QTime(12, 0)))
        , program(&clock)
    {
        Settings &s = program.settings();
        s.Language = QStringLiteral("English");
        s.FirstWeekDay = QStringLiteral("Sunday");
        s.ColorScheme = s.CurrentColorScheme = QStringLiteral("Blue");
        s.CalendarPicture = s.CurrentPicture = QStringLiteral("Sky");
        s.CalendarBorderWidth = 2;
        s.CalendarAlignToCenter = s.CalendarTopmost = QStringLiteral("No");
        main = std::make_unique<CalendarMonthExtForm>(program);
        main->show();
        exposed = QTest::qWaitForWindowExposed(main.get());
    }
    ~Windows()
    {
        delete view.data();
        main.reset();
    }
    void grabBoth()
    {
        benchmark::DoNotOptimize(main->grab().cacheKey());
        benchmark::DoNotOptimize(view->grab().cacheKey());
    }
    // A user's pick in the list: the list shows the entry and says it was activated.
    void choose(List list, int index)
    {
        QComboBox *box = view->list(list);
        box->setCurrentIndex(index);
        Q_EMIT box->activated(index);
    }

    FakeClock clock;
    ProgramState program;
    bool exposed = false;
    std::unique_ptr<CalendarMonthExtForm> main;
    QPointer<ViewForm> view;
};

void PreviewEverySchemeAndPicture(benchmark::State &state)
{
    Windows w;
    w.view = ViewForm::showNew(w.program, *w.main);
    if (!w.exposed || !QTest::qWaitForWindowExposed(w.view)) {
        state.SkipWithError("the windows were never exposed");
        return;
    }
    std::vector<double> repainted;
    std::vector<double> settled;
    for (auto _ : state) {
        for (int picture = 0; picture < 10; ++picture) {
            for (int scheme = -1; scheme < 8; ++scheme) {
                const auto start = SteadyClock::now();
                // The picture first, then each scheme over it (a touched picture list keeps it).
                if (scheme < 0)
                    w.choose(List::BackPict, picture);
                else
                    w.choose(List::ColorScheme, scheme);
                w.grabBoth();
                repainted.push_back(ms(start));
                QCoreApplication::processEvents();
                w.grabBoth();
                settled.push_back(ms(start));
            }
        }
    }
    state.counters["choices"] = static_cast<double>(repainted.size());
    setCounters(state, "repainted", repainted);
    setCounters(state, "picture_in_place", settled);
}

void RepaintBothUnchanged(benchmark::State &state)
{
    Windows w;
    w.view = ViewForm::showNew(w.program, *w.main);
    if (!w.exposed || !QTest::qWaitForWindowExposed(w.view)) {
        state.SkipWithError("the windows were never exposed");
        return;
    }
    std::vector<double> samples;
    for (auto _ : state) {
        for (int i = 0; i < 90; ++i) {
            const auto start = SteadyClock::now();
            w.grabBoth();
            samples.push_back(ms(start));
        }
    }
    setCounters(state, "repainted", samples);
}

// Counts the Settings window's paints from the moment it exists.
class FirstPaint : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // The body covers the whole window, so the window's paint is its controls' paint.
        if (event->type() == QEvent::Paint && watched->isWidgetType()
            && static_cast<QWidget *>(watched)->window()->objectName()
                == QStringLiteral("ViewForm"))
            painted = true;
        return false;
    }
    bool painted = false;
};

void F9ToSettingsPainted(benchmark::State &state)
{
    Windows w;
    QObject::connect(w.main.get(), &CalendarMonthExtForm::settingsWindowRequested, w.main.get(),
                     [&w] { w.view = ViewForm::showNew(w.program, *w.main); });
    FirstPaint paint;
    qApp->installEventFilter(&paint);
    std::vector<double> samples;
    for (auto _ : state) {
        QApplication::setActiveWindow(w.main.get());
        if (!QTest::qWaitForWindowActive(w.main.get()))
            state.SkipWithError("the Main window was never active");
        paint.painted = false;
        const auto start = SteadyClock::now();
        QTest::keyClick(w.main->ButtFocus, Qt::Key_F9);
        while (!paint.painted && ms(start) < 5000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        samples.push_back(ms(start));
        if (!w.view)
            state.SkipWithError("F9 opened no Settings window");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        if (!QTest::qWaitFor([&w] { return !w.view; }, 5000))
            state.SkipWithError("Esc did not close the Settings window");
    }
    qApp->removeEventFilter(&paint);
    setCounters(state, "opened", samples);
}

} // namespace

BENCHMARK(PreviewEverySchemeAndPicture)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(RepaintBothUnchanged)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(F9ToSettingsPainted)->Iterations(10)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    return runWidgetBenchmarks(argc, argv);
}
