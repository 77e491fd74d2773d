#include "TimeText.h"

#include "app/Clock.h"

#include <functional>

namespace {

// Rewrites the unquoted part of a Qt date/time pattern; quoted literals pass through untouched.
QString rewriteUnquoted(const QString &pattern,
                        const std::function<QString(const QString &)> &rewrite)
{
    QString out;
    QString run;
    bool quoted = false;
    for (const QChar c : pattern) {
        if (c == u'\'') {
            if (!quoted) {
                out += rewrite(run);
                run.clear();
            }
            quoted = !quoted;
            out += c;
        } else if (quoted) {
            out += c;
        } else {
            run += c;
        }
    }
    out += rewrite(run);
    return out;
}

QString tidySpaces(QString text)
{
    while (text.contains(QStringLiteral("  ")))
        text.replace(QStringLiteral("  "), QStringLiteral(" "));
    return text.trimmed();
}

QString twoDigits(int n)
{
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

struct DesignatorRule
{
    QString suffix; // " AM/PM", " am/pm", " A/P", " a/p" or " AMPM" (the system's own)
    Designators designators;
};

DesignatorRule designatorRule(const QString &sample)
{
    auto has = [&](const char *s) { return sample.contains(QLatin1StringView(s)); };
    auto hasAnyCase = [&](const char *s) {
        return sample.contains(QLatin1StringView(s), Qt::CaseInsensitive);
    };
    if (has("AM") || has("PM"))
        return { QStringLiteral(" AM/PM"), { QStringLiteral("AM"), QStringLiteral("PM") } };
    if (has("am") || has("pm"))
        return { QStringLiteral(" am/pm"), { QStringLiteral("am"), QStringLiteral("pm") } };
    if ((has("A") || has("P")) && !has("M"))
        return { QStringLiteral(" A/P"), { QStringLiteral("A"), QStringLiteral("P") } };
    if ((has("a") || has("p")) && !has("m"))
        return { QStringLiteral(" a/p"), { QStringLiteral("a"), QStringLiteral("p") } };
    if (hasAnyCase("a.m.") || hasAnyCase("p.m."))
        return { QStringLiteral(" AMPM"), { QStringLiteral("A.M."), QStringLiteral("P.M.") } };
    return { QStringLiteral(" AM/PM"), { QStringLiteral("AM"), QStringLiteral("PM") } };
}

} // namespace

namespace LocaleFormats {

QString shortDatePattern(const QLocale &locale)
{
    return rewriteUnquoted(locale.dateFormat(QLocale::ShortFormat), [](const QString &run) {
        QString out;
        for (qsizetype i = 0; i < run.size();) {
            qsizetype n = 0;
            while (i + n < run.size() && run.at(i + n) == u'y')
                ++n;
            if (n == 0) {
                out += run.at(i++);
                continue;
            }
            out += n == 2 ? QStringLiteral("yyyy") : QString(n, u'y');
            i += n;
        }
        return out;
    });
}

QString longTimePattern(const QLocale &locale)
{
    return tidySpaces(rewriteUnquoted(locale.timeFormat(QLocale::LongFormat),
                                      [](QString run) { return run.remove(QChar(u't')); }));
}

QString shortTime24Pattern(const QLocale &locale)
{
    return tidySpaces(rewriteUnquoted(locale.timeFormat(QLocale::ShortFormat), [](QString run) {
        run.remove(QChar(u'a'), Qt::CaseInsensitive);
        run.remove(QChar(u'p'), Qt::CaseInsensitive);
        return run.replace(u'h', u'H');
    }));
}

QString shortDate(QDate date, const QLocale &locale)
{
    return locale.toString(date, shortDatePattern(locale));
}

QString longTime(const QDateTime &moment, const QLocale &locale)
{
    return locale.toString(moment.time(), longTimePattern(locale));
}

} // namespace LocaleFormats

TimeFormatContext TimeFormatContext::fromLocale(const QLocale &locale, const QDateTime &now,
                                                bool timeAmPm)
{
    TimeFormatContext context;
    context.timeAmPm = timeAmPm;
    context.longTimeSample = LocaleFormats::longTime(now, locale);
    context.shortTime24Pattern = LocaleFormats::shortTime24Pattern(locale);
    context.systemAm = locale.amText();
    context.systemPm = locale.pmText();
    return context;
}

QString FormatTime(QTime value, bool withSeconds, const TimeFormatContext &context,
                   Designators *chosen)
{
    if (!value.isValid())
        return {};
    const QString seconds = withSeconds ? QLatin1Char(':') + twoDigits(value.second()) : QString();
    if (!context.timeAmPm) {
        const QString pattern = context.shortTime24Pattern.isEmpty() ? QStringLiteral("HH:mm")
                                                                     : context.shortTime24Pattern;
        return value.toString(pattern) + seconds;
    }

    const DesignatorRule rule = designatorRule(context.longTimeSample);
    if (chosen)
        *chosen = rule.designators;
    const bool morning = value.hour() < 12;
    QString designator;
    if (rule.suffix == QStringLiteral(" AMPM"))
        designator = morning ? context.systemAm : context.systemPm;
    else
        designator = morning ? rule.designators.am : rule.designators.pm;
    const int hour = value.hour() % 12 == 0 ? 12 : value.hour() % 12;
    QString text = QString::number(hour) + QLatin1Char(':') + twoDigits(value.minute()) + seconds;
    if (!designator.isEmpty())
        text += QLatin1Char(' ') + designator;
    return text;
}

QDateTime NowToMinute(const Clock &clock)
{
    const QDateTime now = clock.now();
    return QDateTime(now.date(), QTime(now.time().hour(), now.time().minute()));
}

QDateTime NowToSecond(const Clock &clock)
{
    const QDateTime now = clock.now();
    const QTime t = now.time();
    return QDateTime(now.date(), QTime(t.hour(), t.minute(), t.second()));
}

qint64 dayDifference(const QDateTime &from, QDate to)
{
    return from.date().daysTo(to);
}
