#pragma once

#include <QApplication>
#include <QLocale>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <vector>

// The sample at fraction `p` of the way through the sorted samples (0.5: the median).
inline double percentile(std::vector<double> samples, double p)
{
    std::sort(samples.begin(), samples.end());
    const auto index = static_cast<std::size_t>(p * static_cast<double>(samples.size() - 1) + 0.5);
    return samples[index];
}

// main() of the benchmarks that open windows: offscreen unless a platform is named, with
// English formats so that every run measures the same texts.
inline int runWidgetBenchmarks(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
