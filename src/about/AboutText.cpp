#include "AboutText.h"

#include <QDir>
#include <QFileInfo>

namespace AboutText {

namespace {

constexpr char16_t EnglishDescription[] =
    u"<p><b>QLV Calendar Lite</b> is a small desktop month calendar. It shows a month as a grid "
    u"of days, the current date and time, the selected date and how many days lie between "
    u"today and that date.</p>"
    u"<ul>"
    u"<li>Step between months with the arrow buttons or the mouse wheel, or jump with the month "
    u"and year lists, anywhere from January 1900 to December 2099.</li>"
    u"<li>Pick a day to see how far it is from today. The two history buttons go back to today "
    u"and forward again to the day you picked last.</li>"
    u"<li>Copy the selected date to the clipboard, or start another calendar with Ctrl+N.</li>"
    u"<li>In the Settings window (F9) choose English or Russian, Sunday or Monday as the first "
    u"day of the week, a colour scheme, the border, a background picture, and whether the "
    u"calendar opens in the centre of the screen and stays above other windows.</li>"
    u"</ul>"
    u"<p>Keys: F1 opens this window, F9 the settings; Esc closes the window you are in; Alt+Q "
    u"or Alt+X closes the calendar. The window remembers where you left it.</p>"
    u"<p><b>Terms of use</b></p>"
    u"<p>QLV Calendar Lite is free: you may use it at home and at work and give copies to "
    u"others at no charge. It comes as it is, with no warranty of any kind. You use it at your "
    u"own risk; its authors are not liable for any loss or damage that may come of using "
    u"it.</p>";

constexpr char16_t RussianDescription[] =
    u"<p><b>Календарь КЛВ Лайт</b> — небольшой настольный календарь. Он показывает месяц "
    u"сеткой дней, текущие дату и время, выбранную дату и сколько дней отделяет её от "
    u"сегодняшнего дня.</p>"
    u"<ul>"
    u"<li>Листайте месяцы кнопками со стрелками или колёсиком мыши либо сразу выбирайте месяц "
    u"и год в списках — от января 1900 до декабря 2099 года.</li>"
    u"<li>Щёлкните по дню, чтобы узнать, сколько дней до него осталось или уже прошло. Кнопки "
    u"истории возвращают к сегодняшней дате и обратно к последнему выбранному дню.</li>"
    u"<li>Выбранную дату можно скопировать в буфер обмена, а ещё один календарь открыть "
    u"сочетанием Ctrl+N.</li>"
    u"<li>В окне настроек (F9) выбираются язык (русский или английский), первый день недели "
    u"(воскресенье или понедельник), цветовая схема, рамка и фоновый рисунок, а также "
    u"появление календаря в центре экрана и его показ поверх других окон.</li>"
    u"</ul>"
    u"<p>Клавиши: F1 открывает это окно, F9 — настройки; Esc закрывает текущее окно; Alt+Q "
    u"или Alt+X закрывают календарь. Календарь запоминает, где вы его оставили.</p>"
    u"<p><b>Условия использования</b></p>"
    u"<p>Календарь КЛВ Лайт распространяется бесплатно: им можно пользоваться дома и на работе "
    u"и свободно передавать копии другим. Программа предоставляется «как есть», без каких-либо "
    u"гарантий. "
    u"Вы пользуетесь ею на свой страх и риск; авторы не отвечают за ущерб или потери, "
    u"которые может повлечь её использование.</p>";

} // namespace

QString versionLine(const QString &version, const QString &language)
{
    return Captions::pick(Version, language).arg(version);
}

QString description(const QString &language)
{
    return QString::fromUtf16(Captions::isEnglish(language) ? EnglishDescription
                                                            : RussianDescription);
}

QString documentationPath(const QString &programFolder)
{
    if (programFolder.isEmpty())
        return {};
    // Cleaned before asking: the folders of a path that climbs out of them need not exist.
    for (const char *relative : { "/../share/doc/qlvcallt/README.md", "/../../README.md" }) {
        QString path = QDir::cleanPath(programFolder + QLatin1StringView(relative));
        if (QFileInfo(path).isFile())
            return path;
    }
    return {};
}

} // namespace AboutText
