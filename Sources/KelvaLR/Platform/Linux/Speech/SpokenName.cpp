#include "Platform/Linux/Speech/SpokenName.h"

#include "Support/NumberWords.h"

namespace KelvaLR {

using namespace NumberWords;
using namespace Qt::StringLiterals;

namespace {

QStringList spokenNumber(int number)
{
    if (number >= 1000) {
        return spokenNumber(number / 1000)
               << thousand.toString() << (number % 1000 == 0 ? QStringList() : spokenNumber(number % 1000));
    }
    if (number >= 100) {
        return spokenNumber(number / 100)
               << hundred.toString() << (number % 100 == 0 ? QStringList() : spokenNumber(number % 100));
    }
    if (number >= 20) {
        QStringList words{tensTable.at(static_cast<std::size_t>(number) / 10 - 2).phrase.toString()};
        return number % 10 == 0 ? words : words << spokenNumber(number % 10);
    }
    return {unitTable.at(static_cast<std::size_t>(number)).phrase.toString()};
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
