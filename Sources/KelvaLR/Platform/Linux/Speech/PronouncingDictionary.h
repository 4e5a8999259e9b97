#pragma once

#include <QByteArrayList>
#include <QHash>
#include <QString>

#include <expected>

namespace KelvaLR {

/// How words are spoken, in the phones of the CMU dictionary ("K EH L V AH"), in lower case.
class PronouncingDictionary
{
public:
    /// Reads a file of lines such as "kelp K EH L P" and "hey(2) HH AY".
    [[nodiscard]] static std::expected<PronouncingDictionary, QString> read(const QString &path);

    /// All ways to say a word, the usual one first; none for a word that it lacks.
    [[nodiscard]] QByteArrayList pronunciations(const QString &word) const;

    [[nodiscard]] const QHash<QString, QByteArrayList> &words() const { return m_words; }

    void set(const QString &word, const QByteArrayList &pronunciations);

    /// The words as lines of such a file, in alphabetical order.
    [[nodiscard]] QByteArray lines(QStringList words) const;

private:
    QHash<QString, QByteArrayList> m_words;
};

} // namespace KelvaLR
