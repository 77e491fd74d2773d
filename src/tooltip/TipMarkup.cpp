#include "TipMarkup.h"

#include "app/Settings.h"

#include <limits>

TipStyle TipStyle::fromSettings(const Settings &settings)
{
    TipStyle style;
    if (!settings.ToolTipFontName.isEmpty())
        style.fontName = settings.ToolTipFontName;
    style.fontSize = settings.ToolTipFontSize;
    style.fontItalic = settings.ToolTipFontItalic;
    style.fontBold = settings.ToolTipFontBold;
    style.foreColor = settings.ToolTipForeColor;
    style.borderColor = settings.ToolTipBorderColor;
    style.borderWidth = settings.ToolTipBorderWidth;
    style.backColor = settings.ToolTipBackColor;
    return style;
}

QString MakeFontTag(const TipStyle &style, const QString &text, std::int64_t sizeStep,
                    TipSwitch bold, TipSwitch italic, TipSwitch underline, TipSwitch strike,
                    std::uint32_t color)
{
    const std::int64_t size = std::int64_t { style.fontSize } + sizeStep;
    if (size > std::numeric_limits<std::int32_t>::max()
        || size < std::numeric_limits<std::int32_t>::min()) {
        return {};
    }
    const auto flag = [](TipSwitch on, char16_t letter) { return QChar(on.on() ? letter : u' '); };
    QString tag = TipTags::Open.toString();
    tag += u' ' + QString::number(size) + u',' + flag(bold, u'b') + u',' + flag(italic, u'i') + u','
        + flag(underline, u'u') + u',' + flag(strike, u's') + u',' + QString::number(color) + u'>';
    return tag + text + TipTags::Close.toString();
}

QString FormatHotKey(const TipStyle &style, const QString &key)
{
    const TipSwitch bold(style.fontBold);
    const TipSwitch italic(style.fontItalic);
    const std::uint32_t ink = style.foreColor;
    return MakeFontTag(style, QStringLiteral("("), 0, bold, italic, false, false, ink)
        + MakeFontTag(style, key, -1, true, italic, false, false, ink)
        + MakeFontTag(style, QStringLiteral(")"), 0, bold, italic, false, false, ink);
}

QString FormatProgramName(const TipStyle &style, const QString &text)
{
    return MakeFontTag(style, text, 0, true, TipSwitch(style.fontItalic), false, false,
                       style.foreColor);
}

QString GetDelimitedField(QStringView text, int index, QStringView separator)
{
    if (index < 1)
        return {};
    if (separator.isEmpty())
        return index == 1 ? text.toString() : QString();
    qsizetype start = 0;
    for (int piece = 1; piece < index; ++piece) {
        const qsizetype next = text.indexOf(separator, start);
        if (next < 0)
            return {};
        start = next + separator.size();
    }
    const qsizetype end = text.indexOf(separator, start);
    return text.mid(start, end < 0 ? -1 : end - start).toString();
}

QString plainTipText(QStringView markup)
{
    QString plain;
    plain.reserve(markup.size());
    for (qsizetype i = 0; i < markup.size(); ++i) {
        const QStringView rest = markup.mid(i);
        if (rest.startsWith(TipTags::Open)) {
            const qsizetype end = markup.indexOf(u'>', i);
            if (end < 0)
                break;
            i = end;
        } else if (rest.startsWith(TipTags::Close)) {
            i += TipTags::Close.size() - 1;
        } else {
            plain += markup.at(i);
        }
    }
    return plain;
}
