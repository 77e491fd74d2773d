#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>

struct Settings;

// The base look of tooltip text and of the tooltip window, as the settings record holds it.
struct TipStyle
{
    QString fontName = QStringLiteral("Arial");
    std::int32_t fontSize = 9;
    QString fontItalic = QStringLiteral("No");
    QString fontBold = QStringLiteral("No");
    std::uint32_t foreColor = 0;
    std::uint32_t borderColor = 255;
    std::int32_t borderWidth = 1;
    std::uint32_t backColor = 0xC6FFC6;

    // An empty font name stands for "Arial".
    static TipStyle fromSettings(const Settings &settings);
};

// The two tags of the mark-up. An opening tag is "</f", anything up to a space, six
// comma-separated fields (size, "b", "i", "u", "s", colour) and ">"; the closing tag goes back
// to the base font. Both are read case-sensitively and do not nest.
namespace TipTags {
inline constexpr QStringView Open = u"</f";
inline constexpr QStringView Close = u"<\\f>";
} // namespace TipTags

// A style switch of a font tag: on for the boolean true or the word "Yes".
class TipSwitch
{
public:
    TipSwitch(bool on) // NOLINT(google-explicit-constructor): true and "Yes" read alike
        : m_on(on)
    { }
    TipSwitch(const QString &word) // NOLINT(google-explicit-constructor)
        : m_on(word == QStringLiteral("Yes"))
    { }
    // A plain C string would silently turn into the boolean true.
    TipSwitch(const char *) = delete;
    bool on() const { return m_on; }

private:
    bool m_on;
};

// `text` wrapped in one opening and one closing tag, at the base size plus `sizeStep`. Empty
// when that size does not fit in 32 bits.
QString MakeFontTag(const TipStyle &style, const QString &text, std::int64_t sizeStep,
                    TipSwitch bold, TipSwitch italic, TipSwitch underline, TipSwitch strike,
                    std::uint32_t color);

// "(" key ")": the key bold and one point smaller, the parentheses in the base style.
QString FormatHotKey(const TipStyle &style, const QString &key);

// `text` in bold at the base size, for the program's name inside a sentence.
QString FormatProgramName(const TipStyle &style, const QString &text);

// The `index`-th piece (from 1) of `text` between separators; empty past the last piece.
QString GetDelimitedField(QStringView text, int index, QStringView separator);

// The characters that are drawn: the text without its tags.
QString plainTipText(QStringView markup);
