#include "CommandSentences.h"

#include "Services/Lightroom/Language/CommandTables.h"
#include "Support/NumberWords.h"

#include <span>

namespace KelvaLR::SpeechModels {

using namespace CommandTables;
using namespace NumberWords;

namespace {

constexpr auto digits = std::span(unitTable).first<10>();
constexpr auto teens = std::span(unitTable).last<10>();

/// Where most people say it: at the end, if at all.
constexpr PhraseList<5> places{u"", u"", u"in lightroom", u"in lightroom", u"in lightroom classic"};
constexpr PhraseList<5> photos{u"this", u"it", u"this photo", u"this image", u""};
constexpr PhraseList<3> articles{u"", u"", u"the"};
constexpr PhraseList<8> otherRequests{
    u"inspect lightroom",
    u"what photo is selected in lightroom",
    u"what photo is this in lightroom",
    u"lightroom status",
    u"undo in lightroom",
    u"press enter in lightroom",
    u"press g in lightroom",
    u"press d in lightroom",
};

QString joined(std::initializer_list<QString> parts)
{
    QStringList words;
    for (const QString &part : parts) {
        if (!part.isEmpty()) {
            words.append(part);
        }
    }
    return words.join(u' ');
}

} // namespace

CommandSentences::CommandSentences(quint32 seed)
    : m_random(seed)
{
}

double CommandSentences::chance()
{
    return static_cast<double>(m_random()) / (static_cast<double>(std::mt19937::max()) + 1);
}

qsizetype CommandSentences::place(qsizetype count)
{
    return static_cast<qsizetype>(chance() * static_cast<double>(count));
}

QString CommandSentences::next()
{
    const double kind = chance();
    if (kind < 0.50) {
        return sliderCommand();
    }
    if (kind < 0.62) {
        return navigationCommand();
    }
    if (kind < 0.74) {
        return flagCommand();
    }
    if (kind < 0.86) {
        return ratingCommand();
    }
    return kind < 0.93 ? presetCommand() : otherCommand();
}

QString CommandSentences::sliderCommand()
{
    const QString slider = oneOf(sliderTable);
    const QString article = oneOf(articles);
    const QString end = chance() < 0.8 ? QString() : place();
    const double form = chance();
    if (form < 0.5) {
        return joined({u"set"_s, article, slider, u"to"_s, sliderValue(slider), end});
    }
    if (form < 0.95) {
        const QString verb = chance() < 0.5 ? oneOf(increaseWords) : oneOf(decreaseWords);
        return verb == u"add" || verb == u"remove"
                   ? joined({verb, unsignedValue(slider), slider, end})
                   : joined({verb, article, slider, u"by"_s, unsignedValue(slider), end});
    }
    const QString relation = chance() < 0.5 ? u"to"_s : u"by"_s;
    return joined({oneOf(actionWords), article, slider, relation, sliderValue(slider), end});
}

QString CommandSentences::sliderValue(const QString &slider)
{
    return joined({chance() < 0.5 ? QString() : oneOf(signTable), unsignedValue(slider)});
}

QString CommandSentences::unsignedValue(const QString &slider)
{
    if (slider.startsWith(u"temp") && chance() < 0.7) {
        return thousands();
    }
    if (slider == u"exposure" || chance() < 0.2) {
        const double form = chance();
        const QString second = chance() < 0.25 ? oneOf(digits) : QString();
        if (form < 0.7) {
            return joined({oneOf(digits), point.toString(), oneOf(digits), second});
        }
        return form < 0.8 ? joined({point.toString(), oneOf(digits), second}) : oneOf(digits);
    }
    return chance() < 0.05 ? joined({u"one"_s, hundred.toString()}) : belowHundred();
}

QString CommandSentences::belowHundred()
{
    const double form = chance();
    if (form < 0.35) {
        return oneOf(digits);
    }
    if (form < 0.5) {
        return oneOf(teens);
    }
    return joined({oneOf(tensTable), form < 0.75 ? QString() : oneOf(digits.subspan(1))});
}

QString CommandSentences::thousands()
{
    const QString hundreds = chance() < 0.5 ? QString() : joined({oneOf(digits), hundred.toString()});
    return joined({chance() < 0.1 ? u"ten"_s : oneOf(digits), thousand.toString(), hundreds});
}

QString CommandSentences::presetCommand()
{
    if (chance() < 0.25) {
        return joined({oneOf(presetVerbs), presetPlaceholder.toString(), u"preset"_s});
    }
    return joined({oneOf(presetMarkers), presetPlaceholder.toString(), place()});
}

QString CommandSentences::flagCommand()
{
    const QString photo = oneOf(photos);
    const double form = chance();
    if (form < 0.4) {
        return joined({u"flag"_s, photo, u"as"_s, form < 0.2 ? u"pick"_s : u"reject"_s, place()});
    }
    if (form < 0.5) {
        return joined({u"mark"_s, photo, u"as a keeper"_s, place()});
    }
    return joined({oneOf(cullTable), photo, place()});
}

QString CommandSentences::ratingCommand()
{
    constexpr std::size_t firstWord = 6; // the digits stand before the words
    const auto words = std::span(ratingTable).subspan(firstWord);
    const QString number = oneOf(words);
    const QString stars = number == u"one" ? u"star"_s : u"stars"_s;
    const QString verb = chance() < 0.5 ? u"rate"_s : u"give"_s;
    const double form = chance();
    if (form < 0.4) {
        return joined({verb, oneOf(photos), number, stars, place()});
    }
    if (form < 0.7) {
        return joined({number, stars, place()});
    }
    return form < 0.85 ? joined({u"set"_s, oneOf(articles), u"rating to"_s, number, place()})
                       : joined({u"rate"_s, oneOf(photos), number, place()});
}

QString CommandSentences::navigationCommand()
{
    return joined({chance() < 0.8 ? oneOf(directionTable) : oneOf(loneDirectionTable), place()});
}

QString CommandSentences::otherCommand()
{
    return chance() < 0.4
               ? joined({oneOf(launchVerbs), u"lightroom"_s, chance() < 0.5 ? u"classic"_s : QString()})
               : oneOf(otherRequests);
}

QString CommandSentences::place()
{
    return oneOf(places);
}

} // namespace KelvaLR::SpeechModels
