// Time to lay out the longest tooltip of the three tables with the system's fonts: the measuring
// pass alone, and a whole load as the tooltip window does it (drawing pass, then measuring pass).
#include "tooltip/ImageTipCanvas.h"
#include "tooltip/TipTexts.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

namespace {

// The tooltip with the most characters to draw, in either language.
QString longestTip(const TipStyle &style)
{
    QString longest;
    TipTable all = TipTexts::mainFormTips();
    all += TipTexts::viewFormTips();
    all += TipTexts::aboutFormTips(QStringLiteral("1.0.1"));
    for (const TipRow &row : std::as_const(all)) {
        for (const QString &text :
             { TipTexts::englishTip(row, style), TipTexts::russianTip(row, style) }) {
            if (plainTipText(text).size() > plainTipText(longest).size())
                longest = text;
        }
    }
    return longest;
}

void measure(benchmark::State &state)
{
    const TipStyle style;
    const QString text = longestTip(style);
    ImageTipCanvas canvas(style.backColor);
    TipLayout layout(canvas, style);
    for (auto _ : state)
        benchmark::DoNotOptimize(layout.DrawTipText(text, false));
    state.SetLabel(plainTipText(text).toStdString());
}

void load(benchmark::State &state)
{
    const TipStyle style;
    const QString text = longestTip(style);
    for (auto _ : state) {
        ImageTipCanvas canvas(style.backColor);
        TipLayout layout(canvas, style);
        layout.DrawTipText(text, true);
        benchmark::DoNotOptimize(layout.DrawTipText(text, false));
        canvas.finish();
        benchmark::DoNotOptimize(canvas.image().constBits());
    }
}

// A text of 1 MB of mixed letters, tags and line breaks: the work and the surface stay bounded.
void megabyte(benchmark::State &state)
{
    const TipStyle style;
    QString text;
    while (text.size() < 1'000'000)
        text += QStringLiteral("</f 40,b, , , ,255>Ж<\\f>word \r</f 10000>x");
    for (auto _ : state) {
        ImageTipCanvas canvas(style.backColor);
        TipLayout layout(canvas, style);
        layout.DrawTipText(text, true);
        benchmark::DoNotOptimize(layout.DrawTipText(text, false));
        canvas.finish();
        state.counters["surface_px"] = double(canvas.image().width()) * canvas.image().height();
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::RegisterBenchmark("TipLayout/LongestTip/Measure", measure)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("TipLayout/LongestTip/DrawAndMeasure", load)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("TipLayout/OneMegabyte/DrawAndMeasure", megabyte)
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
