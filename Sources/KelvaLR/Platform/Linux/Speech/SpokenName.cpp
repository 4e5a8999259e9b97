#include "Platform/Linux/Speech/SpokenName.h"

#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 20> small{
    u"zero",     u"one",     u"two",     u"three",     u"four",     u"five",     u"six",
    u"seven",    u"eight",   u"nine",    u"ten",       u"eleven",   u"twelve",   u"thirteen",
    u"fourteen", u"fifteen", u"sixteen", u"seventeen", u"eighteen", u"nineteen",
};
constexpr std::array<QStringView, 10> tens{
    u"", u"", u"twenty", u"thirty", u"forty", u"fifty", u"sixty", u"seventy", u"eighty", u"ninety",
};

QStringList spokenNumber(int number)
{
    if (number >= 1000) {
        return spokenNumber(number / 1000)
               << u"thousand"_s << (number % 1000 == 0 ? QStringList() : spokenNumber(number % 1000));
    }
    if (number >= 100) {
        return spokenNumber(number / 100)
               << u"hundred"_s << (number % 100 == 0 ? QStringList() : spokenNumber(number % 100));
    }
    if (number >= 20) {
        QStringList words{tens.at(static_cast<std::size_t>(number) / 10).toString()};
        return number % 10 == 0 ? words : words << spokenNumber(number % 10);
    }
    return {small.at(static_cast<std::size_t>(number)).toString()};
}

/// Digit by digit where it is no number of a usual length.
QStringList spokenDigits(const QString &digits)
{
    if (digits.size() <= 4 && !(digits.size() > 1 && digits.startsWith(u'0'))) {
        return spokenNumber(digits.toInt());
    }
    QStringList words;
    for (const QChar digit : digits) {
        words << spokenNumber(digit.digitValue());
    }
    return words;
}

} // namespace

QStringList spokenWords(const QString &name)
{
    QStringList words;
    QString run;
    const auto endRun = [&] {
        if (!run.isEmpty()) {
            words << (run.front().isDigit() ? spokenDigits(run) : QStringList(run));
        }
        run.clear();
    };
    for (const QChar character : name.toLower()) {
        const bool isDigit = character >= u'0' && character <= u'9';
        const bool isLetter = character.isLetter() || (character == u'\'' && !run.isEmpty());
        if (!run.isEmpty() && (isDigit != run.front().isDigit() || (!isDigit && !isLetter))) {
            endRun();
        }
        if (isDigit || isLetter) {
            run.append(character);
        } else if (character == u'&') {
            words << u"and"_s;
        }
    }
    endRun();
    return words;
}

} // namespace KelvaLR
