#include "Platform/Linux/Speech/PronouncingDictionary.h"

#include <QFile>

namespace KelvaLR {

using namespace Qt::StringLiterals;

std::expected<PronouncingDictionary, QString> PronouncingDictionary::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) {
        return std::unexpected(u"The dictionary \"%1\" cannot be read."_s.arg(path));
    }
    PronouncingDictionary dictionary;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().simplified();
        const qsizetype blank = line.indexOf(' ');
        const qsizetype bracket = line.indexOf('(');
        const qsizetype end = bracket > 0 && bracket < blank ? bracket : blank;
        if (end > 0) {
            dictionary.m_words[QString::fromUtf8(line.first(end))].append(line.mid(blank + 1));
        }
    }
    return dictionary;
}

QByteArrayList PronouncingDictionary::pronunciations(const QString &word) const
{
    return m_words.value(word);
}

void PronouncingDictionary::set(const QString &word, const QByteArrayList &pronunciations)
{
    m_words.insert(word, pronunciations);
}

QByteArray PronouncingDictionary::lines(QStringList words) const
{
    words.sort();
    QByteArray text;
    for (const QString &word : std::as_const(words)) {
        int way = 0;
        for (const QByteArray &pronunciation : pronunciations(word)) {
            ++way;
            const QByteArray number = way == 1 ? QByteArray() : '(' + QByteArray::number(way) + ')';
            text += word.toUtf8() + number + ' ' + pronunciation + '\n';
        }
    }
    return text;
}

} // namespace KelvaLR
