// How fast the settings reader gets through a normal file and through junk of any size. The
// reader keeps at most 64 KiB of the file in memory, so the cost is the scan alone.
#include "app/Settings.h"
#include "app/SettingsFile.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

enum class Content { ThirteenLines, RandomJunk, EmptyLines };

QString makeFile(const QTemporaryDir &dir, Content content, qint64 size)
{
    const QString path = dir.filePath(QStringLiteral("qlvcal.ini"));
    QFile file(path);
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    if (content == Content::ThirteenLines) {
        Settings settings;
        SettingsFile writer(settings, SettingsContext {});
        writer.SetDefaultSettings();
        file.write(writer.fileContents());
        return path;
    }
    QRandomGenerator random(42);
    QByteArray block(1 << 20, '\n');
    if (content == Content::RandomJunk) {
        random.fillRange(reinterpret_cast<quint32 *>(block.data()),
                         block.size() / static_cast<qsizetype>(sizeof(quint32)));
    }
    for (qint64 written = 0; written < size; written += block.size())
        file.write(block);
    return path;
}

void readFile(benchmark::State &state, Content content, qint64 size)
{
    QTemporaryDir dir;
    const QString path = makeFile(dir, content, size);
    Settings settings;
    SettingsContext context;
    context.settingsPath = path;
    SettingsFile reader(settings, context);
    reader.SetDefaultSettings();
    for (auto _ : state) {
        // The reader's own path without the recovery, so junk is never replaced between rounds.
        QFile file(path);
        file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        benchmark::DoNotOptimize(reader.readFrom(file));
    }
    state.SetBytesProcessed(state.iterations() * QFile(path).size());
}

void BM_ReadThirteenLines(benchmark::State &state)
{
    readFile(state, Content::ThirteenLines, 0);
}
BENCHMARK(BM_ReadThirteenLines);

void BM_ReadRandomJunk100MB(benchmark::State &state)
{
    readFile(state, Content::RandomJunk, 100LL << 20);
}
BENCHMARK(BM_ReadRandomJunk100MB)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_ReadEmptyLines100MB(benchmark::State &state)
{
    readFile(state, Content::EmptyLines, 100LL << 20);
}
BENCHMARK(BM_ReadEmptyLines100MB)->Unit(benchmark::kMillisecond)->Iterations(3);

// 1 GB takes a while to write; run with --benchmark_filter=1GB when it is wanted.
void BM_ReadRandomJunk1GB(benchmark::State &state)
{
    readFile(state, Content::RandomJunk, 1LL << 30);
}
BENCHMARK(BM_ReadRandomJunk1GB)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_ReadEmptyLines1GB(benchmark::State &state)
{
    readFile(state, Content::EmptyLines, 1LL << 30);
}
BENCHMARK(BM_ReadEmptyLines1GB)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
