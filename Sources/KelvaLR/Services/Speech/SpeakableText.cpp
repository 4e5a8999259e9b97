#include "Services/Speech/SpeakableText.h"

#include "Support/Sentences.h"

#include <QRegularExpression>
#include <QStringList>

#include <optional>
#include <vector>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// Most of a minute of speech.
constexpr qsizetype longText = 600;
/// Where a sentence without an end is cut.
constexpr qsizetype longestText = 900;
/// What stands further behind in one line is never said; it bounds the work on a line that is no prose.
constexpr qsizetype longestLine = 4000;

struct Replacement
{
    QRegularExpression pattern;
    QString words;
};

QString replacedInOrder(QString text, const std::vector<Replacement> &replacements)
{
    for (const Replacement &replacement : replacements) {
        text.replace(replacement.pattern, replacement.words);
    }
    return text;
}

/// Markers inside a line, targets before the markers that they may hold.
QString plainWords(const QString &line)
{
    static const std::vector<Replacement> replacements{
        {QRegularExpression(uR"(!?\[([^\]]*)\](?:\([^)]*\)|\[[^\]]*\]))"_s), u"\\1"_s},
        {QRegularExpression(uR"(<?\bhttps?://(?:www\.)?([^\s/<>)]+)(?:/[^\s<>)]*[^\s<>).,;:!?])?/?>?)"_s),
         u"\\1"_s},
        {QRegularExpression(uR"(</?[A-Za-z][^<>]*>)"_s), u" "_s},
        {QRegularExpression(u"&nbsp;"_s), u" "_s},
        {QRegularExpression(u"&lt;"_s), u"<"_s},
        {QRegularExpression(u"&gt;"_s), u">"_s},
        {QRegularExpression(u"&quot;"_s), u"\""_s},
        {QRegularExpression(u"&amp;"_s), u"&"_s},
        {QRegularExpression(uR"(\\(?=[!-/:-@\[-`{-~]))"_s), {}},
        {QRegularExpression(uR"(#(?=\d))"_s), u"number "_s},
        {QRegularExpression(uR"([*`#]|~~|(?<!\w)_+|_+(?!\w))"_s), {}},
    };
    return replacedInOrder(line, replacements).simplified();
}

bool endsLikeASentence(QStringView text)
{
    return !text.isEmpty() && QStringView(u".!?:;,…").contains(text.back());
}

/// Collects what is said, and ends each of its sentences.
class Speech
{
public:
    [[nodiscard]] qsizetype size() const { return m_text.size(); }

    void append(const QString &words)
    {
        if (!words.isEmpty()) {
            m_text += m_text.isEmpty() ? words : u' ' + words;
        }
    }

    void endSentence()
    {
        if (!m_text.isEmpty() && !endsLikeASentence(m_text)) {
            m_text += u'.';
        }
    }

    void appendSentence(const QString &words)
    {
        endSentence();
        append(words);
        endSentence();
    }

    [[nodiscard]] const QString &text() const { return m_text; }

private:
    QString m_text;
};

/// Rules, the lines under headings and table heads, and link definitions.
bool isSilent(const QString &line)
{
    static const QRegularExpression silent(
        uR"(^(?:(?:[-*_=] ?){3,}|\|?[ :|]*-[-:| ]*\|[-:| ]*|\[[^\]]+\]: .*)$)"_s);
    return silent.match(line).hasMatch();
}

QString tableRow(const QString &line)
{
    QStringList cells;
    for (const QString &cell : line.split(u'|')) {
        if (const QString words = plainWords(cell); !words.isEmpty()) {
            cells.append(words);
        }
    }
    return cells.join(u", "_s);
}

void appendLine(Speech &speech, QString line)
{
    static const QRegularExpression quote(u"^(?:> ?)+"_s);
    static const QRegularExpression heading(uR"(^#{1,6}\s+)"_s);
    static const QRegularExpression bullet(uR"(^[-*+]\s+(?:\[[ xX]\]\s+)?)"_s);
    static const QRegularExpression number(uR"(^(\d{1,3})[.)]\s+)"_s);
    line = line.remove(quote).trimmed();
    if (line.isEmpty()) {
        speech.endSentence();
    } else if (isSilent(line)) {
        return;
    } else if (line.startsWith(u'|')) {
        speech.appendSentence(tableRow(line));
    } else if (line.contains(heading)) {
        speech.appendSentence(plainWords(line.remove(heading)));
    } else if (line.contains(bullet)) {
        speech.endSentence();
        speech.append(plainWords(line.remove(bullet)));
    } else if (line.contains(number)) {
        speech.endSentence();
        speech.append(plainWords(line.replace(number, u"\\1, "_s)));
    } else {
        speech.append(plainWords(line));
    }
}

/// A text that gets long ends after the sentence in which it does.
QString bounded(const QString &text)
{
    QString spoken;
    for (const QString &sentence : sentences(text)) {
        if (spoken.size() >= longText) {
            break;
        }
        spoken += sentence;
    }
    if (spoken.size() <= longestText) {
        return spoken.trimmed();
    }
    const qsizetype blank = spoken.lastIndexOf(u' ', longestText);
    return spoken.first(blank > 0 ? blank : longestText);
}

} // namespace

QString speakableText(const QString &markdown)
{
    Speech speech;
    std::optional<QString> fence;
    for (const QStringView part : QStringView(markdown).tokenize(u'\n')) {
        const QString line = part.left(longestLine).trimmed().toString();
        const QString marker = line.left(3);
        if (marker == fence) {
            fence.reset();
        } else if (!fence && (marker == u"```"_s || marker == u"~~~"_s)) {
            fence = marker;
            speech.endSentence();
        } else if (!fence) {
            appendLine(speech, line);
        }
        if (speech.size() > longestText) {
            break;
        }
    }
    speech.endSentence();
    return bounded(speech.text());
}

} // namespace KelvaLR
