#include "TipLayout.h"

#include "app/LeadingNumber.h"

#include <algorithm>
#include <cmath>

namespace {

const QString Yes = QStringLiteral("Yes");

int clampedSize(double points)
{
    // Sizes are truncated, as the font machinery takes whole points.
    if (std::isnan(points))
        return TipLayout::MinFontSize;
    return static_cast<int>(std::clamp(std::trunc(points), double { TipLayout::MinFontSize },
                                       double { TipLayout::MaxFontSize }));
}

} // namespace

TipLayout::TipLayout(TipCanvas &canvas, TipStyle style)
    : m_canvas(canvas)
    , m_style(std::move(style))
{ }

void TipLayout::applyFont(TipFont font)
{
    m_canvas.setFont(font);
    if (!m_canvas.fontRenders() && font.face != FallbackFace) {
        font.face = FallbackFace;
        m_canvas.setFont(font);
    }
}

void TipLayout::ResetTipFont()
{
    TipFont font;
    font.face = m_style.fontName;
    font.size = clampedSize(m_style.fontSize);
    font.italic = m_style.fontItalic == Yes;
    font.bold = m_style.fontBold == Yes;
    applyFont(font);
    m_canvas.setTextColor(m_style.foreColor);
}

void TipLayout::ApplyFontTag(QStringView fields)
{
    const auto field = [fields](int index) { return GetDelimitedField(fields, index, u","); };
    TipFont font;
    font.face = m_style.fontName;
    // A size too large to read is a failed setting: the font machinery keeps its largest.
    font.size = clampedSize(leadingNumber(field(1)).value_or(MaxFontSize));
    font.italic = field(3) == QStringLiteral("i");
    font.bold = field(2) == QStringLiteral("b");
    font.underline = field(4) == QStringLiteral("u");
    font.strike = field(5) == QStringLiteral("s");
    applyFont(font);
    // A colour that is not one is skipped, and the text keeps the colour it had.
    const std::optional<double> color = leadingNumber(field(6));
    if (color && *color >= 0 && *color <= 0xFFFFFF)
        m_canvas.setTextColor(static_cast<std::uint32_t>(*color));
}

TipSize TipLayout::DrawTipText(const QString &text, bool draw)
{
    ResetTipFont();
    m_lineHeight = m_canvas.textHeight(u"A");

    // Printing a probe letter at the pen leaves the pen on its line, so the first line's top,
    // which is also the top margin, is the pen top.
    const std::int64_t topMargin = PenTop;
    const QString plain = plainTipText(text);
    m_provisional = { m_canvas.textWidth(plain) + ProvisionalExtraWidth,
                      2 * topMargin + m_canvas.textHeight(plain) + ProvisionalExtraHeight };
    if (draw)
        m_canvas.clear(m_provisional.width, m_provisional.height);

    // Printing moves the pen along its line only, so the pen's top is always the line top.
    std::int64_t lineTop = topMargin;
    std::int64_t penX = LeftMargin;
    std::int64_t right = 0;
    std::int64_t bottom = 0;
    const QStringView rest(text);
    const qsizetype length = text.size();
    for (qsizetype i = 0; i < length; ++i) {
        if (rest.mid(i).startsWith(TipTags::Open)) {
            // A text that ends inside an opening tag ends here.
            const qsizetype space = text.indexOf(u' ', i);
            const qsizetype end = space < 0 ? -1 : text.indexOf(u'>', space + 1);
            if (end < 0)
                break;
            ApplyFontTag(rest.mid(space + 1, end - space - 1));
            // The character after the tag is read in this same pass: a closing tag there
            // (an empty wrapped text) is recognised, a second opening tag is not.
            i = end + 1;
            if (i >= length)
                break;
        }
        if (rest.mid(i).startsWith(TipTags::Close)) {
            i += TipTags::Close.size() - 1;
            ResetTipFont();
            continue;
        }
        const QStringView character = rest.mid(i, 1);
        if (character.front() == u'\r') {
            penX = LeftMargin;
            lineTop += m_lineHeight;
        } else {
            if (draw)
                m_canvas.drawText(QPointF(double(penX), double(lineTop)), character);
            penX += m_canvas.textWidth(character);
        }
        bottom = std::max(bottom, lineTop + m_lineHeight);
        right = std::max(right, penX);
    }
    return { right + LeftMargin, topMargin + bottom };
}

int TipLayout::GetTipBorderWidth() const
{
    switch (m_style.borderWidth) {
    case 1:
        return 2;
    case 2:
        return 4;
    case 3:
        return 6;
    default:
        return 0;
    }
}
