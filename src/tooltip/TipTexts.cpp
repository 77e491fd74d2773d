#include "TipTexts.h"

namespace TipTexts {

namespace {

QString built(QString text, const QString &key, const TipStyle &style)
{
    text.replace(QStringLiteral("%1"), FormatProgramName(style, ProgramName));
    return key.isEmpty() ? text : text + FormatHotKey(style, key);
}

// Kept in one-letter pieces, so that the line is not one plain string in the executable.
QString fromPieces(std::initializer_list<char16_t> pieces)
{
    QString text;
    for (char16_t piece : pieces)
        text += QChar(piece);
    return text;
}

} // namespace

TipTable mainFormTips()
{
    return {
        { QStringLiteral("LabelSettings"), QStringLiteral("Open the Settings window  "),
          QStringLiteral("Открыть окно настроек программы  "), QStringLiteral("F9") },
        { QStringLiteral("LabelAbout"), QStringLiteral("Open the About / Description window  "),
          QStringLiteral("Открыть окно краткого описания программы  "), QStringLiteral("F1") },
        { QStringLiteral("KnCopy"),
          QStringLiteral("Copy the selected date to the Clipboard"),
          QStringLiteral("Скопировать выбранную дату в буфер обмена"),
          {} },
        { QStringLiteral("KnMin"),
          QStringLiteral("Minimize"),
          QStringLiteral("Свернуть Календарь"),
          {} },
        { QStringLiteral("ButtDay*"),
          QStringLiteral("Select a day"),
          QStringLiteral("Выбор дня месяца"),
          {} },
        { QStringLiteral("ListMonth"),
          QStringLiteral("Select a month"),
          QStringLiteral("Выбор месяца"),
          {} },
        // "an year" is the program's own wording.
        { QStringLiteral("ListYear"),
          QStringLiteral("Select an year"),
          QStringLiteral("Выбор года"),
          {} },
        { QStringLiteral("ButtNew"), QStringLiteral("Run a new instance of the Calendar  "),
          QStringLiteral("Открыть новый экземпляр Календаря  "), QStringLiteral("Ctrl+N") },
        { QStringLiteral("ButtPrevMonth"),
          QStringLiteral("Go to the previous month"),
          QStringLiteral("Переход к предыдущему месяцу"),
          {} },
        { QStringLiteral("ButtNextMonth"),
          QStringLiteral("Go to the next month"),
          QStringLiteral("Переход к следующему месяцу"),
          {} },
        { QStringLiteral("ButtUndo"),
          QStringLiteral("Return to the current date"),
          QStringLiteral("Возврат к текущей дате"),
          {} },
        { QStringLiteral("ButtRedo"),
          QStringLiteral("Return to the last selected date"),
          QStringLiteral("Возврат к последней выбранной дате"),
          {} },
        { QStringLiteral("KnClose"), QStringLiteral("Close the Calendar  "),
          QStringLiteral("Закрыть Календарь  "), QStringLiteral("Esc") },
        { QStringLiteral("KnOk"), QStringLiteral("Close the Calendar  "),
          QStringLiteral("Закрыть Календарь  "), QStringLiteral("Esc") },
    };
}

TipTable viewFormTips()
{
    const QString save = QStringLiteral("Close the window and save any changes you have made  ");
    const QString saveRussian =
        QStringLiteral("Сохранить внесенные изменения и закрыть текущее окно  ");
    return {
        { QStringLiteral("ListLang"),
          QStringLiteral("Select a language"),
          QStringLiteral("Выбор языка программы"),
          {} },
        { QStringLiteral("ListFirstDay"),
          QStringLiteral("Specifies the first day of the week to display in the Main window of %1"),
          QStringLiteral("Выбор первого дня недели для отображения в Главном окне программы"),
          {} },
        { QStringLiteral("ListColorScheme"),
          QStringLiteral("Select a color scheme"),
          QStringLiteral("Выбор цветовой схемы программы"),
          {} },
        { QStringLiteral("HScrollBordWidthGen"),
          QStringLiteral("Specifies the border width of all the common windows of %1"),
          QStringLiteral("Определение толщины границы всех основных окон программы"),
          {} },
        { QStringLiteral("ListTopmostMain"),
          QStringLiteral("Specifies whether the Main window of %1 is shown topmost"),
          QStringLiteral("Показывать или нет Главное окно программы поверх других окон Windows"),
          {} },
        { QStringLiteral("ListAlignCenterMain"),
          QStringLiteral("Specifies whether the Main window of %1 is aligned to the center of the "
                         "screen"),
          QStringLiteral("Выравнивать или нет Главное окно программы по центру экрана"),
          {} },
        { QStringLiteral("ListBackPictMain"),
          QStringLiteral(
              "Specifies whether a background picture is displayed in the Main window of %1"),
          QStringLiteral("Выбор фонового рисунка для Главного окна программы"),
          {} },
        { QStringLiteral("KnClose"), save, saveRussian, QStringLiteral("Ctrl+Enter") },
        { QStringLiteral("KnOkBlack"), save, saveRussian, QStringLiteral("Ctrl+Enter") },
        { QStringLiteral("KnCancelBlackEng"),
          QStringLiteral("Close the window without saving any changes you have made  "),
          QStringLiteral("Отменить внесенные изменения и закрыть текущее окно  "),
          QStringLiteral("Esc") },
    };
}

TipTable aboutFormTips(const QString &version)
{
    const QString english = fromPieces({ u'V', u'e', u'r', u's', u'i', u'o', u'n', u' ' });
    const QString russian = fromPieces({ u'В', u'е', u'р', u'с', u'и', u'я', u' ' });
    return {
        { QStringLiteral("KnClose"), QStringLiteral("Close  "), QStringLiteral("Закрыть  "),
          QStringLiteral("Esc") },
        { QStringLiteral("KnVersion"), english + version, russian + version, {} },
    };
}

QString englishTip(const TipRow &row, const TipStyle &style)
{
    return built(row.english, row.key, style);
}

QString russianTip(const TipRow &row, const TipStyle &style)
{
    return built(row.russian, row.key, style);
}

QString plainTip(const TipRow &row, const QString &language)
{
    const TipStyle style;
    return plainTipText(language == QStringLiteral("Russian") ? russianTip(row, style)
                                                              : englishTip(row, style));
}

} // namespace TipTexts
