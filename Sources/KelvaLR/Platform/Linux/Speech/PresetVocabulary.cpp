#include "Platform/Linux/Speech/PresetVocabulary.h"

#include "Platform/Linux/FliteVoice.h"
#include "Platform/Linux/Speech/SpokenName.h"

#include <cmath>

namespace KelvaLR {

namespace {

QByteArray pronounced(const QString &word, const PronouncingDictionary &dictionary)
{
    const QByteArrayList ways = dictionary.pronunciations(word);
    return ways.isEmpty() ? FliteVoice::pronounce(word.toUtf8()) : ways.constFirst();
}

/// A line of the model is a probability, the words, and a weight for shorter histories unless it is of the
/// longest.
struct ModelLine
{
    explicit ModelLine(const QByteArray &line)
        : parts(line.split(' '))
    {
    }

    QByteArray with(const QByteArray &word, qsizetype place, double change) const
    {
        QByteArrayList changed = parts;
        changed[place] = word;
        changed[0] = QByteArray::number(parts.at(0).toDouble() + change, 'f', 4);
        return changed.join(' ') + '\n';
    }

    QByteArrayList parts;
};

} // namespace

PresetVocabulary::PresetVocabulary(const QStringList &names, const PronouncingDictionary &dictionary)
{
    for (const QString &name : names) {
        QByteArrayList phones;
        const QStringList spoken = spokenWords(name);
        for (const QString &word : spoken) {
            phones.append(pronounced(word, dictionary));
        }
        const QString word = spoken.join(u'_');
        if (!word.isEmpty() && !phones.contains(QByteArray()) && !m_names.contains(word)) {
            m_words.append(word);
            m_names.insert(word, name);
            m_pronunciations.set(word, {phones.join(' ')});
        }
    }
}

QString PresetVocabulary::withNames(const QString &recognised) const
{
    QStringList words = recognised.split(u' ');
    for (QString &word : words) {
        word = m_names.value(word, word);
    }
    return words.join(u' ');
}

QByteArray modelWithWords(const QByteArray &model, const QByteArray &placeholder, const QStringList &words)
{
    if (words.isEmpty()) {
        return model;
    }
    const double share = -std::log10(static_cast<double>(words.size()));
    QByteArrayList counts;
    QByteArrayList sections;
    qsizetype count = 0;
    QByteArray section;
    const auto endSection = [&] {
        if (!section.isEmpty()) {
            counts.append(QByteArray::number(count));
            sections.append(section);
        }
        section.clear();
        count = 0;
    };
    for (const QByteArray &line : model.split('\n')) {
        if (line.startsWith('\\')) {
            endSection();
        }
        const ModelLine parsed(line);
        if (parsed.parts.size() < 2 || line.startsWith("ngram")) {
            continue;
        }
        const qsizetype place = parsed.parts.indexOf(placeholder);
        if (place < 0) {
            section += line + '\n';
            ++count;
            continue;
        }
        // Only where the name itself is expected is it one of many.
        const qsizetype last = sections.size() + 1;
        for (const QString &word : words) {
            section += parsed.with(word.toUtf8(), place, place == last ? share : 0);
            ++count;
        }
    }
    endSection();

    QByteArray whole = "\\data\\\n";
    for (qsizetype order = 1; order <= counts.size(); ++order) {
        whole += "ngram " + QByteArray::number(order) + '=' + counts.at(order - 1) + '\n';
    }
    for (qsizetype order = 1; order <= sections.size(); ++order) {
        whole += "\n\\" + QByteArray::number(order) + "-grams:\n" + sections.at(order - 1);
    }
    return whole + "\n\\end\\\n";
}

} // namespace KelvaLR
