// Time to paint each background picture at the Main window's size, at 1x and 2x, alone and
// toned to the default scheme as the window shows it. Qt's raster engine hands large fills to its
// thread pool, so the CPU column is the whole process's, pool threads included.
#include "appearance/BackgroundPictures.h"
#include "appearance/SchemePalette.h"
#include "appearance/WindowBackground.h"
#include "calendar/MainFormLayout.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

namespace {

const QSize MainSize(MainFormLayout::Width, MainFormLayout::Height);

void plain(benchmark::State &state, const QString &name, qreal dpr)
{
    for (auto _ : state) {
        QImage image = BackgroundPictures::render(name, MainSize, dpr);
        benchmark::DoNotOptimize(image.constBits());
    }
}

void toned(benchmark::State &state, const QString &name, qreal dpr)
{
    const SchemePalette &palette = SchemePalettes::forScheme(QStringLiteral("Blue"));
    const QList<QRect> areas = MainFormLayout::textAreas();
    for (auto _ : state) {
        QImage image = WindowBackground::render(name, palette, MainSize, dpr, areas);
        benchmark::DoNotOptimize(image.constBits());
    }
}

} // namespace

int main(int argc, char **argv)
{
    // The pictures need no fonts or windows; a Gui application keeps QPainter on familiar ground.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    for (const char *name :
         { "Sky", "Marble", "Fancy", "Waves", "Stars", "Dandelions", "Camomiles", "Landscape" }) {
        for (const qreal dpr : { 1.0, 2.0 }) {
            const QString picture = QString::fromLatin1(name);
            const std::string suffix = std::string(name) + (dpr > 1 ? "/2x" : "/1x");
            benchmark::RegisterBenchmark(("Picture/" + suffix).c_str(), plain, picture, dpr)
                ->Unit(benchmark::kMillisecond)
                ->MeasureProcessCPUTime();
            benchmark::RegisterBenchmark(("Toned/" + suffix).c_str(), toned, picture, dpr)
                ->Unit(benchmark::kMillisecond)
                ->MeasureProcessCPUTime();
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
