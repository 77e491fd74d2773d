// Feeds arbitrary text to the tooltip layout on fixed metrics and checks that whatever the
// mark-up, the size is finite and bounded by the text, that the measuring pass agrees with the
// drawing pass, and that nothing is drawn outside the surface.
#include "support/FixedTipCanvas.h"
#include "tooltip/TipLayout.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void check(bool holds, const char *what, std::int64_t value)
{
    if (!holds) {
        std::fprintf(stderr, "invariant broken: %s (%lld)\n", what, static_cast<long long>(value));
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // The first byte picks the base style, so missing faces and odd sizes are reached too.
    TipStyle style;
    if (size > 0) {
        style.fontName = (data[0] & 1) ? QStringLiteral("Arial") : QStringLiteral("Nowhere");
        style.fontSize = static_cast<std::int8_t>(data[0]) / 2;
        style.fontBold = (data[0] & 2) ? QStringLiteral("Yes") : QStringLiteral("No");
        ++data;
        --size;
    }
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));

    FixedTipCanvas canvas;
    TipLayout layout(canvas, style);
    const TipSize drawn = layout.DrawTipText(text, true);
    const TipSize measured = layout.DrawTipText(text, false);
    check(drawn == measured, "the passes disagree", measured.width - drawn.width);

    // No character is wider than the largest bold one, and lines advance by the base height.
    const std::int64_t widest = std::int64_t { TipLayout::MaxFontSize } * 11;
    const std::int64_t lines = 1 + text.count(u'\r');
    check(drawn.width >= TipLayout::LeftMargin, "too narrow", drawn.width);
    check(drawn.width <= 2 * TipLayout::LeftMargin + text.size() * widest, "too wide", drawn.width);
    check(drawn.height >= TipLayout::PenTop, "too short", drawn.height);
    check(drawn.height <= TipLayout::PenTop * 2 + lines * layout.lineHeight(), "too tall",
          drawn.height);
    check(static_cast<qsizetype>(canvas.draws.size()) <= text.size(), "more drawn than given",
          static_cast<std::int64_t>(canvas.draws.size()));
    for (const FixedTipCanvas::Draw &d : canvas.draws) {
        check(d.font.size >= TipLayout::MinFontSize && d.font.size <= TipLayout::MaxFontSize,
              "font size out of range", d.font.size);
        check(d.pen.x() >= TipLayout::LeftMargin && d.pen.x() < drawn.width, "drawn off the width",
              static_cast<std::int64_t>(d.pen.x()));
        check(d.pen.y() >= TipLayout::PenTop && d.pen.y() < drawn.height, "drawn off the height",
              static_cast<std::int64_t>(d.pen.y()));
    }
    return 0;
}
