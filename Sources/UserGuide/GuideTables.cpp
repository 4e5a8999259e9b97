#include "GuideTables.h"

#include "MarkdownTable.h"

#include "Catalog/DevelopSettingTable.h"
#include "Models/SupportedPhotoExtensions.h"
#include "Services/Assistant/Realtime/StopPhrases.h"
#include "Services/Automation/KeyNames.h"
#include "Services/Lightroom/Language/CommandTables.h"
#include "Services/Lightroom/SliderAdjustments.h"
#include "Support/NumberWords.h"
#include "Support/WakePhrases.h"

#include <ranges>

namespace KelvaLR::UserGuide {

using namespace CommandTables;
using namespace Qt::StringLiterals;

namespace {

QString listed(auto &&phrases)
{
    QStringList words;
    for (const auto &phrase : phrases) {
        words.append(phrase.trimmed().toString());
    }
    return words.join(u", "_s);
}

/// The phrases of the rows with this value.
template <typename Rows, typename Value>
QString phrasesFor(const Rows &rows, const Value &value)
{
    QStringList words;
    for (const auto &row : rows) {
        if (row.value == value) {
            words.append(row.phrase.toString());
        }
    }
    return words.join(u", "_s);
}

/// Everything from the first row to the last, for rows that count up: "zero to nineteen".
template <typename Rows>
QString range(const Rows &rows)
{
    return rows.front().phrase.toString() + u" to "_s + rows.back().phrase.toString();
}

template <typename Phrases>
bool contains(const Phrases &phrases, QStringView wanted)
{
    return std::ranges::find(phrases, wanted) != phrases.end();
}

/// The slider of Lightroom that a name of the command language moves: its key is that name but for case and
/// the process version.
const StandIn::DevelopSetting *lightroomSlider(const QString &name)
{
    for (const StandIn::DevelopSetting &setting : StandIn::developSettings()) {
        if (QString(setting.key).remove("2012"_L1).compare(name, Qt::CaseInsensitive) == 0) {
            return &setting;
        }
    }
    return nullptr;
}

QString withSign(double value)
{
    return (value > 0 ? u"+"_s : QString()) + QString::number(value);
}

QString sliders()
{
    MarkdownTable table({u"Say"_s, u"Slider in Lightroom"_s, u"Lowest"_s, u"Highest"_s});
    QStringList done;
    for (const auto &row : sliderTable) {
        const StandIn::DevelopSetting *slider = lightroomSlider(row.value);
        if (slider && !done.contains(row.value)) {
            done.append(row.value);
            table.addRow({phrasesFor(sliderTable, row.value), slider->label, QString::number(slider->lowest),
                          slider->lowest < 0 ? withSign(slider->highest) : QString::number(slider->highest)});
        }
    }
    return table.text();
}

QString sliderWords()
{
    auto neither = actionWords | std::views::filter([](QStringView word) {
                       return word != absoluteWord.trimmed() && !contains(increaseWords, word) &&
                              !contains(decreaseWords, word);
                   });
    return MarkdownTable({u"Word"_s, u"What your number is"_s})
        .addRow({absoluteWord.trimmed().toString(), u"the new value"_s})
        .addRow({listed(increaseWords), u"how much is added"_s})
        .addRow({listed(decreaseWords), u"how much is taken away"_s})
        .addRow({listed(neither), u"a change: added, or taken away where it has a minus"_s})
        .text();
}

QString presets()
{
    return MarkdownTable({u"Say"_s, u"The name goes"_s})
        .addRow({listed(presetMarkers), u"behind it"_s})
        .addRow({listed(presetVerbs),
                 u"between it and the last word of the request, *"_s + presetSuffix.trimmed() + u'*'})
        .text();
}

QString flags()
{
    MarkdownTable table({u"To get"_s, u"Say, for the photo in Lightroom"_s, u"Say, for imported photos"_s});
    constexpr std::array rows{std::pair{"a pick flag"_L1, "pick"_L1},
                              std::pair{"a reject flag"_L1, "reject"_L1},
                              std::pair{"no flag"_L1, "unflag"_L1}};
    for (const auto &[flag, type] : rows) {
        table.addRow({flag, phrasesFor(cullTable, type), phrasesFor(batchCullTable, type)});
    }
    return table.text();
}

QString ratings()
{
    constexpr int mostStars = 5;
    MarkdownTable table({u"Stars"_s, u"Say"_s});
    for (int stars = 0; stars <= mostStars; ++stars) {
        table.addRow({QString::number(stars), phrasesFor(ratingTable, stars)});
    }
    return table.text() + u"\n\nWith it goes one of: "_s + listed(ratingPhrases) + u'.';
}

QString navigation()
{
    return MarkdownTable({u"To go to"_s, u"Say"_s, u"Or just, when nothing else is said"_s})
        .addRow({u"the next photo"_s, phrasesFor(directionTable, "next"_L1),
                 phrasesFor(loneDirectionTable, "next"_L1)})
        .addRow({u"the photo before"_s, phrasesFor(directionTable, "prev"_L1),
                 phrasesFor(loneDirectionTable, "prev"_L1)})
        .text();
}

QString questions()
{
    return MarkdownTable({u"To"_s, u"Say"_s})
        .addRow({u"hear about the selected photo"_s, listed(statusPhrases)})
        .addRow({u"test the connection"_s, listed(connectionTestPhrases)})
        .addRow({u"open Lightroom: this word and its name"_s, listed(launchVerbs)})
        .text();
}

QString importing()
{
    return u"Say *import*, then one of "_s + listed(importSubjects) + u"; then one of "_s +
           listed(importMarkers) + u"; then the folder."_s;
}

QString photosMeant()
{
    auto selectedOnly = importedPhotoPhrases | std::views::filter([](QStringView phrase) {
                            return !contains(allImportedPhotosPhrases, phrase);
                        });
    return MarkdownTable({u"Photos"_s, u"Say"_s})
        .addRow({u"those selected in the tray"_s, listed(selectedOnly)})
        .addRow({u"all in the tray"_s, listed(allImportedPhotosPhrases)})
        .text();
}

QString looks()
{
    MarkdownTable table({u"Say"_s, u"What changes"_s});
    for (const LookRow &row : lookTable) {
        QStringList changes;
        for (const auto &change : parsedSliderAdjustments(row.adjustment)) {
            const auto *slider = lightroomSlider(change->sliderName);
            changes.append(QString(slider->label) + u' ' + withSign(change->value));
        }
        table.addRow({listed(row.phrases), changes.join(u", "_s)});
    }
    return table.text();
}

QString hands()
{
    return MarkdownTable({u"To"_s, u"Say"_s})
        .addRow({u"click something: its name follows"_s, listed(clickVerbs)})
        .addRow({u"press a key: its name follows"_s, listed(keyVerbs)})
        .addRow({u"type: the text follows"_s, listed(typeVerbs)})
        .addRow({u"type into a field: between the text and the field's name"_s, listed(fieldSeparators)})
        .text();
}

QString modifierKeys()
{
    QStringList words;
    for (const KeyNames::ModifierRow &row : KeyNames::modifierTable) {
        const auto &[first, second] = row.words;
        words.append(first == second ? first.toString() : QString(first + u" or "_s + second));
    }
    return words.join(u", "_s);
}

/// "a to z" where all of them are there.
QString run(const QStringList &characters)
{
    QStringList sorted = characters;
    sorted.sort();
    const bool isWhole =
        sorted.last().front().unicode() - sorted.first().front().unicode() + 1 == sorted.size();
    return isWhole ? QString(sorted.first() + u" to "_s + sorted.last()) : sorted.join(u", "_s);
}

QString keys()
{
    QStringList letters;
    QStringList digits;
    QStringList signs;
    QStringList names;
    for (const KeyNames::KeyRow &row : KeyNames::keyTable) {
        const QChar first = row.name.front();
        QStringList &kind = row.name.size() > 1 ? names
                            : first.isLetter()  ? letters
                            : first.isDigit()   ? digits
                                                : signs;
        kind.append(row.name.toString());
    }
    return MarkdownTable({u"Keys"_s, u"Say"_s})
        .addRow({u"held while another is pressed"_s, modifierKeys()})
        .addRow({u"letters and digits"_s, QString(run(letters) + u", "_s + run(digits))})
        .addRow({u"signs"_s, QString(u"`` "_s + signs.join(u' ') + u" ``"_s)})
        .addRow({u"others"_s, names.join(u", "_s)})
        .text();
}

QString spokenNumbers()
{
    using namespace NumberWords;
    return MarkdownTable({u"For"_s, u"Say"_s})
        .addRow({u"small numbers"_s, QString(range(unitTable) + u"; "_s + range(tensTable) + u" in tens"_s)})
        .addRow({u"large numbers"_s, QString(hundred + u", "_s + thousand)})
        .addRow({u"what stands behind the point"_s, point.toString()})
        .addRow({u"more"_s, phrasesFor(signTable, u'+')})
        .addRow({u"less"_s, phrasesFor(signTable, u'-')})
        .text();
}

QString wakeWords()
{
    return u"It is also taken for a call when it is heard as: "_s +
           listed(wakePhrases | std::views::drop(1)) + u'.';
}

QString stopping()
{
    return MarkdownTable({u"How"_s, u"Say"_s})
        .addRow({u"by itself"_s, listed(stopPhrases)})
        .addRow({u"anywhere in what you say"_s, listed(stopWords)})
        .text();
}

QString photoTypes()
{
    return u"Photos are files that end in one of: "_s + listed(supportedPhotoExtensions) + u'.';
}

constexpr std::array tables{
    GuideTable{"sliders"_L1, sliders},
    GuideTable{"slider-words"_L1, sliderWords},
    GuideTable{"presets"_L1, presets},
    GuideTable{"flags"_L1, flags},
    GuideTable{"ratings"_L1, ratings},
    GuideTable{"navigation"_L1, navigation},
    GuideTable{"questions"_L1, questions},
    GuideTable{"importing"_L1, importing},
    GuideTable{"photos-meant"_L1, photosMeant},
    GuideTable{"looks"_L1, looks},
    GuideTable{"hands"_L1, hands},
    GuideTable{"keys"_L1, keys},
    GuideTable{"spoken-numbers"_L1, spokenNumbers},
    GuideTable{"wake-words"_L1, wakeWords},
    GuideTable{"stopping"_L1, stopping},
    GuideTable{"photo-types"_L1, photoTypes},
};

} // namespace

std::span<const GuideTable> guideTables()
{
    return tables;
}

} // namespace KelvaLR::UserGuide
