#pragma once

#include "Platform/Linux/Speech/PronouncingDictionary.h"

#include <QHash>

namespace KelvaLR {

/// The names of the user's presets as words of the recogniser: each name is one word, since it is said as a
/// whole.
class PresetVocabulary
{
public:
    /// @param dictionary knows usual words; what it lacks is spoken by the rules of English spelling
    PresetVocabulary(const QStringList &names, const PronouncingDictionary &dictionary);

    /// In the order of the names; a name that cannot be spoken is left out.
    [[nodiscard]] const QStringList &words() const { return m_words; }

    /// How they are spoken, as lines of a dictionary.
    [[nodiscard]] QByteArray dictionaryLines() const { return m_pronunciations.lines(m_words); }

    /// The text with the names in the place of their words.
    [[nodiscard]] QString withNames(const QString &recognised) const;

private:
    QStringList m_words;
    QHash<QString, QString> m_names; ///< of the words
    PronouncingDictionary m_pronunciations;
};

/// A language model in the ARPA format in which each of these words stands where the placeholder stood, all
/// alike; without words, the model as it is.
[[nodiscard]] QByteArray modelWithWords(const QByteArray &model, const QByteArray &placeholder,
                                        const QStringList &words);

} // namespace KelvaLR
