// Month steps through the whole range, January 1900 to December 2099, each one a real click on
// the next-month button followed by a full repaint of the window (grabbed into a pixmap).
#include "BenchSupport.h"
#include "app/ProgramState.h"
#include "calendar/CalendarMonthExtForm.h"
#include "support/FakeClock.h"

#include <QApplication>
#include <QComboBox>
#include <QPixmap>
#include <QPushButton>
#include <QTest>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

void NextMonthClickWithRepaint(benchmark::State &state)
{
    FakeClock clock(QDateTime(QDate(1900, 1, 15), QTime(12, 0)));
    ProgramState program(&clock);
    program.settings().Language = QStringLiteral("English");
    program.settings().FirstWeekDay = QStringLiteral("Sunday");
    CalendarMonthExtForm form(program);
    form.show();
    if (!QTest::qWaitForWindowExposed(&form)) {
        state.SkipWithError("the window was never exposed");
        return;
    }
    auto *next = form.findChild<QPushButton *>(QStringLiteral("ButtNextMonth"));
    auto *years = form.findChild<QComboBox *>(QStringLiteral("ListYear"));
    constexpr int Steps = 200 * 12 - 1;

    std::vector<double> stepMs;
    stepMs.reserve(Steps);
    std::vector<double> clickMs;
    for (auto _ : state) {
        // Back to today, January 1900, for the next pass.
        if (auto *undo = form.findChild<QPushButton *>(QStringLiteral("ButtUndo"));
            undo->isEnabled())
            QTest::mouseClick(undo, Qt::LeftButton);
        for (int step = 0; step < Steps; ++step) {
            const auto start = std::chrono::steady_clock::now();
            QTest::mouseClick(next, Qt::LeftButton);
            // The press repaints the window at once, so the click alone already includes the
            // rebuild and the on-screen repaint; the grab then paints the whole window again.
            clickMs.push_back(
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                    .count());
            const QPixmap frame = form.grab();
            benchmark::DoNotOptimize(frame.cacheKey());
            const auto end = std::chrono::steady_clock::now();
            stepMs.push_back(std::chrono::duration<double, std::milli>(end - start).count());
        }
        if (years->currentText() != QStringLiteral("2099") || next->isEnabled())
            state.SkipWithError("the walk did not end in December 2099");
    }
    state.counters["steps"] = static_cast<double>(stepMs.size());
    state.counters["median_ms"] = percentile(stepMs, 0.5);
    state.counters["p99_ms"] = percentile(stepMs, 0.99);
    state.counters["click_median_ms"] = percentile(clickMs, 0.5);
    state.counters["max_ms"] = percentile(stepMs, 1.0);
}

} // namespace

BENCHMARK(NextMonthClickWithRepaint)->Iterations(3)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    return runWidgetBenchmarks(argc, argv);
}
