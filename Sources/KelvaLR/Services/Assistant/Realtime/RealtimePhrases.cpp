#include "Services/Assistant/Realtime/RealtimePhrases.h"

#include "Services/Assistant/Realtime/StopPhrases.h"
#include "Support/NormalizedWords.h"
#include "Support/WakePhrases.h"

#include <QList>

#include <ranges>

namespace KelvaLR {

namespace {

template <std::size_t size>
bool isOneOf(QStringView text, const PhraseList<size> &phrases)
{
    return std::ranges::find(phrases, text) != phrases.end();
}

} // namespace

QString normalizedComputerUseText(const QString &transcript)
{
    return normalizedWords(transcript);
}

bool containsWakePhrase(const QString &transcript)
{
    const QString text = normalizedComputerUseText(transcript);
    return std::ranges::any_of(wakePhrases | std::views::take(wakePhrasesInSession),
                               [&](QStringView phrase) { return text.contains(phrase); });
}

bool isVoiceSessionStopCommand(const QString &transcript)
{
    const QString text = normalizedComputerUseText(transcript);
    return isOneOf(text, stopPhrases) ||
           std::ranges::any_of(QStringView(text).split(u' '),
                               [](QStringView word) { return isOneOf(word, stopWords); });
}

} // namespace KelvaLR
