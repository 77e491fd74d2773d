#include "LeadingNumber.h"

#include <QString>

#include <cerrno>
#include <cfenv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>

namespace {

bool isSkipped(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n');
}

// "&H" and "&O" literals: up to four digits read as a 16-bit value, up to eight (hex) or
// eleven (octal) as a 32-bit one, so "&HFFFF" is -1 and "&HFFFFFFFF" is -1 too.
std::optional<double> radixNumber(const std::string &digits, int base)
{
    if (digits.empty())
        return 0.0;
    const size_t maxDigits = base == 16 ? 8 : 11;
    std::string trimmed = digits;
    trimmed.erase(0, std::min(trimmed.find_first_not_of('0'), trimmed.size()));
    if (trimmed.size() > maxDigits)
        return std::nullopt;
    const unsigned long long value = std::strtoull(digits.c_str(), nullptr, base);
    if (value > 0xFFFFFFFFULL)
        return std::nullopt;
    const bool shortForm = base == 16 ? trimmed.size() <= 4 : value <= 0xFFFF;
    if (shortForm)
        return static_cast<double>(static_cast<std::int16_t>(static_cast<std::uint16_t>(value)));
    return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

} // namespace

std::optional<double> leadingNumber(QStringView text)
{
    std::string number;
    qsizetype i = 0;
    const qsizetype n = text.size();
    auto skip = [&] {
        while (i < n && isSkipped(text.at(i)))
            ++i;
    };

    skip();
    if (i + 1 < n && text.at(i) == QLatin1Char('&')) {
        const QChar radix = text.at(i + 1).toUpper();
        const int base = radix == QLatin1Char('H') ? 16 : radix == QLatin1Char('O') ? 8 : 0;
        if (base == 0)
            return 0.0;
        i += 2;
        std::string digits;
        for (; i < n; ++i) {
            const QChar c = text.at(i);
            if (isSkipped(c))
                continue;
            const int d = c.isDigit() && c.unicode() < 128 ? c.unicode() - '0'
                : (base == 16 && c.toUpper() >= QLatin1Char('A') && c.toUpper() <= QLatin1Char('F'))
                ? c.toUpper().unicode() - 'A' + 10
                : -1;
            if (d < 0 || d >= base)
                break;
            digits.push_back(static_cast<char>(c.toLatin1()));
        }
        return radixNumber(digits, base);
    }

    if (i < n && (text.at(i) == QLatin1Char('-') || text.at(i) == QLatin1Char('+'))) {
        number.push_back(static_cast<char>(text.at(i).toLatin1()));
        ++i;
    }
    bool anyDigit = false;
    bool seenPoint = false;
    for (; i < n; ++i) {
        const QChar c = text.at(i);
        if (isSkipped(c))
            continue;
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9')) {
            number.push_back(static_cast<char>(c.toLatin1()));
            anyDigit = true;
        } else if (c == QLatin1Char('.') && !seenPoint) {
            number.push_back('.');
            seenPoint = true;
        } else {
            break;
        }
    }
    if (!anyDigit)
        return 0.0;
    if (i < n) {
        const QChar e = text.at(i).toUpper();
        if (e == QLatin1Char('E') || e == QLatin1Char('D')) {
            std::string exponent = "e";
            qsizetype j = i + 1;
            while (j < n && isSkipped(text.at(j)))
                ++j;
            if (j < n && (text.at(j) == QLatin1Char('-') || text.at(j) == QLatin1Char('+')))
                exponent.push_back(static_cast<char>(text.at(j++).toLatin1()));
            bool expDigit = false;
            for (; j < n; ++j) {
                const QChar c = text.at(j);
                if (isSkipped(c))
                    continue;
                if (c < QLatin1Char('0') || c > QLatin1Char('9'))
                    break;
                // Enough digits to overflow any double; more would only cost memory.
                if (exponent.size() < 12)
                    exponent.push_back(static_cast<char>(c.toLatin1()));
                expDigit = true;
            }
            if (expDigit)
                number += exponent;
        }
    }
    // Very long digit runs are legal; strtod copes with them. The file's decimal point is "."
    // on every machine, so the digits are read in the C locale, never in LC_NUMERIC's (which
    // QApplication sets from the user's locale: a Russian one reads "2.6" as 2).
    static const locale_t cNumbers = ::newlocale(LC_NUMERIC_MASK, "C", nullptr);
    errno = 0;
    const double value = ::strtod_l(number.c_str(), nullptr, cNumbers);
    if (!std::isfinite(value) || (errno == ERANGE && std::fabs(value) > 1.0))
        return std::nullopt;
    return value;
}

double roundHalfEven(double value)
{
    const int saved = std::fegetround();
    std::fesetround(FE_TONEAREST);
    const double result = std::nearbyint(value);
    std::fesetround(saved);
    return result;
}
