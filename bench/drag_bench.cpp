// Time to handle one pointer move of a drag (window and shadow moved), on the offscreen
// platform: median and 99th percentile over 10 000 synthetic moves.
#include "app/ProgramState.h"
#include "windowing/Shadow.h"
#include "windowing/WindowBehaviour.h"

#include <QApplication>
#include <QFrame>
#include <QMouseEvent>
#include <QTest>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <vector>

namespace {

void sendMouse(QWidget *target, QEvent::Type type, QPointF global, Qt::MouseButtons buttons)
{
    const QPointF local = target->mapFromGlobal(global);
    QMouseEvent event(type, local, global,
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

void dragMoves(benchmark::State &state, bool shadows)
{
    ProgramState program;
    program.ShadowMode = shadows ? QStringLiteral("Basic") : QStringLiteral("No");
    auto window = std::make_unique<QWidget>(nullptr, Qt::Window | Qt::FramelessWindowHint);
    window->setObjectName(QStringLiteral("CalendarMonthExtForm"));
    window->setFixedSize(400, 273);
    auto *frame = new QFrame(window.get());
    frame->setGeometry(window->rect());
    WindowBehaviour::of(program).attachMainWindow(window.get(), frame);
    window->move(300, 200);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get())) {
        state.SkipWithError("window never became active");
        return;
    }

    const QPointF grab = frame->mapToGlobal(QPointF(100, 100));
    sendMouse(frame, QEvent::MouseMove, grab, Qt::NoButton);
    sendMouse(frame, QEvent::MouseButtonPress, grab, Qt::LeftButton);

    std::vector<double> samples;
    samples.reserve(10000);
    int step = 0;
    for (auto _ : state) {
        // A pointer circling the grab point, a pixel or so further each event.
        const double angle = step * 0.05;
        const QPointF pointer = grab + QPointF(std::cos(angle), std::sin(angle)) * (step % 200);
        ++step;
        const auto begin = std::chrono::steady_clock::now();
        sendMouse(frame, QEvent::MouseMove, pointer, Qt::LeftButton);
        const auto end = std::chrono::steady_clock::now();
        const double seconds = std::chrono::duration<double>(end - begin).count();
        state.SetIterationTime(seconds);
        samples.push_back(seconds * 1000.0);
    }
    sendMouse(frame, QEvent::MouseButtonRelease, grab, Qt::NoButton);

    std::sort(samples.begin(), samples.end());
    if (!samples.empty()) {
        state.counters["median_ms"] = samples[samples.size() / 2];
        state.counters["p99_ms"] = samples[std::min(samples.size() - 1, samples.size() * 99 / 100)];
        state.counters["moved_x_px"] = window->pos().x() - 300;
    }
    if (shadows && !ShadowForm(window.get()))
        state.SkipWithError("no shadow");
}

} // namespace

BENCHMARK_CAPTURE(dragMoves, WindowAndShadow, true)->Iterations(10000)->UseManualTime();
BENCHMARK_CAPTURE(dragMoves, WindowOnly, false)->Iterations(10000)->UseManualTime();

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
