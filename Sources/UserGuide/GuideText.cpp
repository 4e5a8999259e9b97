#include "GuideText.h"

#include "Services/Lightroom/Language/SpokenNumbers.h"
#include "Support/NormalizedWords.h"
#include "Support/WakePhrases.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace KelvaLR::UserGuide {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView tableEnd = u"<!-- end -->";

/// The name in a line that begins a generated part; empty in any other.
QString tableBegun(const QString &line)
{
    static const QRegularExpression marker(u"^<!-- generated: ([a-z-]+) -->$"_s);
    return marker.match(line).captured(1);
}

/// A marker before a table, with that table's rows.
struct MarkedTable
{
    QRegularExpressionMatch marker;
    QStringList firstCells;
};

QList<MarkedTable> tablesBehind(const QString &guide, const QRegularExpression &pattern)
{
    QList<MarkedTable> found;
    bool isInTable = false;
    for (const QString &line : guide.split(u'\n')) {
        if (const auto marker = pattern.match(line); marker.hasMatch()) {
            found.append({marker, {}});
            isInTable = true;
        } else if (isInTable && line.startsWith(u'|')) {
            found.last().firstCells.append(line.section(u'|', 1, 1).trimmed());
        } else {
            isInTable = false;
        }
    }
    return found;
}

QStringList allMatches(const QString &text, const QRegularExpression &pattern)
{
    QStringList matches;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(text)) {
        matches.append(match.captured(1));
    }
    return matches;
}

/// What `kelvalr --explain` is given for something said: what the wake phrase is followed by, in words that
/// are compared, with the numbers in digits. Empty when the phrase is not there.
QString commandBehindWakePhrase(const QString &said)
{
    const QString words = normalizedWords(said);
    const QStringView phrase = wakePhrases.front();
    return words.startsWith(phrase) ? withSpokenNumbersRead(words.sliced(phrase.size()).trimmed())
                                    : QString();
}

/// The generated parts by their names.
QHash<QString, QString> generatedParts(const QString &guide)
{
    QHash<QString, QString> parts;
    QString name;
    for (const QString &line : guide.split(u'\n')) {
        if (const QString begun = tableBegun(line); !begun.isEmpty()) {
            name = begun;
        } else if (line == tableEnd) {
            name.clear();
        } else if (!name.isEmpty()) {
            parts[name] += line + u'\n';
        }
    }
    return parts;
}

} // namespace

std::expected<QString, QString> withTables(const QString &guide, std::span<const GuideTable> tables)
{
    QStringList written;
    QString open; ///< the part that the line lies in
    for (const QString &line : guide.split(u'\n')) {
        const QString begun = tableBegun(line);
        if (!begun.isEmpty()) {
            const auto table = std::ranges::find(tables, begun, &GuideTable::name);
            if (table == tables.end()) {
                return std::unexpected(u"There is no table named \"%1\"."_s.arg(begun));
            }
            if (!open.isEmpty()) {
                return std::unexpected(u"The table \"%1\" has no end."_s.arg(open));
            }
            open = begun;
            written << line << table->markdown();
        } else if (line == tableEnd) {
            open.clear();
            written << line;
        } else if (open.isEmpty()) {
            written << line;
        }
    }
    if (!open.isEmpty()) {
        return std::unexpected(u"The table \"%1\" has no end."_s.arg(open));
    }
    return written.join(u'\n');
}

QStringList differingTables(const QString &guide, const QString &other)
{
    const QHash<QString, QString> parts = generatedParts(guide);
    const QHash<QString, QString> otherParts = generatedParts(other);
    QStringList names;
    for (const QString &name : otherParts.keys()) {
        if (parts.value(name) != otherParts.value(name)) {
            names.append(name);
        }
    }
    names.sort();
    return names;
}

std::expected<QList<Example>, QString> examples(const QString &guide)
{
    static const QRegularExpression marker(
        u"^<!-- (requests|spoken): ([a-z_]+) ?([A-Za-z]*)(, Lightroom in front)? -->$"_s);
    static const QRegularExpression codeSpan(u"`([^`]+)`"_s);
    QList<Example> found;
    for (const MarkedTable &table : tablesBehind(guide, marker)) {
        const QStringList texts = allMatches(table.firstCells.join(u'\n'), codeSpan);
        if (texts.isEmpty()) {
            return std::unexpected(u"No request stands behind %1."_s.arg(table.marker.captured()));
        }
        for (const QString &text : texts) {
            const bool isSpoken = table.marker.captured(1) == "spoken"_L1;
            const QString request = isSpoken ? commandBehindWakePhrase(text) : text;
            if (request.isEmpty()) {
                return std::unexpected(u"\"%1\" does not begin with the wake phrase."_s.arg(text));
            }
            found.append({.text = request,
                          .route = table.marker.captured(2),
                          .commandCase = table.marker.captured(3),
                          .isLightroomFrontmost = !table.marker.captured(4).isEmpty()});
        }
    }
    return found;
}

QStringList quotations(const QString &guide)
{
    static const QRegularExpression marker(u"^<!-- sentences -->$"_s);
    static const QRegularExpression quoted(u"^\"(.*)\"$"_s);
    static const QRegularExpression bold(uR"(\*\*([^*]+)\*\*)"_s);
    QStringList pieces;
    for (const MarkedTable &table : tablesBehind(guide, marker)) {
        for (const QString &cell : table.firstCells) {
            for (const QString &piece : quoted.match(cell).captured(1).split(u'…')) {
                pieces.append(piece.trimmed());
            }
        }
    }
    pieces += allMatches(guide, bold);
    pieces.removeAll(QString());
    pieces.removeDuplicates();
    return pieces;
}

} // namespace KelvaLR::UserGuide
